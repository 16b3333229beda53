#pragma once

#include "desktop/theme.h"

#include <QStackedWidget>

class QLineEdit;

namespace quillery {

class TextLabel;

/// A value shown beside its slider. A double click turns it into a field in which a value can be
/// typed: Return or leaving the field enters it, Escape does not. The field's object name is
/// "entry".
class ValueReadout : public QStackedWidget {
  Q_OBJECT
public:
  explicit ValueReadout(const QString& accessibleName, QWidget* parent = nullptr);

  QString text() const;
  void show(const QString& text, Role role = Role::textSecondary);
  using QStackedWidget::show;
  /// The side of its room on which the value stands; the right one at first.
  void setAlignment(Qt::Alignment side);
  /// Opens the field with this text, all of it selected; with nothing, the text shown.
  void beginEntry(const QString& typed = {});
  bool isInEntry() const { return currentIndex() == 1; }

Q_SIGNALS:
  void entered(const QString& text);
  /// The field has gone, entered or not; where the focus should go next is for the row to say.
  void entryClosed();

protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void closeEntry(bool enter);

  TextLabel* label_;
  QLineEdit* entry_;
};

} // namespace quillery
