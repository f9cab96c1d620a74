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
    Property() = default;
    explicit Property(T value) : value_(std::move(value)) {}

    using Get = std::conditional_t<std::is_trivially_copyable_v<T>, T, const T&>;
    Get operator()() const noexcept { return value_; }
    void operator()(T value) { value_ = std::move(value); }

  private:
    T value_{};
};

}  // namespace ledgerwick
