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

    // The host's global object, a `HostGlobal`.
    // Errors: 13 for another object; the reference stays as it was.
    void SetCallerGlobal(ObjectRef glbIU);
    void Setg(ObjectRef og);    // the host's global state, a `HostState`
    void Setfp(ObjectRef ofp);  // the host's file functions, a `FileFunctions`
    // The data-access object, a `DataAccess`. Comes after the last construction of an `Identify`, since each construction overwrites it.
    void SetDAO_ADO(ObjectRef oDAO_ADO);
    void SetARFuncs(ObjectRef oARFuncs);  // the host's report functions; held only
    void Setpf(ObjectRef opf);            // the host's program functions, a `ProgramFunctions`
    void SetEmployeeList(ObjectRef oEmployeeList);  // the list, a `CEmployeeList`, before any load
};

// What the member `identifyClass` of seven classes returns. The first read creates the object;
// later reads return the same one.
class LEDGERWICK_API IdentifyHolder {
  public:
    Variant get();  // a Variant holding the `Identify`

  private:
    std::shared_ptr<Identify> identify_;
};

}  // namespace ledgerwick
