#include "kerning/ui/kerning_editor_view.h"

#include "desktop/placeholder.h"
#include "desktop/search_field.h"
#include "desktop/style.h"
#include "desktop/widgets.h"
#include "kerning/kerning_pairs.h"
#include "kerning/ui/add_kerning_pair_sheet.h"
#include "kerning/ui/kerning_adjustment_view.h"
#include "kerning/ui/kerning_list_model.h"
#include "kerning/ui/kerning_pair_row.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QListView>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStackedWidget>

namespace quillery {
namespace {

using What = ProjectChange::What;

constexpr int kColumnWidth = 280;
constexpr std::size_t kLeastGlyphs = 2; // of which a pair can be made

enum ListPage { kPairsPage, kNoPairsPage };
enum DetailPage { kNothingSelectedPage, kAdjustmentPage };

class PairListView : public QListView {
public:
  explicit PairListView(QWidget* parent) : QListView(parent) {
    setViewportMargins(0, grid::half, 0, grid::half);
  }

  std::function<void()> onDelete;

protected:
  bool event(QEvent* event) override {
    // No shortcut of the window takes the key away while the list has the focus.
    if (event->type() == QEvent::ShortcutOverride && deletes(*static_cast<QKeyEvent*>(event)))
      event->accept();
    return QListView::event(event);
  }

  void keyPressEvent(QKeyEvent* event) override {
    if (!deletes(*event)) return QListView::keyPressEvent(event);
    onDelete();
  }

  void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                   const QList<int>& roles) override {
    // A row has one size whatever it shows: nothing is laid out anew while a value is dragged.
    if (topLeft == bottomRight) return update(topLeft);
    QListView::dataChanged(topLeft, bottomRight, roles);
  }

private:
  static bool deletes(const QKeyEvent& event) {
    return event.modifiers() == Qt::NoModifier &&
           (event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace);
  }
};

} // namespace

KerningEditorView::KerningEditorView(ProjectManager& manager, QWidget* parent)
    : QWidget(parent), manager_(manager), model_(new KerningListModel(this)),
      add_(new IconButton(Symbol::plus, tr("Add Kerning Pair"), this)),
      generate_(new QPushButton(icon(Symbol::wandStars), tr("Generate Common"), this)),
      delete_(new QPushButton(this)),
      search_(new SearchField(QStringLiteral("pairSearch"), tr("Search pairs"),
                              tr("Search pairs..."), this)),
      list_(new PairListView(this)), listPages_(new QStackedWidget(this)),
      detailPages_(new QStackedWidget(this)), adjustment_(new KerningAdjustmentView(manager, this)),
      watch_(manager, {{What::glyphList, What::kerningList, What::kerningPair, What::selectedPair}},
             [this](const ProjectChanges& changes) { refresh(changes); }) {
  setObjectName(QStringLiteral("kerningEditor"));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(makeColumn());
  row->addWidget(makeSeparator(Qt::Vertical, this));
  row->addWidget(makeDetail(), 1);
  showPairs();
  showGlyphCount();
}

QWidget* KerningEditorView::makeColumn() {
  auto* column = new QWidget(this);
  column->setFixedWidth(kColumnWidth);
  column->setBackgroundRole(QPalette::AlternateBase);
  column->setAutoFillBackground(true);
  auto* header = new SectionHeader(tr("Kerning Pairs"), column);
  add_->setObjectName(QStringLiteral("addKerningPair"));
  connect(add_, &QAbstractButton::clicked, this, &KerningEditorView::showAddPairSheet);
  header->addTrailing(add_);

  connect(search_, &QLineEdit::textChanged, this, &KerningEditorView::showFilter);
  connect(search_, &SearchField::left, this, &KerningEditorView::enterList);

  auto* controls = new QVBoxLayout;
  controls->setContentsMargins(grid::margin, grid::gap, grid::margin, grid::gap);
  controls->setSpacing(grid::gap);
  controls->addWidget(header);
  controls->addWidget(makeButtons());
  controls->addWidget(search_);
  auto* layout = new QVBoxLayout(column);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addLayout(controls);
  layout->addWidget(makeSeparator(Qt::Horizontal, column));
  layout->addWidget(makeList(), 1);
  return column;
}

QWidget* KerningEditorView::makeButtons() {
  auto* buttons = new QWidget(this);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(grid::unit);
  generate_->setObjectName(QStringLiteral("generateCommonPairs"));
  generate_->setAccessibleName(tr("Generate common kerning pairs"));
  connect(generate_, &QPushButton::clicked, this, [this] { generateCommonKerningPairs(manager_); });
  delete_->setObjectName(QStringLiteral("deleteKerningPair"));
  delete_->setAccessibleName(tr("Delete Kerning Pair"));
  delete_->setToolTip(tr("Delete Kerning Pair"));
  delete_->setIcon(icon(Symbol::trash, Role::danger));
  delete_->setFixedWidth(grid::controlHeight + grid::unit);
  setButtonKind(*delete_, ButtonKind::destructive);
  connect(delete_, &QPushButton::clicked, this, &KerningEditorView::deleteSelected);
  row->addWidget(generate_, 1);
  row->addWidget(delete_);
  return buttons;
}

