#pragma once

#include "base/signal.h"
#include "model/font_project.h"
#include "model/project_file.h"
#include "project/desktop.h"
#include "project/export_status.h"
#include "project/glyph_index.h"
#include "project/import_task.h"
#include "project/kerning_index.h"
#include "project/open_edit.h"
#include "project/recent_projects_manager.h"
#include "project/saved_state.h"
#include "project/undo_manager.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_set>

namespace quillery {

/// What changed, for those who show it.
struct ProjectChange {
  enum class What {
    project,      ///< another project took the place of the old one
    fontInfo,     ///< names or font-wide metrics
    glyphList,    ///< glyphs came, went or moved
    glyphs,       ///< values of the glyphs with `ids`
    kerningList,  ///< pairs came or went
    kerningPair,  ///< value of the one pair in `ids`
    selection,    ///< selectedGlyphIds
    selectedPair, ///< selectedKerningPairId
    selectedTab,
    file,        ///< currentProjectURL, or what the file holds
    imports,     ///< imports came, went or got further, or notedDrawings
    exportState, ///< isExporting or exportStatus
    savedBadge,
    history,    ///< what can be undone or redone
    everything, ///< an undo or redo: look at all of it
  };

  What what;
  std::span<const Uuid> ids{}; // good during the announcement
};

/// The one document controller: holds the open project and what is selected in it, and announces
/// every change. Main thread only.
///
/// Others change the project through the `edit...` operations, glyph metrics through the setters
/// of Glyph. What belongs to one subsystem stands there, as functions that take this.
class ProjectManager {
public:
  ProjectManager(Desktop& desktop, RecentProjectsManager& recentProjects);
  ProjectManager(const ProjectManager&) = delete;
  ProjectManager& operator=(const ProjectManager&) = delete;

  /// After every change.
  Signal<const ProjectChange&> changed;

  const FontProject& currentProject() const { return project_; }
  /// The file that Save writes to.
  const std::optional<std::filesystem::path>& currentProjectURL() const { return url_; }
  /// There are changes that no file holds. A project that was just begun or opened has none, nor
  /// has one whose changes were all undone.
  bool hasUnsavedChanges() const { return saved_.differsFrom(project_); }
  /// No file holds the glyph as it is.
  bool isUnsaved(const Glyph& glyph) const { return !saved_.holds(glyph); }
  /// The file's name without extension, or "Untitled".
  std::string projectDisplayName() const;
  const std::optional<Glyph>& glyphBeingEdited() const { return glyphBeingEdited_; }
  UndoManager& undoManager() { return undoManager_; }
  const UndoManager& undoManager() const { return undoManager_; }
  Desktop& desktop() { return desktop_; }
  /// Ties callbacks to the life of this manager.
  const Lifetime& lifetime() const { return lifetime_; }

  // -- Looking up, at the same cost in every project

  /// Null when there is none. The pointer is good until the next edit.
  const Glyph* glyphWithId(const Uuid& id) const;
  const Glyph* firstGlyphNamed(std::string_view name) const;
  /// The glyph that a text shows for a character: the last that maps to it.
  const Glyph* glyphForCharacter(std::string_view character) const;
  const GlyphIndex& glyphIndex() const;
  const KerningPair* kerningPairWithId(const Uuid& id) const;
  /// The pair that counts for these names: the first.
  const KerningPair* firstKerningPair(std::string_view leftGlyph,
                                      std::string_view rightGlyph) const;
  const KerningIndex& kerningIndex() const;
  /// Another number after every change of the document.
  std::uint64_t revision() const { return revision_; }

  // -- Editing. Each announces one change, or nothing where nothing became different; none
  // registers an undo step of its own.

  void editFontInfo(const std::function<void(FontInfo&)>& edit);
  void editGlyphList(const std::function<void(std::vector<Glyph>&)>& edit);
  /// Changes one glyph, but not its name or id; false when there is no such glyph.
  bool editGlyph(const Uuid& id, const std::function<void(Glyph&)>& edit);
  /// Changes several glyphs in this order, but not their names or ids, and announces one change.
  /// Ids of glyphs that are not there are passed over.
  void editGlyphs(std::span<const Uuid> ids, const std::function<void(Glyph&)>& edit);
  void editKerningList(const std::function<void(std::vector<KerningPair>&)>& edit);
  /// Changes the value of a pair; false when there is no such pair.
  bool setKerningValue(const Uuid& id, Finite value);

  // -- Selection

  /// May name glyphs that are not there any more.
  const std::unordered_set<Uuid>& selectedGlyphIds() const { return selectedGlyphIds_; }
  /// The anchor of a range selection.
  const std::optional<Uuid>& lastSelectedGlyphId() const { return lastSelectedGlyphId_; }

  /// Makes this the selection and its anchor.
  void setSelection(std::unordered_set<Uuid> ids, std::optional<Uuid> anchor);
  // By value: an id may be handed over from where the operation itself changes it.
  void selectGlyph(Uuid id);
  void toggleGlyphSelection(Uuid id);
  /// Adds every glyph from anchor to target in `displayed`, the order that the user sees. Nothing
  /// happens when one of them is not in it.
  void selectGlyphRange(const Uuid& anchor, const Uuid& target, std::span<const Uuid> displayed);
  void selectAllGlyphs();
  void clearSelection();

  struct ClickModifiers {
    bool command = false;
    bool shift = false;
  };
  /// A click on a glyph among those displayed. Command toggles, shift extends, command wins.
  void clickGlyph(const Uuid& id, ClickModifiers modifiers, std::span<const Uuid> displayed);

