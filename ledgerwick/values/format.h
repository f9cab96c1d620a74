// Values written by a picture: "#,##0.00", "00", "dd mmmm yyyy".
//
// Number pictures: 0 is a digit always shown, # a digit shown when there is one, "," between digit
// places asks for thousands separators, "." is the decimal point, "%" multiplies by 100, text in
// double quotes or after "\" is literal, and any other character (a blank, a "£") stands for
// itself. The point is shown also when no digit follows it: 2 by "0.##" is "2.".
// Sections for positive, negative and zero values are separated by ";". Without a section of its
// own, a negative value has "-" in front of the whole. A value that rounds to zero counts as zero.
// An exact half rounds away from zero, on the value's fifteen significant digits: 0.125 by "0.00"
// is "0.13".
// Date pictures: d dd ddd dddd m mm mmm mmmm yy yyyy h hh n nn s ss in any case, names in English;
// "/" and ":" and every other character stand for themselves, quotes and "\" as above.
// An empty picture gives the plain text of the value.
#pragma once

#include <string>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick {

// A number by a number picture.
LEDGERWICK_API std::string formatNumber(double value, std::string_view picture);
// Money by a number picture: exact, with all four decimals.
LEDGERWICK_API std::string formatNumber(Currency value, std::string_view picture);
// A date by a date picture.
LEDGERWICK_API std::string formatDate(Date value, std::string_view picture);

// By the kind of the value: dates by date pictures, all else that is numeric by number pictures.
// Shape:  Empty and Null give the empty string; a text that is no number is given back as it is.
// Errors: 13 for an array or an object.
LEDGERWICK_API std::string Format(const Variant& value, std::string_view picture);

// The money that the picture writes as that text, for whatever signs, brackets and words stand
// around its digits. A value of another kind is taken as it is.
// Errors: 13, naming the picture, when it writes no money so, or writes a plus and a minus alike;
//         94 for Null, 6 for a number too large.
LEDGERWICK_API Currency readMoney(const Variant& text, std::string_view picture,
                                  std::string_view source);

}  // namespace ledgerwick
