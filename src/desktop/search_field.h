#pragma once

#include <QLineEdit>

namespace quillery {

/// A field whose text finds entries of a list beside it. Down goes on to the list, Escape empties
/// the field; both are left to others where there is nothing to do.
class SearchField : public QLineEdit {
  Q_OBJECT
public:
  SearchField(const QString& objectName, const QString& label, const QString& placeholder,
              QWidget* parent);

Q_SIGNALS:
  /// The Down key: the list takes the focus.
  void left();

protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

} // namespace quillery
