#include "app/ui/missing_outlines_view.h"

#include "desktop/shown_text.h"
#include "svg/window_import.h"

namespace quillery {

using What = ProjectChange::What;

// A glyph gets its box when it comes into the list and keeps its lack of one whatever is done to
// its metrics.
MissingOutlinesView::MissingOutlinesView(ProjectManager& manager, QWidget* parent)
    : FindingsCard(parent), manager_(manager),
      watch_(manager, {{What::glyphList, What::imports}},
             [this](const ProjectChanges&) { refresh(); }) {
  setObjectName(QStringLiteral("missingOutlines"));
  setAccessibleName(tr("Glyphs without an outline"));
  refresh();
}

std::vector<std::filesystem::path> MissingOutlinesView::drawings() const {
  std::vector<std::filesystem::path> files;
  for (const NotedDrawing& noted : manager_.notedDrawings())
    if (glyphs_.contains(noted.glyph)) files.push_back(noted.file);
  return files;
}

void MissingOutlinesView::refresh() {
  std::unordered_set<Uuid> glyphs;
  for (const Glyph& glyph : manager_.currentProject().glyphs)
    if (!glyph.hasBox()) glyphs.insert(glyph.id());
  const bool isSame = glyphs == glyphs_;
  glyphs_ = std::move(glyphs);
  const bool converts = manager_.desktop().drawingFlattener() && !drawings().empty();
  setVisible(!glyphs_.empty());
  if (isSame && converts == converts_) return; // an import got further
  converts_ = converts;
  clear();
  if (glyphs_.empty()) return;
  std::vector<Link> links;
  if (converts)
    links.push_back({QStringLiteral("convertMissing"), tr("Convert"), [this] { convert(); }});
  links.push_back({QStringLiteral("removeMissing"), tr("Remove"), [this] { remove(); }});
  add(true,
      glyphs_.size() == 1
          ? tr("1 glyph has no outline: the project can't be saved while it is there")
          : tr("%1 glyphs have no outline: the project can't be saved while they are there")
                .arg(shownCount(glyphs_.size())),
      links);
}

void MissingOutlinesView::convert() {
  watch_.catchUp();
  convertDrawings(manager_, drawings());
}

void MissingOutlinesView::remove() {
  watch_.catchUp();
  manager_.deleteGlyphs(glyphs_);
}

} // namespace quillery
