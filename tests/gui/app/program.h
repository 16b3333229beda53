#pragma once

#include "app/ui/glyph_grid_view.h"
#include "app/ui/main_window.h"
#include "gui/desktop/gui_test.h"
#include "gui/desktop/window_desktop.h"
#include "support/temporary_folder.h"
#include "svg/svg_import.h"

#include <QAction>

namespace quillery::test {

/// A window on a scripted desktop, with glyphs of these names.
struct Program : WindowProject {
  explicit Program(std::initializer_list<const char*> drawings = {}) {
    std::vector<std::filesystem::path> files;
    for (const char* name : drawings)
      files.push_back(
          folder.write(std::string(name) + ".svg", "<path d=\"M0 0 L60 0 L60 70 Z\"/>"));
    if (!files.empty()) importSVGFiles(manager, files);
    manager.clearSelection();
    bringUp(window);
  }

  QAction* action(const char* name) {
    settle();
    return window.findChild<QAction*>(QLatin1String(name));
  }
  GlyphCardArea& cards() { return window.grid().cards(); }
  void click(std::size_t card, Qt::KeyboardModifiers modifiers = {}) {
    settle();
    QTest::mousePress(cards().viewport(), Qt::LeftButton, modifiers,
                      cards().cardRect(card).center());
  }
  // Names of the selected glyphs in display order.
  QString selected() {
    settle();
    QString names;
    for (std::size_t i = 0; i < cards().cardCount(); ++i)
      if (cards().isSelected(i)) names += QString::fromStdString(cards().glyphOfCard(i)->name());
    return names;
  }

  TemporaryFolder folder;
  FontGenerator generator{desktop, {{}, {}, {}, {}}};
  ExportFlow exportFlow{manager, generator};
  MainWindow window{manager, recent, exportFlow};
};

} // namespace quillery::test
