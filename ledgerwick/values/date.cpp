#include "ledgerwick/values/date.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "ledgerwick/values/names.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {
namespace {

constexpr int secondsPerDay = 86400;

constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}
constexpr bool isLetter(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

void appendPadded(std::string& text, int value, int width) {
    const std::string digits = std::to_string(value);
    const auto wanted = static_cast<std::size_t>(width);
    if (digits.size() < wanted) text.append(wanted - digits.size(), '0');
    text.append(digits);
}

void appendClock(std::string& text, int second) {
    appendPadded(text, second / 3600, 2);
    text += ':';
    appendPadded(text, second / 60 % 60, 2);
    text += ':';
    appendPadded(text, second % 60, 2);
}

// Reads a text from the left.
class Reader {
  public:
    explicit Reader(std::string_view text) : rest_(text) {}

    bool atEnd() const noexcept { return rest_.empty(); }
    bool take(char c) noexcept {
        if (rest_.empty() || rest_.front() != c) return false;
        rest_.remove_prefix(1);
        return true;
    }
    bool takeBlanks() noexcept {
        bool any = false;
        while (take(' ')) any = true;
        return any;
    }
    std::string_view takeDigits() noexcept { return takeWhile(isDigit); }
    std::string_view takeLetters() noexcept { return takeWhile(isLetter); }

  private:
    template <class Accept>
    std::string_view takeWhile(Accept accept) noexcept {
        const auto end = std::find_if_not(rest_.begin(), rest_.end(), accept);
        const auto length = static_cast<std::size_t>(end - rest_.begin());
        const auto taken = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return taken;
    }

    std::string_view rest_;
};

int numberOf(std::string_view digits) noexcept {
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

bool isShort(std::string_view digits) noexcept {
    return digits.size() == 1 || digits.size() == 2;
}

std::optional<int> readYear(std::string_view digits) noexcept {
    constexpr int latestTwoDigitYear = 29;
    if (digits.size() == 4) return numberOf(digits);
    if (digits.size() != 2) return std::nullopt;
    const int year = numberOf(digits);
    return year + (year <= latestTwoDigitYear ? 2000 : 1900);
}

// A month by its full name, or by the three or more letters that it begins with.
std::optional<int> readMonthName(std::string_view letters) noexcept {
    constexpr std::size_t shortest = 3;
    if (letters.size() < shortest) return std::nullopt;
    for (std::size_t i = 0; i < monthNames.size(); ++i) {
        if (equalsIgnoringCase(monthNames[i].substr(0, letters.size()), letters)) {
            return static_cast<int>(i) + 1;
        }
    }
    return std::nullopt;
}

// "/", "-", "." or blanks.
std::optional<char> readSeparator(Reader& reader) noexcept {
    if (reader.takeBlanks()) return ' ';
    for (const char c : {'/', '-', '.'}) {
        if (reader.take(c)) return c;
    }
    return std::nullopt;
}

std::optional<Date::Ymd> readDayFirst(std::string_view day, Reader& reader) {
    const auto separator = readSeparator(reader);
    if (!isShort(day) || !separator) return std::nullopt;
    const auto digits = reader.takeDigits();
    std::optional<int> month;
    if (digits.empty()) {
        month = readMonthName(reader.takeLetters());
    } else if (isShort(digits) && *separator != ' ') {
        month = numberOf(digits);
    }
    if (!month || readSeparator(reader) != separator) return std::nullopt;
    const auto year = readYear(reader.takeDigits());
    if (!year) return std::nullopt;
    return Date::Ymd{*year, *month, numberOf(day)};
}

std::optional<Date::Ymd> readIso(std::string_view year, Reader& reader) {
    if (!reader.take('-')) return std::nullopt;
    const auto month = reader.takeDigits();
    if (!isShort(month) || !reader.take('-')) return std::nullopt;
    const auto day = reader.takeDigits();
    if (!isShort(day)) return std::nullopt;
    return Date::Ymd{numberOf(year), numberOf(month), numberOf(day)};
}

bool exists(const Date::Ymd& date) {
    if (date.year < 100 || date.month < 1 || date.month > 12 || date.day < 1) return false;
    return date.day <= Date::fromYmd(date.year, date.month, 1).daysInMonth();
}

// The seconds of "13:00" or "13:00:00", up to the end of the text.
std::optional<int> readClock(Reader& reader) noexcept {
    std::array<int, 3> parts{};
    constexpr std::array<int, 3> limits = {24, 60, 60};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0 && !reader.take(':')) return std::nullopt;
        const auto digits = reader.takeDigits();
        if (!isShort(digits)) return std::nullopt;
        parts[i] = numberOf(digits);
        if (parts[i] >= limits[i]) return std::nullopt;
        if (i > 0 && reader.atEnd()) return parts[0] * 3600 + parts[1] * 60 + parts[2];
    }
    return std::nullopt;
}

}  // namespace

Date Date::fromYmdHms(int year, int month, int day, int hour, int minute, int second) {
    const std::int64_t seconds = std::int64_t{hour} * 3600 + std::int64_t{minute} * 60 + second;
    const std::int64_t days = floorDivide(seconds, secondsPerDay);
    const auto ofDay = static_cast<double>(seconds - days * secondsPerDay);
    return fromTimeLine(static_cast<double>(dayNumberOf(year, month, day)) +
                        static_cast<double>(days) + ofDay / secondsPerDay);
}

std::int32_t Date::secondOfDay() const noexcept {
    const double nearest = std::nearbyint(timeOfDay() * secondsPerDay);
    if (std::isnan(nearest)) return 0;
    return static_cast<std::int32_t>(std::min(nearest, secondsPerDay - 1.0));
}

std::string Date::toText() const {
    const Ymd date = ymd();
    std::string text;
    appendPadded(text, date.day, 2);
    text += '/';
    appendPadded(text, date.month, 2);
    text += '/';
    appendPadded(text, date.year, 4);
    if (const int second = secondOfDay(); second != 0) {
        text += ' ';
        appendClock(text, second);
    }
    return text;
}

std::string Date::toIso() const {
    const Ymd date = ymd();
    std::string text;
    appendPadded(text, date.year, 4);
    text += '-';
    appendPadded(text, date.month, 2);
    text += '-';
    appendPadded(text, date.day, 2);
    if (const int second = secondOfDay(); second != 0) {
        text += 'T';
        appendClock(text, second);
    }
    return text;
}

bool parseDate(std::string_view text, Date& out) {
    Reader reader(trim(text));
    const auto front = reader.takeDigits();
    const bool iso = front.size() == 4;
    const auto date = iso ? readIso(front, reader) : readDayFirst(front, reader);
    if (!date || !exists(*date)) return false;
    int second = 0;
    if (!reader.atEnd()) {
        if (!reader.takeBlanks() && !(iso && reader.take('T'))) return false;
        const auto clock = readClock(reader);
        if (!clock) return false;
        second = *clock;
    }
    out = Date::fromYmdHms(date->year, date->month, date->day, 0, 0, second);
    return true;
}

}  // namespace ledgerwick
