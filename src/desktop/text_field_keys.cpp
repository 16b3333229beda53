#include "desktop/text_field_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <algorithm>
#include <array>

namespace quillery {
namespace {

bool isTextField(const QObject& object) {
  if (const auto* const line = qobject_cast<const QLineEdit*>(&object)) return !line->isReadOnly();
  if (const auto* const text = qobject_cast<const QPlainTextEdit*>(&object))
    return !text->isReadOnly();
  const auto* const text = qobject_cast<const QTextEdit*>(&object);
  return text && !text->isReadOnly();
}

bool editsText(const QKeyEvent& event) {
  // Alt and the desktop's own key make no word of a key that edits.
  if (!(event.modifiers() & (Qt::AltModifier | Qt::MetaModifier))) switch (event.key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Insert:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Space:
      return true;
    default:
      break;
    }
  constexpr std::array kClipboard = {QKeySequence::Cut, QKeySequence::Copy, QKeySequence::Paste,
                                     QKeySequence::SelectAll};
  return std::any_of(kClipboard.begin(), kClipboard.end(),
                     [&](QKeySequence::StandardKey key) { return event.matches(key); });
}

class TextFieldKeys : public QObject {
public:
  using QObject::QObject;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::ShortcutOverride || !isTextField(*watched) ||
        !editsText(*static_cast<QKeyEvent*>(event)))
      return false;
    event->accept();
    return true;
  }
};

} // namespace

void giveEditingKeysToTextFields(QApplication& application) {
  application.installEventFilter(new TextFieldKeys(&application));
}

} // namespace quillery
