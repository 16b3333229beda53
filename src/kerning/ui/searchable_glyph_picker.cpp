#include "kerning/ui/searchable_glyph_picker.h"

#include "desktop/painting.h"
#include "desktop/shown_text.h"
#include "desktop/widgets.h"
#include "kerning/ui/glyph_candidates_model.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QStyledItemDelegate>

namespace quillery {
namespace {

constexpr int kMostRows = 8;
constexpr int kListBorder = 4; // around the rows

/// A name with its character, and a check mark on the one that is chosen.
class CandidateRow : public QStyledItemDelegate {
public:
  CandidateRow(const GlyphCandidatesModel& model, const std::string& selection, QObject* parent)
      : QStyledItemDelegate(parent), model_(model), selection_(selection) {}

  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
    return {0, grid::rowHeight};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
    QRect room = option.rect.adjusted(grid::unit, 0, -grid::unit, 0);
    const NamedGlyph& glyph = model_.candidates()[static_cast<std::size_t>(index.row())];
    if (glyph.name == selection_) {
      const QRect mark(room.right() - grid::iconSize + 1, room.top(), grid::iconSize,
                       room.height());
      paintSymbol(*painter, Symbol::check, mark, themeColor(Role::accentForeground));
    }
    room.setRight(room.right() - grid::iconSize - grid::unit);
    painter->save();
    painter->setFont(option.font);
    const QString name = QString::fromStdString(glyph.name);
    if (const QString character = shownText(glyph.character); character != name) {
      painter->setPen(themeColor(Role::textSecondary));
      painter->drawText(room, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, character);
      room.setRight(room.right() - option.fontMetrics.horizontalAdvance(character) - grid::unit);
    }
    painter->setPen(themeColor(Role::text));
    painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      option.fontMetrics.elidedText(name, Qt::ElideMiddle, room.width()));
    painter->restore();
  }

private:
  const GlyphCandidatesModel& model_;
  const std::string& selection_;
};

/// Lies over its neighbours as a card, and says so when it has nothing to offer.
class CandidateList : public QListView {
  Q_DECLARE_TR_FUNCTIONS(quillery::SearchableGlyphPicker)
public:
  explicit CandidateList(QWidget* parent) : QListView(parent) {
    setFrameShape(QFrame::NoFrame);
    setViewportMargins(kListBorder, kListBorder, kListBorder, kListBorder);
    viewport()->setAutoFillBackground(false);
    setFocusPolicy(Qt::NoFocus); // the field keeps it
    viewport()->setFocusPolicy(Qt::NoFocus);
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  }

protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      QPainter painter(this);
      painter.fillRect(rect(), themeColor(Role::card));
      painting::box(painter, rect(), 0, {}, themeColor(Role::fieldBorder));
      return true;
    }
    return QListView::event(event);
  }

  void paintEvent(QPaintEvent* event) override {
    QListView::paintEvent(event);
    if (model()->rowCount() > 0) return;
    QPainter painter(viewport());
    painter.setPen(themeColor(Role::textSecondary));
    painter.drawText(viewport()->rect().adjusted(grid::unit, 0, -grid::unit, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, tr("No matches"));
  }
};

} // namespace

SearchableGlyphPicker::SearchableGlyphPicker(const QString& objectName, const QString& label,
                                             GlyphNameSearch::Glyphs glyphs, QWidget* parent)
    : QWidget(parent), field_(new QLineEdit(this)),
      model_(new GlyphCandidatesModel(std::move(glyphs), this)),
      list_(new CandidateList(parent->window())) {
  setObjectName(objectName);
  // Takes the focus that the field gives up after a choice: the Tab key goes on from here.
  setFocusPolicy(Qt::ClickFocus);
  setTabOrder(field_, this);
  auto* heading = new TextLabel(label, TextStyle::subheadline, Role::textSecondary, this);
  field_->setObjectName(objectName + QStringLiteral("Field"));
  field_->setAccessibleName(label);
  field_->setPlaceholderText(tr("Type to search..."));
  field_->installEventFilter(this);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(grid::half);
  column->addWidget(heading);
  column->addWidget(field_);

  list_->setObjectName(objectName + QStringLiteral("List"));
  list_->setAccessibleName(label);
  list_->setItemDelegate(new CandidateRow(*model_, selection_, list_));
  list_->setModel(model_);
  list_->hide();
  connect(field_, &QLineEdit::textEdited, this, [this](const QString& text) {
    // What stands there no longer means what was chosen.
    select({});
    find(text);
  });
  connect(list_, &QAbstractItemView::clicked, this,
          [this](const QModelIndex& index) { choose(index.row()); });
}

