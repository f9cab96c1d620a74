#include "ledgerwick/values/format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "ledgerwick/values/decimal.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/names.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {
namespace {

// Characters of a picture, each of which is literal when it stands in quotes or after "\".
class PictureReader {
  public:
    explicit PictureReader(std::string_view picture) : rest_(picture) {}

    // The next character of the picture; false at its end.
    bool next() noexcept {
        while (!rest_.empty()) {
            current_ = rest_.front();
            rest_.remove_prefix(1);
            literal_ = quoted_;
            if (current_ == '"') {
                quoted_ = !quoted_;
                continue;
            }
            if (!quoted_ && current_ == '\\' && !rest_.empty()) {
                current_ = rest_.front();
                rest_.remove_prefix(1);
                literal_ = true;
            }
            return true;
        }
        return false;
    }
    char current() const noexcept { return current_; }
    bool literal() const noexcept { return literal_; }
    std::string_view rest() const noexcept { return rest_; }
    void skip(std::size_t count) noexcept { rest_.remove_prefix(count); }

  private:
    std::string_view rest_;
    char current_ = '\0';
    bool literal_ = false;
    bool quoted_ = false;
};

// ---- Numbers --------------------------------------------------------------------------------

enum class TokenKind : std::uint8_t { Literal, Digit, OptionalDigit, Point };

struct Token {
    TokenKind kind;
    char literal;
};

// One section of a number picture.
struct Section {
    std::vector<Token> tokens;
    int wholePlaces = 0;
    int decimals = 0;
    int leastWhole = 0;     // digits before the point that are always shown
    int leastDecimals = 0;  // and after it
    int percentSigns = 0;
    bool hasPoint = false;
    bool thousands = false;

