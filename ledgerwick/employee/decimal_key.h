// A key of the list or of an employee's employments: a number in plain decimal.
#pragma once

#include <charconv>
#include <cstdint>
#include <string_view>

namespace ledgerwick {

// Written in place, so that a look-up makes no string.
class DecimalKey {
  public:
    explicit DecimalKey(std::int32_t number) noexcept
        : end_(std::to_chars(digits_, digits_ + sizeof digits_, number).ptr) {}
    DecimalKey(const DecimalKey&) = delete;
    DecimalKey& operator=(const DecimalKey&) = delete;

    operator std::string_view() const noexcept {
        return {digits_, static_cast<std::size_t>(end_ - digits_)};
    }

  private:
    char digits_[11];  // "-2147483648"
    char* end_;
};

}  // namespace ledgerwick
