// Options that several commands share, in the spelling that they share.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "app/context.h"

namespace ledgerwick::app {

// `DB`, the database file.
CLI::Option* addDatabase(CLI::App& command, std::string& path);

// A date as 2016-04-29, or day first as people write it.
CLI::Option* addDate(CLI::App& command, const std::string& name, Date& date,
                     const std::string& help);

// One of the names of the pay frequencies.
CLI::Option* addFrequency(CLI::App& command, PR_Pay_Freq& frequency, const std::string& help);

}  // namespace ledgerwick::app