    void addPlace(bool required) {
        tokens.push_back({required ? TokenKind::Digit : TokenKind::OptionalDigit, '\0'});
        if (hasPoint) {
            ++decimals;
            if (required) leastDecimals = decimals;
        } else {
            ++wholePlaces;
            if (required || leastWhole > 0) ++leastWhole;
        }
    }
};

bool opensWithPlace(std::string_view rest) noexcept {
    return rest.starts_with('0') || rest.starts_with('#');
}

void addCharacter(Section& section, const PictureReader& reader) {
    const char c = reader.current();
    if (reader.literal()) {
        section.tokens.push_back({TokenKind::Literal, c});
    } else if (c == '0' || c == '#') {
        section.addPlace(c == '0');
    } else if (c == '.' && !section.hasPoint) {
        section.hasPoint = true;
        section.tokens.push_back({TokenKind::Point, '\0'});
    } else if (c == ',' && section.wholePlaces > 0 && !section.hasPoint &&
               opensWithPlace(reader.rest())) {
        section.thousands = true;
    } else {
        if (c == '%') ++section.percentSigns;
        section.tokens.push_back({TokenKind::Literal, c});
    }
}

std::vector<Section> parseSections(std::string_view picture) {
    std::vector<Section> sections(1);
    for (PictureReader reader(picture); reader.next();) {
        if (reader.current() == ';' && !reader.literal()) {
            sections.emplace_back();
        } else {
            addCharacter(sections.back(), reader);
        }
    }
    return sections;
}

Decimal roundedFor(const Section& section, Decimal value) noexcept {
    value.shiftPoint(2 * section.percentSigns);
    value.round(section.decimals, Ties::AwayFromZero);
    return value;
}

void writeWholePlace(std::string& text, const Section& section, const Decimal& value, int place) {
    text += value.at(place);
    if (section.thousands && place > 0 && place % 3 == 0) text += ',';
}

// The digits of the first place of the picture, which also takes all digits to its left.
void writeSection(std::string& text, const Section& section, const Decimal& value) {
    const int wholeDigits = std::max(value.point, section.leastWhole);
    const int shownDecimals =
        std::max(static_cast<int>(value.count) - value.point, section.leastDecimals);
    int place = section.wholePlaces;
    for (const Token& token : section.tokens) {
        if (token.kind == TokenKind::Literal) {
            text += token.literal;
        } else if (token.kind == TokenKind::Point) {
            // A picture such as ".00" has no place for the digits before the point.
            if (section.wholePlaces == 0) {
                for (int i = wholeDigits - 1; i >= 0; --i) writeWholePlace(text, section, value, i);
            }
            text += '.';
            place = 0;
        } else if (place > 0) {
            if (place == section.wholePlaces) {
                for (int i = wholeDigits - 1; i >= place; --i) {
                    writeWholePlace(text, section, value, i);
                }
            }
            --place;
            if (place < wholeDigits) writeWholePlace(text, section, value, place);
        } else {
            --place;
            if (-place <= shownDecimals) text += value.at(place);
        }
    }
}

std::string formatDecimal(Decimal value, std::string_view picture) {
    if (picture.empty()) return value.text();
    const auto sections = parseSections(picture);
    const auto given = [&](std::size_t i) {
        return i < sections.size() && !sections[i].tokens.empty();
    };
    const bool negative = value.negative;
    value.negative = false;

    const Section* section = &sections[negative && given(1) ? 1 : 0];
    Decimal shown = roundedFor(*section, value);
    if (shown.isZero()) section = &sections[given(2) ? 2 : 0];
    std::string text;
    if (negative && !shown.isZero() && !given(1)) text += '-';
    writeSection(text, *section, shown);
    return text;
}

// ---- Dates ----------------------------------------------------------------------------------

std::string padded(int value, std::size_t width) {
    std::string digits = std::to_string(value);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return digits;
}

// One or two letters: the number. Three: the short name. Four: the full name.
std::string numberOrName(int number, std::size_t letters, std::string_view name) {
    if (letters <= 2) return padded(number, letters);
    return std::string(letters == 3 ? name.substr(0, 3) : name);
}

// The part of a date that a run of one picture letter stands for.
std::string datePart(Date value, char letter, std::size_t run) {
    const int second = value.secondOfDay();
    switch (letter) {
        case 'd': {
            const auto weekday = static_cast<std::size_t>(value.weekday() - 1);
            return numberOrName(value.day(), run, weekdayNames[weekday]);
        }
        case 'm': {
            const auto month = static_cast<std::size_t>(value.month() - 1);
            return numberOrName(value.month(), run, monthNames[month]);
        }
        case 'y':
            return run == 4 ? padded(value.year(), 4) : padded(value.year() % 100, 2);
        case 'h':
            return padded(second / 3600, run);
        case 'n':
            return padded(second / 60 % 60, run);
        default:
            return padded(second % 60, run);
    }
}

// The letter in lower case, and the runs that a date picture gives a meaning.
struct DateLetter {
    char letter;
    std::size_t longest;
};
constexpr std::array<DateLetter, 6> dateLetters = {
    {{'d', 4}, {'m', 4}, {'y', 4}, {'h', 2}, {'n', 2}, {'s', 2}}};

constexpr char lowered(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

const DateLetter* dateLetterOf(char c) noexcept {
    const auto found = std::find_if(dateLetters.begin(), dateLetters.end(),
                                    [c](const DateLetter& d) { return d.letter == lowered(c); });
    return found == dateLetters.end() ? nullptr : &*found;
}

// How often `letter` is repeated at the front of `rest`, up to `most` times.
std::size_t runLength(std::string_view rest, char letter, std::size_t most) noexcept {
    std::size_t length = 0;
    while (length < most && length < rest.size() && lowered(rest[length]) == letter) ++length;
    return length;
}

}  // namespace

std::string formatNumber(double value, std::string_view picture) {
    if (!std::isfinite(value)) return numberText(value);
    return formatDecimal(Decimal::ofDouble(value, 15), picture);
}

std::string formatNumber(Currency value, std::string_view picture) {
    Decimal decimal = Decimal::fromWhole(value.ticks());
    decimal.shiftPoint(-4);
    return formatDecimal(decimal, picture);
}

std::string formatDate(Date value, std::string_view picture) {
    if (picture.empty()) return value.toText();
    std::string text;
    for (PictureReader reader(picture); reader.next();) {
        const DateLetter* part = reader.literal() ? nullptr : dateLetterOf(reader.current());
        if (part == nullptr) {
            text += reader.current();
            continue;
        }
        const std::size_t more = runLength(reader.rest(), part->letter, part->longest - 1);
        reader.skip(more);
        // A single y is not a picture of a year.
        text += part->letter == 'y' && more == 0 ? std::string(1, reader.current())
                                                 : datePart(value, part->letter, more + 1);
    }
    return text;
}

std::string Format(const Variant& value, std::string_view picture) {
    switch (value.kind()) {
        case VariantKind::Empty:
        case VariantKind::Null:
            return {};
        case VariantKind::Array:
        case VariantKind::Object:
            raise(error_number::typeMismatch, "Format");
        case VariantKind::Date:
            return formatDate(value.toDate(), picture);
        case VariantKind::Currency:
            return formatNumber(value.toCurrency(), picture);
        case VariantKind::Single:
            if (!std::isfinite(value.toSingle())) return numberText(value.toDouble());
            return formatDecimal(Decimal::shortest(value.toSingle()), picture);
        case VariantKind::Int16:
        case VariantKind::Int32:
        case VariantKind::Int64:
            return formatDecimal(Decimal::fromWhole(value.toInt64()), picture);
        case VariantKind::Text:
            if (const auto number = plainNumber(value.textView()); number && !picture.empty()) {
                return formatDecimal(Decimal::fromPlainText(*number), picture);
            }
            return value.toText();
        default:
            return picture.empty() ? value.toText() : formatNumber(value.toDouble(), picture);
    }
}

Currency readMoney(const Variant& text, std::string_view picture, std::string_view source) {
    if (text.kind() != VariantKind::Text || plainNumber(text.textView())) {
        return text.toCurrency(source);
    }
    std::string digits;
    for (const char c : text.textView()) {
        if ((c >= '0' && c <= '9') || c == '.') digits += c;
    }
    const std::string_view number = digits.empty() ? std::string_view("0") : digits;
    if (plainNumber(number)) {
        const Currency money = Variant(number).toCurrency(source);
        const bool isPlus = formatNumber(money, picture) == text.textView();
        const bool isMinus = formatNumber(Currency() - money, picture) == text.textView();
        if (isPlus && (!isMinus || money == Currency())) return money;
        if (isMinus && !isPlus) return Currency() - money;
    }
    raise(error_number::typeMismatch, source,
          "what the money format \"" + std::string(picture) + "\" shows does not read back");
}

}  // namespace ledgerwick
