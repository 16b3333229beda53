#include "app/ui/resizable_split_view.h"
#include "desktop/segmented_control.h"
#include "gui/app/program.h"
#include "kerning/kerning_pairs.h"
#include "support/projects.h"

#include <QAccessible>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QToolButton>
#include <QUrl>

using namespace quillery;
using namespace quillery::test;

class MainWindowTest : public QObject {
  Q_OBJECT

  // Drags files over a widget and drops them where they are taken.
  static bool drop(const std::vector<std::filesystem::path>& files, QWidget* target) {
    QMimeData data;
    QList<QUrl> urls{QUrl(QStringLiteral("https://example.org/B.svg"))};
    for (const auto& file : files)
      urls.push_front(QUrl::fromLocalFile(QString::fromStdString(file.string())));
    data.setUrls(urls);
    data.setText(QStringLiteral("as text"));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
    return event.isAccepted();
  }

private Q_SLOTS:
  void init() { failOnWarnings(); }

  void drawingsDroppedAnywhereAreImportedAndOtherFilesRefused() {
    Program program{"A"};
    program.click(0);
    const char* kPath = "<path d=\"M0 0 L9 9\"/>";
    QVERIFY(!drop({program.folder.write("notes.txt", "x")}, program.cards().viewport()));
    std::filesystem::create_directory(program.folder / "empty.svg");
    QVERIFY(!drop({program.folder / "empty.svg"}, program.cards().viewport()));
    std::size_t count = 1;
    const auto imports = [&](const char* name, QWidget* target) {
      const bool taken = drop({program.folder.write(std::string(name) + ".svg", kPath)}, target);
      program.desktop.runUntil([&] { return program.manager.imports().empty(); });
      return taken && program.selected() == QLatin1String(name) &&
             program.manager.currentProject().glyphs.size() == ++count;
    };
    QVERIFY(imports("C d", program.cards().viewport()));
    QVERIFY(imports("E", find<QToolButton>("sortMenu")));
    QVERIFY(imports("F", find<QWidget>("glyphCanvas")));
    const QString designer = find<QLineEdit>("designer")->text();
    QVERIFY(imports("G", find<QLineEdit>("designer")));
    QCOMPARE(find<QLineEdit>("designer")->text(), designer);
    const QString text = find<QPlainTextEdit>("previewText")->toPlainText();
    QVERIFY(imports("H", find<QPlainTextEdit>("previewText")->viewport()));
    QCOMPARE(find<QPlainTextEdit>("previewText")->toPlainText(), text);
    // A folder stands for its drawings.
    std::filesystem::create_directory(program.folder / "more");
    for (const char* file : {"more/X.svg", "more/Y.SVG", "more/notes.txt"})
      program.folder.write(file, kPath);
    QVERIFY(drop({program.folder / "more"}, find<QWidget>("sidebar")));
    program.desktop.runUntil([&] { return program.manager.imports().empty(); });
    QCOMPARE(program.manager.currentProject().glyphs.size(), count + 2);
  }

  void aProjectIsOpenedByADropUnlessChangesWouldBeLost() {
    Program program{"A", "B"};
    const auto mine = program.folder / "Mine.fontproj";
    const auto other = program.folder / "Other.fontproj";
    QVERIFY(program.manager.saveProjectTo(other).ok());
    program.manager.deleteSelectedGlyphs();
    QVERIFY(program.manager.saveProjectTo(mine).ok());
    program.manager.editFontInfo([](FontInfo& info) { info.ascender = test::finite(900); });
    QVERIFY(!drop({other}, &program.cards()));
    QCOMPARE(program.manager.currentProjectURL(), std::optional(mine));
    auto* notice = find<QWidget>("projectRefused");
    QVERIFY(notice && notice->accessibleName().contains("Other.fontproj"_L1));
    QVERIFY(program.window.isWindowModified());
    QTest::mouseClick(find<QPushButton>("saveFirst"), Qt::LeftButton);
    QVERIFY(!find<QWidget>("projectRefused") && !program.window.isWindowModified());
    QVERIFY(drop({other}, &program.cards()));
    QCOMPARE(program.manager.currentProjectURL(), std::optional(other));
    QVERIFY(program.desktop.alerts.empty());
  }

