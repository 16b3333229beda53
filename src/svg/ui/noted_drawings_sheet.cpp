#include "svg/ui/noted_drawings_sheet.h"

#include "desktop/sheet_heading.h"
#include "desktop/shown_text.h"
#include "desktop/widgets.h"
#include "svg/ui/noted_drawing_row.h"
#include "svg/window_import.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QListView>
#include <QPainter>
#include <QPushButton>

namespace quillery {
namespace {

constexpr QSize kSize(680, 540);

/// What stands in the columns of the list below.
class Captions : public QWidget {
public:
  Captions(const NotedDrawingRow& row, QWidget* parent) : QWidget(parent), row_(row) {
    setFixedHeight(QFontMetrics(Theme::current().font(TextStyle::caption)).height() + grid::unit);
  }

protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setFont(Theme::current().font(TextStyle::caption));
    painter.setPen(themeColor(Role::textSecondary));
    const NotedDrawingRow::Parts parts = row_.parts(rect().adjusted(1, 0, -1, 0)); // in its frame
    const auto caption = [&](const QRect& column, const QString& text) {
      if (!column.isNull())
        painter.drawText(QRect(column.left(), 0, column.width(), height()),
                         Qt::AlignHCenter | Qt::AlignTop | Qt::TextSingleLine, text);
    };
    caption(parts.asRead, NotedDrawingsSheet::tr("As read"));
    caption(parts.asDrawn, NotedDrawingsSheet::tr("As drawn"));
  }

private:
  const NotedDrawingRow& row_;
};

} // namespace

NotedDrawingsSheet::NotedDrawingsSheet(ProjectManager& manager, std::vector<NotedDrawing> noted,
                                       QWidget* parent)
    : QDialog(parent, Qt::Sheet), manager_(manager),
      model_(new NotedDrawingsModel(manager, std::move(noted), this)), list_(new QListView(this)),
      alwaysConvert_(new QCheckBox(tr("Always convert"), this)),
      placeByArtboard_(new QCheckBox(tr("Place by artboard"), this)),
      convert_(new QPushButton(this)) {
  setObjectName(QStringLiteral("notedDrawingsSheet"));
  setWindowModality(Qt::WindowModal);
  resize(kSize);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(grid::section, grid::section, grid::section, grid::margin);
  column->setSpacing(grid::margin);
  column->addWidget(makeSheetHeading(
      model_->canConvert() ? tr("Drawings That Hold More") : tr("Notes on Drawings"), *this));
  column->addWidget(makeList(), 1);
  column->addLayout(makeChoices());
  column->addLayout(makeButtons());
  countTicked();
  list_->setFocus();
}

QWidget* NotedDrawingsSheet::makeList() {
  auto* row = new NotedDrawingRow(*model_, list_);
  list_->setObjectName(QStringLiteral("notedDrawingsList"));
  list_->setAccessibleName(tr("Drawings"));
  list_->setModel(model_);
  list_->setItemDelegate(row);
  // Rows of one size are placed without a look at them, however many there are.
  list_->setUniformItemSizes(true);
  list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setCurrentIndex(model_->index(0));
  connect(model_, &QAbstractItemModel::dataChanged, this, &NotedDrawingsSheet::countTicked);
  auto* framed = new QWidget(this);
  auto* column = new QVBoxLayout(framed);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(new Captions(*row, framed));
  column->addWidget(list_, 1);
  return framed;
}

QLayout* NotedDrawingsSheet::makeChoices() {
  auto* row = new QHBoxLayout;
  row->setSpacing(grid::unit);
  const auto addTicker = [&](const char* name, const QString& title, bool ticked) {
    auto* button = new QPushButton(title, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    button->setVisible(model_->canConvert());
    connect(button, &QPushButton::clicked, this, [this, ticked] { model_->tickAll(ticked); });
    row->addWidget(button);
  };
  addTicker("selectAllNoted", tr("Select All"), true);
  addTicker("selectNoNoted", tr("None"), false);
  row->addStretch(1);
  const ImportPreferences preferences = importPreferences(manager_.desktop());
  const bool converts = manager_.desktop().drawingFlattener() != nullptr;
  const auto addChoice = [&](QCheckBox& box, const char* name, bool on, const QString& tip) {
    box.setObjectName(QLatin1String(name));
    box.setChecked(on);
    box.setToolTip(tip);
    box.setVisible(converts);
    row->addWidget(&box);
    connect(&box, &QCheckBox::clicked, this, [this] {
      setImportPreferences(manager_, {alwaysConvert_->isChecked(), placeByArtboard_->isChecked()
                                                                       ? DrawingPlacement::artboard
                                                                       : DrawingPlacement::edges});
    });
  };
  addChoice(*placeByArtboard_, "placeByArtboard",
            preferences.placement == DrawingPlacement::artboard,
            tr("The artboard becomes the em: its height the em's, its width the advance width"));
  row->addSpacing(grid::unit);
  addChoice(*alwaysConvert_, "alwaysConvertNoted", preferences.alwaysConvert,
            tr("Convert every drawing as it is imported"));
  return row;
}

QLayout* NotedDrawingsSheet::makeButtons() {
  auto* close = new QPushButton(model_->canConvert() ? tr("Cancel") : tr("Done"), this);
  close->setObjectName(QStringLiteral("closeNoted"));
  close->setAutoDefault(false);
  close->setDefault(!model_->canConvert());
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  convert_->setObjectName(QStringLiteral("convertTicked"));
  convert_->setVisible(model_->canConvert());
  convert_->setDefault(model_->canConvert());
  connect(convert_, &QPushButton::clicked, this, &NotedDrawingsSheet::convert);
  auto* row = new QHBoxLayout;
  row->setSpacing(grid::unit);
  row->addStretch(1);
  row->addWidget(close);
  row->addWidget(convert_);
  return row;
}

void NotedDrawingsSheet::countTicked() {
  const std::size_t count = model_->tickedCount();
  convert_->setText(count == 1 ? tr("Convert 1 Drawing")
                               : tr("Convert %1 Drawings").arg(shownCount(count)));
  convert_->setEnabled(count > 0);
}

void NotedDrawingsSheet::convert() {
  convertDrawings(manager_, model_->tickedFiles());
  accept();
}

} // namespace quillery
