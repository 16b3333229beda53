#include "drawing/convert/svg_page.h"

#include "base/numbers.h"
#include "drawing/convert/gobject.h"

#include <librsvg/rsvg.h>

namespace quillery {

struct SvgPage::Handle {
  GObjectPointer<RsvgHandle> rsvg;
};

SvgPage::SvgPage(std::unique_ptr<Handle> handle, Size page, double margin, bool hasText)
    : handle_(std::move(handle)), page_(page), margin_(margin), hasText_(hasText) {}
SvgPage::~SvgPage() = default;

Result<std::unique_ptr<SvgPage>, std::string> SvgPage::open(const std::string& document, Size page,
                                                            double margin, bool hasText) {
  GError* error = nullptr;
  const GObjectPointer<GInputStream> bytes(g_memory_input_stream_new_from_data(
      document.data(), static_cast<gssize>(document.size()), nullptr));
  // Without a base file, no link leads anywhere.
  auto handle =
      std::make_unique<Handle>(Handle{GObjectPointer<RsvgHandle>(rsvg_handle_new_from_stream_sync(
          bytes.get(), nullptr, RSVG_HANDLE_FLAGS_NONE, nullptr, &error))});
  if (!handle->rsvg) return Failure{messageOf(error)};
  rsvg_handle_set_dpi(handle->rsvg.get(), 96);
  std::unique_ptr<SvgPage> opened(new SvgPage(std::move(handle), page, margin, hasText));
  if (const auto styled = opened->setStyle(Edges::smooth); !styled) return Failure{styled.error()};
  return opened;
}

Result<void, std::string> SvgPage::setStyle(Edges edges) {
  if (edges_ == edges) return {};
  const std::string rendering =
      edges == Edges::crisp ? "* { shape-rendering: crispEdges !important }" : "";
  const std::string css =
      rendering +
      "* { mask: none !important; filter: none !important; mix-blend-mode: normal !important }"
      "image { display: none !important }"
      ".quillery-frame > svg { x: 0 !important; y: 0 !important; overflow: visible !important; "
      "width: " +
      formatShortest(page_.width) + "px !important; height: " + formatShortest(page_.height) +
      "px !important }";
  GError* error = nullptr;
  if (rsvg_handle_set_stylesheet(handle_->rsvg.get(), reinterpret_cast<const guint8*>(css.data()),
                                 css.size(), &error) == FALSE)
    return Failure{messageOf(error)};
  edges_ = edges;
  return {};
}

Result<void, std::string> SvgPage::draw(cairo_t* context, double scale, Edges edges) {
  if (const auto styled = setStyle(edges); !styled) return styled;
  GError* error = nullptr;
  const RsvgRectangle viewport{0, 0, (page_.width + 2 * margin_) * scale,
                               (page_.height + 2 * margin_) * scale};
  const gboolean drawn =
      only_.empty() ? rsvg_handle_render_document(handle_->rsvg.get(), context, &viewport, &error)
                    : rsvg_handle_render_layer(handle_->rsvg.get(), context, only_.c_str(),
                                               &viewport, &error);
  if (drawn == FALSE) return Failure{messageOf(error)};
  return {};
}

std::optional<Box> SvgPage::inkBox(const std::string& reference) const {
  const RsvgRectangle viewport{-margin_, -margin_, page_.width + 2 * margin_,
                               page_.height + 2 * margin_};
  RsvgRectangle ink{};
  GError* error = nullptr;
  if (rsvg_handle_get_geometry_for_layer(handle_->rsvg.get(),
                                         reference.empty() ? nullptr : reference.c_str(), &viewport,
                                         &ink, nullptr, &error) == FALSE) {
    g_error_free(error);
    return std::nullopt;
  }
  Box box;
  box.add({ink.x, ink.y});
  box.add({ink.x + ink.width, ink.y + ink.height});
  return box.isEmpty() ? std::nullopt : std::optional(box);
}

} // namespace quillery
