#pragma once

#include "project/project_watch.h"

#include <QBasicTimer>
#include <QImage>
#include <QWidget>
#include <vector>

namespace quillery {

/// Several glyphs over each other from one origin, in eight colours that take turns. For viewing
/// only. Paints nothing that isn't finite.
///
/// The outlines are kept as a picture. Many of them take longer than a slider can wait: then a
/// coarse picture of the topmost, which hide most of the others, stands in until the picture is
/// made, piece by piece between events.
class MultiGlyphOverlayCanvas : public QWidget {
  Q_OBJECT
public:
  MultiGlyphOverlayCanvas(ProjectManager& manager, QWidget* parent);

  void setGlyphs(const std::vector<Uuid>& glyphs);
  /// The picture shows all glyphs as they are.
  bool isComplete() const { return !stale_ && unpainted_ == 0; }

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

private:
  void refresh(const ProjectChanges& changes);
  /// Takes the outlines from the project. False when they are those that it has.
  bool takeOutlines();
  void invalidate();
  void makePictures();

  /// The outlines on nothing, for the whole canvas.
  struct Picture {
    QImage image;
    double pixelRatio = 1; // of a device with larger or smaller pixels than ours
    bool smooth = true;

    void clear(QSize canvas, double ratio);
  };
  std::size_t paintDownwards(Picture& picture, std::size_t unpainted) const;

  ProjectManager& manager_;
  std::vector<Uuid> glyphs_;
  std::vector<Outline> outlines_; // of the glyphs
  Picture picture_;
  Picture draft_;
  bool stale_ = true;
  std::size_t unpainted_ = 0; // outlines from the first on that the picture lacks
  QBasicTimer idle_;
  ProjectWatch watch_;
};

} // namespace quillery
