#include "preview/ui/preview_picture.h"

#include "desktop/outline_painting.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <cmath>

namespace quillery {
namespace {

constexpr double kLongestSide = 32'000;
constexpr double kMostPixels = 200e6;
constexpr QRgb kInk = 0xff111111;

} // namespace

Result<std::string, std::string> previewPng(const TextLayout& layout, const FontProject& project) {
  const double width = std::ceil(layout.contentSize.width);
  const double height = std::ceil(layout.contentSize.height);
  const auto tooLarge = [&] {
    const auto digits = [](double value) { return QString::number(value, 'g', 15).toStdString(); };
    return Failure{"a picture of " + digits(width) + " by " + digits(height) +
                   " pixels is too large"};
  };
  if (width > kLongestSide || height > kLongestSide || width * height > kMostPixels)
    return tooLarge();
  QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
  if (image.isNull()) return tooLarge();
  image.fill(Qt::white);
  {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const SetCharacter& set : layout.characters) {
      const QTransform place(layout.scale, 0, 0, -layout.scale, set.penX,
                             layout.baseline(set.line));
      if (!std::isfinite(place.dx()) || !std::isfinite(place.dy())) continue;
      painter.setTransform(place);
      painter.fillPath(painterPath(project.glyphs[set.glyph].fontPath()), QColor::fromRgba(kInk));
    }
  }
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  if (!image.save(&bytes, "PNG")) return Failure{std::string("the picture could not be coded")};
  return bytes.data().toStdString();
}

} // namespace quillery
