#include "app/ui/glyph_split_view.h"

#include "app/ui/glyph_grid_view.h"
#include "editor/ui/editor_area.h"

#include <algorithm>

namespace quillery {
namespace {

constexpr int kLeastGrid = 300;
constexpr int kIdealGrid = 600;
constexpr int kPanel = 281; // of values, with its line: never gives way
constexpr int kLeastCanvas = 76;

} // namespace

GlyphSplitView::GlyphSplitView(ProjectManager& manager, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent), grid_(new GlyphGridView(manager, this)),
      editor_(new EditorArea(manager, this)) {
  setObjectName(QStringLiteral("glyphsPane"));
  setChildrenCollapsible(false);
  setHandleWidth(1);
  grid_->setMinimumWidth(kLeastGrid);
  editor_->setMinimumWidth(kPanel + kLeastCanvas);
  addWidget(grid_);
  addWidget(editor_);
  setStretchFactor(0, 1);
  setStretchFactor(1, 1);
  connect(this, &QSplitter::splitterMoved, this, [this] { gridWidth_ = sizes().front(); });
  connect(&grid_->cards(), &GlyphCardArea::editRequested, editor_, &EditorArea::focusEditor);
}

int GlyphSplitView::gridWidth() const {
  return gridWidth_;
}

void GlyphSplitView::resizeEvent(QResizeEvent* event) {
  QSplitter::resizeEvent(event);
  if (!isVisible() || (gridWidth_ > 0 && laidOut_)) return;
  laidOut_ = true;
  // As much grid as canvas, until somebody moves the divider; what is beyond the ideal grid goes to
  // the canvas.
  const int room = width() - handleWidth();
  const int grid = gridWidth_ > 0 ? std::max(gridWidth_, kLeastGrid)
                                  : std::clamp((room - kPanel) / 2, kLeastGrid, kIdealGrid);
  setSizes({grid, room - grid});
}

} // namespace quillery
