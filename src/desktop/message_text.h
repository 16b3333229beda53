#pragma once

#include "desktop/theme.h"

#include <QTextEdit>

namespace quillery {

/// A message in a sheet, at one width and as high as it needs: a long one scrolls, and a word too
/// long for a line is broken. Can be selected and copied.
class MessageText : public QTextEdit {
  Q_OBJECT
public:
  MessageText(int width, Qt::Alignment alignment, QWidget* parent);

  /// Plain text. Lines are parted by line feeds.
  void setMessage(const QString& text);
  /// The same text, told to assistive technology, and how it looks.
  void setRichMessage(const QString& text, const QString& html);

private:
  void follow();
};

} // namespace quillery