  void theTitleMarksChangesThatNoFileHolds() {
    Program program{"A"};
    QVERIFY(program.manager.saveProjectTo(program.folder / "A[*]B.fontproj").ok());
    settle();
    QVERIFY(!program.window.isWindowModified());
    QCOMPARE(program.window.windowTitle(), QStringLiteral("Quillery - A[*][*]B[*]"));
    QCOMPARE(find<QLabel>("projectTitle")->text(), QStringLiteral("Quillery - A[*]B"));
    addKerningPair(program.manager, quillery::Utf8("A"), quillery::Utf8("A"));
    settle();
    QVERIFY(program.window.isWindowModified());
    program.action("save")->trigger();
    settle();
    QVERIFY(!program.window.isWindowModified());
    program.click(0);
    program.action("deleteSelected")->trigger();
    settle();
    QVERIFY(program.window.isWindowModified());
    program.action("undo")->trigger();
    settle();
    QVERIFY(!program.window.isWindowModified());
  }

  void theEmptyStateAndTheGridTakeTurns() {
    Program program;
    QVERIFY(find<QWidget>("emptyState"));
    QCOMPARE(program.window.windowTitle(), QStringLiteral("Quillery - SVG Letterloom[*]"));
    program.desktop.openAnswer = {program.folder.write("A.svg", "<path d=\"M0 0 L9 9\"/>")};
    QTest::mouseClick(find<QPushButton>("importDrawings"), Qt::LeftButton);
    program.desktop.runUntil([&] { return !program.manager.currentProject().glyphs.empty(); });
    QVERIFY(!find<QWidget>("emptyState"));
    QCOMPARE(program.selected(), QStringLiteral("A"));
    QCOMPARE(find<QLabel>("glyphCount")->text(), QStringLiteral("1 glyphs"));
    program.manager.deleteSelectedGlyphs();
    QVERIFY(find<QWidget>("emptyState"));
    program.manager.undo();
    QVERIFY(!find<QWidget>("emptyState"));
  }

  void commandsAreEnabledWhenTheyCanDoSomething() {
    Program program;
    const auto enabled = [&](const char* name) { return program.action(name)->isEnabled(); };
    for (const char* name :
         {"exportFont", "undo", "redo", "selectAll", "clearSelection", "deleteSelected"})
      QVERIFY2(!enabled(name), name);
    QVERIFY(!find<QPushButton>("exportFont")->isEnabled());
    for (const char* name :
         {"newProject", "importDrawings", "save", "saveAs", "openProject", "help", "licenses"})
      QVERIFY2(enabled(name), name);
    importSVGFiles(program.manager, {program.folder.write("A.svg", "<path d=\"M0 0 L9 9\"/>")});
    for (const char* name : {"exportFont", "selectAll", "clearSelection", "deleteSelected"})
      QVERIFY2(enabled(name), name);
    program.action("deleteSelected")->trigger();
    QVERIFY(enabled("undo") && !enabled("deleteSelected") && !enabled("exportFont"));
    QCOMPARE(program.action("undo")->text(), QStringLiteral("Undo"));
  }

  void keysMoveTheSelectionAndFindGlyphs() {
    Program program{"A", "B", "a10", "a9", "exclam"};
    program.cards().setFocus();
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
      QTest::keyClick(&program.cards(), key, modifiers);
    };
    press(Qt::Key_Right);
    QCOMPARE(program.selected(), QStringLiteral("exclam"));
    press(Qt::Key_End);
    press(Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(program.manager.selectedGlyphIds().size(), 2U);
    press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(program.manager.selectedGlyphIds().size(), 5U);
    QTest::keyClicks(&program.cards(), QStringLiteral("!"));
    QCOMPARE(program.selected(), QStringLiteral("exclam"));
  }

