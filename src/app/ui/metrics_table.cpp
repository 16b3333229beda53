#include "app/ui/metrics_table.h"

#include "app/ui/metrics_table_model.h"
#include "desktop/widgets.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <set>

namespace quillery {
namespace {

using What = ProjectChange::What;

constexpr int kRowHeight = 28;

// The one rectangle of cells that is copied and pasted onto: around all that is selected.
struct Block {
  int top = 0, left = 0, bottom = -1, right = -1;

  bool isEmpty() const { return bottom < top; }
};

class Cells : public QTableView {
public:
  explicit Cells(QWidget* parent) : QTableView(parent) {
    setObjectName(QStringLiteral("metricsTable"));
    setAccessibleName(tr("Metrics of all glyphs"));
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setAlternatingRowColors(false);
    setWordWrap(false);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setSortIndicatorClearable(true);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  }

protected:
  void keyPressEvent(QKeyEvent* event) override {
    auto* const metrics = static_cast<MetricsTableModel*>(model());
    const Block block = selectedBlock();
    if (event->matches(QKeySequence::Copy) && !block.isEmpty()) {
      QApplication::clipboard()->setText(
          metrics->copied(block.top, block.left, block.bottom, block.right));
    } else if (event->matches(QKeySequence::Paste) && !block.isEmpty()) {
      metrics->paste(QApplication::clipboard()->text(), block.top, block.left, block.bottom,
                     block.right);
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
               state() != EditingState) {
      edit(currentIndex());
    } else {
      QTableView::keyPressEvent(event);
    }
  }

private:
  Block selectedBlock() const {
    Block block;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
      if (block.isEmpty()) block = {range.top(), range.left(), range.bottom(), range.right()};
      block.top = std::min(block.top, range.top());
      block.left = std::min(block.left, range.left());
      block.bottom = std::max(block.bottom, range.bottom());
      block.right = std::max(block.right, range.right());
    }
    return block;
  }
};

} // namespace

MetricsTable::MetricsTable(ProjectManager& manager, QWidget* parent)
    : QWidget(parent), manager_(manager), model_(new MetricsTableModel(manager, this)),
      cells_(new Cells(this)), note_(new TextLabel({}, TextStyle::caption, Role::danger, this)),
      watch_(manager, {{What::selection}}, [this](const ProjectChanges&) {
        if (isVisible()) followSelection();
      }) {
  cells_->setModel(model_);
  QHeaderView* const header = cells_->horizontalHeader();
  header->setStretchLastSection(true);
  const int digits = fontMetrics().horizontalAdvance(QStringLiteral("-0000.000"));
  for (int column = 0; column < kSheetColumns; ++column)
    header->resizeSection(column,
                          metricOf(static_cast<SheetColumn>(column)) ? digits : digits * 4 / 3);
  connect(header, &QHeaderView::sortIndicatorChanged, model_, &MetricsTableModel::sort);
  connect(cells_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &MetricsTable::selectGlyphs);
  note_->setObjectName(QStringLiteral("metricsTableNote"));
  note_->hide();
  connect(model_, &MetricsTableModel::answered, this, [this](const QString& problem) {
    note_->setText(problem);
    note_->setVisible(!problem.isEmpty());
  });
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(grid::unit, 0, 0, 0); // the first column stands below the title
  column->setSpacing(grid::half);
  column->addWidget(cells_, 1);
  column->addWidget(note_);
  setFocusProxy(cells_);
}

void MetricsTable::showGlyphs(std::vector<Uuid> glyphs) {
  model_->show(std::move(glyphs));
  if (isVisible()) followSelection();
}

void MetricsTable::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  followSelection();
}

void MetricsTable::selectGlyphs() {
  if (isFollowing_) return;
  std::unordered_set<Uuid> selected;
  for (const QItemSelectionRange& range : cells_->selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row)
      selected.insert(model_->glyphs()[static_cast<std::size_t>(row)]);
  const QModelIndex current = cells_->currentIndex();
  std::optional<Uuid> anchor;
  if (current.isValid()) anchor = model_->glyphs()[static_cast<std::size_t>(current.row())];
  if (anchor && !selected.contains(*anchor)) anchor.reset();
  manager_.setSelection(std::move(selected), anchor);
}

// Shows what was selected elsewhere; what is selected here may be several cells of a row.
void MetricsTable::followSelection() {
  std::set<int> shown, wanted;
  for (const QItemSelectionRange& range : cells_->selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row) shown.insert(row);
  for (const Uuid& glyph : manager_.selectedGlyphIds())
    if (const int row = model_->rowOf(glyph); row >= 0) wanted.insert(row);
  if (shown == wanted) return;
  const int column = cells_->currentIndex().isValid()
                         ? cells_->currentIndex().column()
                         : static_cast<int>(SheetColumn::leftSideBearing);
  // In runs of rows: a range for each of 20,000 takes seconds.
  QItemSelection selection;
  for (auto row = wanted.begin(); row != wanted.end();) {
    const int first = *row;
    int last = first;
    while (++row != wanted.end() && *row == last + 1) ++last;
    selection.append(
        QItemSelectionRange(model_->index(first, column), model_->index(last, column)));
  }
  isFollowing_ = true;
  const auto& last = manager_.lastSelectedGlyphId();
  if (const int row = last ? model_->rowOf(*last) : -1; row >= 0)
    cells_->selectionModel()->setCurrentIndex(model_->index(row, column),
                                              QItemSelectionModel::NoUpdate);
  cells_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  isFollowing_ = false;
  if (cells_->currentIndex().isValid()) cells_->scrollTo(cells_->currentIndex());
}

} // namespace quillery
