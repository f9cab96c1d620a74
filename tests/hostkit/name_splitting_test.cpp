// Names written as one line, split into their parts. Each row is a way in which people write names.
#include <gtest/gtest.h>

#include <string>

#include "hostkit/services/customer_functions.h"

namespace ledgerwick {
namespace {

struct NameCase {
    const char* name;
    const char* title;
    const char* forename1;
    const char* forename2;
    const char* otherForenames;
    const char* surname;
};

void PrintTo(const NameCase& row, std::ostream* out) {
    *out << row.name;
}

class NameSplitting : public testing::TestWithParam<NameCase> {};

TEST_P(NameSplitting, GivesTheParts) {
    const NameCase& row = GetParam();
    const NameParts parts = splitName(row.name);
    EXPECT_EQ(parts.title, row.title);
    EXPECT_EQ(parts.forename1, row.forename1);
    EXPECT_EQ(parts.forename2, row.forename2);
    EXPECT_EQ(parts.otherForenames, row.otherForenames);
    EXPECT_EQ(parts.surname, row.surname);
}

const NameCase plainNames[] = {
    {"Mr John Smith", "Mr", "John", "", "", "Smith"},
    {"John Smith", "", "John", "", "", "Smith"},
    {"Smith", "", "", "", "", "Smith"},
    {"", "", "", "", "", ""},
    {"  Mrs   Ann  Marie\tLee ", "Mrs", "Ann", "Marie", "", "Lee"},
    {"MR JOHN SMITH", "MR", "JOHN", "", "", "SMITH"},
    {"J. R. Smith", "", "J.", "R.", "", "Smith"},
    {"Mary Jane Anne Louise Brown", "", "Mary", "Jane", "Anne Louise", "Brown"},
    {"Zoë Hartley-Finch", "", "Zoë", "", "", "Hartley-Finch"},
    {"Ann Hartley - Finch", "", "Ann", "", "", "Hartley-Finch"},
};
INSTANTIATE_TEST_SUITE_P(PlainNames, NameSplitting, testing::ValuesIn(plainNames));

const NameCase titledNames[] = {
    {"Dr. Ann Lee", "Dr.", "Ann", "", "", "Lee"},
    {"Prof Dr Agnes Lindqvist", "Prof Dr", "Agnes", "", "", "Lindqvist"},
    {"The Rev Giles Thornbury", "The Rev", "Giles", "", "", "Thornbury"},
    {"Mr & Mrs Smith", "Mr & Mrs", "", "", "", "Smith"},
    {"Lady Merrow", "Lady", "", "", "", "Merrow"},
    {"Sir", "", "", "", "", "Sir"},  // a name is always left
};
INSTANTIATE_TEST_SUITE_P(TitledNames, NameSplitting, testing::ValuesIn(titledNames));

const NameCase longSurnames[] = {
    {"Piet van der Berg", "", "Piet", "", "", "van der Berg"},
    {"van der Berg", "", "", "", "", "van der Berg"},
    {"Ms Beatriz de Souza", "Ms", "Beatriz", "", "", "de Souza"},
    {"Mrs De La Cruz", "Mrs", "", "", "", "De La Cruz"},
    {"Oliver St John", "", "Oliver", "", "", "St John"},
    {"Oliver St John Gogarty", "", "Oliver", "St John", "", "Gogarty"},
    {"Duncan Mac Leòid", "", "Duncan", "", "", "Mac Leòid"},
    {"José Ortega y Gasset", "", "José", "", "", "Ortega y Gasset"},
    {"Ben Smith", "", "Ben", "", "", "Smith"},            // a forename, when it is the first
    {"Ali Ben Hassan", "", "Ali", "", "", "Ben Hassan"},  // and a particle behind another
    {"Mr Al Green", "Mr", "Al", "", "", "Green"},
    {"Fatima al Rashid", "", "Fatima", "", "", "al Rashid"},
};
INSTANTIATE_TEST_SUITE_P(LongSurnames, NameSplitting, testing::ValuesIn(longSurnames));

const NameCase endings[] = {
    {"John Smith Jr", "", "John", "", "", "Smith Jr"},
    {"Mr Gareth Bowen Snr.", "Mr", "Gareth", "", "", "Bowen Snr."},
    {"Ray Senior", "", "Ray", "", "", "Senior"},  // here it is the surname
    {"Ann Lee MBE PhD", "", "Ann", "", "", "Lee"},
    {"Jack Ma", "", "Jack", "", "", "Ma"},  // and no degree
    {"John Smith, MBE", "", "John", "", "", "Smith"},
    {"John Smith, Jr", "", "John", "", "", "Smith Jr"},
};
INSTANTIATE_TEST_SUITE_P(Endings, NameSplitting, testing::ValuesIn(endings));

const NameCase surnameFirst[] = {
    {"Smith, John Paul", "", "John", "Paul", "", "Smith"},
    {"van der Berg, Mr Piet", "Mr", "Piet", "", "", "van der Berg"},
    {"Smith, Mr", "Mr", "", "", "", "Smith"},
    {"Smith,", "", "", "", "", "Smith"},
    {"Smith, John, MBE", "", "John", "", "", "Smith"},
    {", John", "", "", "", "", "John"},
};
INSTANTIATE_TEST_SUITE_P(SurnameFirst, NameSplitting, testing::ValuesIn(surnameFirst));

TEST(KitCustomerFunctions, WritesEveryPartAndNoIdentifier) {
    std::string title = "old", forename1 = "old", forename2 = "old", surname = "old",
                others = "old";
    std::int32_t otherId = 7;
    KitCustomerFunctions().SplitContactName("Ann Lee", title, forename1, forename2, surname, others,
                                            otherId);
    EXPECT_EQ(title + "|" + forename1 + "|" + forename2 + "|" + surname + "|" + others,
              "|Ann||Lee|");
    EXPECT_EQ(otherId, 0);
}

}  // namespace
}  // namespace ledgerwick
