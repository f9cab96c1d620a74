// What the text of a letter's template may hold: placeholders, and one block for earlier years.
//
//   Dear %Forename%, you earn more than £%AETrigger£W% a week.
//   $Pre16_18Text$[This sentence stands in letters of payroll years before 18.]
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "ledgerwick/export.h"

namespace ledgerwick {

// The values that a template can show, each set through the let of `CAELetterDetail` of that name.
enum class LetterValue : std::uint8_t {
    EmployeeForename,
    AETriggerGBP_M,
    AETriggerGBP_A,
    AETriggerGBP_W,
    AEMinContribPct,
    AEMinEmployerContribPct,
    AEMinEmployeeContribPct,
    PensionProvider,
    LELGBP_M,
    LELGBP_W,
    AETriggerAge,
    PayDateFull,
    AEPostponementEndDate,
};

// How a value stands in a template, and the picture by which it is written there; texts have none.
struct LetterPlaceholder {
    LetterValue value;         // what is printed
    std::string_view text;     // as it stands in a template, "%Forename%"
    std::string_view picture;  // how it is written; empty for a text
};

// Every placeholder that there is, in the order of `LetterValue`. Case counts in templates.
inline constexpr std::array letterPlaceholders{
    LetterPlaceholder{LetterValue::EmployeeForename, "%Forename%", ""},
    LetterPlaceholder{LetterValue::AETriggerGBP_M, "%AETrigger£M%", "###0"},
    LetterPlaceholder{LetterValue::AETriggerGBP_A, "%AETrigger£A%", "#,##0"},
    LetterPlaceholder{LetterValue::AETriggerGBP_W, "%AETrigger£W%", "###0"},
    LetterPlaceholder{LetterValue::AEMinContribPct, "%AEMinContrib%", "###0"},
    LetterPlaceholder{LetterValue::AEMinEmployerContribPct, "%AEMinEmployerContrib%", "###0"},
    LetterPlaceholder{LetterValue::AEMinEmployeeContribPct, "%AEMinEmployeeContrib%", "###0"},
    LetterPlaceholder{LetterValue::PensionProvider, "%PensionProvider%", ""},
    LetterPlaceholder{LetterValue::LELGBP_M, "%LEL£M%", "###0"},
    LetterPlaceholder{LetterValue::LELGBP_W, "%LEL£W%", "###0"},
    LetterPlaceholder{LetterValue::AETriggerAge, "%AETriggerAge%", " ###0"},
    LetterPlaceholder{LetterValue::PayDateFull, "%PayDateFull%", " dd mmmm yyyy"},
    LetterPlaceholder{LetterValue::AEPostponementEndDate, "%AEPostponementEndDate%",
                      " dd mmmm yyyy"},
};

// The placeholder of a value.
constexpr const LetterPlaceholder& placeholderOf(LetterValue value) noexcept {
    return letterPlaceholders[static_cast<std::size_t>(value)];
}

// The tag in front of a year block; # is a digit.
inline constexpr std::string_view yearTagPattern = "$Pre##_##Text$";

// A tag and the block after it: "$PreAA_BBText$[text]", for letters of payroll years before BB.
struct YearBlock {
    std::size_t begin;                         // of the tag
    std::size_t end = std::string_view::npos;  // of the first "]" after it, if there is one
    bool isOpened = false;                     // "[" follows the tag directly
    int beforeYear = 0;                        // BB; AA is not read

    // Whether a letter treats the block; it leaves any other as it is.
    bool isSound() const noexcept { return isOpened && end != std::string_view::npos; }
};

// The first well-formed tag at or after `from`, with its block. A letter treats the first tag of
// the text and no other.
// Errors: none.
LEDGERWICK_API std::optional<YearBlock> findYearBlock(std::string_view text,
                                                      std::size_t from = 0) noexcept;

}  // namespace ledgerwick
