#include "app/view_state.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

TEST(ViewState, ComesBackAndTakesNoNonsense) {
  ViewState state;
  state.width = 1200;
  state.height = 800;
  state.maximized = true;
  state.gridWidth = 444;
  state.sortOrder = GlyphSortOrder::unicodeValue;
  state.cardSize = 200;
  state.preview = false;
  state.scheme = ViewState::Scheme::dark;
  EXPECT_EQ(ViewState::parse(state.list()), state);
  for (const char* text :
       {"", "=", "width", "width=", "width=-1", "width=1e9", "width=99999999999", "cardSize=79",
        "cardSize=12 ", "sortOrder=4", "scheme=3", "preview=2", "maximized=yes", "other=1"})
    EXPECT_EQ(ViewState::parse({text}), ViewState()) << text;
  // One that is broken spoils no other.
  EXPECT_EQ(ViewState::parse({"preview=x", "cardSize=90"}).cardSize, 90);
}

} // namespace
} // namespace quillery::test
