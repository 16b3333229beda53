#include "project/project_manager.h"

#include "project/action_names.h"

#include <algorithm>
#include <utility>

namespace quillery {

using What = ProjectChange::What;

ProjectManager::ProjectManager(Desktop& desktop, RecentProjectsManager& recentProjects)
    : desktop_(desktop), recentProjects_(recentProjects),
      undoConnection_(undoManager_.changed.connect([this] { announce(What::history); })) {}

const GlyphIndex& ProjectManager::glyphIndex() const {
  if (!index_) index_.emplace(project_.glyphs);
  return *index_;
}

const Glyph* ProjectManager::glyphAt(std::optional<std::size_t> position) const {
  return position ? &project_.glyphs[*position] : nullptr;
}

const Glyph* ProjectManager::glyphWithId(const Uuid& id) const {
  return glyphAt(glyphIndex().withId(id));
}

const Glyph* ProjectManager::firstGlyphNamed(std::string_view name) const {
  return glyphAt(glyphIndex().named(name));
}

const Glyph* ProjectManager::glyphForCharacter(std::string_view character) const {
  return glyphAt(glyphIndex().forCharacter(character));
}

void ProjectManager::editFontInfo(const std::function<void(FontInfo&)>& edit) {
  edit(project_);
  announce(What::fontInfo);
}

void ProjectManager::editGlyphList(const std::function<void(std::vector<Glyph>&)>& edit) {
  edit(project_.glyphs);
  index_.reset();
  announce(What::glyphList);
}

bool ProjectManager::applyToGlyph(const Uuid& id, const std::function<void(Glyph&)>& edit) {
  const auto position = glyphIndex().withId(id);
  if (!position) return false;
  Glyph& glyph = project_.glyphs[*position];
  const std::optional<std::string> oldCharacter = glyph.unicode();
  edit(glyph);
  if (glyph.unicode() != oldCharacter)
    index_->characterChanged(*position, oldCharacter, glyph.unicode());
  return true;
}

bool ProjectManager::editGlyph(const Uuid& id, const std::function<void(Glyph&)>& edit) {
  if (!applyToGlyph(id, edit)) return false;
  changed.emit({What::glyphs, {&id, 1}});
  return true;
}

void ProjectManager::editGlyphs(std::span<const Uuid> ids,
                                const std::function<void(Glyph&)>& edit) {
  bool any = false;
  for (const Uuid& id : ids) any = applyToGlyph(id, edit) || any;
  if (any) changed.emit({What::glyphs, ids});
}

void ProjectManager::editKerningList(const std::function<void(std::vector<KerningPair>&)>& edit) {
  edit(project_.kerningPairs);
  announce(What::kerningList);
}

bool ProjectManager::setKerningValue(const Uuid& id, double value) {
  auto& pairs = project_.kerningPairs;
  const auto pair =
      std::find_if(pairs.begin(), pairs.end(), [&](const auto& p) { return p.id == id; });
  if (pair == pairs.end()) return false;
  pair->value = value;
  changed.emit({What::kerningPair, {&id, 1}});
  return true;
}

void ProjectManager::selectGlyph(Uuid id) {
  selectedGlyphIds_ = {id};
  lastSelectedGlyphId_ = id;
  announce(What::selection);
}

void ProjectManager::toggleGlyphSelection(Uuid id) {
  if (selectedGlyphIds_.erase(id) == 0) selectedGlyphIds_.insert(id);
  lastSelectedGlyphId_ = id;
  announce(What::selection);
}

void ProjectManager::selectGlyphRange(const Uuid& anchor, const Uuid& target,
                                      std::span<const Uuid> displayed) {
  auto first = std::find(displayed.begin(), displayed.end(), anchor);
  auto last = std::find(displayed.begin(), displayed.end(), target);
  if (first == displayed.end() || last == displayed.end()) return;
  if (last < first) std::swap(first, last);
  selectedGlyphIds_.insert(first, last + 1);
  lastSelectedGlyphId_ = target;
  announce(What::selection);
}

void ProjectManager::selectAllGlyphs() {
  selectedGlyphIds_.clear();
  lastSelectedGlyphId_.reset();
  for (const Glyph& glyph : project_.glyphs) selectedGlyphIds_.insert(glyph.id());
  if (!project_.glyphs.empty()) lastSelectedGlyphId_ = project_.glyphs.back().id();
  announce(What::selection);
}

void ProjectManager::clearSelection() {
  selectedGlyphIds_.clear();
  lastSelectedGlyphId_.reset();
  announce(What::selection);
}

void ProjectManager::clickGlyph(const Uuid& id, ClickModifiers modifiers,
                                std::span<const Uuid> displayed) {
  if (modifiers.command)
    toggleGlyphSelection(id);
  else if (modifiers.shift && lastSelectedGlyphId_)
    selectGlyphRange(Uuid(*lastSelectedGlyphId_), id, displayed);
  else
    selectGlyph(id);
}

void ProjectManager::selectKerningPair(std::optional<Uuid> id) {
  selectedKerningPairId_ = id;
  announce(What::selectedPair);
}

void ProjectManager::setSelectedTab(int tab) {
  selectedTab_ = tab;
  announce(What::selectedTab);
}

void ProjectManager::deleteSelectedGlyphs() {
  endEdit();
  if (selectedGlyphIds_.empty()) return;
  const auto isSelected = [this](const Glyph& glyph) {
    return selectedGlyphIds_.contains(glyph.id());
  };
  std::vector<Glyph> deleted;
  std::copy_if(project_.glyphs.begin(), project_.glyphs.end(), std::back_inserter(deleted),
               isSelected);

  undoManager_.beginGroup();
  undoManager_.registerUndo([this, deleted = std::move(deleted), selection = selectedGlyphIds_] {
    editGlyphList([&](std::vector<Glyph>& glyphs) {
      glyphs.insert(glyphs.end(), deleted.begin(), deleted.end());
      sortByName(glyphs);
    });
    selectedGlyphIds_ = selection;
    announce(What::selection);
  });
  undoManager_.setActionName(action::deleteGlyphs(selectedGlyphIds_.size()));
  std::erase_if(project_.glyphs, isSelected);
  index_.reset();
  selectedGlyphIds_.clear();
  undoManager_.endGroup();
  announce(What::glyphList);
  announce(What::selection);
}

void ProjectManager::deleteGlyph(Uuid id) {
  endEdit();
  if (glyphBeingEdited_ && glyphBeingEdited_->id() == id) glyphBeingEdited_.reset();
  editGlyphList([&](std::vector<Glyph>& glyphs) {
    std::erase_if(glyphs, [&](const Glyph& glyph) { return glyph.id() == id; });
  });
  selectedGlyphIds_.erase(id);
  announce(What::selection);
}

void ProjectManager::beginEdit(const std::shared_ptr<OpenEdit>& edit) {
  if (openEdit_.lock() == edit) return;
  endEdit();
  openEdit_ = edit;
}

void ProjectManager::endEdit() {
  // Forgotten first: what the edit does at its end may look here again.
  if (const auto edit = std::exchange(openEdit_, {}).lock()) edit->end();
}

bool ProjectManager::openEditHasChanged() const {
  const auto edit = openEdit_.lock();
  return edit && edit->hasChanged();
}

bool ProjectManager::canUndo() const {
  return undoManager_.canUndo() || openEditHasChanged();
}

bool ProjectManager::canRedo() const {
  return undoManager_.canRedo() && !openEditHasChanged();
}

void ProjectManager::undo() {
  endEdit();
  if (!undoManager_.canUndo()) return;
  undoManager_.undo();
  announce(What::everything);
}

void ProjectManager::redo() {
  endEdit();
  if (!undoManager_.canRedo()) return;
  undoManager_.redo();
  announce(What::everything);
}

void ProjectManager::addImport(std::shared_ptr<ImportTask> task) {
  imports_.push_back(std::move(task));
  announce(What::imports);
}

void ProjectManager::removeImport(const ImportTask& task) {
  const auto found = std::find_if(imports_.begin(), imports_.end(),
                                  [&](const auto& t) { return t.get() == &task; });
  if (found == imports_.end()) return;
  const auto removed = std::move(*found); // it may end with the list's reference
  imports_.erase(found);
  announce(What::imports);
}

void ProjectManager::setExporting(bool exporting) {
  isExporting_ = exporting;
  announce(What::exportState);
}

void ProjectManager::setExportStatus(ExportStatus status) {
  exportStatus_ = std::move(status);
  announce(What::exportState);
}

} // namespace quillery
