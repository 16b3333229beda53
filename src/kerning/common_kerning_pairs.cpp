#include "kerning/kerning_pairs.h"

namespace quillery {

// clang-format off
const std::array<std::pair<std::string_view, std::string_view>, 53> kCommonKerningPairs = {{
    {"A", "v"}, {"A", "w"}, {"A", "y"}, {"T", "a"}, {"T", "e"}, {"T", "o"}, {"V", "a"},
    {"V", "e"}, {"V", "o"}, {"W", "a"}, {"W", "e"}, {"W", "o"}, {"Y", "a"}, {"Y", "e"},
    {"Y", "o"}, {"A", "V"}, {"A", "W"}, {"A", "Y"}, {"A", "T"}, {"L", "T"}, {"L", "V"},
    {"L", "W"}, {"L", "Y"}, {"T", "A"}, {"V", "A"}, {"W", "A"}, {"Y", "A"}, {"r", "a"},
    {"r", "e"}, {"r", "o"}, {"v", "a"}, {"v", "e"}, {"v", "o"}, {"w", "a"}, {"w", "e"},
    {"w", "o"}, {"y", "a"}, {"y", "e"}, {"y", "o"}, {"A", "period"}, {"A", "comma"},
    {"F", "period"}, {"F", "comma"}, {"P", "period"}, {"P", "comma"}, {"T", "period"},
    {"T", "comma"}, {"V", "period"}, {"V", "comma"}, {"W", "period"}, {"W", "comma"},
    {"Y", "period"}, {"Y", "comma"},
}};
// clang-format on

} // namespace quillery
