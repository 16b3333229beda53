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
      // A field that drops part of what is typed shows so at once.
      if constexpr (std::is_same_v<T, std::optional<std::string>>) showText();
    });
    connect(this, &QLineEdit::returnPressed, this, [this] {
      field_.commit();
      showText();
      selectAll();
    });
  }

  /// The document changed.
  void refresh() {
    field_.refresh();
    showText();
  }

protected:
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
    if (event->key() != Qt::Key_Escape) return QLineEdit::keyPressEvent(event);
    field_.restore();
    showText();
  }

private:
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
