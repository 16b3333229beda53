#pragma once

#include "editor/undoable_field.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

namespace quillery {

/// Shows an UndoableField: typing changes the value at once, leaving the field or Return ends the
/// edit, Escape takes it back.
template <typename T> class UndoableLineEdit : public QLineEdit {
public:
  UndoableLineEdit(UndoableField<T> field, QWidget* parent)
      : QLineEdit(parent), field_(std::move(field)) {
    showText();
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
      field_.type(text.toStdString());
      showText(); // the field may have dropped part of it
    });
    connect(this, &QLineEdit::returnPressed, this, [this] {
      field_.commit();
      showText();
      selectAll();
    });
  }

  /// Ends the edit, as leaving the field would.
  void enter() {
    field_.focusOut();
    showText();
  }

  /// Shows and edits another value. The edit of the one before has ended.
  void setField(UndoableField<T> field) {
    field_ = std::move(field);
    showText();
  }

  /// The document changed.
  void refresh() {
    field_.refresh();
    showText();
  }

protected:
  bool event(QEvent* event) override {
    // QLineEdit would claim these for its own history; they are the window's.
    if (event->type() == QEvent::ShortcutOverride &&
        isHistoryKey(*static_cast<QKeyEvent*>(event))) {
      event->ignore();
      return true;
    }
    return QLineEdit::event(event);
  }

  void focusInEvent(QFocusEvent* event) override {
    // A menu or another window only borrows the focus; the edit goes on.
    if (!isBorrowed(*event)) field_.focusIn();
    QLineEdit::focusInEvent(event);
  }

  void focusOutEvent(QFocusEvent* event) override {
    if (!isBorrowed(*event)) {
      field_.focusOut();
      showText();
    }
    QLineEdit::focusOutEvent(event);
  }

  void keyPressEvent(QKeyEvent* event) override {
    if (isHistoryKey(*event)) return event->ignore();
    if (event->key() != Qt::Key_Escape) return QLineEdit::keyPressEvent(event);
    field_.restore();
    showText();
  }

private:
  static bool isHistoryKey(const QKeyEvent& event) {
    return event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo);
  }

  static bool isBorrowed(const QFocusEvent& event) {
    return event.reason() == Qt::PopupFocusReason;
  }

  void showText() {
    const QString text = QString::fromStdString(field_.text());
    if (text != this->text()) setText(text);
  }

  UndoableField<T> field_;
};

} // namespace quillery
