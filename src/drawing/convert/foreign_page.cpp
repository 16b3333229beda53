#include "drawing/convert/foreign_page.h"

#include "drawing/convert/gobject.h"

#include <gio/gio.h>

#include <gdk-pixbuf/gdk-pixbuf.h>
#include <poppler.h>

namespace quillery {
namespace {

class PdfPage : public PageSource {
public:
  PdfPage(GObjectPointer<PopplerDocument> document, GObjectPointer<PopplerPage> page)
      : document_(std::move(document)), page_(std::move(page)) {
    poppler_page_get_size(page_.get(), &size_.width, &size_.height);
  }

  Size size() const override { return size_; }
  double margin() const override { return 0; }
  bool hasText() const override { return true; } // it can't be told
  Result<void, std::string> draw(cairo_t* context, double scale) override {
    cairo_scale(context, scale, scale);
    poppler_page_render_for_printing(page_.get(), context);
    return {};
  }

private:
  GObjectPointer<PopplerDocument> document_;
  GObjectPointer<PopplerPage> page_;
  Size size_;
};

class PicturePage : public PageSource {
public:
  explicit PicturePage(GObjectPointer<GdkPixbuf> pixbuf) : pixbuf_(std::move(pixbuf)) {}

  Size size() const override {
    return {static_cast<double>(gdk_pixbuf_get_width(pixbuf_.get())),
            static_cast<double>(gdk_pixbuf_get_height(pixbuf_.get()))};
  }
  double margin() const override { return 0; }
  bool hasText() const override { return false; }
  Result<void, std::string> draw(cairo_t* context, double scale) override {
    const CairoSurface surface = copied();
    cairo_scale(context, scale, scale);
    cairo_set_source_surface(context, surface.get(), 0, 0);
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

Result<ForeignPage, std::string> openPdf(std::string_view file, std::vector<Utf8> notes) {
  GError* error = nullptr;
  GBytes* bytes = g_bytes_new(file.data(), file.size());
  GObjectPointer<PopplerDocument> document(poppler_document_new_from_bytes(bytes, nullptr, &error));
  g_bytes_unref(bytes);
  if (!document) return Failure{messageOf(error)};
  GObjectPointer<PopplerPage> page(poppler_document_get_page(document.get(), 0));
  if (!page) return Failure{std::string("it has no page")};
  const int pages = poppler_document_get_n_pages(document.get());
  if (pages > 1)
    notes.push_back(
        Utf8::mended("of its " + std::to_string(pages) + " pages, the first was taken"));
  auto source = std::make_unique<PdfPage>(std::move(document), std::move(page));
  if (!(source->size().width > 0 && source->size().height > 0))
    return Failure{std::string("its page has no size")};
  return ForeignPage{std::move(source), false, std::move(notes)};
}

// PostScript is a program, so it runs in an interpreter that may read and write no file.
Result<ForeignPage, std::string> openEps(std::string_view file) {
  GError* error = nullptr;
  const GObjectPointer<GSubprocess> process(g_subprocess_new(
      static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDIN_PIPE | G_SUBPROCESS_FLAGS_STDOUT_PIPE |
                                    G_SUBPROCESS_FLAGS_STDERR_SILENCE),
      &error, "gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-dEPSCrop", "-sDEVICE=pdfwrite",
      "-sOutputFile=-", "-", nullptr));
  if (!process) return Failure{"it takes the program gs: " + messageOf(error)};
  GBytes* in = g_bytes_new_static(file.data(), file.size());
  GBytes* out = nullptr;
  const bool talked =
      g_subprocess_communicate(process.get(), in, nullptr, &out, nullptr, &error) != FALSE;
  g_bytes_unref(in);
  if (!talked) return Failure{messageOf(error)};
  gsize size = 0;
  const void* data = g_bytes_get_data(out, &size);
  const std::string pdf(static_cast<const char*>(data), size);
  g_bytes_unref(out);
  if (g_subprocess_get_successful(process.get()) == FALSE)
    return Failure{std::string("it is no PostScript that can be drawn")};
  return openPdf(pdf, {});
}

Result<ForeignPage, std::string> openPicture(std::string_view file) {
  constexpr int kMostPixels = 4000; // a side; more is no letter, and memory is bounded
  GError* error = nullptr;
  const GObjectPointer<GInputStream> bytes(
      g_memory_input_stream_new_from_data(file.data(), static_cast<gssize>(file.size()), nullptr));
  GObjectPointer<GdkPixbuf> pixbuf(gdk_pixbuf_new_from_stream(bytes.get(), nullptr, &error));
  if (!pixbuf) return Failure{messageOf(error)};
  if (std::max(gdk_pixbuf_get_width(pixbuf.get()), gdk_pixbuf_get_height(pixbuf.get())) >
      kMostPixels)
    return Failure{std::string("it has more than 4000 pixels a side")};
  return ForeignPage{std::make_unique<PicturePage>(std::move(pixbuf)), true, {}};
}

} // namespace

std::optional<Result<ForeignPage, std::string>> openForeignPage(std::string_view file) {
  if (file.starts_with("%PDF-")) return openPdf(file, {});
  if (file.starts_with("%!PS")) return openEps(file);
  if (file.starts_with("\xC5\xD0\xD3\xC6")) // a binary header with a preview around the PostScript
    return Failure{std::string("an EPS file with a preview can't be read; save it without")};
  if (file.starts_with("\x89PNG") || file.starts_with("\xFF\xD8\xFF")) return openPicture(file);
  return std::nullopt;
}

} // namespace quillery
