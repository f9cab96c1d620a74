// Values as they travel: the server's binary forms of numbers, money, dates and texts.
//
//   integer 7                0000 0007
//   numeric 12.3456          two digits to the base 10,000: 12 and 3456
//   timestamp                microseconds since 1 January 2000
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/rowsets/cell.h"

namespace ledgerwick::postgres {

// A type of the server, by its number.
using TypeId = std::uint32_t;

namespace type_id {
inline constexpr TypeId unknown = 0;  // the server works it out
inline constexpr TypeId boolean = 16;
inline constexpr TypeId int8 = 20;
inline constexpr TypeId int2 = 21;
inline constexpr TypeId int4 = 23;
inline constexpr TypeId text = 25;
inline constexpr TypeId float4 = 700;
inline constexpr TypeId float8 = 701;
inline constexpr TypeId timestamp = 1114;
inline constexpr TypeId numeric = 1700;
}  // namespace type_id

// The kind of value that a column of the type gives. `modifier` is the declared size of a numeric:
// one with four decimals is money. Empty for a type or an expression without a kind of its own.
VariantKind kindOf(TypeId type, int modifier) noexcept;

// The type in which a field of the kind is sent.
TypeId typeOf(VariantKind kind) noexcept;

// The type of the arrays of a type.
TypeId arrayOf(TypeId type) noexcept;

// A value as it came. A text stays in `bytes`.
// Errors: 3146 for a form that no server sends.
rowsets::Cell decode(TypeId type, int modifier, std::string_view bytes);

// A value of a field as a cell, money to the last tick. A text stays in the value.
rowsets::Cell cellOf(const Variant& value) noexcept;

// Appends a value in the form of the type. Null has no form.
// Errors: 13 for a text that is not sound UTF-8 or holds a zero byte; `source` names the field.
void encode(const rowsets::Cell& cell, TypeId type, std::string& bytes, std::string_view source);

// Whole numbers of a fixed width, in the server's order of bytes.
void putInt16(std::string& bytes, std::int16_t value);
void putInt32(std::string& bytes, std::int32_t value);
void putInt64(std::string& bytes, std::int64_t value);

// An array of one dimension in the making: its elements, each with its length in front.
class ArrayBytes {
  public:
    // An array of elements of that type.
    explicit ArrayBytes(TypeId element) : element_(element) {}

    void add(const rowsets::Cell& cell, std::string_view source);
    // The whole array; the elements are let go.
    std::string take();

  private:
    TypeId element_;
    std::int32_t count_ = 0;
    std::string elements_;
};

}  // namespace ledgerwick::postgres
