#include "ledgerwick/host/dll_global.h"

#include <string_view>
#include <utility>

#include "ledgerwick/host/module_references.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::DLLGlobal {
namespace {

// A reference as the interface that its users need, so that a use costs no cast. The pointer is null
// when the reference is empty or its object does not offer the interface.
template <class Interface>
struct Use {
    Interface* object = nullptr;
    bool isHeld = false;
};

struct Uses {
    Use<HostGlobal> CallerGlobal;
    Use<HostState> g;
    Use<FileFunctions> fp;
    Use<DataAccess> DAO_ADO;
    Use<ProgramFunctions> pf;
    bool ended = false;  // the thread is at its end, and nothing is held any more
};
constinit thread_local Uses uses;

// At the end of a thread the uses are cleared before the objects, so that an object whose destructor
// looks for another finds an empty reference.
struct Held : References {
    Held() = default;
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() {
        uses = {};
        uses.ended = true;
    }
};
thread_local Held held;

// What an object of the host finds that outlives the thread's references, such as a static one.
const References& nothing() {
    static const auto* const none = new References;
    return *none;
}

// A reference that is held only, or whose class stands above this room.
void hold(ObjectRef References::*reference, ObjectRef object) noexcept {
    if (!uses.ended) (held.*reference).swap(object);
}

// The old object is destroyed last: its destructor finds the new one in place.
template <class Interface>
void hold(ObjectRef References::*reference, Use<Interface> Uses::*use, ObjectRef object) noexcept {
    if (uses.ended) return;
    (held.*reference).swap(object);
    Object* now = (held.*reference).get();
    uses.*use = {dynamic_cast<Interface*>(now), now != nullptr};
}

template <class Interface>
Interface& used(const Use<Interface>& use, std::string_view name) {
    if (use.object) return *use.object;
    raise(use.isHeld ? error_number::noSuchMember : error_number::objectNotSet, name);
}

}  // namespace

HostGlobal& CallerGlobal() {
    return used(uses.CallerGlobal, "CallerGlobal");
}
HostState& g() {
    return used(uses.g, "g");
}
FileFunctions& fp() {
    return used(uses.fp, "fp");
}
DataAccess& DAO_ADO() {
    return used(uses.DAO_ADO, "DAO_ADO");
}
ProgramFunctions& pf() {
    return used(uses.pf, "pf");
}

const References& references() {
    return uses.ended ? nothing() : held;
}

std::int32_t currentPayrollYear() {
    return g().g_rsPRControl().GetInt32(field::PRCFCurrentYear);
}

void holdCallerGlobal(ObjectRef object) {
    hold(&References::CallerGlobal, &Uses::CallerGlobal, std::move(object));
}
void holdG(ObjectRef object) {
    hold(&References::g, &Uses::g, std::move(object));
}
void holdFp(ObjectRef object) {
    hold(&References::fp, &Uses::fp, std::move(object));
}
void holdDAO_ADO(ObjectRef object) {
    hold(&References::DAO_ADO, &Uses::DAO_ADO, std::move(object));
}
void holdARFuncs(ObjectRef object) {
    hold(&References::ARFuncs, std::move(object));
}
void holdPf(ObjectRef object) {
    hold(&References::pf, &Uses::pf, std::move(object));
}
void holdEmployeeList(ObjectRef object) {
    hold(&References::EmployeeList, std::move(object));
}

}  // namespace ledgerwick::DLLGlobal
