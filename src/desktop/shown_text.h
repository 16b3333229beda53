#pragma once

#include <QLocale>
#include <QString>
#include <cstddef>
#include <string_view>

namespace quillery {

/// A text of the document, which is UTF-8, as the window shows it.
inline QString shownText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// How many there are of something, with the digits grouped as the user's locale has it. Metrics
/// are not counts and have no groups.
inline QString shownCount(std::size_t count) {
  return QLocale().toString(static_cast<qulonglong>(count));
}

} // namespace quillery
