#include "desktop/search_field.h"

#include "desktop/icons.h"

#include <QKeyEvent>

namespace quillery {
namespace {

bool isPlain(const QKeyEvent& event, Qt::Key key) {
  return event.key() == key && !(event.modifiers() & ~Qt::KeypadModifier);
}

} // namespace

SearchField::SearchField(const QString& objectName, const QString& label,
                         const QString& placeholder, QWidget* parent)
    : QLineEdit(parent) {
  setObjectName(objectName);
  setAccessibleName(label);
  setPlaceholderText(placeholder);
  addAction(icon(Symbol::search, Role::textSecondary), LeadingPosition);
  setClearButtonEnabled(true);
}

bool SearchField::event(QEvent* event) {
  // Escape is the field's as long as there is something to empty.
  if (event->type() == QEvent::ShortcutOverride && !text().isEmpty() &&
      isPlain(*static_cast<QKeyEvent*>(event), Qt::Key_Escape)) {
    event->accept();
    return true;
  }
  return QLineEdit::event(event);
}

void SearchField::keyPressEvent(QKeyEvent* event) {
  if (isPlain(*event, Qt::Key_Down)) return left();
  if (isPlain(*event, Qt::Key_Escape)) return text().isEmpty() ? event->ignore() : clear();
  QLineEdit::keyPressEvent(event);
}

} // namespace quillery
