#include "drawing/convert/foreign_file.h"

#include "drawing/convert/gobject.h"
#include "drawing/convert/subprocess.h"

#include <algorithm>
#include <gdk-pixbuf/gdk-pixbuf.h>

namespace quillery {
namespace {

class PicturePage : public PageSource {
public:
  explicit PicturePage(GObjectPointer<GdkPixbuf> pixbuf) : pixbuf_(std::move(pixbuf)) {}

  Size size() const override {
    return {static_cast<double>(gdk_pixbuf_get_width(pixbuf_.get())),
            static_cast<double>(gdk_pixbuf_get_height(pixbuf_.get()))};
  }
  double margin() const override { return 0; }
  bool hasText() const override { return false; }
  Result<void, std::string> draw(cairo_t* context, double scale, Edges) override {
    const CairoSurface surface = copied();
    cairo_scale(context, scale, scale);
    cairo_set_source_surface(context, surface.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_BEST);
    cairo_paint(context);
    return {};
  }

private:
  // The picture over white: tracing reads darkness.
  CairoSurface copied() const {
    const int width = gdk_pixbuf_get_width(pixbuf_.get());
    const int height = gdk_pixbuf_get_height(pixbuf_.get());
    CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
    unsigned char* const to = cairo_image_surface_get_data(surface.get());
    if (to == nullptr) return surface;
    const auto channels = static_cast<std::size_t>(gdk_pixbuf_get_n_channels(pixbuf_.get()));
    const guchar* const from = gdk_pixbuf_read_pixels(pixbuf_.get());
    for (int y = 0; y < height; ++y) {
      const guchar* pixel =
          from + static_cast<std::ptrdiff_t>(y) * gdk_pixbuf_get_rowstride(pixbuf_.get());
      auto* row = reinterpret_cast<std::uint32_t*>(
          to + static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(surface.get()));
      for (int x = 0; x < width; ++x, pixel += channels) {
        const std::uint32_t alpha = channels == 4 ? pixel[3] : 255U;
        std::uint32_t rgb = 0;
        for (int channel = 0; channel < 3; ++channel)
          rgb = rgb << 8 | (pixel[channel] * alpha + 255 * (255 - alpha)) / 255;
        row[x] = rgb;
      }
    }
    cairo_surface_mark_dirty(surface.get());
    return surface;
  }

  GObjectPointer<GdkPixbuf> pixbuf_;
};

Result<std::unique_ptr<PageSource>, std::string> openPixels(std::string_view file) {
  constexpr int kMostPixels = 4000; // a side; more is no letter, and memory is bounded
  GError* error = nullptr;
  const GObjectPointer<GInputStream> bytes(
      g_memory_input_stream_new_from_data(file.data(), static_cast<gssize>(file.size()), nullptr));
  GObjectPointer<GdkPixbuf> pixbuf(gdk_pixbuf_new_from_stream(bytes.get(), nullptr, &error));
  if (!pixbuf) return Failure{messageOf(error)};
  if (std::max(gdk_pixbuf_get_width(pixbuf.get()), gdk_pixbuf_get_height(pixbuf.get())) >
      kMostPixels)
    return Failure{std::string("it has more than 4000 pixels a side")};
  return std::unique_ptr<PageSource>(std::make_unique<PicturePage>(std::move(pixbuf)));
}

Result<PageAsSvg, std::string> svgOfPdf(const std::string& pdf) {
  auto svg = outputOf({"pdftocairo", "-svg", "-f", "1", "-l", "1", "-", "-"}, pdf);
  if (!svg) return Failure{svg.error()};
  PageAsSvg page{std::move(svg).value(), {}};
  constexpr std::string_view kPages = "Pages:";
  const auto about = outputOf({"pdfinfo", "-"}, pdf);
  const std::size_t at = about ? about.value().find(kPages) : std::string::npos;
  if (at != std::string::npos && std::atoi(about.value().c_str() + at + kPages.size()) > 1)
    page.notes.push_back(Utf8("of its pages, the first was taken"));
  return page;
}

// PostScript is a program, so it runs in an interpreter that may read and write no file.
Result<PageAsSvg, std::string> svgOfPostScript(const std::string& file) {
  const auto pdf = outputOf({"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-dEPSCrop",
                             "-sDEVICE=pdfwrite", "-sOutputFile=-", "-"},
                            file);
  if (!pdf) return Failure{pdf.error()};
  return svgOfPdf(pdf.value());
}

} // namespace

std::optional<Result<PageAsSvg, std::string>> pageAsSvg(std::string_view file) {
  if (file.starts_with("%PDF-")) return svgOfPdf(std::string(file));
  if (file.starts_with("%!PS")) return svgOfPostScript(std::string(file));
  if (file.starts_with("\xC5\xD0\xD3\xC6")) // a binary header with a preview around the PostScript
    return Failure{std::string("an EPS file with a preview can't be read; save it without")};
  return std::nullopt;
}

std::optional<Result<std::unique_ptr<PageSource>, std::string>> openPicture(std::string_view file) {
  if (file.starts_with("\x89PNG") || file.starts_with("\xFF\xD8\xFF")) return openPixels(file);
  return std::nullopt;
}

} // namespace quillery
