// The texts of an employee lie in one stretch of memory: each begins blank, what is set is read back,
// and no other moves.
#include <gtest/gtest.h>

#include <string>

#include "ledgerwick/employee/employee.h"

namespace ledgerwick::test {
namespace {

struct Text {
    const char* name;
    std::string (cEmployee::*get)() const;
    void (cEmployee::*set)(std::string_view);
};

const Text texts[] = {
    {"IID", &cEmployee::IID, &cEmployee::IID},
    {"SortSeq", &cEmployee::SortSeq, &cEmployee::SortSeq},
    {"NINO", &cEmployee::NINO, &cEmployee::NINO},
    {"Sex", &cEmployee::Sex, &cEmployee::Sex},
    {"Add1", &cEmployee::Add1, &cEmployee::Add1},
    {"Add2", &cEmployee::Add2, &cEmployee::Add2},
    {"PostCode", &cEmployee::PostCode, &cEmployee::PostCode},
    {"Email", &cEmployee::Email, &cEmployee::Email},
    {"Phone_Home", &cEmployee::Phone_Home, &cEmployee::Phone_Home},
    {"Phone_Mobile", &cEmployee::Phone_Mobile, &cEmployee::Phone_Mobile},
    {"Phone_Work", &cEmployee::Phone_Work, &cEmployee::Phone_Work},
    {"Village", &cEmployee::Village, &cEmployee::Village},
    {"Town", &cEmployee::Town, &cEmployee::Town},
    {"County", &cEmployee::County, &cEmployee::County},
    {"Country", &cEmployee::Country, &cEmployee::Country},
    {"Seq", &cEmployee::Seq, &cEmployee::Seq},
    {"NITable", &cEmployee::NITable, &cEmployee::NITable},
    {"TaxCode", &cEmployee::TaxCode, &cEmployee::TaxCode},
    {"UserRef", &cEmployee::UserRef, &cEmployee::UserRef},
};

TEST(Employee, TextsBeginBlankAndStoreTheirOwnValueOnly) {
    for (const Text& changed : texts) {
        SCOPED_TRACE(std::string("set ") + changed.name);
        cEmployee employee;
        (employee.*changed.set)("A text that does not fit in place");
        for (const Text& read : texts) {
            EXPECT_EQ((employee.*read.get)(),
                      &read == &changed ? "A text that does not fit in place" : "")
                << "read " << read.name;
        }
    }
}

}  // namespace
}  // namespace ledgerwick::test
