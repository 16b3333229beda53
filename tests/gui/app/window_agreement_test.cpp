#include "editor/glyph_metrics.h"
#include "editor/metrics_edit.h"
#include "editor/selection_metric_edit.h"
#include "editor/ui/multi_glyph_overlay_canvas.h"
#include "export/export_fixes.h"
#include "gui/app/program.h"
#include "kerning/kerning_edit.h"
#include "kerning/kerning_pairs.h"
#include "support/projects.h"

#include <QLabel>
#include <QRadioButton>
#include <QScreen>
#include <QSplitter>
#include <random>

using namespace quillery;
using namespace quillery::test;

namespace {

constexpr QSize kWindow(1400, 800);
constexpr const char* kPictures[] = {"sidebar",       "glyphGrid",    "editorArea",
                                     "kerningEditor", "previewPanel", "emptyState"};

// Random edits of a project that a window shows.
class RandomEdits {
public:
  RandomEdits(Program& program, unsigned seed) : program_(program), random_(seed) {
    for (int i = 0; i < 3; ++i) {
      FontProject project;
      project.name = utf8("Project " + std::to_string(i));
      project.xHeight = 400 + 50 * i;
      // The same glyphs with other values, in one of them fewer.
      made_ = 0;
      for (const char* name : {"A", "B", "V", "space"}) project.glyphs.push_back(drawn(name));
      project.kerningPairs = {makePair("A", "B", 40 * i), makePair("B", "V", -60)};
      if (i == 2) project.glyphs.resize(1);
      files_.push_back(
          program.folder.write("p" + std::to_string(i) + ".fontproj", encoded(project)));
    }
    program.manager.openRecentProject(files_[0]);
  }