  void everySidebarFieldEditsItsOwnValueAsOneStep() {
    Program program{"A"};
    const auto info = [&]() -> const FontInfo& { return program.manager.currentProject(); };
    const auto number = [](auto value) { return std::to_string(std::llround(value)); };
    const std::tuple<const char*, const char*, std::function<std::string()>> rows[] = {
        {"fontName", "Change Font Name", [&] { return info().name; }},
        {"designer", "Change Designer", [&] { return info().designer; }},
        {"version", "Change Version", [&] { return info().version; }},
        {"unitsPerEm", "Change Units Per Em", [&] { return std::to_string(info().unitsPerEm); }},
        {"ascender", "Change Ascender", [&] { return number(info().ascender); }},
        {"descender", "Change Descender", [&] { return number(info().descender); }},
        {"capHeight", "Change Cap Height", [&] { return number(info().capHeight); }},
        {"xHeight", "Change x-Height", [&] { return number(info().xHeight); }}};
    QVERIFY(find<QLineEdit>("fontName")->width() > find<QLineEdit>("ascender")->width());
    int typed = 650;
    for (const auto& [name, action, value] : rows) {
      auto* field = find<QLineEdit>(name);
      const QString before = field->text();
      field->setFocus();
      field->selectAll();
      QTest::keyClicks(field, QString::number(++typed));
      QCOMPARE(value(), std::to_string(typed));
      QVERIFY(!program.manager.undoManager().canUndo());
      program.cards().setFocus();
      QCOMPARE(program.manager.undoManager().undoActionName(), std::string(action));
      program.action("undo")->trigger();
      QVERIFY(program.action("redo")->isEnabled());
      QCOMPARE(field->text(), before);
      QCOMPARE(value(), before.toStdString());
    }
  }

  void theBadgeSaysThatTheProjectIsSaved() {
    Program program{"A"};
    QVERIFY(program.manager.saveProjectTo(program.folder / "Saved.fontproj").ok());
    auto* badge = find<QWidget>("savedBadge");
    const auto colors = [&] {
      const QImage picture = badge->grab().toImage();
      return std::pair(picture.pixelColor(picture.width() / 2, 3),
                       picture.pixelColor(0, picture.height() - 1));
    };
    const auto isShown = [&] { return colors().first == themeColor(Role::successFill); };
    QVERIFY(!isShown() && badge->accessibleName().isEmpty());
    program.action("save")->trigger();
    settle();
    QCOMPARE(badge->accessibleName(), QStringLiteral("Saved!"));
    QTRY_VERIFY(isShown());
    program.desktop.advance(3);
    settle();
    QVERIFY(badge->accessibleName().isEmpty());
    QTRY_COMPARE(colors().first, colors().second);
  }

