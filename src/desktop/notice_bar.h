#pragma once

#include "desktop/icons.h"

#include <QWidget>

class QBoxLayout;
class QCheckBox;
class QPushButton;

namespace quillery {

class ElidedLabel;
class SymbolLabel;

/// A quiet line over a view: what has happened, and what can be done about it. The sentence gives
/// way where there is little room; it is the bar's accessible name. Hidden at first.
class NoticeBar : public QWidget {
  Q_OBJECT
public:
  explicit NoticeBar(QWidget* parent = nullptr);

  void setNotice(Symbol symbol, Role role, const QString& sentence);

  /// Controls stand behind the sentence in the order in which they were added.
  QPushButton* addButton(const QString& objectName, const QString& title);
  QCheckBox* addCheckBox(const QString& objectName, const QString& title);

Q_SIGNALS:
  /// The user has done with it.
  void closed();

private:
  SymbolLabel* symbol_;
  ElidedLabel* sentence_;
  QBoxLayout* controls_;
  QWidget* close_;
};

} // namespace quillery
