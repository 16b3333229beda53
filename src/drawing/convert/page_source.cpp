#include "drawing/convert/page_source.h"

#include "drawing/convert/gobject.h"

#include <algorithm>
#include <array>
#include <cairo-svg.h>
#include <cmath>

namespace quillery {
namespace {

Failure<std::string> cairoFailure(cairo_status_t status) {
  return Failure{std::string(cairo_status_to_string(status))};
}

CairoSurface makePicture(const PictureFrame& frame) {
  return CairoSurface(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, frame.width(), frame.height()));
}

// Reads each pixel of a picture, alpha in the upper byte and colours multiplied by it.
template <typename Read>
Result<Coverage, std::string> readPicture(const CairoSurface& picture, const Read& read) {
  cairo_surface_flush(picture.get());
  if (const auto status = cairo_surface_status(picture.get()); status != CAIRO_STATUS_SUCCESS)
    return cairoFailure(status);
  Coverage coverage{cairo_image_surface_get_width(picture.get()),
                    cairo_image_surface_get_height(picture.get()),
                    {}};
  coverage.values.resize(static_cast<std::size_t>(coverage.width) *
                         static_cast<std::size_t>(coverage.height));
  const unsigned char* data = cairo_image_surface_get_data(picture.get());
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(picture.get()));
  for (std::size_t y = 0, i = 0; y < static_cast<std::size_t>(coverage.height); ++y) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(data + y * stride);
    for (std::size_t x = 0; x < static_cast<std::size_t>(coverage.width); ++x, ++i)
      coverage.values[i] = read(row[x]);
  }
  return coverage;
}

Result<std::string, std::string> writeAt(PageSource& source, double scale) {
  const Size page = source.size();
  std::string svg;
  const auto write = [](void* to, const unsigned char* data, unsigned length) {
    static_cast<std::string*>(to)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
  };
  const CairoSurface surface(
      cairo_svg_surface_create_for_stream(write, &svg, (page.width + 2 * source.margin()) * scale,
                                          (page.height + 2 * source.margin()) * scale));
  {
    const CairoContext context(cairo_create(surface.get()));
    if (const auto drawn = source.draw(context.get(), scale, Edges::smooth); !drawn)
      return Failure{drawn.error()};
    if (const auto status = cairo_status(context.get()); status != CAIRO_STATUS_SUCCESS)
      return cairoFailure(status);
  }
  cairo_surface_finish(surface.get());
  if (const auto status = cairo_surface_status(surface.get()); status != CAIRO_STATUS_SUCCESS)
    return cairoFailure(status);
  return svg;
}

} // namespace

int PictureFrame::width() const {
  return std::max(1, static_cast<int>(std::ceil(box.width() * scale)));
}
int PictureFrame::height() const {
  return std::max(1, static_cast<int>(std::ceil(box.height() * scale)));
}

PictureFrame pictureFrame(const Box& box, int pixels) {
  return {box, (pixels - 0.5) / std::max({box.width(), box.height(), 1e-9})};
}

Result<std::string, std::string> writePage(PageSource& source, double& unitScale) {
  // What is drawn by way of a picture takes memory, and type fails beyond a size that depends on
  // the font: such pages are written smaller, though with fewer digits.
  static constexpr std::array kGrids = {kPageGrid, 8192.0, 2048.0, 512.0, 128.0};
  for (std::size_t i = source.hasText() ? 2 : 0;; ++i) {
    unitScale = kPageGrid / kGrids[i];
    auto written = writeAt(source, gridScale(source.size()) / unitScale);
    if (written || i + 1 == kGrids.size()) return written;
  }
}

Result<Coverage, std::string> darknessOf(PageSource& source, const PictureFrame& frame,
                                         bool isAllLight, Edges edges) {
  const CairoSurface picture = makePicture(frame);
  {
    const CairoContext context(cairo_create(picture.get()));
    cairo_translate(context.get(), -frame.box.minX * frame.scale, -frame.box.minY * frame.scale);
    if (const auto drawn =
            source.draw(context.get(), gridScale(source.size()) * frame.scale, edges);
        !drawn)
      return Failure{drawn.error()};
  }
  return readPicture(picture, [isAllLight](std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    if (isAllLight) return static_cast<std::uint8_t>(alpha);
    const std::uint32_t least = std::min({(pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF});
    return static_cast<std::uint8_t>(alpha - std::min(alpha, least)); // over white
  });
}

Result<Coverage, std::string> coverageOf(const Contours& contours, const PictureFrame& frame) {
  const CairoSurface picture = makePicture(frame);
  {
    const CairoContext context(cairo_create(picture.get()));
    cairo_t* const cairo = context.get();
    cairo_scale(cairo, frame.scale, frame.scale);
    cairo_translate(cairo, -frame.box.minX, -frame.box.minY);
    cairo_set_tolerance(cairo, 0.05);
    for (const Contour& contour : contours) {
      cairo_move_to(cairo, contour.start().x, contour.start().y);
      for (const Segment& s : contour.segments)
        s.isCurve ? cairo_curve_to(cairo, s.c1.x, s.c1.y, s.c2.x, s.c2.y, s.end.x, s.end.y)
                  : cairo_line_to(cairo, s.end.x, s.end.y);
      cairo_close_path(cairo);
    }
    cairo_fill(cairo);
  }
  return readPicture(picture,
                     [](std::uint32_t pixel) { return static_cast<std::uint8_t>(pixel >> 24); });
}

} // namespace quillery
