#include "ledgerwick/host/fernbank.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "tests/support/expect.h"
#include "tests/support/fake_host.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::FakeHost;
using test::Told;

const std::filesystem::path folder = FERNBANK_FOLDER;

TEST(Fernbank, BringsTheDataAccessObjectWithTheDatabaseOfTheThread) {
    const auto object = dataAccessFrom(folder / "good");
    const auto dataAccess = std::dynamic_pointer_cast<DataAccess>(object);
    ASSERT_TRUE(dataAccess);
    EXPECT_EQ(errorOf([&] { dataAccess->TempTableExists("PRPayImport"); }),
              (Told{error_number::objectNotSet, "g"}));
    FakeHost host;
    EXPECT_TRUE(dataAccess->TempTableExists("PRPayImport"));
    EXPECT_NE(dataAccessFrom(folder / "good"), object) << "one for each construction";
}

TEST(Fernbank, WhateverIsMissingLeavesAnEmptyReference) {
    for (const char* kind :
         {"no_folder", "no_library", "without_entry_point", "without_class", "failing"}) {
        EXPECT_EQ(dataAccessFrom(folder / kind), nullptr) << kind;
    }
}

}  // namespace
}  // namespace ledgerwick
