#pragma once

#include "preview/preview_scene.h"
#include "preview/ui/glyph_pictures.h"

#include <QAbstractScrollArea>
#include <functional>
#include <optional>
#include <string>

namespace quillery {

/// A text set from the outlines of the open project. In a mode, items under the pointer are
/// highlighted and can be picked by a click, or with the arrow keys and Return. Paints what is
/// visible only, and of that only what changed.
class VectorPreviewView : public QAbstractScrollArea {
  Q_OBJECT
public:
  VectorPreviewView(ProjectManager& manager, QWidget* parent);

  std::function<void(const std::string& leftGlyph, const std::string& rightGlyph)> onPairClicked;
  std::function<void(const std::string& glyphName)> onGlyphClicked;

  void setText(std::string text);
  /// Points to the em.
  void setFontSize(double points);
  void setMode(PreviewMode mode);

  /// In step with the project.
  PreviewScene& scene();
  /// A rectangle of the drawing surface in viewport coordinates.
  QRectF viewportRect(const Rect& rect) const;

  QSize minimumSizeHint() const override;

protected:
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  void refresh(const ProjectChanges& changes);
  void layOut();
  void updateScrollBars();
  void paintHighlight(QPainter& painter);
  void pointTo(std::optional<QPoint> viewportPosition);
  /// Does something that may change the hovered item, and repaints where it did.
  template <typename Act> void rehover(Act act);
  void repaint(const std::optional<Rect>& highlight);
  void pick();
  void scrollTo(const Rect& rect);

  PreviewScene scene_; // read through scene()
  GlyphPictures pictures_;
  std::optional<QPoint> pointer_; // in the viewport, while it is there
  std::optional<std::size_t> pressed_;
  bool focusByKey_ = false;
  ProjectWatch watch_;
};

} // namespace quillery
