#include "project/project_manager.h"

#include "project/action_names.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace quillery {

using What = ProjectChange::What;

ProjectManager::ProjectManager(Desktop& desktop, RecentProjectsManager& recentProjects)
    : desktop_(desktop), recentProjects_(recentProjects),
      undoConnection_(undoManager_.changed.connect([this] { announce(What::history); })) {
  saved_.keep(project_);
}

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

const KerningIndex& ProjectManager::kerningIndex() const {
  if (!kerningIndex_) kerningIndex_.emplace(project_.kerningPairs);
  return *kerningIndex_;
}

const KerningPair* ProjectManager::pairAt(std::optional<std::size_t> position) const {
  return position ? &project_.kerningPairs[*position] : nullptr;
}

const KerningPair* ProjectManager::kerningPairWithId(const Uuid& id) const {
  return pairAt(kerningIndex().withId(id));
}

const KerningPair* ProjectManager::firstKerningPair(std::string_view leftGlyph,
                                                    std::string_view rightGlyph) const {
  return pairAt(kerningIndex().named(leftGlyph, rightGlyph));
}

void ProjectManager::documentChanged(const ProjectChange& change) {
  ++revision_;
  saved_.changed();
  changed.emit(change);
}

void ProjectManager::editFontInfo(const std::function<void(FontInfo&)>& edit) {
  const FontInfo before = project_;
  edit(project_);
  if (before != project_) documentChanged({What::fontInfo});
}

void ProjectManager::editGlyphList(const std::function<void(std::vector<Glyph>&)>& edit) {
  edit(project_.glyphs);
  index_.reset();
  documentChanged({What::glyphList});
}

// True when it became different.
bool ProjectManager::applyToGlyph(std::size_t position, const std::function<void(Glyph&)>& edit) {
  Glyph& glyph = project_.glyphs[position];
  const GlyphPlacement before = glyph.placement();
  const std::optional<Utf8> oldCharacter = glyph.unicode();
  edit(glyph);
  const bool otherCharacter = glyph.unicode() != oldCharacter;
  if (otherCharacter) index_->characterChanged(position, oldCharacter, glyph.unicode());
  return otherCharacter || before != glyph.placement();
}

bool ProjectManager::editGlyph(const Uuid& id, const std::function<void(Glyph&)>& edit) {
  const auto position = glyphIndex().withId(id);
  if (!position) return false;
  const Uuid edited = id; // the caller's may lie in what listeners change
  if (applyToGlyph(*position, edit)) documentChanged({What::glyphs, {&edited, 1}});
  return true;
}

void ProjectManager::editGlyphs(std::span<const Uuid> ids,
                                const std::function<void(Glyph&)>& edit) {
  std::vector<Uuid> different;
  for (const Uuid& id : ids)
    if (const auto position = glyphIndex().withId(id); position && applyToGlyph(*position, edit))
      different.push_back(id);
  if (!different.empty()) documentChanged({What::glyphs, different});
}

void ProjectManager::editKerningList(const std::function<void(std::vector<KerningPair>&)>& edit) {
  edit(project_.kerningPairs);
  kerningIndex_.reset();
  documentChanged({What::kerningList});
}

bool ProjectManager::setKerningValue(const Uuid& id, Finite value) {
  const auto position = kerningIndex().withId(id);
  if (!position) return false;
  const double before = std::exchange(project_.kerningPairs[*position].value, value);
  if (before != value) documentChanged({What::kerningPair, {&id, 1}});
  return true;
}

void ProjectManager::setSelection(std::unordered_set<Uuid> ids, std::optional<Uuid> anchor) {
  if (ids == selectedGlyphIds_ && anchor == lastSelectedGlyphId_) return;
  selectedGlyphIds_ = std::move(ids);
  lastSelectedGlyphId_ = anchor;
  announce(What::selection);
}

void ProjectManager::selectGlyph(Uuid id) {
  setSelection({id}, id);
}

void ProjectManager::toggleGlyphSelection(Uuid id) {
  auto ids = selectedGlyphIds_;
  if (ids.erase(id) == 0) ids.insert(id);
  setSelection(std::move(ids), id);
}

void ProjectManager::selectGlyphRange(const Uuid& anchor, const Uuid& target,
                                      std::span<const Uuid> displayed) {
  auto first = std::find(displayed.begin(), displayed.end(), anchor);
  auto last = std::find(displayed.begin(), displayed.end(), target);
  if (first == displayed.end() || last == displayed.end()) return;
  const Uuid reached = target; // the caller's may be the anchor that changes
  if (last < first) std::swap(first, last);
  auto ids = selectedGlyphIds_;
  ids.insert(first, last + 1);
  setSelection(std::move(ids), reached);
}

void ProjectManager::selectAllGlyphs() {
  std::unordered_set<Uuid> ids;
  ids.reserve(project_.glyphs.size());
  for (const Glyph& glyph : project_.glyphs) ids.insert(glyph.id());
  setSelection(std::move(ids), project_.glyphs.empty()
                                   ? std::nullopt
                                   : std::optional<Uuid>(project_.glyphs.back().id()));
}

void ProjectManager::clearSelection() {
  setSelection({}, std::nullopt);
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
  if (std::exchange(selectedKerningPairId_, id) != id) announce(What::selectedPair);
}

void ProjectManager::setSelectedTab(int tab) {
  if (std::exchange(selectedTab_, tab) != tab) announce(What::selectedTab);
}

namespace {

// Glyphs that were deleted, and what was selected then.
class DeletionStep : public UndoStep {
public:
  DeletionStep(std::vector<Glyph> deleted, std::unordered_set<Uuid> selection)
      : deleted_(std::move(deleted)), selection_(std::move(selection)) {}

