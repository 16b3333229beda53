#pragma once

#include "app/view_state.h"
#include "export/export_flow.h"
#include "project/project_manager.h"

#include <QKeySequence>
#include <QString>
#include <functional>
#include <vector>

namespace quillery {

/// A command of the program, as menus, shortcuts and tests know it.
struct Command {
  enum class Menu { file, edit, view, help };

  Menu menu;
  QString id;    ///< the object name of its action
  QString title; ///< empty for a divider
  QKeySequence shortcut;
  std::function<bool()> isEnabled;
  std::function<void()> run;
  bool isOpenRecent = false;            ///< the place of that submenu
  std::function<bool()> isOn = nullptr; ///< of a switch, which `run` turns over
};

enum class ViewPart { sidebar, grid, preview };

/// What commands reach that is neither the project nor the export.
struct CommandTargets {
  std::function<void()> showLicenses;
  std::function<void()> openHelp;
  std::function<void()> quit;
  std::function<void()> importSheet;
  std::function<void()> watchFolder; ///< or stop watching it
  std::function<bool()> isWatching;
  std::function<void(int tab)> goToTab;
  std::function<void()> findGlyphs;
  std::function<void(bool forward)> goToPane;
  std::function<bool(ViewPart part)> isShown;
  std::function<void(ViewPart part)> toggle;
  std::function<void(int steps)> resizeCards;
  std::function<ViewState::Scheme()> scheme;
  std::function<void(ViewState::Scheme scheme)> setScheme;
};

/// Every command, menu by menu in their order.
std::vector<Command> commandTable(ProjectManager& manager, ExportFlow& exportFlow,
                                  CommandTargets targets);

} // namespace quillery
