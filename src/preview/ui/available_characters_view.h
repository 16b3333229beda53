#pragma once

#include "preview/available_characters.h"

#include <QAbstractScrollArea>

namespace quillery {

/// The characters that the project has glyphs for, one beside the other. Shapes and paints those
/// that are visible only.
class AvailableCharactersView : public QAbstractScrollArea {
  Q_OBJECT
public:
  AvailableCharactersView(ProjectManager& manager, QWidget* parent);

  /// What is shown, as text.
  QString text() const;
  /// What shows all of it in this width.
  int heightFor(int width);

  QSize minimumSizeHint() const override;

Q_SIGNALS:
  /// Other characters are shown than before.
  void contentChanged();

protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void update();
  void updateScrollBar();
  int rowHeight() const;
  int columns(int width) const;

  ProjectManager& manager_;
  AvailableCharacters characters_;
  Connection connection_;
};

} // namespace quillery
