// Values written by a picture: "#,##0.00", "00", "dd mmmm yyyy".
//
// Number pictures: 0 is a digit always shown, # a digit shown when there is one, "," between digit
// places asks for thousands separators, "." is the decimal point, "%" multiplies by 100, text in
// double quotes or behind "\" is literal, and any other character (a blank, a "£") stands for
// itself. Sections for negative and zero values are separated by ";". An exact half rounds away
// from zero, on the value's fifteen significant digits: 0.125 by "0.00" is "0.13".
// Date pictures: d dd ddd dddd m mm mmm mmmm yy yyyy h hh n nn s ss, names in English, "/" and ":"
// and every other character stand for themselves.
#pragma once

#include <string>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick {

LEDGERWICK_API std::string formatNumber(double value, std::string_view picture);
LEDGERWICK_API std::string formatNumber(Currency value, std::string_view picture);
LEDGERWICK_API std::string formatDate(Date value, std::string_view picture);

// By the kind of the value: dates by date pictures, all else that is numeric by number pictures.
// Shape:  Empty and Null give the empty string; a text that is no number is given back as it is.
// Errors: 13 for an array or an object.
LEDGERWICK_API std::string Format(const Variant& value, std::string_view picture);

}  // namespace ledgerwick
