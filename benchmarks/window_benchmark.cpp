// The window on a project of 20,000 glyphs and 10,000 kerning pairs, at 1080p and without a screen:
// from an event to the end of the repaint that it causes.

#include "app/ui/glyph_grid_view.h"
#include "app/ui/main_window.h"
#include "desktop/theme.h"
#include "made_projects.h"
#include "project/headless_desktop.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QScrollBar>
#include <benchmark/benchmark.h>
#include <unistd.h>

namespace quillery::bench {
namespace {

constexpr QSize kScreen(1920, 1080);
constexpr std::size_t kGlyphs = 20000;
constexpr std::size_t kPairs = 10000;

// A window that shows the made project.
struct Program {
  Program() {
    const auto file = std::filesystem::temp_directory_path() /
                      ("window-benchmark-" + std::to_string(getpid()) + ".fontproj");
    if (writeProjectFile(file, madeProject(kGlyphs, kPairs))) (void)manager.loadProject(file);
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

  HeadlessDesktop desktop{{}, nullptr};
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

} // namespace
} // namespace quillery::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const quillery::Theme theme(application);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