  const std::optional<Uuid>& selectedKerningPairId() const { return selectedKerningPairId_; }
  void selectKerningPair(std::optional<Uuid> id);

  int selectedTab() const { return selectedTab_; }
  void setSelectedTab(int tab);

  /// Deletes the selected glyphs as one step that can be undone, but not redone.
  void deleteSelectedGlyphs();
  /// The same for these glyphs; the others that are selected stay so.
  void deleteGlyphs(std::unordered_set<Uuid> ids);
  /// Deletes one glyph for good.
  void deleteGlyph(Uuid id);

  // -- The edit under way, and the history

  /// Begins an edit; the one before it ends. `before` holds the values that it begins with.
  OpenEdit beginEdit(std::string actionName, std::unique_ptr<UndoStep> before);
  /// Ends the open edit, if there is one. Undo, redo, deletions and the arrival of another project
  /// do so first.
  void endEdit();
  /// Takes back the open edit, if there is one.
  void cancelEdit();
  /// Makes a change that was done a step that can be undone.
  void addUndoStep(std::string actionName, std::unique_ptr<UndoStep> step);

  /// An open edit that changed something counts as the last step.
  bool canUndo() const;
  bool canRedo() const;
  /// One step back or forward, when there is one.
  void undo();
  void redo();

  // -- Files

  void newProject();
  void openProject();
  /// Reads a file, normalizes its characters and makes it the open project. On failure nothing
  /// has changed.
  Result<void, Problem> loadProject(const std::filesystem::path& file);
  void openRecentProject(const std::filesystem::path& file);
  void openSampleProject();
  void saveProject();
  void saveProjectAs();
  /// Writes the project and makes the file the one that Save writes to. On failure nothing has
  /// changed.
  Result<void, Problem> saveProjectTo(const std::filesystem::path& file);

  bool showSavedBadge() const { return showSavedBadge_; }
  void flashSavedBadge();

  /// Queues a modal alert with one "OK" button.
  void showAlert(const std::string& title, const std::string& message);
  void showError(const std::string& title, const std::string& message) {
    showAlert(title, message);
  }

  // -- Imports under way

  const std::vector<std::shared_ptr<ImportTask>>& imports() const { return imports_; }
  /// Keeps an import alive until it is removed.
  void addImport(std::shared_ptr<ImportTask> task);
  void removeImport(const ImportTask& task);
  void announceImportProgress() { announce(ProjectChange::What::imports); }

  /// Drawings of this project that hold more than was read or lost something when they were
  /// converted, in the order in which they were noted.
  const std::vector<NotedDrawing>& notedDrawings() const { return notedDrawings_; }
  /// Adds drawings. What was noted of the same file before goes.
  void noteDrawings(std::vector<NotedDrawing> drawings);
  /// What an import of `files` noted. It takes the place of what was noted of these files before.
  void noteImport(std::span<const std::filesystem::path> files, std::vector<NotedDrawing> drawings);
  /// How many drawings such imports were of since `countDrawingsAnew`: those that are noted are
  /// some of them. One that came again counts once.
  std::size_t drawingsLookedAt() const { return drawingsLookedAt_.size(); }
  void countDrawingsAnew() { drawingsLookedAt_.clear(); }
  void forgetNotedDrawings(std::span<const std::filesystem::path> files);

  // -- State of the export

  /// The progress sheet is shown.
  bool isExporting() const { return isExporting_; }
  const ExportStatus& exportStatus() const { return exportStatus_; }
  void setExporting(bool exporting);
  void setExportStatus(ExportStatus status);

private:
  void announce(ProjectChange::What what) { changed.emit({what}); }
  void install(FontProject project, std::optional<std::filesystem::path> file);
  void openAndReport(const std::filesystem::path& file);
  void saveAndReport(const std::filesystem::path& file);
  std::optional<std::filesystem::path> findSample() const;
  void setSavedBadge(bool shown);
  const Glyph* glyphAt(std::optional<std::size_t> position) const;
  void documentChanged(const ProjectChange& change);
  const KerningPair* pairAt(std::optional<std::size_t> position) const;
  bool applyToGlyph(std::size_t position, const std::function<void(Glyph&)>& edit);
  bool openEditHasChanged() const;

  Desktop& desktop_;
  RecentProjectsManager& recentProjects_;
  FontProject project_;
  std::uint64_t revision_ = 0;
  mutable std::optional<GlyphIndex> index_;
  mutable std::optional<KerningIndex> kerningIndex_;
  std::optional<Glyph> glyphBeingEdited_;
  std::optional<std::filesystem::path> url_;
  SavedState saved_;
  std::vector<std::shared_ptr<ImportTask>> imports_;
  std::vector<NotedDrawing> notedDrawings_;
  std::unordered_set<std::string> drawingsLookedAt_; // their files
  bool isExporting_ = false;
  ExportStatus exportStatus_;
  int selectedTab_ = 0;
  std::optional<Uuid> selectedKerningPairId_;
  std::unordered_set<Uuid> selectedGlyphIds_;
  std::optional<Uuid> lastSelectedGlyphId_;
  bool showSavedBadge_ = false;
  std::unique_ptr<OneShotTimer> savedBadgeTimer_;
  UndoManager undoManager_;
  Connection undoConnection_;
  std::shared_ptr<OpenEdit::State> openEdit_;
  Lifetime lifetime_;
};

} // namespace quillery
