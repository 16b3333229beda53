// The window on a project of 20,000 glyphs and 10,000 kerning pairs, at 1080p and without a screen:
// from an event to the end of the repaint that it causes.

#include "app/ui/glyph_grid_view.h"
#include "app/ui/main_window.h"
#include "desktop/theme.h"
#include "editor/ui/glyph_canvas.h"
#include "made_projects.h"
#include "project/headless_desktop.h"

#include <benchmark/benchmark.h>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QWheelEvent>
#include <fstream>
#include <unistd.h>

namespace quillery::bench {
namespace {

constexpr QSize kScreen(1920, 1080);
constexpr std::size_t kGlyphs = 20000;
constexpr std::size_t kPairs = 10000;

// Its main queue is the event loop, as in the program.
class WindowDesktop : public HeadlessDesktop {
public:
  WindowDesktop() : HeadlessDesktop({}, nullptr) {}
  void postToMain(std::function<void()> work) override {
    QMetaObject::invokeMethod(&main_, std::move(work), Qt::QueuedConnection);
  }

private:
  QObject main_;
};

// A window that shows the made project.
struct Program {
  Program() {
    const auto file = std::filesystem::temp_directory_path() /
                      ("window-benchmark-" + std::to_string(getpid()) + ".fontproj");
    if (writeProjectFile(file, madeProject(kGlyphs, kPairs, madeLetterData)))
      (void)manager.loadProject(file);
    std::filesystem::remove(file);
    window.resize(kScreen);
    window.show();
    settle();
  }

  static void settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
  }

  GlyphCardArea& cards() { return window.grid().cards(); }

  WindowDesktop desktop;
  RecentProjectsManager recent{desktop};
  ProjectManager manager{desktop, recent};
  FontGenerator generator{desktop, {{}, {}, {}, {}}};
  ExportFlow exportFlow{manager, generator};
  MainWindow window{manager, recent, exportFlow};
};

Program& program() {
  static Program* const running = new Program; // Qt's statics go first at the end
  return *running;
}

// A grid that nobody saw yet, outlines that were never painted.
void firstPaintOfTheGrid(benchmark::State& state) {
  ProjectManager& manager = program().manager;
  for (auto _ : state) {
    GlyphGridView grid(manager, nullptr);
    grid.resize(kScreen);
    grid.show();
    Program::settle();
  }
}
BENCHMARK(firstPaintOfTheGrid)->Unit(benchmark::kMillisecond)->Iterations(5);

void scroll(benchmark::State& state, int step, int span) {
  QScrollBar* bar = program().cards().verticalScrollBar();
  bar->setValue(0);
  Program::settle();
  int at = 0;
  for (auto _ : state) {
    at = (at + step) % span;
    bar->setValue(at);
    Program::settle();
  }
}

// Half a card at a time, through cards that were never shown; a second pass starts cold as well,
// since so many pictures are not kept.
void scrollColdCards(benchmark::State& state) {
  scroll(state, 90, program().cards().verticalScrollBar()->maximum());
}
BENCHMARK(scrollColdCards)->Unit(benchmark::kMillisecond)->Iterations(1500);

void scrollWarmCards(benchmark::State& state) {
  scroll(state, 90, 900);
}
BENCHMARK(scrollWarmCards)->Unit(benchmark::kMillisecond);

// Adds up what is painted, as a number of whole cards.
class PaintCounter : public QObject {
public:
  explicit PaintCounter(GlyphCardArea& cards) : cards_(cards) {
    cards.viewport()->installEventFilter(this);
  }
  double cardsPainted() const { return area_ / (double(size().width()) * size().height()); }

protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint)
      for (const QRect& part : static_cast<QPaintEvent*>(event)->region())
        area_ += double(part.width()) * part.height();
    return false;
  }

private:
  QSize size() const { return cards_.cardRect(0).size(); }
  GlyphCardArea& cards_;
  double area_ = 0;
};

void click(GlyphCardArea& cards, std::size_t card) {
  const QPointF at = cards.cardRect(card).center();
  QMouseEvent press(QEvent::MouseButtonPress, at, cards.viewport()->mapToGlobal(at), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(cards.viewport(), &press);
  Program::settle();
}

void clickOnACard(benchmark::State& state) {
  GlyphCardArea& cards = program().cards();
  cards.verticalScrollBar()->setValue(0);
  Program::settle();
  const PaintCounter painted(cards);
  std::size_t card = 0;
  for (auto _ : state) click(cards, card = (card + 1) % 8);
  state.counters["cards"] =
      benchmark::Counter(painted.cardsPainted(), benchmark::Counter::kAvgIterations);
  program().manager.clearSelection();
}
BENCHMARK(clickOnACard)->Unit(benchmark::kMillisecond);

// -- Editing

QWidget& named(const char* name) {
  return *program().window.findChild<QWidget*>(QLatin1String(name));
}

void mouse(QWidget& target, QEvent::Type type, QPointF at) {
  const Qt::MouseButtons held =
      type == QEvent::MouseButtonRelease ? Qt::MouseButtons() : Qt::LeftButton;
  const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, at, target.mapToGlobal(at), button, held, Qt::NoModifier);
  QCoreApplication::sendEvent(&target, &event);
}

