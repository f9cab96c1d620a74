#include "ledgerwick/shell/dll_global.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "ledgerwick/employee/employee_list.h"
#include "tests/support/expect.h"
#include "tests/support/fake_host.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::FakeHost;
using test::raisedBy;
using test::Told;

// An object that offers nothing.
struct Stranger : Object {
    std::string_view TypeName() const noexcept override { return "Stranger"; }
};

struct Reference {
    const char* name;
    void (Identify::*set)(ObjectRef);
    std::function<Object*()> use;
    ObjectRef DLLGlobal::References::*held;
    std::shared_ptr<Object> fitting;
};

const Reference references[] = {
    {"CallerGlobal", &Identify::SetCallerGlobal, [] { return &DLLGlobal::CallerGlobal(); },
     &DLLGlobal::References::CallerGlobal, std::make_shared<HostGlobal>()},
    {"g", &Identify::Setg, [] { return &DLLGlobal::g(); }, &DLLGlobal::References::g,
     std::make_shared<HostState>()},
    {"fp", &Identify::Setfp, [] { return &DLLGlobal::fp(); }, &DLLGlobal::References::fp,
     std::make_shared<FileFunctions>()},
    {"DAO_ADO", &Identify::SetDAO_ADO, [] { return &DLLGlobal::DAO_ADO(); },
     &DLLGlobal::References::DAO_ADO, std::make_shared<DataAccess>()},
    {"pf", &Identify::Setpf, [] { return &DLLGlobal::pf(); }, &DLLGlobal::References::pf,
     std::make_shared<ProgramFunctions>()},
    {"EmployeeList", &Identify::SetEmployeeList, [] { return &DLLGlobal::EmployeeList(); },
     &DLLGlobal::References::EmployeeList, std::make_shared<CEmployeeList>()},
};

TEST(References, HoldWhatIsSetUntilTheNextSet) {
    for (const auto& reference : references) {
        SCOPED_TRACE(reference.name);
        Identify identify;
        (identify.*reference.set)(nullptr);
        EXPECT_EQ(errorOf(reference.use), (Told{error_number::objectNotSet, reference.name}));
        (identify.*reference.set)(reference.fitting);
        EXPECT_EQ(reference.use(), reference.fitting.get());
        (identify.*reference.set)(nullptr);
        EXPECT_EQ(errorOf(reference.use), (Told{error_number::objectNotSet, reference.name}));
    }
}

TEST(References, TakeAnyObjectAndFailAtItsUse) {
    const auto stranger = std::make_shared<Stranger>();
    for (const auto& reference : references) {
        if (reference.set == &Identify::SetCallerGlobal) continue;
        SCOPED_TRACE(reference.name);
        Identify identify;
        (identify.*reference.set)(reference.fitting);
        (identify.*reference.set)(stranger);
        EXPECT_EQ(DLLGlobal::references().*reference.held, stranger);
        EXPECT_EQ(errorOf(reference.use), (Told{error_number::noSuchMember, reference.name}));
        (identify.*reference.set)(nullptr);
    }
}

TEST(References, TheCallersGlobalMustOfferItsApp) {
    Identify identify;
    const auto global = std::make_shared<HostGlobal>();
    identify.SetCallerGlobal(global);
    EXPECT_EQ(errorOf([&] { identify.SetCallerGlobal(std::make_shared<Stranger>()); }),
              (Told{error_number::typeMismatch, "SetCallerGlobal"}));
    EXPECT_EQ(&DLLGlobal::CallerGlobal(), global.get()) << "the reference stays as it was";
    identify.SetCallerGlobal(nullptr);
}

TEST(References, TheReportFunctionsAreHeldOnly) {
    const auto functions = std::make_shared<Stranger>();
    Identify().SetARFuncs(functions);
    EXPECT_EQ(DLLGlobal::references().ARFuncs, functions);
    Identify().SetARFuncs(nullptr);
    EXPECT_EQ(functions.use_count(), 1);
}

TEST(References, OutliveTheIdentifyAndKeepTheirObjectsAlive) {
    auto state = std::make_shared<HostState>();
    const auto* address = state.get();
    std::make_unique<Identify>()->Setg(std::move(state));
    EXPECT_EQ(&DLLGlobal::g(), address);
    Identify().Setg(nullptr);
}

TEST(References, EachThreadHasItsOwn) {
    FakeHost host;
    std::int32_t inNewThread = 0;
    const HostState* stateOfThread = nullptr;
    const auto other = std::make_shared<HostState>();
    std::thread([&] {
        inNewThread = raisedBy([] { DLLGlobal::g(); });
        Identify().Setg(other);
        stateOfThread = &DLLGlobal::g();
    }).join();
    EXPECT_EQ(inNewThread, error_number::objectNotSet);
    EXPECT_EQ(stateOfThread, other.get());
    EXPECT_EQ(&DLLGlobal::g(), host.state.get());
    EXPECT_EQ(other.use_count(), 1) << "a thread lets go of its references at its end";
}

// Looks for the host's state while it goes, and notes what that gave.
struct Searching : ProgramFunctions {
    explicit Searching(std::int32_t& found) : result(found) {}
    ~Searching() override {
        result = raisedBy([] { DLLGlobal::g(); });
    }
    std::int32_t& result;
};

TEST(References, AnObjectThatGoesWithItsThreadFindsTheOthersEmpty) {
    std::int32_t result = 0;
    std::thread([&] {
        Identify().Setg(std::make_shared<HostState>());
        Identify().Setpf(std::make_shared<Searching>(result));
    }).join();
    EXPECT_EQ(result, error_number::objectNotSet);
}

TEST(References, TheCurrentPayrollYearIsReadAfresh) {
    FakeHost host(16);
    EXPECT_EQ(DLLGlobal::currentPayrollYear(), 16);
    host.state->currentYear = 17;
    EXPECT_EQ(DLLGlobal::currentPayrollYear(), 17);
}

}  // namespace
}  // namespace ledgerwick
