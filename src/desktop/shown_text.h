#pragma once

#include <QString>
#include <string_view>

namespace quillery {

/// A text of the document, which is UTF-8, as the window shows it.
inline QString shownText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace quillery
