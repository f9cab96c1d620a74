// Names written as one line, split into their parts. Each row is a way in which people write names.
#include <gtest/gtest.h>

#include <string>

#include "hostkit/services/customer_functions.h"

namespace ledgerwick {
namespace {

struct NameCase {
    const char* name;
    const char* parts;  // title|forename1|forename2|other forenames|surname
};

const NameCase names[] = {
    {"John Smith", "|John|||Smith"},
    {"", "||||"},
    {"  Mrs   Ann  Marie\tLee ", "Mrs|Ann|Marie||Lee"},
    {"MR JOHN SMITH", "MR|JOHN|||SMITH"},
    {"J. R. Smith", "|J.|R.||Smith"},
    {"Mary Jane Anne Louise Brown", "|Mary|Jane|Anne Louise|Brown"},
    {"Ann Hartley - Finch", "|Ann|||Hartley-Finch"},
    {"Dr. Ann Lee", "Dr.|Ann|||Lee"},
    {"Prof Dr Agnes Lindqvist", "Prof Dr|Agnes|||Lindqvist"},
    {"The Rev Giles Thornbury", "The Rev|Giles|||Thornbury"},
    {"Mr & Mrs Smith", "Mr & Mrs||||Smith"},
    {"Sir", "||||Sir"},  // a name is always left
    {"Piet van der Berg", "|Piet|||van der Berg"},
    {"Oliver St John", "|Oliver|||St John"},
    {"Oliver St John Gogarty", "|Oliver|St John||Gogarty"},
    {"José Ortega y Gasset", "|José|||Ortega y Gasset"},
    {"Ben Smith", "|Ben|||Smith"},            // a forename, when it is the first
    {"Ali Ben Hassan", "|Ali|||Ben Hassan"},  // and a particle behind another
    {"John Smith Jr", "|John|||Smith Jr"},
    {"Mr Gareth Bowen Snr.", "Mr|Gareth|||Bowen Snr."},
    {"Ray Senior", "|Ray|||Senior"},  // here it is the surname
    {"Ann Lee MBE PhD", "|Ann|||Lee"},
    {"Jack Ma", "|Jack|||Ma"},  // and no degree
    {"John Smith, Jr", "|John|||Smith Jr"},
    {"Smith, John Paul", "|John|Paul||Smith"},
    {"van der Berg, Mr Piet", "Mr|Piet|||van der Berg"},
    {"Smith, Mr", "Mr||||Smith"},
    {"Smith, John, MBE", "|John|||Smith"},
    {", John", "||||John"},
};

TEST(NameSplitting, WritesEveryPartAndNoIdentifier) {
    for (const auto& [name, parts] : names) {
        std::string title = "old", forename1 = title, forename2 = title, surname = title;
        std::string others = title;
        std::int32_t otherId = 7;
        KitCustomerFunctions().SplitContactName(name, title, forename1, forename2, surname, others,
                                                otherId);
        EXPECT_EQ(title + "|" + forename1 + "|" + forename2 + "|" + others + "|" + surname, parts)
            << name;
        EXPECT_EQ(otherId, 0);
    }
}

}  // namespace
}  // namespace ledgerwick