  void next() {
    ProjectManager& manager = program_.manager;
    const auto& glyphs = manager.currentProject().glyphs;
    const auto& pairs = manager.currentProject().kerningPairs;
    // Often what is selected, which more views show.
    const auto id = [&] {
      const auto& selected = manager.selectedGlyphIds();
      if (!selected.empty() && below(2)) return *selected.begin();
      return glyphs.empty() ? Uuid() : glyphs[below(glyphs.size())].id();
    };
    const auto pair = [&] {
      if (manager.selectedKerningPairId() && below(2)) return *manager.selectedKerningPairId();
      return pairs.empty() ? Uuid() : pairs[below(pairs.size())].id;
    };
    const auto name = [&] { return std::string(1, "ABTUV"[below(5)]); };
    const auto text = [&] { return utf8(name()); };
    const double value = static_cast<double>(below(400)) / 2;
    switch (below(27)) {
    case 0:
      if (glyphs.size() < 9)
        manager.editGlyphList([&](auto& list) { list.push_back(drawn(name())); });
      return;
    case 1:
      return manager.editGlyphList([&](auto& list) {
        std::reverse(list.begin(), list.end());
        if (list.size() > 1) list.pop_back();
      });
    case 2:
      return manager.editGlyphList([&](auto& list) { // as a drawing that is imported again
        if (list.empty()) return;
        Glyph& replaced = list[below(list.size())];
        GlyphRecord record = drawn(name()).record();
        record.id = replaced.id();
        replaced = Glyph(record);
        for (Glyph& glyph : list) glyph.setVerticalOffset(value);
      });
    case 3:
      manager.editGlyph(id(), [&](Glyph& g) { g.setAdvanceWidth(400 + value); });
      return;
    case 4:
      manager.editGlyph(id(), [&](Glyph& g) { g.setVerticalOffset(value); });
      return;
    case 5:
      manager.editGlyph(id(), [&](Glyph& g) { g.setUnicode(below(3) ? text() : Utf8(" ")); });
      return;
    case 6:
      manager.editGlyph(id(), [&](Glyph& g) { g.setUnicode(std::nullopt); });
      return;
    case 7:
      slider_.begin();
      slider_.apply(0.5 + value / 200);
      return slider_.end();
    case 8:
      return manager.deleteSelectedGlyphs();
    case 9:
      return manager.selectGlyph(id());
    case 10:
      return manager.toggleGlyphSelection(id());
    case 11:
      return below(4) ? manager.selectAllGlyphs() : manager.clearSelection();
    case 12:
      return manager.editFontInfo(
          [&](FontInfo& font) { (below(2) ? font.ascender : font.xHeight) = 500 + value; });
    case 13:
      return manager.editFontInfo([&](FontInfo& font) { font.designer = text(); });
    case 14:
      if (pairs.size() < 8) manager.selectKerningPair(addKerningPair(manager, text(), text()));
      return;
    case 15:
      if (below(2)) return deleteKerningPair(manager, pair());
      return manager.editKerningList([&](auto& list) {
        for (KerningPair& p : list) p.value = quillery::test::finite(value - p.value);
      });
    case 16:
      manager.setKerningValue(pair(), quillery::test::finite(value - 100));
      return;
    case 17:
      return enterKerningValue(manager, pair(), value - 100);
    case 18:
      if (!pairs.empty()) manager.selectKerningPair(pairs[below(pairs.size())].id);
      return;
    case 19:
      return manager.setSelectedTab(static_cast<int>(below(2)));
    case 20:
      return below(3) ? manager.undo() : manager.redo();
    case 21:
      return below(2) ? manager.flashSavedBadge() : program_.desktop.advance(3);
    case 22: // something is being typed or dragged, often as the first thing
      if (below(2)) manager.openRecentProject(files_[0]);
      settle();
      switch (below(3)) {
      case 0:
        return begin(fontInfoBinding(manager, &FontInfo::capHeight), value);
      case 1:
        metrics_.begin({glyphs.empty() ? Uuid() : glyphs.front().id()},
                       {GlyphMetric::verticalOffset}, "Offset");
        return metrics_.set({value});
      default:
        kerning_.begin(pairs.empty() ? Uuid() : pairs.front().id);
        return kerning_.set(value - 100);
      }
    case 23:
    case 24:
      return manager.selectAllGlyphs();
    case 25:
      if (!glyphs.empty()) manager.selectGlyph(glyphs[below(glyphs.size())].id());
      return;
    default:
      switch (below(6)) {
      case 0: // a glyph comes, and nothing else
        manager.newProject();
        settle();
        return manager.editGlyphList([&](auto& list) { list.push_back(drawn(name())); });
      case 1:
        return addSpaceGlyph(manager);
      case 2:
        return void(manager.saveProjectTo(files_[1]).ok());
      default:
        return manager.openRecentProject(files_[below(files_.size())]);
      }
    }
  }

  std::size_t below(std::size_t n) { return random_() % n; }

private:
  void begin(const ValueBinding<double>& binding, double value) {
    typing_.emplace(program_.manager, binding, "Type");
    typing_->begin();
    binding.set(value);
  }
  Glyph drawn(const std::string& name) {
    GlyphRecord record = makeGlyph(name, name == "space" ? " " : name).record();
    const std::string number = std::to_string(++made_);
    record.id =
        Uuid::parse("00000000-0000-4000-8000-" + std::string(12 - number.size(), '0') + number)
            .value();
    Glyph glyph(record);
    const double width = 100 + static_cast<double>(below(40)) * 10;
    glyph.placeOutline({PathCommand::moveTo({0, 0}), PathCommand::lineTo({width, 0}),
                        PathCommand::lineTo({width / 2, 700}), PathCommand::closePath()},
                       {0, 0, width, 700});
    return glyph;
  }

