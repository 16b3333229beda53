#pragma once

#include <QWidget>
#include <functional>

class QLineEdit;
class QMenu;

namespace quillery {

class GestureLine;

/// Below the canvas of one glyph: what its buttons do, and the text that the glyph is judged in,
/// which is typed here or taken from a list. Where there is little room the field gives way.
class CanvasFooter : public QWidget {
  Q_OBJECT
public:
  explicit CanvasFooter(QWidget* parent);

  GestureLine& gestures() { return *gestures_; }
  void setText(const QString& text);
  /// Where the list takes the preview's line from; without, or where it is empty, the list has no
  /// such entry.
  void setPreviewLine(std::function<QString()> line) { previewLine_ = std::move(line); }

Q_SIGNALS:
  void textChosen(const QString& text);
  /// Return or Escape was pressed in the field.
  void left();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  void fillMenu();
  void choose(const QString& text);

  GestureLine* gestures_;
  QLineEdit* field_;
  QMenu* menu_;
  std::function<QString()> previewLine_;
};

} // namespace quillery
