// A value of any kind, as a database field or a host hands it over.
//
// A Variant is 16 bytes and holds short texts in place, so that copying a pay row's fields costs no
// allocation. Empty (never written), Null (a database's "no value") and the empty string are three
// different things.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "ledgerwick/export.h"
#include "ledgerwick/values/currency.h"
#include "ledgerwick/values/date.h"
#include "ledgerwick/values/object.h"

namespace ledgerwick {

class VariantArray;

// What a Variant holds.
enum class VariantKind : std::uint8_t {
    Empty,     // never written
    Null,      // a database's "no value"
    Boolean,   // True or False
    Int16,     // a whole number of 16 bits
    Int32,     // a whole number of 32 bits
    Int64,     // a whole number of 64 bits
    Single,    // a number of single precision
    Double,    // a number of double precision
    Currency,  // money, with four decimals
    Date,      // a day, with or without a time of day
    Text,      // text in UTF-8
    Array,     // an array with bounds of its own
    Object,    // a reference to an object, or the null object
};

// The type of `Null`.
struct NullValue {};
// The value Null, for `Variant(Null)`.
inline constexpr NullValue Null{};

// A value with its kind.
class LEDGERWICK_API Variant {
  public:
    // A value takes the kind of its C++ type; without one it is Empty.
    Variant() noexcept : Variant(VariantKind::Empty) {}
    Variant(NullValue) noexcept : Variant(VariantKind::Null) {}
    // Only for a true bool: a pointer must not turn into one.
    template <std::same_as<bool> Boolean>
    Variant(Boolean value) noexcept : Variant(VariantKind::Boolean, value) {}
    Variant(std::int16_t value) noexcept : Variant(VariantKind::Int16, value) {}
    Variant(std::int32_t value) noexcept : Variant(VariantKind::Int32, value) {}
    Variant(std::int64_t value) noexcept : Variant(VariantKind::Int64, value) {}
    Variant(float value) noexcept : Variant(VariantKind::Single, value) {}
    Variant(double value) noexcept : Variant(VariantKind::Double, value) {}
    Variant(Currency value) noexcept : Variant(VariantKind::Currency, value) {}
    Variant(Date value) noexcept : Variant(VariantKind::Date, value) {}
    Variant(std::string_view value);
    Variant(const std::string& value) : Variant(std::string_view(value)) {}
    Variant(const char* value) : Variant(std::string_view(value)) {}
    Variant(VariantArray value);
    // An object, or with a null pointer the null object, which is not the same as Empty.
    Variant(ObjectRef value);
    // An object of any class.
    template <std::derived_from<Object> T>
    Variant(std::shared_ptr<T> value) : Variant(ObjectRef(std::move(value))) {}

    // An array is copied whole; an object is shared.
    Variant(const Variant& other) { other.ownsHeap() ? copyFrom(other) : takeBytes(other); }
    Variant(Variant&& other) noexcept {
        takeBytes(other);
        other.clearBytes();
    }
    // As the copy and the move.
    Variant& operator=(const Variant& other) {
        if (this != &other) *this = Variant(other);
        return *this;
    }
    Variant& operator=(Variant&& other) noexcept {
        if (this != &other) {
            if (ownsHeap()) release();
            takeBytes(other);
            other.clearBytes();
        }
        return *this;
    }
    ~Variant() {
        if (ownsHeap()) release();
    }

    // `*this = value` in place, for a reader of many fields: making a Variant and moving it costs
    // several times as much.
    template <class T>
    requires std::is_arithmetic_v<T> || std::same_as<T, Currency> || std::same_as<T, Date>
    void assign(T value) noexcept {
        if (ownsHeap()) release();
        bytes_[0] = static_cast<unsigned char>(kindOf<T>());
        bytes_[1] = 0;
        store(value);
    }
    // Null in place.
    void assign(NullValue) noexcept {
        if (ownsHeap()) release();
        bytes_[0] = static_cast<unsigned char>(VariantKind::Null);
        bytes_[1] = 0;
    }
    // A text in place.
    void assign(std::string_view text) {
        if (ownsHeap() || text.size() > inlineCapacity) {
            *this = text;
        } else {
            placeInline(text);
        }
    }

