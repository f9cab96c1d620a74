#include "hostkit/services/customer_functions.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "ledgerwick/values/text.h"

namespace ledgerwick {

namespace {

using Words = std::vector<std::string>;

constexpr std::array titles = std::to_array<std::string_view>({
    "Mr",  "Mrs",  "Miss", "Ms",  "Mx",   "Master", "Dr",   "Doctor", "Prof", "Professor",
    "Rev", "Revd", "Fr",   "Sir", "Dame", "Lord",   "Lady", "Hon",    "Rt",   "Capt",
    "Col", "Lt",   "Maj",  "Sgt", "Cllr", "Mme",    "Mlle", "Messrs",
});

// Words that begin or continue a surname of several words.
constexpr std::array particles = std::to_array<std::string_view>({
    "van", "von", "der", "den", "de",  "del", "della", "di",   "da",  "dos", "das",  "do",  "du",
    "la",  "le",  "ter", "ten", "te",  "af",  "av",    "zu",   "zur", "bin", "bint", "ibn", "ap",
    "ab",  "el",  "al",  "ben", "mac", "mc",  "saint", "fitz", "nic", "ní",  "ó",    "o'",
});

// Particles that people also bear as forenames.
constexpr std::array forenamesToo =
    std::to_array<std::string_view>({"van", "al", "ben", "mac", "del", "della", "den", "fitz"});

constexpr std::array generations = std::to_array<std::string_view>(
    {"Jr", "Jnr", "Junior", "Sr", "Snr", "Senior", "II", "III", "IV"});

// Matched with their case, since "Ma" and "Ba" are surnames; those two stand on no list at all.
constexpr std::array honours = std::to_array<std::string_view>({
    "Esq",   "ESQ", "OBE", "MBE",  "CBE", "BEM", "KBE", "DBE", "KC",   "QC",   "JP",  "PhD",
    "DPhil", "BSc", "LLB", "BEng", "MSc", "MBA", "ACA", "FCA", "ACCA", "FCCA", "RGN", "MCIPP",
});

std::string_view withoutDot(std::string_view word) {
    return word.ends_with('.') ? word.substr(0, word.size() - 1) : word;
}

bool isOneOf(std::string_view word, std::span<const std::string_view> list) {
    const std::string_view bare = withoutDot(word);
    return std::any_of(list.begin(), list.end(),
                       [bare](std::string_view entry) { return equalsIgnoringCase(bare, entry); });
}

bool isHonour(std::string_view word) {
    return std::find(honours.begin(), honours.end(), withoutDot(word)) != honours.end();
}

bool isGeneration(std::string_view word) {
    return isOneOf(word, generations);
}

bool isTitle(std::string_view word) {
    return isOneOf(word, titles);
}

// Commas part words as blanks do; the one that parts surname from forenames is looked at before.
bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == ',';
}

Words wordsOf(std::string_view text) {
    Words words;
    std::size_t at = 0;
    while (at < text.size()) {
        while (at < text.size() && isBlank(text[at])) ++at;
        const std::size_t first = at;
        while (at < text.size() && !isBlank(text[at])) ++at;
        if (at > first) words.emplace_back(text.substr(first, at - first));
    }
    return words;
}

std::string joined(std::span<const std::string> words) {
    std::string text;
    for (const std::string& word : words) {
        if (!text.empty()) text += ' ';
        text += word;
    }
    return text;
}

// "St John" is one name, and so is "Ortega y Gasset"; a hyphen between blanks joins what it parts.
Words compoundsJoined(const Words& words) {
    Words result;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool between = !result.empty() && i + 1 < words.size();
        if (between && words[i] == "-") {
            result.back() += "-" + words[++i];
        } else if (between && words[i] == "y") {
            result.back() += " y " + words[++i];
        } else if (i + 1 < words.size() && equalsIgnoringCase(withoutDot(words[i]), "St")) {
            result.push_back(words[i] + " " + words[i + 1]);
            ++i;
        } else {
            result.push_back(words[i]);
        }
    }
    return result;
}

bool joinsTitles(std::string_view word) {
    return word == "&" || equalsIgnoringCase(word, "and");
}

