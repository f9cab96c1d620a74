#include "ledgerwick/employee/employee_list.h"

#include <gtest/gtest.h>

#include <limits>

#include "ledgerwick/records/schema.h"
#include "tests/support/errors.h"
#include "tests/support/rows.h"

namespace ledgerwick::test {
namespace {

class EmployeeList : public testing::Test {
  protected:
    std::shared_ptr<cEmployee> create(std::int32_t naid, const Variant& nino = "") {
        Rows row{Row{{field::NAID, naid}, {field::PRENINO, nino}}};
        return list.CreateEmployee(row);
    }

    CEmployeeList list;
};

TEST_F(EmployeeList, FindsByKeyPositionNAIDAndNumber) {
    const auto first = create(7, "QQ123456A");
    const auto second = create(2, "QQ123456B");
    EXPECT_EQ(first, list.GetEmployeeByIndex("7"));
    EXPECT_EQ(first, list.GetEmployeeByIndex(1));
    EXPECT_EQ(second, list.GetEmployeeByIndex(2.0));
    EXPECT_EQ(second, list.GetEmployeeByNAID(2));
    EXPECT_EQ(second, list.GetEmployeeByNINO("QQ123456B"));

    list.Clear();
    EXPECT_EQ(0, list.EmployeeCount());
    EXPECT_FALSE(list.ExistsByNAID(7));
    EXPECT_FALSE(create(7, "QQ123456A")->NINODuplicated());
}

TEST_F(EmployeeList, LookUpsNeverFail) {
    create(7, "QQ123456A");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Variant strange[] = {
        0,          -1, 2, 7, 1e300, "1", "07", "x", "", Variant(), Null, nan, VariantArray(1, 2),
        ObjectRef()};
    for (const Variant& index : strange) {
        EXPECT_EQ(nullptr, list.GetEmployeeByIndex(index));
        EXPECT_FALSE(list.ExistsByIID(index));
    }
    EXPECT_EQ(nullptr, list.GetEmployeeByNAID(8));
    EXPECT_EQ(nullptr, list.GetEmployeeByNINO("qq123456a"));  // case counts

    list.Employees().Remove("7");  // behind the back of the indexes
    EXPECT_EQ(nullptr, list.GetEmployeeByNAID(7));
    EXPECT_EQ(nullptr, list.GetEmployeeByNINO("QQ123456A"));
}

TEST_F(EmployeeList, IndexesNumbersAsTheyStandAndMarksAllThatShareOne) {
    const auto blank = create(5, "   ");
    EXPECT_FALSE(create(6, "   ")->NINODuplicated() || blank->NINODuplicated());
    create(4, Null);
    EXPECT_FALSE(list.ExistsByNINO("   "));

    const auto first = create(7, " QQ123456A ");
    EXPECT_FALSE(list.ExistsByNINO("QQ123456A"));
    EXPECT_FALSE(create(8, "QQ123456A")->NINODuplicated());
    EXPECT_FALSE(first->NINODuplicated());
    EXPECT_TRUE(create(9, " QQ123456A ")->NINODuplicated());
    EXPECT_TRUE(first->NINODuplicated());
    EXPECT_EQ(first, list.GetEmployeeByNINO(" QQ123456A "));
}

TEST_F(EmployeeList, RefusesAnEmployeeTwiceOrWithoutNAID) {
    create(7);
    EXPECT_EQ(457, raisedBy([&] { create(7); }));
    Rows nobody{Row{{field::NAID, Null}, {field::PRENINO, ""}}};
    EXPECT_EQ(94, raisedBy([&] { list.CreateEmployee(nobody); }));
    EXPECT_EQ(1, list.EmployeeCount());
}

// ---- employees that the host adds ---------------------------------------------------------------

class AddedEmployee : public EmployeeList {
  protected:
    // The short codes of the list in order.
    std::string order() {
        std::string text;
        for (const auto& employee : list.Employees()) text += employee->Seq();
        return text;
    }
    std::shared_ptr<cEmployee> named(const std::string& name) {
        const auto employee = std::make_shared<cEmployee>();
        employee->Seq(name);
        return employee;
    }
};

TEST_F(AddedEmployee, StandsWhereTheHostPutsItAndReplacesTheOneUnderItsKey) {
    list.Add(named("c"), "c");
    list.Add(named("a"), "a", "c");
    list.Add(named("b"), "b", Variant(), "a");
    list.Add(named("d"), "d", Variant(), 3);
    list.Add(named("0"), Variant(), 1);
    EXPECT_EQ("0abcd", order());
    list.Add(named("B"), "b");
    EXPECT_EQ("0acdB", order());

    list.Add(named("y"), "8");
    EXPECT_FALSE(list.ExistsByNAID(8));  // known to no index
}

TEST_F(AddedEmployee, FailsForAStrangeKeyOrNeighbour) {
    list.Add(named("a"), "a");
    EXPECT_EQ(13, raisedBy([&] { list.Add(named("b"), 5); }));
    EXPECT_EQ(3265, raisedBy([&] { list.Add(named("b"), "b", "z"); }));
    EXPECT_EQ(9, raisedBy([&] { list.Add(named("b"), "b", 2); }));
    EXPECT_EQ(5, raisedBy([&] { list.Add(named("b"), "b", 1, "a"); }));
    EXPECT_EQ(91, raisedBy([&] { list.Add(nullptr, "a"); }));
    EXPECT_EQ("a", order());
    EXPECT_EQ(3265, raisedBy([&] { list.Add(named("b"), "a", "z"); }));
    EXPECT_EQ("", order());  // the one under the key had gone before
}

}  // namespace
}  // namespace ledgerwick::test
