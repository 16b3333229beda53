#include "svg/ui/noted_drawings_text.h"

#include "base/utf8.h"
#include "desktop/shown_text.h"

#include <QCoreApplication>
#include <algorithm>

namespace quillery {
namespace {

QString tr(const char* text) {
  return QCoreApplication::translate("NotedDrawings", text);
}

} // namespace

QString sentenceFor(const std::vector<NotedDrawing>& noted, std::size_t lookedAt) {
  const auto unread = static_cast<std::size_t>(std::count_if(noted.begin(), noted.end(), isUnread));
  if (lookedAt == 1) {
    const NotedDrawing& only = noted.front();
    const QString file = shownText(Utf8::mended(only.file.filename().string()));
    if (unread > 0) return tr("%1 holds more than was read.").arg(file);
    return only.glyph == Uuid() ? tr("%1 could not be converted.").arg(file)
                                : tr("%1 was converted with a loss.").arg(file);
  }
  const auto number = [](std::size_t count) { return shownCount(count); };
  const auto sentence = [&](std::size_t count, const QString& one, const QString& many) {
    return (count == 1 ? one : many).arg(number(count), number(lookedAt));
  };
  if (unread > 0)
    return sentence(unread, tr("%1 of %2 drawings holds more than was read."),
                    tr("%1 of %2 drawings hold more than was read."));
  if (std::all_of(noted.begin(), noted.end(),
                  [](const NotedDrawing& drawing) { return drawing.glyph == Uuid(); }))
    return sentence(noted.size(), tr("%1 of %2 drawings could not be converted."),
                    tr("%1 of %2 drawings could not be converted."));
  return sentence(noted.size(), tr("%1 of %2 drawings was converted with a loss."),
                  tr("%1 of %2 drawings were converted with a loss."));
}

} // namespace quillery
