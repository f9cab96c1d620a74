// A stored value that reads and writes as a member function:
//
//   employee->NITable("A");
//   employee->NITable();   // "A"
#pragma once

#include <type_traits>
#include <utility>

namespace ledgerwick {

// A plain get and let pair. It stores what it is given and checks nothing.
template <class T>
class Property {
  public:
    // The type's own blank value: 0, False, the zero date, the empty text.
    Property() = default;
    // That value.
    explicit Property(T value) : value_(std::move(value)) {}

    using Get =
        std::conditional_t<std::is_trivially_copyable_v<T>, T, const T&>;  // what a read gives
    Get operator()() const noexcept { return value_; }                     // the value stored last
    void operator()(T value) { value_ = std::move(value); }                // stores the value

  private:
    T value_{};
};

}  // namespace ledgerwick
