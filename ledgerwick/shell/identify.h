// The class through which a host links to the library.
//
//   auto id = std::make_shared<Identify>();     // acquires the data-access object
//   id->Setg(state); id->Setpf(functions); id->Setfp(files); id->SetCallerGlobal(global);
//   auto list = std::make_shared<CEmployeeList>();
//   id->SetEmployeeList(list);                  // before the load: its last step looks here
//   CPayrollFunctions payroll; payroll.Init(list);
//   list->LoadEmployees(label);
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick {

// The link to the host. It has no state of its own: it fills the references of this thread, which
// outlive it. Each construction acquires the data-access object out of the library file `Fernbank`
// in the folder of this library and so overwrites `DAO_ADO`; a missing file or class leaves that
// reference empty, without an error.
class LEDGERWICK_API Identify : public Object {
  public:
    Identify();
    std::string_view TypeName() const noexcept override { return "Identify"; }

    // Always "10.8.000".
    std::string version() const;

    // Each replaces what the reference of that name held; a null pointer clears it. They take any
    // object and test nothing, except that `SetCallerGlobal` takes only an object that offers `App`.
    // Errors: 13 for `SetCallerGlobal` of another object; the reference stays as it was.
    void SetCallerGlobal(ObjectRef glbIU);
    void Setg(ObjectRef og);
    void Setfp(ObjectRef ofp);
    // Comes after the last construction of an `Identify`, since each construction overwrites it.
    void SetDAO_ADO(ObjectRef oDAO_ADO);
    void SetARFuncs(ObjectRef oARFuncs);
    void Setpf(ObjectRef opf);
    void SetEmployeeList(ObjectRef oEmployeeList);
};

// The private reference behind the member `identifyClass` of seven classes: empty until the first
// read, which makes the object; later reads give the same one.
class LEDGERWICK_API IdentifyHolder {
  public:
    Variant get();

  private:
    std::shared_ptr<Identify> identify_;
};

}  // namespace ledgerwick
