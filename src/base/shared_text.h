#pragma once

#include "base/utf8.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace quillery {

/// Text that never changes and that copies share, for what is long and is carried about, such as
/// the path data of a drawing.
class SharedText {
public:
  SharedText() = default;
  SharedText(Utf8 text)
      : text_(text.empty() ? nullptr
                           : std::make_shared<const std::string>(std::move(text).release())) {}

  std::string_view view() const { return text_ ? std::string_view(*text_) : std::string_view(); }

  friend bool operator==(const SharedText& a, const SharedText& b) {
    return a.text_ == b.text_ || a.view() == b.view();
  }

private:
  std::shared_ptr<const std::string> text_;
};

} // namespace quillery
