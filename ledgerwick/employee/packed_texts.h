// The texts of a record, side by side in one stretch of memory.
//
//   PackedTexts<Text> texts;
//   texts.set(Text::Town, "Leeds");
//   texts.get(Text::Town);   // "Leeds"
//
// Most texts of a person are short and many are empty: so kept they take a third of the memory of
// as many strings, and one allocation.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ledgerwick {

// `Name` is an enumeration from 0 whose last member, `Count`, is the number of texts.
template <class Name>
class PackedTexts {
  public:
    // A copy of the text of that name.
    std::string get(Name name) const {
        const std::size_t begin = beginOf(name);
        return {bytes_.data() + begin, ends_[indexOf(name)] - begin};
    }

    // Replaces the text of that name; references to others do not last.
    void set(Name name, std::string_view text) {
        const std::size_t begin = beginOf(name);
        const std::size_t length = ends_[indexOf(name)] - begin;
        const std::size_t size = bytes_.size() - length + text.size();
        if (size > bytes_.capacity()) bytes_.reserve(size + room);
        const auto place = bytes_.begin() + static_cast<std::ptrdiff_t>(begin);
        bytes_.erase(place, place + static_cast<std::ptrdiff_t>(length));
        bytes_.insert(place, text.begin(), text.end());
        for (std::size_t i = indexOf(name); i < ends_.size(); ++i)
            ends_[i] = static_cast<std::uint32_t>(ends_[i] - length + text.size());
    }

  private:
    // Spare bytes, so that filling a record does not move it at each text.
    static constexpr std::size_t room = 32;

    static constexpr std::size_t indexOf(Name name) noexcept {
        return static_cast<std::size_t>(name);
    }
    std::size_t beginOf(Name name) const noexcept {
        return indexOf(name) == 0 ? 0 : ends_[indexOf(name) - 1];
    }

    std::vector<char> bytes_;
    std::array<std::uint32_t, indexOf(Name::Count)> ends_{};
};

}  // namespace ledgerwick
