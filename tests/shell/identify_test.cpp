#include "ledgerwick/shell/identify.h"

#include <gtest/gtest.h>

#include <memory>

#include "ledgerwick/shell/class_factory.h"
#include "ledgerwick/shell/dll_global.h"
#include "ledgerwick/shell/host.h"
#include "ledgerwick/shell/payroll_functions.h"

namespace ledgerwick {
namespace {

const ObjectRef& dataAccess() {
    return DLLGlobal::references().DAO_ADO;
}

TEST(Identify, EachConstructionOverwritesTheDataAccessObject) {
    Identify first;
    const auto ofTheHost = std::make_shared<DataAccess>();
    first.SetDAO_ADO(ofTheHost);
    ASSERT_EQ(dataAccess(), ofTheHost);
    Identify second;
    EXPECT_NE(dataAccess(), ofTheHost);
    EXPECT_EQ(second.version(), "10.8.000");
}

TEST(Identify, IsMadeOnceForEachObjectThatIsAskedForIt) {
    std::weak_ptr<Object> identify;
    {
        CPayrollFunctions one, other;
        const Variant first = one.identifyClass();
        identify = first.toObject();
        EXPECT_TRUE(std::dynamic_pointer_cast<Identify>(first.toObject()));
        const auto ofTheHost = std::make_shared<DataAccess>();
        Identify().SetDAO_ADO(ofTheHost);
        EXPECT_EQ(one.identifyClass(), first);
        EXPECT_EQ(dataAccess(), ofTheHost) << "a second read constructs nothing";
        EXPECT_NE(other.identifyClass(), first);
        EXPECT_NE(dataAccess(), ofTheHost) << "the read on another object does";
    }
    EXPECT_TRUE(identify.expired()) << "released with its object";
}

}  // namespace
}  // namespace ledgerwick
