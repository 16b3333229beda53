#pragma once

#include "base/signal.h"
#include "desktop/mouse_tracking_view.h"
#include "kerning/kerning_drag.h"

namespace quillery {

struct KerningScene;

/// The two glyphs of a pair side by side. Dragging with the left button moves the right one; arrow
/// keys move it by one unit, with Shift by ten.
class KerningCanvas : public MouseTrackingView {
  Q_OBJECT
public:
  explicit KerningCanvas(ProjectManager& manager, QWidget* parent = nullptr);

  void setPair(const Uuid& pair);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  void projectChanged(const ProjectChange& change);
  bool showsChangeOf(const ProjectChange& change) const;
  KerningScene scene() const;

  ProjectManager& manager_;
  Uuid pair_;
  KerningDrag drag_;
  Connection connection_;
};

} // namespace quillery
