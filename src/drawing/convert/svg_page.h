#pragma once

#include "drawing/convert/page_source.h"

#include <memory>
#include <optional>
#include <string>

namespace quillery {

/// An SVG document on its page, drawn without what is no ink: images, masks and filters.
class SvgPage : public PageSource {
public:
  /// `document` is SvgDocument::framed's, with this page and margin. Nothing that it names outside
  /// itself is opened.
  static Result<std::unique_ptr<SvgPage>, std::string> open(const std::string& document, Size page,
                                                            double margin, bool hasText);
  ~SvgPage() override;

  Size size() const override { return page_; }
  double margin() const override { return margin_; }
  bool hasText() const override { return hasText_; }
  Result<void, std::string> draw(cairo_t* context, double scale, Edges edges) override;

  /// From now on, only this element is drawn ("#id").
  void drawOnly(std::string reference) { only_ = std::move(reference); }
  /// The box around the ink of an element, or of all, in pixels of the page; nothing for no ink.
  std::optional<Box> inkBox(const std::string& reference = {}) const;

private:
  Result<void, std::string> setStyle(Edges edges);

  struct Handle;
  SvgPage(std::unique_ptr<Handle> handle, Size page, double margin, bool hasText);

  std::unique_ptr<Handle> handle_;
  Size page_;
  double margin_;
  bool hasText_;
  std::string only_;
  std::optional<Edges> edges_;
};

} // namespace quillery