// The number of words in front that are titles: "The Rev Dr", "Mr & Mrs". One word is always left.
std::size_t countTitles(std::span<const std::string> words) {
    std::size_t count = 0;
    const std::size_t most = words.empty() ? 0 : words.size() - 1;
    if (most >= 2 && equalsIgnoringCase(words[0], "the") && isTitle(words[1])) count = 1;
    while (count < most && isTitle(words[count])) {
        ++count;
        if (count + 1 < most && joinsTitles(words[count]) && isTitle(words[count + 1])) {
            ++count;
        }
    }
    return count;
}

// Takes the words for which `test` holds off the end, leaves at least `least` words, and gives the
// words taken in their order.
std::span<const std::string> takeFromEnd(std::span<const std::string>& words, std::size_t least,
                                         bool (*test)(std::string_view)) {
    std::size_t count = 0;
    while (count + least < words.size() && test(words[words.size() - 1 - count])) ++count;
    const auto taken = words.last(count);
    words = words.first(words.size() - count);
    return taken;
}

bool startsSmall(std::string_view word) {
    return !word.empty() && word[0] >= 'a' && word[0] <= 'z';
}

// The position of the first word of the surname.
std::size_t surnameStart(std::span<const std::string> words) {
    std::size_t start = words.size() - 1;
    while (start > 0 && isOneOf(words[start - 1], particles)) --start;
    const bool forename = start == 0 && start + 1 < words.size() && !startsSmall(words[0]) &&
                          isOneOf(words[0], forenamesToo);
    return forename ? start + 1 : start;
}

void putForenames(std::span<const std::string> words, NameParts& parts) {
    if (!words.empty()) parts.forename1 = words[0];
    if (words.size() > 1) parts.forename2 = words[1];
    if (words.size() > 2) parts.otherForenames = joined(words.subspan(2));
}

// "Dr Mary Ann van der Berg Jr PhD". Without a title the first word is a forename, so that the
// surname of "Ray Senior" is "Senior".
NameParts splitInOrder(std::span<const std::string> words) {
    NameParts parts;
    const std::size_t titleCount = countTitles(words);
    parts.title = joined(words.first(titleCount));
    auto rest = words.subspan(titleCount);
    if (rest.empty()) return parts;
    const std::size_t least = titleCount == 0 ? 2 : 1;
    takeFromEnd(rest, least, isHonour);
    const std::string generation = joined(takeFromEnd(rest, least, isGeneration));
    const std::size_t start = surnameStart(rest);
    putForenames(rest.first(start), parts);
    parts.surname = joined(rest.subspan(start));
    if (!generation.empty()) parts.surname += " " + generation;
    return parts;
}

// "Smith, Mr John Paul Jr"
NameParts splitSurnameFirst(const Words& surname, std::span<const std::string> others) {
    NameParts parts;
    const bool titlesOnly = std::all_of(others.begin(), others.end(), isTitle);
    const std::size_t titleCount = titlesOnly ? others.size() : countTitles(others);
    parts.title = joined(others.first(titleCount));
    auto rest = others.subspan(titleCount);
    takeFromEnd(rest, 0, isHonour);
    const std::string generation = joined(takeFromEnd(rest, 0, isGeneration));
    putForenames(rest, parts);
    parts.surname = joined(surname);
    if (!generation.empty()) parts.surname += " " + generation;
    return parts;
}

}  // namespace

NameParts splitName(std::string_view name) {
    const std::size_t comma = name.find(',');
    if (comma != std::string_view::npos) {
        const Words before = wordsOf(name.substr(0, comma));
        const Words after = compoundsJoined(wordsOf(name.substr(comma + 1)));
        const bool namesAfter = std::any_of(after.begin(), after.end(), [](const auto& word) {
            return !isHonour(word) && !isGeneration(word);
        });
        if (!before.empty() && namesAfter) return splitSurnameFirst(before, after);
    }
    return splitInOrder(compoundsJoined(wordsOf(name)));
}

void KitCustomerFunctions::SplitContactName(const std::string& BusName, std::string& Title,
                                            std::string& Forename1, std::string& Forename2,
                                            std::string& Surname, std::string& OtherForenames,
                                            std::int32_t& OtherID) {
    NameParts parts = splitName(BusName);
    Title = std::move(parts.title);
    Forename1 = std::move(parts.forename1);
    Forename2 = std::move(parts.forename2);
    Surname = std::move(parts.surname);
    OtherForenames = std::move(parts.otherForenames);
    OtherID = 0;
}

}  // namespace ledgerwick
