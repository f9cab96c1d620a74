#include "ledgerwick/host/identify.h"

#include <utility>

#include "ledgerwick/host/fernbank.h"
#include "ledgerwick/host/host.h"
#include "ledgerwick/host/module_references.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {

Identify::Identify() {
    const auto folder = componentFolder();
    DLLGlobal::holdDAO_ADO(folder.empty() ? nullptr : dataAccessFrom(folder));
}

std::string Identify::version() const {
    return "10.8.000";
}

void Identify::SetCallerGlobal(ObjectRef glbIU) {
    if (glbIU && !dynamic_cast<HostGlobal*>(glbIU.get())) {
        raise(error_number::typeMismatch, "SetCallerGlobal");
    }
    DLLGlobal::holdCallerGlobal(std::move(glbIU));
}

void Identify::Setg(ObjectRef og) {
    DLLGlobal::holdG(std::move(og));
}
void Identify::Setfp(ObjectRef ofp) {
    DLLGlobal::holdFp(std::move(ofp));
}
void Identify::SetDAO_ADO(ObjectRef oDAO_ADO) {
    DLLGlobal::holdDAO_ADO(std::move(oDAO_ADO));
}
void Identify::SetARFuncs(ObjectRef oARFuncs) {
    DLLGlobal::holdARFuncs(std::move(oARFuncs));
}
void Identify::Setpf(ObjectRef opf) {
    DLLGlobal::holdPf(std::move(opf));
}
void Identify::SetEmployeeList(ObjectRef oEmployeeList) {
    DLLGlobal::holdEmployeeList(std::move(oEmployeeList));
}

Variant IdentifyHolder::get() {
    if (!identify_) identify_ = std::make_shared<Identify>();
    return Variant(ObjectRef(identify_));
}

}  // namespace ledgerwick