  Program& program_;
  std::optional<UndoableEdit<double>> typing_;
  KerningEdit kerning_{program_.manager};
  MetricsEdit metrics_{program_.manager};
  SelectionMetricEdit slider_{program_.manager, GlyphMetric::scale};
  std::mt19937 random_;
  std::size_t made_ = 0; // glyphs, whose ids are the same in every run
  std::vector<std::filesystem::path> files_;
};

// What is on the screen of a window, not what painting it again would show.
QImage onScreen(MainWindow& window) {
  const auto overlays = window.findChildren<MultiGlyphOverlayCanvas*>();
  const auto isPainting = [](const auto* overlay) {
    return overlay->isVisible() && !overlay->isComplete();
  };
  // A scroll bar that comes lays out what it stands beside, and many outlines over each other are
  // finished between events.
  for (int turn = 0; turn < 5 || std::any_of(overlays.begin(), overlays.end(), isPainting); ++turn)
    QCoreApplication::processEvents();
  return window.screen()->grabWindow(window.winId()).toImage();
}

QImage part(const QImage& screen, const MainWindow& window, const QWidget& widget) {
  return screen.copy(QRect(widget.mapTo(&window, QPoint()), widget.size()));
}

// What the window tells in words.
QStringList words(const MainWindow& window) {
  QStringList told = {window.windowTitle(), window.findChild<QLabel*>(u"projectTitle"_s)->text(),
                      window.findChild<QWidget*>(u"savedBadge"_s)->accessibleName()};
  for (const char* name :
       {"undo", "redo", "selectAll", "clearSelection", "deleteSelected", "exportFont"})
    told += window.findChild<QAction*>(QLatin1String(name))->isEnabled() ? QLatin1String(name)
                                                                         : QStringLiteral("-");
  for (int i = 0; i < 2; ++i) {
    const auto* segment = window.findChild<QRadioButton*>(u"segment%1"_s.arg(i));
    told += segment->isVisible() ? QString::number(int(segment->isChecked())) : QString();
  }
  for (const char* name : {"glyphCanvas", "overlayCanvas", "vectorPreview"})
    if (const auto* canvas = window.findChild<QWidget*>(QLatin1String(name)))
      if (canvas->isVisible()) told += canvas->accessibleName() + canvas->accessibleDescription();
  return told;
}

} // namespace

class WindowAgreementTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void init() { failOnWarnings(); }

  // Whatever a view has missed, it shows otherwise than one that was made just now.
  void everyViewShowsWhatAFreshOneWould() {
    Program program{"A", "V"};
    QWidget other; // keeps the focus away from both windows
    other.show();
    RandomEdits edits(program, 20240607);
    program.window.resize(kWindow);
    for (int step = 0; step < 750; ++step) {
      // What is looked at is what one edit has done, on top of what others did together.
      const bool look = step % 3 == 2;
      if (look || edits.below(2)) settle();
      edits.next();
      if (!look) continue;
      MainWindow fresh(program.manager, program.recent, program.exportFlow);
      fresh.resize(kWindow);
      fresh.show();
      other.activateWindow();
      QCoreApplication::processEvents();
      // Dividers stand where they were left.
      for (MainWindow* window : {&program.window, &fresh})
        for (QSplitter* split : window->findChildren<QSplitter*>()) split->setSizes({600, 558});
      const QImage kept = onScreen(program.window);
      const QImage made = onScreen(fresh);
      QCOMPARE(words(program.window), words(fresh));
      for (const char* name : kPictures) {
        const auto* const old = program.window.findChild<QWidget*>(QLatin1String(name));
        const auto* const now = fresh.findChild<QWidget*>(QLatin1String(name));
        QCOMPARE(old && old->isVisible(), now && now->isVisible());
        if (!now || !now->isVisible()) continue;
        QVERIFY2(part(kept, program.window, *old) == part(made, fresh, *now),
                 qPrintable(u"%1 after %2 edits"_s.arg(QLatin1String(name)).arg(step)));
      }
    }
  }
};

int main(int argc, char** argv) {
  return runWithTheme<WindowAgreementTest>(argc, argv);
}

#include "window_agreement_test.moc"
