#pragma once

#include "preview/available_characters.h"

#include <QAbstractScrollArea>
#include <vector>

namespace quillery {

/// The characters that the project has glyphs for as one text, joined by spaces and wrapped. Lays
/// out lines as far as somebody has looked, shapes and paints those that are visible only.
class AvailableCharactersView : public QAbstractScrollArea {
  Q_OBJECT
public:
  AvailableCharactersView(ProjectManager& manager, QWidget* parent);

  /// What is shown, as text.
  QString text() const;
  /// What shows all of it in this width, or `most` when that is less.
  int heightFor(int width, int most);

  QSize minimumSizeHint() const override;

Q_SIGNALS:
  /// Other characters are shown than before.
  void contentChanged();

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  /// The characters broken into lines of a width, from the first one on.
  struct Lines {
    int width = 0;
    std::vector<std::size_t> begins = {0}; // of each line, and of what is not broken yet
  };

  void refresh();
  void layOut();
  void breakUpTo(std::size_t line, Lines& lines);
  std::size_t probableCount(const Lines& lines);
  QString line(std::size_t index);
  int rowHeight() const;

  ProjectManager& manager_;
  AvailableCharacters characters_;
  Lines lines_;
  ProjectWatch watch_;
};

} // namespace quillery
