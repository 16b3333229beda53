#include "base/unicode.h"
#include "preview/text_presets.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

TEST(TextPresets, HoldEveryCharacterOfTheirRanges) {
  for (const auto& [preset, first, last] :
       {std::tuple{9U, U' ', U'~'}, std::tuple{10U, U'\x80', U'\xFF'}}) {
    const auto characters = scalars(textPresets().at(preset).text);
    EXPECT_EQ(characters.size(), last - first + 1U) << preset;
    EXPECT_EQ(characters.front(), first) << preset;
    EXPECT_EQ(characters.back(), last) << preset;
  }
}

} // namespace
} // namespace quillery::test
