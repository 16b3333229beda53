#include "desktop/focused_keys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>
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

bool pressesButton(const QKeyEvent& event) {
  return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
         !(event.modifiers() & ~Qt::KeypadModifier) && !event.isAutoRepeat();
}

QAbstractButton* buttonOf(QObject& object) {
  if (auto* const button = qobject_cast<QPushButton*>(&object)) return button;
  return qobject_cast<QToolButton*>(&object);
}

// Once the Tab key was used, the toolkit takes every focus for one of the keyboard's.
void forgetKeys(const QWidget& clicked) {
  QWidget* const window = clicked.window();
  if (!window->testAttribute(Qt::WA_KeyboardFocusChange)) return;
  window->setAttribute(Qt::WA_KeyboardFocusChange, false);
  if (QWidget* const focused = window->focusWidget()) focused->update();
}

class FocusedKeys : public QObject {
public:
  using QObject::QObject;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::ShortcutOverride) {
      if (!isTextField(*watched) || !editsText(*static_cast<QKeyEvent*>(event))) return false;
      event->accept();
      return true;
    }
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType())
      forgetKeys(*static_cast<QWidget*>(watched));
    if (event->type() != QEvent::KeyPress || !pressesButton(*static_cast<QKeyEvent*>(event)))
      return false;
    auto* const button = buttonOf(*watched);
    if (!button || !button->hasFocus()) return false;
    button->click();
    return true;
  }
};

} // namespace

void giveKeysToWhatHasTheFocus(QApplication& application) {
  application.installEventFilter(new FocusedKeys(&application));
}

} // namespace quillery
