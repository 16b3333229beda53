#include "drawing/convert/checking.h"

#include <algorithm>

namespace quillery {

Result<double, std::string> differenceFromPage(PageSource& source, const Contours& contours,
                                               const Box& painted, bool isAllLight) {
  constexpr int kPixels = 400;
  constexpr int kInked = 250;    // of 255: within the contours
  constexpr int kClear = 3;      // outside of them
  constexpr int kSeen = 26;      // a tenth of black: no paper any more
  constexpr double kSurely = 64; // ink of any colour
  Box box = boxOf(contours);
  box.include(painted);
  const double beside = 0.06 * std::max(box.width(), box.height()); // where it may have been lost
  box.add({box.minX - beside, box.minY - beside});
  box.add({box.maxX + beside, box.maxY + beside});
  PictureFrame frame = pictureFrame(box, kPixels);
  auto theirs = darknessOf(source, frame, isAllLight);
  for (int pixels = kPixels / 2; !theirs && pixels >= kPixels / 8; pixels /= 2) {
    frame = pictureFrame(box, pixels); // a small drawing on a large page can take a large picture
    theirs = darknessOf(source, frame, isAllLight);
  }
  if (!theirs) return Failure{theirs.error()};
  const auto ours = coverageOf(contours, frame);
  if (!ours) return Failure{ours.error()};
  double ink = 0, wrong = 0;
  for (std::size_t i = 0; i < ours.value().values.size(); ++i) {
    const int covered = ours.value().values[i];
    const int dark = theirs.value().values[i];
    ink += covered / 255.0;
    if (covered >= kInked && dark < kSeen) wrong += 1;
    if (covered <= kClear && dark >= kSeen) wrong += std::min(1.0, dark / kSurely);
  }
  return wrong / std::max(ink, 1.0);
}

} // namespace quillery