void escape(QWidget& target) {
  QKeyEvent key(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(&target, &key);
}

// Glyphs of the first cards, an editor that has loaded, and a preview with text.
void selectGlyphs(std::size_t count, int tab) {
  ProjectManager& manager = program().manager;
  program().cards().verticalScrollBar()->setValue(0);
  manager.setSelectedTab(tab);
  manager.clearSelection();
  program().cards().updateCards();
  std::vector<Uuid> ids;
  for (std::size_t i = 0; i < count; ++i) ids.push_back(program().cards().glyphOfCard(i)->id());
  if (count > 0) manager.selectGlyph(ids.front());
  if (count > 1) manager.selectGlyphRange(ids.front(), ids.back(), ids);
  Program::settle();
}

// A text of so many characters, in lines of 80, of a font's first `different` glyphs.
QString sampleText(int characters, int different) {
  const auto& glyphs = program().manager.currentProject().glyphs;
  QString text;
  for (int i = 0; i < characters; ++i)
    text +=
        i % 80 == 79
            ? QStringLiteral("\n")
            : QString::fromStdString(*glyphs[static_cast<std::size_t>(i % different)].unicode());
  return text;
}

QPlainTextEdit& previewText() {
  return *program().window.findChild<QPlainTextEdit*>(QStringLiteral("previewText"));
}

GlyphCanvas& glyphCanvas() {
  return static_cast<GlyphCanvas&>(named("glyphCanvas"));
}

// The canvas of a glyph as it is judged: so many steps larger or smaller than at the fit, between
// so many other glyphs.
void showOnTheCanvas(int steps, int neighbours) {
  GlyphCanvas& canvas = glyphCanvas();
  canvas.zoomToFit();
  for (int i = 0; i < std::abs(steps); ++i) steps > 0 ? canvas.zoomIn() : canvas.zoomOut();
  canvas.setSpacingText(sampleText(neighbours, neighbours));
  Program::settle();
}

// One event of a drag to the end of the repaint of the canvas, its panel, the card and the preview.
void dragOnTheCanvas(benchmark::State& state) {
  selectGlyphs(1, 0);
  previewText().setPlainText(sampleText(200, 60));
  showOnTheCanvas(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  QWidget& canvas = glyphCanvas();
  const QPointF start = canvas.rect().center();
  mouse(canvas, QEvent::MouseButtonPress, start);
  int step = 0;
  for (auto _ : state) {
    step = (step + 1) % 60;
    mouse(canvas, QEvent::MouseMove, start + QPointF(step, step / 2));
    Program::settle();
  }
  escape(canvas); // so that the next drag starts where this one did
}
BENCHMARK(dragOnTheCanvas)
    ->ArgNames({"steps", "neighbours"})
    ->Args({0, 0})
    ->Args({0, 20})
    ->Args({-5, 20}) // all in sight
    ->Args({6, 20})  // with its points
    ->Args({15, 20})
    ->Unit(benchmark::kMillisecond);

// A notch of the wheel, in and out, with Ctrl or alone.
void turnTheWheelOnTheCanvas(benchmark::State& state, Qt::KeyboardModifiers modifiers) {
  selectGlyphs(1, 0);
  showOnTheCanvas(static_cast<int>(state.range(0)), 20);
  QWidget& canvas = glyphCanvas();
  const QPointF at = canvas.rect().center();
  int turn = 120;
  for (auto _ : state) {
    turn = -turn;
    QWheelEvent wheel(at, canvas.mapToGlobal(at), {}, QPoint(0, turn), Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&canvas, &wheel);
    Program::settle();
  }
  showOnTheCanvas(0, 0);
}
BENCHMARK_CAPTURE(turnTheWheelOnTheCanvas, zoom, Qt::ControlModifier)
    ->Arg(-5)
    ->Arg(6)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(turnTheWheelOnTheCanvas, scroll, Qt::NoModifier)
    ->Arg(-5)
    ->Arg(6)
    ->Unit(benchmark::kMillisecond);

// A key into the text that the glyph is judged in.
void typeTheNeighbours(benchmark::State& state) {
  selectGlyphs(1, 0);
  showOnTheCanvas(-5, 20);
  QWidget& field = named("spacingText");
  bool typed = false;
  for (auto _ : state) {
    QKeyEvent key(QEvent::KeyPress, typed ? Qt::Key_Backspace : Qt::Key_A, Qt::NoModifier,
                  typed ? QString() : QString(QChar(0x4E05)));
    typed = !typed;
    QCoreApplication::sendEvent(&field, &key);
    Program::settle();
  }
  showOnTheCanvas(0, 0);
}
BENCHMARK(typeTheNeighbours)->Unit(benchmark::kMillisecond);

void dragOnTheKerningCanvas(benchmark::State& state) {
  selectGlyphs(0, 1);
  ProjectManager& manager = program().manager;
  const KerningPair& pair = manager.currentProject().kerningPairs[5000];
  const auto character = [&](const std::string& name) {
    return QString::fromStdString(*manager.firstGlyphNamed(name)->unicode());
  };
  previewText().setPlainText(sampleText(200, 60) + character(pair.leftGlyph) +
                             character(pair.rightGlyph));
  manager.selectKerningPair(Uuid(pair.id));
  Program::settle();
  QWidget& canvas = named("kerningCanvas");
  const QPointF start = canvas.rect().center();
  mouse(canvas, QEvent::MouseButtonPress, start);
  int step = 0;
  for (auto _ : state) {
    step = (step + 1) % 60;
    mouse(canvas, QEvent::MouseMove, start + QPointF(step, 0));
    Program::settle();
  }
  escape(canvas); // so that the next drag starts where this one did
}
BENCHMARK(dragOnTheKerningCanvas)->Unit(benchmark::kMillisecond);

// A key into 2,000 characters, among which so many are different.
void typeIntoThePreview(benchmark::State& state) {
  selectGlyphs(0, 0);
  QPlainTextEdit& editor = previewText();
  editor.setPlainText(sampleText(2000, static_cast<int>(state.range(0))));
  editor.moveCursor(QTextCursor::End);
  Program::settle();
  bool inserted = false;
  for (auto _ : state) {
    QKeyEvent key(QEvent::KeyPress, inserted ? Qt::Key_Backspace : Qt::Key_A, Qt::NoModifier,
                  inserted ? QString() : QString(QChar(0x4E05)));
    inserted = !inserted;
    QCoreApplication::sendEvent(&editor, &key);
    Program::settle();
  }
}
BENCHMARK(typeIntoThePreview)->Arg(60)->Arg(2000)->Unit(benchmark::kMillisecond);

void hoverInThePreview(benchmark::State& state) {
  selectGlyphs(0, static_cast<int>(state.range(0)));
  previewText().setPlainText(sampleText(2000, 60));
  Program::settle();
  QWidget& view = *static_cast<QAbstractScrollArea&>(named("vectorPreview")).viewport();
  int step = 0;
  for (auto _ : state) {
    step = (step + 7) % (view.width() - 60);
    const QPointF at(20 + step, 40);
    QMouseEvent move(QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(&view, &move);
    Program::settle();
  }
}
BENCHMARK(hoverInThePreview)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void pressKey(QWidget& target, Qt::Key key) {
  QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
  QCoreApplication::sendEvent(&target, &down);
  Program::settle();
  QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
  QCoreApplication::sendEvent(&target, &up);
}

// A key on a slider of the panel for so many selected glyphs.
void moveASliderOfManyGlyphs(benchmark::State& state, const char* slider) {
  selectGlyphs(static_cast<std::size_t>(state.range(0)), 0);
  QWidget& target = named(slider);
  bool right = false;
  for (auto _ : state) {
    right = !right;
    pressKey(target, right ? Qt::Key_Right : Qt::Key_Left);
  }
}
BENCHMARK_CAPTURE(moveASliderOfManyGlyphs, leftSideBearing, "leftSideBearing")
    ->Arg(2000)
    ->Arg(5000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(moveASliderOfManyGlyphs, rightSideBearing, "rightSideBearing")
    ->Arg(2000)
    ->Arg(5000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(moveASliderOfManyGlyphs, scale, "scale")
    ->Arg(2000)
    ->Arg(5000)
    ->Unit(benchmark::kMillisecond);

void typeIntoThePairSearch(benchmark::State& state) {
  selectGlyphs(0, 1);
  QWidget& search = named("pairSearch");
  bool typed = false;
  for (auto _ : state) {
    QKeyEvent key(QEvent::KeyPress, typed ? Qt::Key_Backspace : Qt::Key_7, Qt::NoModifier,
                  typed ? QString() : QStringLiteral("7"));
    typed = !typed;
    QCoreApplication::sendEvent(&search, &key);
    Program::settle();
  }
}
BENCHMARK(typeIntoThePairSearch)->Unit(benchmark::kMillisecond);

double megabytesInUse() {
  long total = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> total >> resident;
  return static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / (1 << 20);
}

// What forty presses of an arrow key on a metric of 5,000 selected glyphs keep for undo, and what
// another project leaves of it. The last one: it closes the project.
void memoryOfFortyKeys(benchmark::State& state) {
  selectGlyphs(5000, 0);
  QWidget& target = named("leftSideBearing");
  pressKey(target, Qt::Key_Right); // what is painted for the first time
  for (auto _ : state) {
    const double before = megabytesInUse();
    for (int i = 0; i < 40; ++i) pressKey(target, Qt::Key_Right);
    state.counters["grownMB"] = megabytesInUse() - before;
    state.counters["beforeMB"] = before;
    program().manager.newProject();
    Program::settle();
    Program::settle();
    state.counters["afterNewProjectMB"] = megabytesInUse();
  }
}
BENCHMARK(memoryOfFortyKeys)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quillery::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const quillery::Theme theme(application);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
