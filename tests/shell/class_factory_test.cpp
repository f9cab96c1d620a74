#include "ledgerwick/shell/class_factory.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ledgerwick/autoenrol/ae_letter_detail.h"
#include "ledgerwick/autoenrol/auto_enrol_status.h"
#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/shell/payroll_functions.h"
#include "tests/support/expect.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::Told;

constexpr const char* creatable[] = {
    "CEmployeeList",
    "cEmployee",
    "cEmployment",
    "CPayment",
    "CPayrollFunctions",
    "CImportedEarnings",
    "cDSItem",
    "CAutoEnrolStatus",
    "CAELetterDetail",
    "Identify",
    "Enum_Declarations_B_Only",
};

TEST(ClassFactory, MakesEachPublicClassByItsName) {
    for (const std::string name : creatable) {
        const auto object = CreateObject("Ledgerwick." + name);
        ASSERT_TRUE(object) << name;
        EXPECT_EQ(object->TypeName(), name);
        EXPECT_EQ(object.use_count(), 1) << "a new one each time";
    }
    EXPECT_EQ(CreateObject("LEDGERWICK.cemployeelist")->TypeName(), "CEmployeeList");
}

TEST(ClassFactory, RefusesOtherNames) {
    for (const std::string name :
         {"Ledgerwick.Enum_Declarations", "Ledgerwick.CEmployees", "Ledgerwick.", "Ledgerwick",
          "CEmployeeList", "", ".", "Other.CEmployeeList", "Ledgerwick.CEmployeeList "}) {
        EXPECT_EQ(errorOf([&] { CreateObject(name); }),
                  (Told{error_number::cannotCreateObject, "CreateObject"}))
            << name;
    }
}

TEST(ClassFactory, SevenClassesLeadToTheLink) {
    const auto leads = [](auto& object) { return object.identifyClass().isObject(); };
    CEmployeeList list;
    cEmployee employee;
    cEmployment employment;
    CPayrollFunctions payroll;
    CAutoEnrolStatus status;
    CPayment payment;
    CAELetterDetail letter;
    EXPECT_TRUE(leads(list) && leads(employee) && leads(employment) && leads(payroll) &&
                leads(status) && leads(payment) && leads(letter));
}

TEST(EntryPoints, GiveAnObjectOverToALoader) {
    void* given = nullptr;
    ASSERT_EQ(DllGetClassObject("Ledgerwick.CPayment", &given), 0);
    const std::unique_ptr<ObjectRef> object(static_cast<ObjectRef*>(given));
    EXPECT_EQ((*object)->TypeName(), "CPayment");
}

TEST(EntryPoints, TellAnUnknownClassWithoutThrowing) {
    int untouched = 0;
    void* given = &untouched;
    EXPECT_EQ(DllGetClassObject("Ledgerwick.Enum_Declarations", &given), -1);
    EXPECT_EQ(DllGetClassObject(nullptr, &given), -1);
    EXPECT_EQ(DllGetClassObject("Ledgerwick.CPayment", nullptr), -1);
    EXPECT_EQ(given, &untouched);
}

TEST(EntryPoints, RegisterNothingAndStayLoaded) {
    EXPECT_EQ(DllRegisterServer(), 0);
    EXPECT_EQ(DllUnregisterServer(), 0);
    EXPECT_EQ(DllCanUnloadNow(), 1);
}

}  // namespace
}  // namespace ledgerwick
