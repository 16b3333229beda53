#include "app/ui/commands_table.h"

#include "desktop/shown_text.h"
#include "editor/copied_metrics.h"
#include "svg/svg_import.h"
#include "svg/window_import.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>

namespace quillery {
namespace {

QString tr(const char* text) {
  return QCoreApplication::translate("Commands", text);
}

bool isByArtboard(const ImportPreferences& preferences) {
  return preferences.placement == DrawingPlacement::artboard;
}

} // namespace

std::vector<Command> commandTable(ProjectManager& manager, ExportFlow& exportFlow,
                                  CommandTargets targets) {
  using Menu = Command::Menu;
  const auto always = [] { return true; };
  const auto hasGlyphs = [&manager] { return !manager.currentProject().glyphs.empty(); };
  const auto hasSelection = [&manager] { return !manager.selectedGlyphIds().empty(); };
  const auto converts = [&manager] { return manager.desktop().drawingFlattener() != nullptr; };
  std::vector<Command> table;
  const auto add = [&](Menu menu, const char* id, const QString& title,
                       const QKeySequence& shortcut, std::function<bool()> isEnabled,
                       std::function<void()> run) {
    table.push_back(
        {menu, QString::fromLatin1(id), title, shortcut, std::move(isEnabled), std::move(run)});
  };
  const auto addSwitch = [&](const char* id, const QString& title,
                             bool (*isOn)(const ImportPreferences&),
                             void (*turnOver)(ImportPreferences&)) {
    add(Menu::file, id, title, {}, converts, [&manager, turnOver] {
      ImportPreferences preferences = importPreferences(manager.desktop());
      turnOver(preferences);
      setImportPreferences(manager, preferences);
    });
    table.back().isOn = [&manager, isOn] { return isOn(importPreferences(manager.desktop())); };
  };
  const auto divider = [&](Menu menu) { table.push_back({menu, {}, {}, {}, always, nullptr}); };

  add(Menu::file, "newProject", tr("New Project"), Qt::CTRL | Qt::Key_N, always,
      [&] { manager.newProject(); });
  add(Menu::file, "importDrawings", tr("Import SVG..."), Qt::CTRL | Qt::Key_I, always,
      [&] { importSVG(manager); });
  divider(Menu::file);
  add(Menu::file, "save", tr("Save"), Qt::CTRL | Qt::Key_S, always, [&] { manager.saveProject(); });
  add(Menu::file, "saveAs", tr("Save As..."), Qt::CTRL | Qt::SHIFT | Qt::Key_S, always,
      [&] { manager.saveProjectAs(); });
  add(Menu::file, "openProject", tr("Open Project..."), Qt::CTRL | Qt::Key_O, always,
      [&] { manager.openProject(); });
  table.push_back(
      {Menu::file, QStringLiteral("openRecent"), tr("Open Recent"), {}, always, nullptr, true});
  divider(Menu::file);
  add(Menu::file, "exportFont", tr("Export Font..."), Qt::CTRL | Qt::Key_E, hasGlyphs,
      [&] { exportFlow.exportFont(); });
  divider(Menu::file);
  add(Menu::file, "importSheet", tr("Import Sheet..."), {}, converts, targets.importSheet);
  add(Menu::file, "watchFolder", tr("Watch Folder..."), {}, always, targets.watchFolder);
  table.back().isOn = targets.isWatching;
  addSwitch(
      "alwaysConvert", tr("Always Convert Drawings"),
      [](const ImportPreferences& preferences) { return preferences.alwaysConvert; },
      [](ImportPreferences& preferences) {
        preferences.alwaysConvert = !preferences.alwaysConvert;
      });
  addSwitch("placeByArtboard", tr("Place by Artboard"), isByArtboard,
            [](ImportPreferences& preferences) {
              preferences.placement =
                  isByArtboard(preferences) ? DrawingPlacement::edges : DrawingPlacement::artboard;
            });
  divider(Menu::file);
  add(Menu::file, "quit", tr("Quit"), Qt::CTRL | Qt::Key_Q, always, targets.quit);

  add(
      Menu::edit, "undo", tr("Undo"), Qt::CTRL | Qt::Key_Z, [&] { return manager.canUndo(); },
      [&] { manager.undo(); });
  add(
      Menu::edit, "redo", tr("Redo"), Qt::CTRL | Qt::SHIFT | Qt::Key_Z,
      [&] { return manager.canRedo(); }, [&] { manager.redo(); });
  divider(Menu::edit);
  add(Menu::edit, "selectAll", tr("Select All Glyphs"), {}, hasGlyphs,
      [&] { manager.selectAllGlyphs(); });
  add(Menu::edit, "clearSelection", tr("Clear Selection"), Qt::CTRL | Qt::Key_Escape, hasSelection,
      [&] { manager.clearSelection(); });
  divider(Menu::edit);
  add(Menu::edit, "deleteSelected", tr("Delete Selected"), Qt::CTRL | Qt::Key_Backspace,
      hasSelection, [&] { manager.deleteSelectedGlyphs(); });
  divider(Menu::edit);
  // Not Ctrl+C and Ctrl+V, which copy and paste in fields and tables.
  add(Menu::edit, "copyMetrics", tr("Copy Metrics"), Qt::CTRL | Qt::ALT | Qt::Key_C, hasSelection,
      [&] {
        if (const auto& glyph = manager.lastSelectedGlyphId())
          QGuiApplication::clipboard()->setText(shownText(copiedMetrics(manager, *glyph)));
      });
  add(Menu::edit, "pasteMetrics", tr("Paste Metrics"), Qt::CTRL | Qt::ALT | Qt::Key_V, hasSelection,
      [&] {
        const auto& selected = manager.selectedGlyphIds();
        pasteMetrics(manager, QGuiApplication::clipboard()->text().toStdString(),
                     std::vector<Uuid>(selected.begin(), selected.end()));
      });

  add(Menu::view, "glyphsTab", tr("Glyphs"), Qt::CTRL | Qt::Key_1, hasGlyphs,
      [goToTab = targets.goToTab] { goToTab(0); });
  add(Menu::view, "kerningTab", tr("Kerning"), Qt::CTRL | Qt::Key_2, hasGlyphs,
      [goToTab = targets.goToTab] { goToTab(1); });
  add(Menu::view, "findGlyphs", tr("Search Glyphs"), Qt::CTRL | Qt::Key_F, hasGlyphs,
      targets.findGlyphs);
  divider(Menu::view);
  const auto addPart = [&](const char* id, const QString& title, Qt::Key key, ViewPart part) {
    add(Menu::view, id, title, key, always, [toggle = targets.toggle, part] { toggle(part); });
    table.back().isOn = [isShown = targets.isShown, part] { return isShown(part); };
  };
  addPart("showGrid", tr("Glyph Grid"), Qt::Key_F7, ViewPart::grid);
  addPart("showPreview", tr("Font Preview"), Qt::Key_F8, ViewPart::preview);
  addPart("showSidebar", tr("Sidebar"), Qt::Key_F9, ViewPart::sidebar);
  divider(Menu::view);
  add(Menu::view, "largerCards", tr("Larger Cards"), Qt::ALT | Qt::Key_Plus, hasGlyphs,
      [resize = targets.resizeCards] { resize(1); });
  add(Menu::view, "smallerCards", tr("Smaller Cards"), Qt::ALT | Qt::Key_Minus, hasGlyphs,
      [resize = targets.resizeCards] { resize(-1); });
  divider(Menu::view);
  using Scheme = ViewState::Scheme;
  const auto addScheme = [&](const char* id, const QString& title, Scheme scheme) {
    add(Menu::view, id, title, {}, always, [set = targets.setScheme, scheme] { set(scheme); });
    table.back().isOn = [current = targets.scheme, scheme] { return current() == scheme; };
  };
  addScheme("systemTheme", tr("System Theme"), Scheme::system);
  addScheme("lightTheme", tr("Light Theme"), Scheme::light);
  addScheme("darkTheme", tr("Dark Theme"), Scheme::dark);
  divider(Menu::view);
  add(Menu::view, "nextPane", tr("Next Pane"), Qt::Key_F6, always,
      [goToPane = targets.goToPane] { goToPane(true); });
  add(Menu::view, "previousPane", tr("Previous Pane"), Qt::SHIFT | Qt::Key_F6, always,
      [goToPane = targets.goToPane] { goToPane(false); });

  add(Menu::help, "help", tr("Quillery Help"), Qt::CTRL | Qt::Key_Question, always,
      targets.openHelp);
  add(Menu::help, "licenses", tr("Third-Party Licenses..."), {}, always, targets.showLicenses);
  return table;
}

} // namespace quillery
