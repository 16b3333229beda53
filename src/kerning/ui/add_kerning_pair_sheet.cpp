#include "kerning/ui/add_kerning_pair_sheet.h"

#include "desktop/painting.h"
#include "desktop/sheet_heading.h"
#include "desktop/shown_text.h"
#include "desktop/style.h"
#include "desktop/widgets.h"
#include "kerning/kerning_list.h"
#include "kerning/kerning_pairs.h"
#include "kerning/ui/kerning_painting.h"
#include "kerning/ui/searchable_glyph_picker.h"

#include <QBoxLayout>
#include <QPainter>
#include <QPushButton>

namespace quillery {
namespace {

constexpr int kPickerWidth = 240;
constexpr int kPreviewHeight = 240; // as much as the lists of the pickers need, with the note

/// The glyphs chosen so far, as they stand without kerning.
class PairPreview : public QWidget {
public:
  using SceneOf = std::function<KerningScene()>;

  PairPreview(SceneOf scene, QWidget* parent) : QWidget(parent), scene_(std::move(scene)) {
    setMinimumHeight(kPreviewHeight);
  }

protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painting::box(painter, rect(), radius::card, themeColor(Role::canvas),
                  themeColor(Role::border));
    const KerningScene scene = scene_();
    const QSizeF room = size();
    const auto mapping = mappingOf(scene, {room.width(), room.height()});
    if (!mapping || (!scene.left && !scene.right)) return;
    const double end = mapping->rightToView({scene.right ? scene.right->advanceWidth() : 0, 0}).x;
    const double used = end + mapping->leftToView({}).x;
    painter.setClipRect(rect().adjusted(1, 1, -1, -1));
    painter.translate((room.width() - used) / 2, 0);
    paintKerning(painter, scene, {used, room.height()});
  }

private:
  SceneOf scene_;
};

} // namespace

AddKerningPairSheet::AddKerningPairSheet(ProjectManager& manager,
                                         std::function<void(const Uuid&)> onPairChosen,
                                         QWidget* parent)
    : QDialog(parent, Qt::Sheet), manager_(manager), onPairChosen_(std::move(onPairChosen)),
      preview_(new PairPreview(
          [this]() -> KerningScene {
            return {manager_.firstGlyphNamed(left_->selection()),
                    manager_.firstGlyphNamed(right_->selection()), 0};
          },
          this)),
      add_(new QPushButton(tr("Add Pair"), this)) {
  setObjectName(QStringLiteral("addKerningPairSheet"));
  setWindowModality(Qt::WindowModal);
  // A click beside the pickers takes the focus from them, and so closes their lists.
  setFocusPolicy(Qt::ClickFocus);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(grid::section, grid::section, grid::section, grid::margin);
  column->setSpacing(grid::margin);
  column->addWidget(makeSheetHeading(tr("Add Kerning Pair"), *this));
  column->addWidget(makePickers());
  column->addWidget(preview_, 1);
  column->addWidget(makeNote());
  column->addLayout(makeButtons());
  left_->beginSearch();
}

QWidget* AddKerningPairSheet::makePickers() {
  auto* pickers = new QWidget(this);
  auto* row = new QHBoxLayout(pickers);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(grid::margin);
  const auto names =
      std::make_shared<const std::vector<NamedGlyph>>(sortedGlyphNames(manager_.currentProject()));
  const auto picker = [&](const QString& objectName, const QString& label) {
    auto* result = new SearchableGlyphPicker(objectName, label, names, pickers);
    result->setMinimumWidth(kPickerWidth);
    connect(result, &SearchableGlyphPicker::selectionChanged, this,
            &AddKerningPairSheet::namesChanged);
    row->addWidget(result, 1);
    return result;
  };
  left_ = picker(QStringLiteral("leftGlyph"), tr("Left Glyph"));
  right_ = picker(QStringLiteral("rightGlyph"), tr("Right Glyph"));
  return pickers;
}

QLayout* AddKerningPairSheet::makeButtons() {
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName(QStringLiteral("cancel"));
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  add_->setObjectName(QStringLiteral("addPair"));
  add_->setDefault(true);
  add_->setEnabled(false);
  connect(add_, &QPushButton::clicked, this, &AddKerningPairSheet::addPair);
  setTabOrder(cancel, add_);
  auto* row = new QHBoxLayout;
  row->setSpacing(grid::unit);
  row->addStretch(1);
  row->addWidget(cancel);
  row->addWidget(add_);
  return row;
}

QWidget* AddKerningPairSheet::makeNote() {
  note_ = new QWidget(this);
  note_->setObjectName(QStringLiteral("pairExists"));
  noteText_ = new ElidedLabel({}, TextStyle::body, Qt::ElideMiddle, Role::textSecondary, note_);
  auto* show = new QPushButton(tr("Show It"), note_);
  show->setObjectName(QStringLiteral("showExisting"));
  show->setAccessibleName(tr("Show the existing pair"));
  setButtonKind(*show, ButtonKind::link);
  connect(show, &QPushButton::clicked, this, &AddKerningPairSheet::showExisting);
  auto* row = new QHBoxLayout(note_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(grid::unit);
  row->addWidget(
      new SymbolLabel(Symbol::infoCircleFill, grid::iconSize, Role::accentForeground, note_));
  row->addWidget(noteText_, 1);
  row->addWidget(show);
  // It takes its room also while there is nothing to say, so that nothing moves under the pointer.
  QSizePolicy kept = note_->sizePolicy();
  kept.setRetainSizeWhenHidden(true);
  note_->setSizePolicy(kept);
  note_->hide();
  return note_;
}

const KerningPair* AddKerningPairSheet::existing() const {
  return manager_.firstKerningPair(left_->selection(), right_->selection());
}

void AddKerningPairSheet::namesChanged() {
  preview_->update();
  add_->setEnabled(!left_->selection().empty() && !right_->selection().empty());
  const KerningPair* const pair = existing();
  note_->setVisible(pair != nullptr);
  if (pair)
    noteText_->setText(tr("%1 %2 is in the list already, with the value %3.")
                           .arg(shownText(pair->leftGlyph), shownText(pair->rightGlyph),
                                shownText(kerningText(pair->value))));
}

void AddKerningPairSheet::addPair() {
  const Uuid pair =
      addKerningPair(manager_, Utf8::mended(left_->selection()), Utf8::mended(right_->selection()));
  onPairChosen_(pair);
  accept();
}

void AddKerningPairSheet::showExisting() {
  const KerningPair* const pair = existing();
  if (!pair) return;
  onPairChosen_(Uuid(pair->id)); // which may change the list that holds it
  accept();
}

} // namespace quillery