QWidget* KerningEditorView::makeList() {
  list_->setObjectName(QStringLiteral("pairList"));
  list_->setAccessibleName(tr("Kerning pairs"));
  list_->setModel(model_);
  list_->setItemDelegate(new KerningPairRow(*model_, list_));
  list_->setUniformItemSizes(true);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->viewport()->setAutoFillBackground(false);
  static_cast<PairListView*>(list_)->onDelete = [this] { deleteSelected(); };
  connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &KerningEditorView::selectShown);
  listPages_->addWidget(list_);
  auto* none = new Placeholder(Symbol::arrowsLeftRight, tr("No Kerning Pairs"), listPages_);
  none->setObjectName(QStringLiteral("noKerningPairs"));
  none->addText(tr("Click + to add pairs"));
  listPages_->addWidget(none);
  return listPages_;
}

QWidget* KerningEditorView::makeDetail() {
  auto* nothing = new Placeholder(Symbol::kerning, tr("Select a kerning pair"), detailPages_);
  nothing->setObjectName(QStringLiteral("noPairSelected"));
  nothing->addText(tr("Tip: Click on a pair in the list to start adjusting"));
  nothing->addText(tr("Kerning adjusts the spacing between specific letter pairs to improve visual "
                      "balance and readability. Use negative values to bring letters closer "
                      "together (like 'AV') and positive values to add space between them."),
                   TextStyle::caption);
  detailPages_->addWidget(nothing);
  detailPages_->addWidget(adjustment_);
  return detailPages_;
}

void KerningEditorView::refresh(const ProjectChanges& changes) {
  if (changes.has(What::glyphList)) showGlyphCount();
  if (changes.has(What::kerningList)) return showPairs();
  for (const Uuid& id : changes.pairs())
    if (const KerningPair* pair = manager_.kerningPairWithId(id)) model_->followValue(*pair);
  if (changes.has(What::selectedPair)) showSelection();
}

void KerningEditorView::showFilter(const QString& text) {
  watch_.catchUp();
  const QScopedValueRollback following(following_, true);
  model_->setFilter(text);
  showSelection();
}

void KerningEditorView::enterList() {
  if (model_->rowCount() == 0) return;
  list_->setFocus(Qt::TabFocusReason);
  if (list_->selectionModel()->selectedIndexes().isEmpty())
    list_->setCurrentIndex(model_->index(0));
}

void KerningEditorView::showPairs() {
  const QScopedValueRollback following(following_, true);
  model_->follow(manager_.currentProject());
  const bool none = manager_.currentProject().kerningPairs.empty();
  listPages_->setCurrentIndex(none ? kNoPairsPage : kPairsPage);
  showSelection();
}

void KerningEditorView::showGlyphCount() {
  const bool enough = manager_.currentProject().glyphs.size() >= kLeastGlyphs;
  add_->setEnabled(enough);
  generate_->setEnabled(enough);
}

void KerningEditorView::showSelection() {
  const auto selected = manager_.selectedKerningPairId();
  const bool exists = selected && model_->list().contains(*selected);
  delete_->setVisible(exists);
  if (exists) adjustment_->setPair(*selected);
  detailPages_->setCurrentIndex(exists ? kAdjustmentPage : kNothingSelectedPage);

  const QScopedValueRollback following(following_, true);
  const QModelIndex row = exists ? model_->indexOf(*selected) : QModelIndex();
  if (!row.isValid()) return list_->selectionModel()->clear();
  if (list_->selectionModel()->isSelected(row)) return;
  list_->selectionModel()->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect);
  list_->scrollTo(row);
}

void KerningEditorView::selectShown() {
  if (following_) return;
  const QModelIndexList rows = list_->selectionModel()->selectedIndexes();
  if (rows.isEmpty()) return manager_.selectKerningPair(std::nullopt);
  manager_.selectKerningPair(model_->list().id(static_cast<std::size_t>(rows.front().row())));
}

void KerningEditorView::deleteSelected() {
  watch_.catchUp();
  const auto selected = manager_.selectedKerningPairId();
  if (selected && model_->list().contains(*selected)) deleteKerningPair(manager_, *selected);
}

void KerningEditorView::showAddPairSheet() {
  auto* sheet = new AddKerningPairSheet(
      manager_,
      [this](const Uuid& pair) {
        // It is looked for next, so a search that hides it is over.
        watch_.catchUp();
        if (!model_->indexOf(pair).isValid()) search_->clear();
        manager_.selectKerningPair(pair);
      },
      this);
  sheet->setAttribute(Qt::WA_DeleteOnClose);
  sheet->open();
}

} // namespace quillery
