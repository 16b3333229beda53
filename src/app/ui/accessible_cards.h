#pragma once

#include <cstddef>

namespace quillery {

class GlyphCardArea;

/// Lets assistive technology read the grid as a list with a card as each item: its name, its
/// character and whether it is selected. Called once, before the first grid.
void installCardAccessibility();

/// A card became the current one, or was selected or not, at the keyboard or from elsewhere.
void announceCurrentCard(GlyphCardArea& cards, std::size_t card);
/// Cards came, went or moved.
void announceCards(GlyphCardArea& cards);

} // namespace quillery
