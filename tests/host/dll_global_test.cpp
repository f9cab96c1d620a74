#include "ledgerwick/host/dll_global.h"

#include <gtest/gtest.h>

#include <cstdlib>
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

const struct {
    const char* name;
    void (Identify::*set)(ObjectRef);
    std::function<Object*()> use;
    std::shared_ptr<Object> fitting;
} references[] = {
    {"CallerGlobal", &Identify::SetCallerGlobal, [] { return &DLLGlobal::CallerGlobal(); },
     std::make_shared<HostGlobal>()},
    {"g", &Identify::Setg, [] { return &DLLGlobal::g(); }, std::make_shared<HostState>()},
    {"fp", &Identify::Setfp, [] { return &DLLGlobal::fp(); }, std::make_shared<FileFunctions>()},
    {"DAO_ADO", &Identify::SetDAO_ADO, [] { return &DLLGlobal::DAO_ADO(); },
     std::make_shared<DataAccess>()},
    {"pf", &Identify::Setpf, [] { return &DLLGlobal::pf(); }, std::make_shared<ProgramFunctions>()},
    {"EmployeeList", &Identify::SetEmployeeList, [] { return &DLLGlobal::EmployeeList(); },
     std::make_shared<CEmployeeList>()},
};

TEST(References, HoldWhatIsSetBeyondTheIdentifyAndFailOnlyAtTheirUse) {
    const auto stranger = std::make_shared<Stranger>();
    for (const auto& reference : references) {
        SCOPED_TRACE(reference.name);
        const auto set = [&](const ObjectRef& object) { (Identify().*reference.set)(object); };
        set(reference.fitting);
        EXPECT_EQ(reference.use(), reference.fitting.get());
        EXPECT_EQ(reference.fitting.use_count(), 2) << "kept alive";
        if (reference.set != &Identify::SetCallerGlobal) {
            set(stranger);
            EXPECT_EQ(stranger.use_count(), 2);
            EXPECT_EQ(errorOf(reference.use), (Told{error_number::noSuchMember, reference.name}));
        }
        set(nullptr);
        EXPECT_EQ(errorOf(reference.use), (Told{error_number::objectNotSet, reference.name}));
    }
}

TEST(References, TheCallersGlobalMustOfferItsAppAndTheReportFunctionsNothing) {
    FakeHost host;
    Identify identify;
    const auto global = std::make_shared<HostGlobal>();
    const auto stranger = std::make_shared<Stranger>();
    identify.SetCallerGlobal(global);
    EXPECT_EQ(errorOf([&] { identify.SetCallerGlobal(stranger); }),
              (Told{error_number::typeMismatch, "SetCallerGlobal"}));
    EXPECT_EQ(&DLLGlobal::CallerGlobal(), global.get()) << "the reference stays as it was";
    identify.SetARFuncs(stranger);
    EXPECT_EQ(DLLGlobal::references().ARFuncs, stranger);
}

TEST(References, EachThreadHasItsOwn) {
    FakeHost host;
    std::int32_t inNewThread = 0;
    const auto other = std::make_shared<HostState>();
    std::thread([&] {
        inNewThread = raisedBy([] { DLLGlobal::g(); });
        Identify().Setg(other);
    }).join();
    EXPECT_EQ(inNewThread, error_number::objectNotSet);
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

// A host whose link is static goes after the references of the main thread.
TEST(References, MayBeClearedBehindTheEndOfTheirThread) {
    const auto end = [] {
        Identify().Setg(std::make_shared<HostState>());
        std::atexit([] {
            Identify().Setg(std::make_shared<HostState>());
            Identify().Setg(nullptr);
            std::_Exit(DLLGlobal::references().g ? 1 : 0);
        });
        std::exit(2);
    };
    EXPECT_EXIT(end(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace ledgerwick