    // Which kind of value it is.
    VariantKind kind() const noexcept { return static_cast<VariantKind>(bytes_[0]); }
    bool isEmpty() const noexcept { return kind() == VariantKind::Empty; }  // never written
    bool isNull() const noexcept { return kind() == VariantKind::Null; }  // a database's "no value"
    bool isArray() const noexcept { return kind() == VariantKind::Array; }  // holds an array
    // Holds an object, also the null object.
    bool isObject() const noexcept { return kind() == VariantKind::Object; }
    // A number of any kind, a boolean or a date, or a text that reads as a number.
    bool isNumeric() const;

    // Conversions to a typed value.
    // Shape:  Empty reads as 0, False, the zero date or the empty string. Halves go to the even
    //         neighbour. True is -1. A text is read as a number, with thousands commas allowed.
    // Errors: 94 for Null, 13 for a text that does not read so, an array or an object, 6 when the
    //         value does not fit. `source` is the source of such an error.
    //
    // Any number but 0 is True, and so is the text "True" in any case.
    bool toBoolean(std::string_view source = "Variant") const {
        return kind() == VariantKind::Boolean ? load<bool>() : convertBoolean(source);
    }
    // A whole number of 16 bits.
    std::int16_t toInt16(std::string_view source = "Variant") const {
        return kind() == VariantKind::Int16 ? load<std::int16_t>() : convertInt16(source);
    }
    // A whole number of 32 bits.
    std::int32_t toInt32(std::string_view source = "Variant") const {
        return kind() == VariantKind::Int32 ? load<std::int32_t>() : convertInt32(source);
    }
    std::int64_t toInt64(std::string_view source = "Variant") const;  // a whole number of 64 bits
    float toSingle(std::string_view source = "Variant") const;  // a number, to single precision
    // A number, to double precision.
    double toDouble(std::string_view source = "Variant") const {
        return kind() == VariantKind::Double ? load<double>() : convertDouble(source);
    }
    Currency toCurrency(
        std::string_view source = "Variant") const;  // money, rounded at the fourth decimal
    // A text is read as a date, or else as a number of days; a number is a number of days.
    Date toDate(std::string_view source = "Variant") const {
        return kind() == VariantKind::Date ? load<Date>() : convertDate(source);
    }
    // Numbers in plain decimal, booleans as "True" and "False", dates day first.
    std::string toText(std::string_view source = "Variant") const;

    // The object held.
    // Errors: 13 when the Variant holds no object. A null object is returned as a null pointer.
    const ObjectRef& toObject(std::string_view source = "Variant") const;

    // The array held.
    // Errors: 13 when the Variant holds no array.
    VariantArray& array(std::string_view source = "Variant");
    const VariantArray& array(std::string_view source = "Variant") const;

    // The text held, in place. Only for kind Text; valid until the Variant changes.
    std::string_view textView() const noexcept;

    // Same kind and same value; Null equals Null here. Arrays are compared element by element.
    friend LEDGERWICK_API bool operator==(const Variant& a, const Variant& b);

  private:
    // Byte 0 is the kind, byte 1 the length of a text held in place, or 255 when bytes 8 to 15 hold
    // a pointer to what this Variant owns on the heap. Bytes 2 to 15 are the text held in place;
    // every other value stands in bytes 8 to 15.
    static constexpr std::size_t inlineCapacity = 14;
    static constexpr std::size_t textOffset = 2;
    static constexpr std::size_t valueOffset = 8;
    static constexpr unsigned char onHeap = 255;

    explicit Variant(VariantKind kind) noexcept : bytes_{static_cast<unsigned char>(kind)} {}
    template <class T>
    Variant(VariantKind kind, T value) noexcept : Variant(kind) {
        store(value);
    }

