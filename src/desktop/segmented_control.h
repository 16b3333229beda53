#pragma once

#include <QStringList>
#include <QWidget>
#include <vector>

class QRadioButton;

namespace quillery {

/// A row of a few choices of which one is taken. Arrow keys move the choice; for a screen reader
/// it is a group of radio buttons. The segments' object names are "segment0", "segment1", ...
class SegmentedControl : public QWidget {
  Q_OBJECT
public:
  /// The first segment is taken.
  SegmentedControl(const QString& accessibleName, const QStringList& titles,
                   QWidget* parent = nullptr);

  int current() const { return current_; }
  /// Without a signal. Out of range is ignored.
  void setCurrent(int index);
  QRadioButton* segment(int index) const { return segments_.at(static_cast<std::size_t>(index)); }

Q_SIGNALS:
  /// The user took another.
  void currentChanged(int index);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  std::vector<QRadioButton*> segments_;
  int current_ = 0;
};

} // namespace quillery