  void swap(ProjectManager& manager) override {
    manager.editGlyphList([this](std::vector<Glyph>& glyphs) {
      glyphs.insert(glyphs.end(), std::make_move_iterator(deleted_.begin()),
                    std::make_move_iterator(deleted_.end()));
      sortByName(glyphs);
    });
    manager.setSelection(std::move(selection_), manager.lastSelectedGlyphId());
  }
  bool changesAnything(const ProjectManager&) const override { return true; }
  bool canBeRedone() const override { return false; }
  std::size_t size(const ProjectManager&) const override {
    std::size_t bytes = deleted_.size() * sizeof(Glyph) + selection_.size() * 2 * sizeof(Uuid);
    for (const Glyph& glyph : deleted_)
      bytes += glyph.fontPath().size() * sizeof(PathCommand) + glyph.record().svgPath.view().size();
    return bytes;
  }

private:
  std::vector<Glyph> deleted_;
  std::unordered_set<Uuid> selection_;
};

} // namespace

void ProjectManager::deleteSelectedGlyphs() {
  deleteGlyphs(selectedGlyphIds_);
}

void ProjectManager::deleteGlyphs(std::unordered_set<Uuid> ids) {
  endEdit();
  if (ids.empty()) return;
  std::vector<Glyph> deleted;
  editGlyphList([&](std::vector<Glyph>& glyphs) {
    const auto isKept = [&](const Glyph& g) { return !ids.contains(g.id()); };
    const auto gone = std::stable_partition(glyphs.begin(), glyphs.end(), isKept);
    deleted.assign(std::make_move_iterator(gone), std::make_move_iterator(glyphs.end()));
    glyphs.erase(gone, glyphs.end());
  });
  addUndoStep(action::deleteGlyphs(ids.size()),
              std::make_unique<DeletionStep>(std::move(deleted), selectedGlyphIds_));
  auto selection = selectedGlyphIds_;
  std::erase_if(selection, [&](const Uuid& id) { return ids.contains(id); });
  setSelection(std::move(selection), lastSelectedGlyphId_);
}

void ProjectManager::deleteGlyph(Uuid id) {
  endEdit();
  if (glyphBeingEdited_ && glyphBeingEdited_->id() == id) glyphBeingEdited_.reset();
  if (glyphIndex().withId(id))
    editGlyphList([&](std::vector<Glyph>& glyphs) {
      std::erase_if(glyphs, [&](const Glyph& glyph) { return glyph.id() == id; });
    });
  auto ids = selectedGlyphIds_;
  ids.erase(id);
  setSelection(std::move(ids), lastSelectedGlyphId_);
}

OpenEdit ProjectManager::beginEdit(std::string actionName, std::unique_ptr<UndoStep> before) {
  endEdit();
  openEdit_ = std::make_shared<OpenEdit::State>(
      OpenEdit::State{*this, std::move(actionName), std::move(before)});
  return OpenEdit(openEdit_);
}

void ProjectManager::endEdit() {
  // Closed first: whoever hears of the step may look here.
  const auto edit = std::exchange(openEdit_, nullptr);
  if (!edit) return;
  if (edit->before->changesAnything(*this))
    addUndoStep(std::move(edit->actionName), std::move(edit->before));
  else
    saved_.mayBeBack();
}

void ProjectManager::cancelEdit() {
  const auto edit = std::exchange(openEdit_, nullptr);
  if (edit && edit->before->changesAnything(*this)) edit->before->swap(*this);
  saved_.mayBeBack();
}

void ProjectManager::addUndoStep(std::string actionName, std::unique_ptr<UndoStep> step) {
  undoManager_.add(std::move(actionName), std::move(step), *this);
}

bool ProjectManager::openEditHasChanged() const {
  return openEdit_ && openEdit_->before->changesAnything(*this);
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
  undoManager_.undo(*this);
  saved_.mayBeBack();
  announce(What::everything);
}

void ProjectManager::redo() {
  endEdit();
  if (!undoManager_.canRedo()) return;
  undoManager_.redo(*this);
  saved_.mayBeBack();
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

void ProjectManager::noteDrawings(std::vector<NotedDrawing> drawings) {
  if (drawings.empty()) return;
  std::unordered_map<std::string, std::size_t> newest; // place of the last note of each file
  notedDrawings_.insert(notedDrawings_.end(), std::make_move_iterator(drawings.begin()),
                        std::make_move_iterator(drawings.end()));
  for (std::size_t i = 0; i < notedDrawings_.size(); ++i)
    newest[notedDrawings_[i].file.native()] = i;
  std::size_t place = 0;
  std::erase_if(notedDrawings_, [&](const NotedDrawing& drawing) {
    return newest[drawing.file.native()] != place++;
  });
  announce(What::imports);
}

void ProjectManager::noteImport(std::span<const std::filesystem::path> files,
                                std::vector<NotedDrawing> drawings) {
  forgetNotedDrawings(files);
  for (const auto& file : files) drawingsLookedAt_.insert(file.native());
  noteDrawings(std::move(drawings));
}

void ProjectManager::forgetNotedDrawings(std::span<const std::filesystem::path> files) {
  if (notedDrawings_.empty()) return;
  std::unordered_set<std::string> forgotten;
  for (const auto& file : files) forgotten.insert(file.native());
  if (std::erase_if(notedDrawings_, [&](const NotedDrawing& drawing) {
        return forgotten.contains(drawing.file.native());
      }) > 0)
    announce(What::imports);
}

void ProjectManager::setExporting(bool exporting) {
  if (std::exchange(isExporting_, exporting) != exporting) announce(What::exportState);
}

void ProjectManager::setExportStatus(ExportStatus status) {
  if (status == exportStatus_) return;
  exportStatus_ = std::move(status);
  announce(What::exportState);
}

} // namespace quillery
