#include "export/ui/export_warnings_view.h"

#include "export/export_fixes.h"

#include <algorithm>

namespace quillery {
namespace {

using What = ProjectChange::What;

} // namespace

ExportWarningsView::ExportWarningsView(ProjectManager& manager, QWidget* parent)
    : FindingsCard(parent), manager_(manager),
      watch_(manager, {{What::glyphs, What::glyphList}}, [this](const ProjectChanges& changes) {
        // Of the characters that a glyph can be given, a serious finding asks for the space alone.
        if (changes.has(What::glyphList) || hasSpace() == lacks(FixAction::addSpace)) refresh();
      }) {
  setObjectName(QStringLiteral("exportWarnings"));
  setAccessibleName(tr("Export warnings"));
  refresh();
}

bool ExportWarningsView::hasSpace() const {
  return manager_.glyphForCharacter(" ") != nullptr;
}

bool ExportWarningsView::lacks(FixAction what) const {
  return std::any_of(shown_.begin(), shown_.end(),
                     [what](const ExportWarning& warning) { return warning.fixAction == what; });
}

void ExportWarningsView::refresh() {
  std::vector<ExportWarning> serious = validateForExport(manager_.currentProject());
  std::erase_if(serious, [](const ExportWarning& w) { return w.severity == Severity::info; });
  setVisible(!serious.empty());
  const auto isSame = [](const ExportWarning& a, const ExportWarning& b) {
    return a.title == b.title;
  };
  if (std::equal(serious.begin(), serious.end(), shown_.begin(), shown_.end(), isSame)) return;
  shown_ = std::move(serious);
  clear();
  for (const ExportWarning& warning : shown_)
    add(warning.severity == Severity::critical, QString::fromStdString(warning.title),
        linksFor(warning));
}

std::vector<FindingsCard::Link> ExportWarningsView::linksFor(const ExportWarning& warning) {
  if (!warning.fixAction) return {};
  const FixAction action = *warning.fixAction;
  const bool space = action == FixAction::addSpace;
  return {{space ? QStringLiteral("addSpace") : QStringLiteral("addNotdef"),
           space ? tr("Add Space Character") : tr("Add .notdef Glyph"),
           [this, action] { fix(action); }}};
}

void ExportWarningsView::fix(FixAction action) {
  watch_.catchUp();
  if (!lacks(action)) return; // the project was fixed otherwise
  if (action == FixAction::addSpace)
    addSpaceGlyph(manager_);
  else
    addNotdefGlyph(manager_);
}

} // namespace quillery
