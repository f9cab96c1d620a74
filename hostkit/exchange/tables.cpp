#include "hostkit/exchange/tables.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "hostkit/exchange/csv.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"
#include "ledgerwick/values/utf8.h"

namespace ledgerwick::exchange {

namespace {

constexpr std::string_view nullText = "\\N";

struct TableName {
    std::string_view name;
    std::string_view key;
    bool isSettings;
};

constexpr std::array tableNames{
    TableName{"Customers", "NAID", false},      TableName{"PREmployeeDetails", "PRENAID", false},
    TableName{"PREmployments", "PRTID", false}, TableName{"PREmploymentsAddInfo", "PRTAID", false},
    TableName{"PRPay", "PRPID", false},         TableName{"PensionSchemes", "PSID", false},
    TableName{"Orders", "OrdID", false},        TableName{"Deadstock", "DSIDNo", false},
    TableName{"UoM", "UoMNo", false},           TableName{"PRPayImport", "", false},
    TableName{"PRControl", "", true},           TableName{"PRYearEnds", "PRYEYear", true},
    TableName{"Parameters", "ParName", true},
};

TableLayout layoutOf(store::CompanyStore& company, const TableName& table) {
    TableLayout layout{std::string(table.name), {}, table.isSettings};
    for (const store::FieldDescription& each : company.fieldsOf(table.name)) {
        FieldLayout field{each.name, each.kind};
        field.isKey = equalsIgnoringCase(field.name, table.key);
        field.isDayNumber = equalsIgnoringCase(field.name, "PRTEndDateLong");
        layout.fields.push_back(std::move(field));
    }
    return layout;
}

// The number of digits at the front of `text`, as a number; nothing when they are not `count`.
std::optional<int> digits(std::string_view& text, std::size_t count) {
    if (text.size() < count) return std::nullopt;
    int value = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (text[i] < '0' || text[i] > '9') return std::nullopt;
        value = value * 10 + (text[i] - '0');
    }
    text.remove_prefix(count);
    return value;
}

bool skip(std::string_view& text, std::string_view any) {
    if (text.empty() || any.find(text[0]) == std::string_view::npos) return false;
    text.remove_prefix(1);
    return true;
}

// 2016-04-29, and 2016-04-29T13:00:00 with a blank or "T" and with or without the seconds.
std::optional<Date> isoDate(std::string_view text) {
    const auto year = digits(text, 4);
    if (!year || !skip(text, "-")) return std::nullopt;
    const auto month = digits(text, 2);
    if (!month || !skip(text, "-")) return std::nullopt;
    const auto day = digits(text, 2);
    if (!day || *year < 100 || *month < 1 || *month > 12 || *day < 1) return std::nullopt;
    const Date date = Date::fromYmd(*year, *month, *day);
    if (date.day() != *day) return std::nullopt;  // 30 February
    if (text.empty()) return date;
    if (!skip(text, "T ")) return std::nullopt;
    const auto hour = digits(text, 2);
    if (!hour || !skip(text, ":")) return std::nullopt;
    const auto minute = digits(text, 2);
    const auto second = skip(text, ":") ? digits(text, 2) : std::optional<int>(0);
    const bool sound =
        minute && second && text.empty() && *hour < 24 && *minute < 60 && *second < 60;
    if (!sound) return std::nullopt;
    return Date::fromYmdHms(*year, *month, *day, *hour, *minute, *second);
}

template <class Number>
std::optional<Number> plainNumber(std::string_view text) {
    Number value{};
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (failure != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    if constexpr (std::is_floating_point_v<Number>) {
        if (!std::isfinite(value)) return std::nullopt;
    }
    return value;
}

// Money with up to four decimals, as far as a floating-point number holds it exactly.
std::optional<Currency> money(std::string_view text) {
    const std::size_t point = text.find('.');
    const bool tooFine = point != std::string_view::npos && text.size() - point - 1 > 4;
    const bool exponent = text.find_first_of("eE") != std::string_view::npos;
    const auto value = plainNumber<double>(text);
    constexpr double largest = 1e11;
    if (!value || tooFine || exponent || std::abs(*value) >= largest) return std::nullopt;
    return Currency::fromDouble(*value);
}

std::optional<bool> truth(std::string_view text) {
    if (equalsIgnoringCase(text, "True") || text == "-1" || text == "1") return true;
    if (equalsIgnoringCase(text, "False") || text == "0") return false;
    return std::nullopt;
}

template <class Value>
FieldReading readingOf(const std::optional<Value>& value, std::string_view text,
                       std::string_view wanted) {
    if (value) return {Variant(*value), {}};
    return {{}, "\"" + std::string(text) + "\" is not " + std::string(wanted)};
}

FieldReading readText(std::string_view text) {
    const bool isText = isUtf8(text) && text.find('\0') == std::string_view::npos;
    if (!isText) return {{}, "the text is not UTF-8"};
    return {Variant(unguarded(text)), {}};
}

FieldReading readDayNumber(std::string_view text) {
    const auto date = isoDate(text);
    if (!date) return readingOf(date, text, "a date (YYYY-MM-DD)");
    return {Variant(date->dayNumber()), {}};
}

// An empty field that is no Null.
FieldReading readNothing(const FieldLayout& field) {
    if (field.isKey) return {{}, "the key is missing"};
    if (field.kind == VariantKind::Text) return {Variant(std::string_view()), {}};
    if (field.kind == VariantKind::Date) return {Variant(Date()), {}};
    if (field.isDayNumber) return {Variant(std::int32_t{0}), {}};
    return {};
}

}  // namespace

const FieldLayout* TableLayout::field(std::string_view fieldName) const {
    for (const FieldLayout& each : fields) {
        if (equalsIgnoringCase(each.name, fieldName)) return &each;
    }
    return nullptr;
}

const FieldLayout* TableLayout::key() const {
    for (const FieldLayout& each : fields) {
        if (each.isKey) return &each;
    }
    return nullptr;
}

std::vector<TableLayout> companyTables(store::CompanyStore& company) {
    // Imported pay stays until its run is closed, over as many calls of the command as that takes.
    if (!company.tableExists("PRPayImport")) company.createPayImportTable(true);
    std::vector<TableLayout> layouts;
    layouts.reserve(tableNames.size());
    for (const TableName& table : tableNames) layouts.push_back(layoutOf(company, table));
    return layouts;
}

FieldReading readField(std::string_view text, const FieldLayout& field) {
    if (text == nullText)
        return field.isKey ? FieldReading{{}, "the key is Null"} : FieldReading{Variant(Null), {}};
    if (text.empty()) return readNothing(field);
    if (field.isDayNumber) return readDayNumber(text);
    switch (field.kind) {
        case VariantKind::Boolean:
            return readingOf(truth(text), text, "True or False");
        case VariantKind::Int16:
            return readingOf(plainNumber<std::int16_t>(text), text, "a whole number of 16 bits");
        case VariantKind::Int32:
            return readingOf(plainNumber<std::int32_t>(text), text, "a whole number of 32 bits");
        case VariantKind::Single:
            return readingOf(plainNumber<float>(text), text, "a number");
        case VariantKind::Double:
            return readingOf(plainNumber<double>(text), text, "a number");
        case VariantKind::Currency:
            return readingOf(money(text), text, "an amount of money with up to four decimals");
        case VariantKind::Date:
            return readingOf(isoDate(text), text, "a date (YYYY-MM-DD)");
        default:
            return readText(text);
    }
}

std::string writeField(const Variant& value, const FieldLayout& field) {
    if (value.isNull()) return std::string(nullText);
    if (field.isDayNumber) {
        const std::int32_t day = value.toInt32(field.name);
        return day == 0 ? std::string() : Date(day).toIso();
    }
    if (field.kind == VariantKind::Date) {
        const Date date = value.toDate(field.name);
        return date.isSet() ? date.toIso() : std::string();
    }
    if (field.kind == VariantKind::Boolean) return value.toBoolean(field.name) ? "True" : "False";
    if (value.kind() == VariantKind::Text) return guarded(value.textView());
    if (value.kind() == VariantKind::Double || value.kind() == VariantKind::Single) {
        std::array<char, 32> buffer{};
        const auto end =
            value.kind() == VariantKind::Single
                ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), value.toSingle()).ptr
                : std::to_chars(buffer.data(), buffer.data() + buffer.size(), value.toDouble()).ptr;
        return {buffer.data(), end};
    }
    return value.toText(field.name);
}

}  // namespace ledgerwick::exchange