  void theRecentMenuFollowsTheList() {
    Program program{"A"};
    auto* menu = program.window.findChild<QMenu*>(QStringLiteral("openRecent"));
    QCOMPARE(menu->actions().size(), 1);
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("No Recent Projects"));
    QVERIFY(!menu->actions().first()->isEnabled());
    const auto file = program.folder / "R&D, \"x\".fontproj";
    QVERIFY(program.manager.saveProjectTo(file).ok());
    settle();
    QCOMPARE(program.window.windowTitle(), QStringLiteral("Quillery - R&D, \"x\"[*]"));
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("R&&D, \"x\""));
    program.action("newProject")->trigger();
    menu->actions().first()->trigger();
    QCOMPARE(program.manager.currentProjectURL(), std::optional(file));
    menu->actions().last()->trigger();
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("No Recent Projects"));
  }

  void theProgressSheetFollowsTheExport() {
    Program program{"A"};
    const auto title = [] { return find<QLabel>("exportTitle")->text(); };
    QVERIFY(!find<QWidget>("exportProgress"));
    program.manager.setExportStatus(ExportStatus::preparing());
    program.manager.setExporting(true);
    QCOMPARE(title(), QStringLiteral("Preparing Export..."));
    auto* sheet = find<QWidget>("exportProgress");
    QTest::keyClick(sheet, Qt::Key_Escape);
    sheet->close();
    QVERIFY(sheet->isVisible());
    program.manager.setExportStatus(ExportStatus::exporting());
    QCOMPARE(title(), QStringLiteral("Generating Font..."));
    program.manager.setExportStatus(ExportStatus::success("/tmp/a b.otf"));
    QCOMPARE(title(), QStringLiteral("Export Complete!"));
    QVERIFY(find<QPushButton>("showInFileManager")->isDefault());
    QTest::mouseClick(find<QPushButton>("done"), Qt::LeftButton);
    QVERIFY(!find<QWidget>("exportProgress"));
    program.manager.setExportStatus(ExportStatus::failed("boom" + std::string(300, '\n') + "end"));
    program.manager.setExporting(true);
    const auto* ok = find<QPushButton>("ok");
    QVERIFY(sheet->rect().contains(ok->geometry()) && sheet->height() < 560);
    QTest::keyClick(find<QWidget>("exportProgress"), Qt::Key_Return);
    QVERIFY(!program.manager.isExporting());
  }

  void aFixInTheSidebarMakesItsWarningGo() {
    Program program;
    QVERIFY(find<QPushButton>("addSpace") && find<QPushButton>("addNotdef"));
    importSVGFiles(program.manager, {program.folder.write("A.svg", "<path d=\"M0 0 L9 9\"/>")});
    // A space that is typed is no longer missing, and a link of before adds no second one.
    auto* stale = find<QPushButton>("addSpace");
    const Uuid id = program.manager.currentProject().glyphs.front().id();
    program.manager.editGlyph(id, [](Glyph& glyph) { glyph.setUnicode(Utf8(" ")); });
    stale->click();
    QVERIFY(!find<QPushButton>("addSpace"));
    QCOMPARE(program.manager.currentProject().glyphs.size(), 1U);
    program.manager.editGlyph(id, [](Glyph& glyph) { glyph.setUnicode(Utf8("A")); });
    QTest::mouseClick(find<QPushButton>("addSpace"), Qt::LeftButton);
    QTRY_VERIFY(!find<QPushButton>("addSpace"));
    QTest::mouseClick(find<QPushButton>("addNotdef"), Qt::LeftButton);
    QTRY_VERIFY(!find<QWidget>("exportWarnings"));
    QCOMPARE(program.manager.currentProject().glyphs.size(), 3U);
  }

  void theViewPickerAndThePreviewSwitchArrangeTheWindow() {
    Program program;
    QVERIFY(!find<QWidget>("tabs") && !find<QWidget>("previewPanel"));
    importSVGFiles(program.manager, {program.folder.write("A.svg", "<path d=\"M0 0 L9 9\"/>")});
    QTRY_VERIFY(find<SegmentedControl>("tabs"));
    auto* tabs = find<SegmentedControl>("tabs");
    QVERIFY(find<QWidget>("glyphsPane") && find<QWidget>("previewPanel"));
    QTest::mouseClick(tabs->segment(1), Qt::LeftButton);
    QCOMPARE(program.manager.selectedTab(), 1);
    QVERIFY(find<QWidget>("kerningEditor") && !find<QWidget>("glyphsPane"));
    importSVGFiles(program.manager, {program.folder.write("B.svg", "<path d=\"M0 0 L9 9\"/>")});
    QVERIFY(find<QWidget>("glyphsPane"));
    QCOMPARE(tabs->current(), 0);

    auto* split = program.window.findChild<ResizableSplitView*>();
    const double part = double(split->sizes().first()) / split->height();
    QVERIFY2(std::abs(part - 0.65) < 0.01, qPrintable(QString::number(part)));
    split->setSizes({1, 9999});
    QCOMPARE(split->sizes().first(), 300);
    split->setSizes({9999, 1});
    QCOMPARE(split->sizes().last(), 150);
    auto* preview = find<QToolButton>("togglePreview");
    QTest::mouseClick(preview, Qt::LeftButton);
    QVERIFY(!find<QWidget>("previewPanel"));
    QTRY_COMPARE(split->sizes().first(), split->height());
    QTest::mouseClick(preview, Qt::LeftButton);
    find<QPlainTextEdit>("previewText")->setPlainText(QStringLiteral("mine"));
    // As the window opens on a small screen.
    program.window.resize(QSize(1366, 768) * 0.92);
    QVERIFY(find<QWidget>("availableCharacters"));
    QCOMPARE(find<QWidget>("previewText")->height(), 84);
    // What is typed lasts as long as the panel is there.
    for (int press = 0; press < 2; ++press) QTest::mouseClick(preview, Qt::LeftButton);
    QVERIFY(find<QPlainTextEdit>("previewText")->toPlainText().startsWith("ABC"_L1));
  }

  void theKeyboardWalksThePanesAsTheEyeDoes() {
    Program program{"A", "V"};
    QVERIFY(program.cards().hasFocus());
    program.click(0);
    const auto paneOf = [&](const QWidget* widget) {
      for (; widget; widget = widget->parentWidget())
        for (const char* pane : {"toolBar", "sidebar", "glyphGrid", "metricsPanel", "glyphCanvas",
                                 "kerningEditor", "previewPanel"})
          if (widget->objectName() == QLatin1String(pane)) return QString::fromLatin1(pane);
      return QString();
    };
    const auto walk = [&](Qt::Key key, Qt::KeyboardModifiers modifiers, int steps) {
      QStringList panes;
      for (int step = 0; step < steps; ++step) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        settle();
        const QString pane = paneOf(QApplication::focusWidget());
        if (panes.empty() || panes.back() != pane) panes << pane;
      }
      return panes.join(u' ');
    };
    for (int turn = 0; turn < 3; ++turn) settle();
    // The preview's text takes the Tab key for itself.
    QCOMPARE(walk(Qt::Key_Tab, {}, 9), QStringLiteral("glyphCanvas metricsPanel previewPanel"));
    program.cards().setFocus();
    QCOMPARE(walk(Qt::Key_Backtab, Qt::ShiftModifier, 15),
             QStringLiteral("glyphGrid sidebar toolBar"));
    program.cards().setFocus();
    QCOMPARE(walk(Qt::Key_F6, {}, 5),
             QStringLiteral("glyphCanvas metricsPanel previewPanel sidebar glyphGrid"));
    QVERIFY(program.cards().hasFocus());
    QCOMPARE(walk(Qt::Key_F6, Qt::ShiftModifier, 2), QStringLiteral("sidebar previewPanel"));
    QCOMPARE(walk(Qt::Key_2, Qt::ControlModifier, 1), QStringLiteral("kerningEditor"));
    QCOMPARE(program.manager.selectedTab(), 1);
    QCOMPARE(walk(Qt::Key_1, Qt::ControlModifier, 1), QStringLiteral("glyphGrid"));
  }

  void anImportLeavesNoButtonWithTheFocus() {
    Program program;
    const auto import = [&](const char* name) {
      program.desktop.openAnswer = {
          program.folder.write(std::string(name) + ".svg", "<path d=\"M0 0 L9 9\"/>")};
      program.action("importDrawings")->trigger();
      program.desktop.runUntil([&] {
        return program.manager.imports().empty() && program.selected() == QLatin1String(name);
      });
      settle();
    };
    import("A");
    QVERIFY(program.cards().hasFocus());
    find<QToolButton>("togglePreview")->setFocus();
    import("B");
    QVERIFY(program.cards().hasFocus());
    // What is being typed goes on.
    find<QLineEdit>("designer")->setFocus();
    import("C");
    QVERIFY(find<QLineEdit>("designer")->hasFocus());
  }

  void aGlyphSelectedElsewhereIsScrolledTo() {
    Program program{"A", "V"};
    program.window.grid().findChild<QSlider*>()->setValue(20);
    program.window.resize(program.window.minimumSize() + QSize(0, 150));
    settle();
    const auto isShown = [&] {
      settle();
      return program.cards().cardRect(1).bottom() <= program.cards().viewport()->height();
    };
    QVERIFY(!isShown());
    program.manager.selectGlyph(program.cards().glyphOfCard(1)->id());
    QVERIFY(isShown());
    program.manager.newProject();
    settle();
    importSVGFiles(program.manager, {program.folder.write("B.svg", "<path d=\"M0 0 L9 9\"/>")});
    QCOMPARE(program.selected(), QStringLiteral("B"));
  }

  void aLongImportShowsHowItGoesAndCanBeCancelled() {
    struct Task : ImportTask {
      explicit Task(ProjectManager& owner) : manager(owner) {}
      std::size_t drawingCount() const override { return 20000; }
      double progress() const override { return done; }
      void cancel() override { manager.removeImport(*this); }
      ProjectManager& manager;
      double done = 0;
    };
    Program program;
    const auto task = std::make_shared<Task>(program.manager);
    program.manager.addImport(task);
    QVERIFY(!find<QWidget>("importProgress"));
    QTRY_VERIFY(find<QWidget>("importProgress"));
    task->done = 0.5;
    program.manager.announceImportProgress();
    auto* bar = find<QProgressBar>("importBar");
    QCOMPARE(bar->value() * 2, bar->maximum());
    QTest::keyClick(find<QWidget>("importProgress"), Qt::Key_Escape);
    QVERIFY(program.manager.imports().empty() && !find<QWidget>("importProgress"));
  }

  void screenReadersSeeEachCard() {
    Program program{"A", "B", "exclam"};
    program.click(1);
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&program.cards());
    QCOMPARE(list->role(), QAccessible::List);
    QCOMPARE(list->childCount(), 3);
    QCOMPARE(list->child(0)->text(QAccessible::Name), QStringLiteral("exclam"));
    QCOMPARE(list->child(0)->text(QAccessible::Description), QStringLiteral("!"));
    QAccessibleInterface* card = list->child(1);
    QVERIFY(card->state().selected && !list->child(2)->state().selected);
    QCOMPARE(list->focusChild(), card);
    QCOMPARE(list->indexOfChild(card), 1);
    const QPoint middle = card->rect().center();
    QCOMPARE(list->childAt(middle.x(), middle.y()), card);
    list->child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(program.selected(), QStringLiteral("B"));
    program.manager.deleteSelectedGlyphs();
    program.cards().updateCards();
    QCOMPARE(list->childCount(), 2);
    QVERIFY(!list->child(2));
  }

  void everyControlHasANameForTestsAndForScreenReaders() {
    Program program{"A", "V"};
    const Uuid pair = addKerningPair(program.manager, quillery::Utf8("A"), quillery::Utf8("V"));
    const std::function<void()> states[] = {
        [&] { program.click(0); }, [&] { program.manager.selectAllGlyphs(); },
        [&] { program.manager.setSelectedTab(1); },
        [&] { program.manager.selectKerningPair(pair); }, [&] { program.manager.newProject(); }};
    for (const auto& bring : states) {
      bring();
      settle();
      for (const QWidget* widget : program.window.findChildren<QWidget*>())
        QVERIFY2(widget->focusPolicy() == Qt::NoFocus || !widget->isVisible() ||
                     (!widget->objectName().isEmpty() &&
                      (!widget->accessibleName().isEmpty() ||
                       !widget->property("text").toString().isEmpty())),
                 qPrintable(QLatin1String(widget->metaObject()->className()) + u' ' +
                            widget->objectName()));
    }
  }
};

int main(int argc, char** argv) {
  return runWithTheme<MainWindowTest>(argc, argv);
}

#include "main_window_test.moc"
