// What is wrong with a letter template, before a worker gets to see it.
//
//   for (const auto& fault : templateFaults(bytes, fillsIt)) ...
//   // 3:12 %forename% is no placeholder; %Forename% is
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/export.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::office {

// Line and column count from 1, columns in characters.
struct TemplateFault {
    // Line, from 1.
    std::size_t line;
    // Column, from 1.
    std::size_t column;
    // What is wrong.
    std::string what;
};

// Says why a letter leaves the placeholder of a value unfilled; empty when it fills it.
using WhyUnfilled = std::function<std::string(LetterValue)>;

// Judges a template by its bytes, as a letter reads them: unknown placeholders, placeholders that
// stay unfilled, malformed year blocks, and texts in another encoding than code page 1252.
// Shape:  in the order of the text.
LEDGERWICK_HOSTKIT_API std::vector<TemplateFault> templateFaults(std::string_view bytes,
                                                                 const WhyUnfilled& whyUnfilled);

}  // namespace ledgerwick::office
