#include "preview/ui/plain_text_editor.h"

#include <QTextDocument>
#include <algorithm>

namespace quillery {
namespace {

// A change of the margin would be a step that undo takes back.
void setMargin(QTextDocument& document, int margin) {
  document.setUndoRedoEnabled(false);
  document.setDocumentMargin(margin);
  document.setUndoRedoEnabled(true);
}

} // namespace

MacTextEditor::MacTextEditor(QWidget* parent) : QPlainTextEdit(parent) {
  setFrameShape(QFrame::NoFrame);
  viewport()->setAutoFillBackground(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setLineWrapMode(WidgetWidth);
  setTabChangesFocus(true);
  setMargin(*document(), 0);
  connect(this, &QPlainTextEdit::textChanged, this, [this] {
    if (!setting_) Q_EMIT textEdited(text());
  });
}

QString MacTextEditor::text() const {
  QString text = document()->toRawText();
  return text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

void MacTextEditor::setText(const QString& text) {
  if (text == this->text()) return;
  setting_ = true;
  // What stands there first is where the history begins, or undo would empty the field.
  const bool isFirst = document()->isEmpty() && !document()->isUndoAvailable();
  QTextCursor all(document());
  all.select(QTextCursor::Document);
  all.insertText(text);
  if (isFirst) document()->clearUndoRedoStacks();
  setting_ = false;
  moveCursor(QTextCursor::Start);
}

void MacTextEditor::setTextFont(const QFont& font) {
  if (font != this->font()) setFont(font);
}

void MacTextEditor::setInsets(QSize insets) {
  if (insets == insets_) return;
  insets_ = insets;
  // The margin of a document is the same all around, and scrolls with the text.
  const int margin = std::min(insets.width(), insets.height());
  setMargin(*document(), margin);
  const int across = insets.width() - margin;
  const int down = insets.height() - margin;
  setViewportMargins(across, down, across, down);
}

} // namespace quillery
