// Dates: what is read as a date is one, and each way of writing it reads back as the same.
//
// Input: 0 and a text; 1, a serial's bits and a picture.
#include <cmath>

#include "fuzz/harness.h"
#include "hostkit/exchange/tables.h"
#include "ledgerwick/values/format.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick::fuzz {

namespace {

Date read(const std::string& text) {
    Date date;
    CHECK(parseDate(text, date), text);
    return date;
}

void readsBack(Date date) {
    CHECK(read(date.toIso()) == date, date.toIso());
    CHECK(read(date.toText()) == date, date.toText());
    CHECK(read(formatDate(date, "d mmm yyyy hh:nn:ss")) == date, date.toIso());
    CHECK(Variant(date.toText()).toDate() == date, date.toText());
    const exchange::FieldLayout field{"D", VariantKind::Date};
    const auto kept = exchange::readField(exchange::writeField(date, field), field);
    CHECK(kept.fault.empty() && kept.value.toDate() == date, date.toIso());
}

}  // namespace

void fuzzOne(Input input) {
    if (input.choice(2) == 0) {
        const std::string text = input.rest();
        Date date(7);
        if (!parseDate(text, date)) {
            CHECK(date == Date(7), text);
            return;
        }
        CHECK(Date::inRange(date.serial()), text);
        CHECK(date.dateOnly() == Date::fromYmd(date.year(), date.month(), date.day()), text);
        readsBack(date);
        return;
    }
    // Any serial, to the second and within the range.
    const Date any(input.bits<double>());
    const auto [year, month, day] = any.ymd();
    readsBack(Date::fromYmdHms(year, month, day, 0, 0, any.secondOfDay()));
    const std::string picture = input.rest();
    const std::string shown = formatDate(any, picture);
    CHECK(shown.size() <= 19 + 9 * picture.size(), shown);
    CHECK(formatDate(any.dateOnly(), picture + " dd/mm/yyyy").size() >= 1, shown);
    raisedBy([&] { any.addDays(input.bits<double>()); });
}

}  // namespace ledgerwick::fuzz
