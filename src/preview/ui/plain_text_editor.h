#pragma once

#include <QPlainTextEdit>

namespace quillery {

/// A plain editor of several lines without background or frame. What it is given is set only where
/// it differs, so that the caret and the history of typing stay while the user types. Undo in it is
/// that of the typing.
class MacTextEditor : public QPlainTextEdit {
  Q_OBJECT
public:
  explicit MacTextEditor(QWidget* parent = nullptr);

  /// Lines are parted by line feeds; no-break spaces stay what they are.
  QString text() const;
  /// Emits nothing. The text before can be had back by undo, unless there was none yet.
  void setText(const QString& text);
  void setTextFont(const QFont& font);
  /// Free space at the sides, and above and below the text. Begins the history anew.
  void setInsets(QSize insets);

Q_SIGNALS:
  /// The user changed the text.
  void textEdited(const QString& text);

private:
  QSize insets_;
  bool setting_ = false;
};

} // namespace quillery
