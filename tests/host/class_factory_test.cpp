#include "ledgerwick/host/class_factory.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ledgerwick/autoenrol/ae_letter_detail.h"
#include "ledgerwick/autoenrol/auto_enrol_status.h"
#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/host/payroll_functions.h"
#include "tests/support/expect.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::Told;

TEST(ClassFactory, MakesEachPublicClassByItsName) {
    for (const std::string name :
         {"CEmployeeList", "cEmployee", "cEmployment", "CPayment", "CPayrollFunctions",
          "CImportedEarnings", "cDSItem", "CAutoEnrolStatus", "CAELetterDetail", "Identify",
          "Enum_Declarations_B_Only"}) {
        const auto object = CreateObject("LEDGERWICK." + name);
        ASSERT_TRUE(object) << name;
        EXPECT_EQ(object->TypeName(), name);
        EXPECT_EQ(object.use_count(), 1) << "a new one each time";
    }
    EXPECT_EQ(CreateObject("Ledgerwick.cemployeelist")->TypeName(), "CEmployeeList");
}

TEST(ClassFactory, RefusesOtherNames) {
    for (const std::string name :
         {"Ledgerwick.Enum_Declarations", "Ledgerwick.", "Ledgerwick", "CEmployeeList", "",
          "Other.CEmployeeList", "Ledgerwick.CEmployeeList "}) {
        EXPECT_EQ(errorOf([&] { CreateObject(name); }),
                  (Told{error_number::cannotCreateObject, "CreateObject"}))
            << name;
    }
}

template <class... Classes>
bool allLeadToTheLink() {
    return (Classes().identifyClass().isObject() && ...);
}

TEST(ClassFactory, SevenClassesLeadToTheLink) {
    EXPECT_TRUE((allLeadToTheLink<CEmployeeList, cEmployee, cEmployment, CPayrollFunctions,
                                  CAutoEnrolStatus, CPayment, CAELetterDetail>()));
}

TEST(EntryPoints, GiveAnObjectOverOrTellAFailureWithoutThrowing) {
    int untouched = 0;
    void* given = &untouched;
    EXPECT_EQ(DllGetClassObject("Ledgerwick.Enum_Declarations", &given), -1);
    EXPECT_EQ(DllGetClassObject(nullptr, &given), -1);
    EXPECT_EQ(DllGetClassObject("Ledgerwick.CPayment", nullptr), -1);
    EXPECT_EQ(given, &untouched);
    ASSERT_EQ(DllGetClassObject("Ledgerwick.CPayment", &given), 0);
    const std::unique_ptr<ObjectRef> object(static_cast<ObjectRef*>(given));
    EXPECT_EQ((*object)->TypeName(), "CPayment");
    EXPECT_EQ(DllRegisterServer(), 0);
    EXPECT_EQ(DllUnregisterServer(), 0);
    EXPECT_EQ(DllCanUnloadNow(), 1) << "stays loaded";
}

}  // namespace
}  // namespace ledgerwick
