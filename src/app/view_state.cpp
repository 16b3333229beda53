#include "app/view_state.h"

#include <charconv>
#include <string_view>

namespace quillery {
namespace {

constexpr int kGreatestLength = 100'000; // points; more is a mistake

// Names each member with its range, for reading and writing alike.
template <typename State, typename Visit> void visitMembers(State& state, const Visit& visit) {
  visit("width", state.width, 0, kGreatestLength);
  visit("height", state.height, 0, kGreatestLength);
  visit("maximized", state.maximized, 0, 1);
  visit("gridWidth", state.gridWidth, 0, kGreatestLength);
  visit("sortOrder", state.sortOrder, 0, static_cast<int>(kGlyphSortOrders.size()) - 1);
  visit("cardSize", state.cardSize, kLeastCard, kGreatestCard);
  visit("preview", state.preview, 0, 1);
  visit("scheme", state.scheme, 0, static_cast<int>(ViewState::Scheme::dark));
}

} // namespace

ViewState ViewState::parse(const std::vector<std::string>& list) {
  ViewState state;
  for (const std::string_view text : list) {
    const auto sign = text.find('=');
    if (sign == std::string_view::npos) continue;
    const std::string_view number = text.substr(sign + 1);
    int value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error != std::errc() || end != number.data() + number.size()) continue;
    visitMembers(state, [&](std::string_view name, auto& member, int least, int greatest) {
      if (name == text.substr(0, sign) && value >= least && value <= greatest)
        member = static_cast<std::remove_reference_t<decltype(member)>>(value);
    });
  }
  return state;
}

std::vector<std::string> ViewState::list() const {
  std::vector<std::string> list;
  visitMembers(*this, [&](const char* name, const auto& member, int, int) {
    list.push_back(std::string(name) + "=" + std::to_string(static_cast<int>(member)));
  });
  return list;
}

} // namespace quillery