    template <class T>
    static constexpr VariantKind kindOf() noexcept {
        if constexpr (std::same_as<T, bool>) return VariantKind::Boolean;
        if constexpr (std::same_as<T, std::int16_t>) return VariantKind::Int16;
        if constexpr (std::same_as<T, std::int32_t>) return VariantKind::Int32;
        if constexpr (std::same_as<T, std::int64_t>) return VariantKind::Int64;
        if constexpr (std::same_as<T, float>) return VariantKind::Single;
        if constexpr (std::same_as<T, double>) return VariantKind::Double;
        if constexpr (std::same_as<T, Currency>) return VariantKind::Currency;
        if constexpr (std::same_as<T, Date>) return VariantKind::Date;
    }
    void placeInline(std::string_view text) noexcept {
        bytes_[0] = static_cast<unsigned char>(VariantKind::Text);
        bytes_[1] = static_cast<unsigned char>(text.size());
        if (!text.empty()) std::memcpy(bytes_ + textOffset, text.data(), text.size());
    }
    template <class T>
    void store(T value) noexcept {
        static_assert(sizeof(T) <= sizeof(bytes_) - valueOffset);
        std::memcpy(bytes_ + valueOffset, &value, sizeof(T));
    }
    template <class T>
    T load() const noexcept {
        T value;
        std::memcpy(&value, bytes_ + valueOffset, sizeof(T));
        return value;
    }
    template <class T>
    void own(T* thing) noexcept {
        bytes_[1] = onHeap;
        store(static_cast<void*>(thing));
    }
    template <class T>
    T* owned() const noexcept {
        return static_cast<T*>(load<void*>());
    }
    bool ownsHeap() const noexcept { return bytes_[1] == onHeap; }
    void takeBytes(const Variant& other) noexcept {
        std::memcpy(bytes_, other.bytes_, sizeof(bytes_));
    }
    void clearBytes() noexcept { bytes_[0] = bytes_[1] = 0; }
    void copyFrom(const Variant& other);
    void release() noexcept;
    // From another kind.
    bool convertBoolean(std::string_view source) const;
    std::int16_t convertInt16(std::string_view source) const;
    std::int32_t convertInt32(std::string_view source) const;
    double convertDouble(std::string_view source) const;
    Date convertDate(std::string_view source) const;

    alignas(8) unsigned char bytes_[16];
};
static_assert(sizeof(Variant) == 16);

// An array of one or two dimensions with bounds of its own: (1 To 13), (1 To 8, 1 To n).
class LEDGERWICK_API VariantArray {
  public:
    VariantArray() = default;
    // One dimension, `lower` To `upper`; none when `upper` is `lower` - 1.
    VariantArray(std::int32_t lower, std::int32_t upper);
    // Two dimensions.
    // Errors of both: 9 for an upper bound further below its lower one.
    VariantArray(std::int32_t lower1, std::int32_t upper1, std::int32_t lower2,
                 std::int32_t upper2);

    int dimensions() const noexcept { return twoDimensional_ ? 2 : 1; }  // 1 or 2
    // Bounds of dimension 1 or 2.
    // Errors: 9 for a dimension that the array does not have.
    std::int32_t lowerBound(int dimension = 1) const;
    // The last index of dimension 1 or 2, with the same error.
    std::int32_t upperBound(int dimension = 1) const;

    // An element. The reference lives until the array is resized.
    // Errors: 9 outside the bounds, or with the wrong number of indexes.
    Variant& at(std::int32_t index);
    const Variant& at(std::int32_t index) const;
    Variant& at(std::int32_t index1, std::int32_t index2);
    const Variant& at(std::int32_t index1, std::int32_t index2) const;

    // Moves the upper bound of the last dimension and keeps what is there; new elements are Empty.
    // Errors: 9 below the lower bound minus 1.
    void resizeLast(std::int32_t upper);
    // Removes one element of a one-dimensional array; the upper bound falls by one.
    // Errors: 9 outside the bounds, or with two dimensions.
    void erase(std::int32_t index);

    std::size_t size() const noexcept { return items_.size(); }  // the number of elements in all
    // Same bounds and same elements.
    friend LEDGERWICK_API bool operator==(const VariantArray& a, const VariantArray& b);

  private:
    std::size_t offset(std::int32_t index) const;
    std::size_t offset(std::int32_t index1, std::int32_t index2) const;

    bool twoDimensional_ = false;
    std::int32_t lower1_ = 0, upper1_ = -1;
    std::int32_t lower2_ = 0, upper2_ = -1;
    std::vector<Variant> items_;  // first index fastest, so that the last dimension grows in place
};

}  // namespace ledgerwick