void SearchableGlyphPicker::find(const QString& text) {
  model_->setText(text);
  // What Return takes is marked.
  list_->setCurrentIndex(model_->index(0));
  list_->scrollToTop();
  list_->setAccessibleDescription(model_->rowCount() > 0 ? QString() : tr("No matches"));
  showList();
}

void SearchableGlyphPicker::showList() {
  placeList();
  list_->show();
  list_->raise();
}

void SearchableGlyphPicker::placeList() {
  const QWidget* sheet = list_->parentWidget();
  const QPoint corner = field_->mapTo(sheet, QPoint(0, field_->height() + grid::half));
  const int wanted =
      std::clamp(model_->rowCount(), 1, kMostRows) * grid::rowHeight + 2 * kListBorder;
  const int room = sheet->height() - corner.y() - grid::unit;
  list_->setGeometry(QRect(corner, QSize(field_->width(), std::min(wanted, room))));
}

void SearchableGlyphPicker::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (list_->isVisible()) placeList();
}

void SearchableGlyphPicker::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (list_->isVisible()) placeList();
}

void SearchableGlyphPicker::choose(int candidate) {
  if (candidate < 0 || candidate >= model_->rowCount()) return;
  const std::string name = model_->candidates()[static_cast<std::size_t>(candidate)].name;
  select(name);
  field_->setText(QString::fromStdString(name));
  setFocus();
}

void SearchableGlyphPicker::beginSearch() {
  field_->setFocus(Qt::TabFocusReason);
}

void SearchableGlyphPicker::takeMeant() {
  const NamedGlyph* const glyph = model_->candidates().meant(field_->text().toStdString());
  if (!glyph) return;
  select(glyph->name);
  field_->setText(QString::fromStdString(glyph->name));
}

void SearchableGlyphPicker::select(const std::string& name) {
  if (selection_ == name) return;
  selection_ = name;
  Q_EMIT selectionChanged();
}

void SearchableGlyphPicker::moveInList(int key) {
  const int last = model_->rowCount() - 1;
  if (last < 0) return;
  const int page = std::max(1, list_->viewport()->height() / grid::rowHeight - 1);
  const int from = list_->currentIndex().row();
  int row = from;
  if (key == Qt::Key_Down) row += 1;
  if (key == Qt::Key_Up) row -= 1;
  if (key == Qt::Key_PageDown) row += page;
  if (key == Qt::Key_PageUp) row -= page;
  list_->setCurrentIndex(model_->index(std::clamp(row, 0, last)));
}

bool SearchableGlyphPicker::handleKey(int key) {
  switch (key) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    // Never the sheet's default button: it would add a pair that was not chosen yet.
    choose(std::max(0, list_->currentIndex().row()));
    return true;
  case Qt::Key_Down:
  case Qt::Key_Up:
  case Qt::Key_PageDown:
  case Qt::Key_PageUp:
    moveInList(key);
    return true;
  default:
    return false;
  }
}

bool SearchableGlyphPicker::eventFilter(QObject* watched, QEvent* event) {
  if (watched == field_) {
    switch (event->type()) {
    case QEvent::FocusIn:
      if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) find(field_->text());
      break;
    case QEvent::FocusOut:
      if (static_cast<QFocusEvent*>(event)->reason() == Qt::PopupFocusReason) break;
      list_->hide();
      takeMeant();
      break;
    case QEvent::KeyPress:
      if (handleKey(static_cast<QKeyEvent*>(event)->key())) return true;
      break;
    default:
      break;
    }
  }
  return QWidget::eventFilter(watched, event);
}

} // namespace quillery
