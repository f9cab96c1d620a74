#include "ledgerwick/employee/packed_texts.h"

#include <gtest/gtest.h>

#include <random>

namespace ledgerwick::test {
namespace {

enum class Name : std::uint8_t { First, Second, Third, Fourth, Count };

TEST(PackedTexts, KeepEachTextApartWhileOthersGrowAndShrink) {
    PackedTexts<Name> texts;
    std::array<std::string, 4> expected;
    std::mt19937 random(17);
    for (int step = 0; step < 500; ++step) {
        const std::size_t changed = random() % expected.size();
        expected[changed].assign(random() % 3 == 0 ? 0 : random() % 70,
                                 static_cast<char>('a' + step % 26));
        texts.set(static_cast<Name>(changed), expected[changed]);
        for (std::size_t i = 0; i < expected.size(); ++i)
            ASSERT_EQ(expected[i], texts.get(static_cast<Name>(i))) << "step " << step;
    }
}

}  // namespace
}  // namespace ledgerwick::test
