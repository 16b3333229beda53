#include "kerning/ui/kern_alike_sheet.h"

#include "desktop/sheet_heading.h"
#include "desktop/shown_text.h"
#include "desktop/widgets.h"
#include "kerning/kerning_list.h"

#include <QBoxLayout>
#include <QListWidget>
#include <QPushButton>

namespace quillery {
namespace {

constexpr int kListWidth = 240;
constexpr int kListHeight = 260;
constexpr int kGlyphRole = Qt::UserRole;

std::vector<Uuid> checkedGlyphs(const QListWidget& list) {
  std::vector<Uuid> glyphs;
  for (int row = 0; row < list.count(); ++row)
    if (list.item(row)->checkState() == Qt::Checked)
      if (const auto id = Uuid::parse(list.item(row)->data(kGlyphRole).toString().toStdString()))
        glyphs.push_back(*id);
  return glyphs;
}

std::vector<Uuid> alike(const ProjectManager& manager, const Utf8& name, PairEdge edge) {
  const Glyph* const glyph = manager.firstGlyphNamed(name);
  return glyph ? lookAlikes(manager, glyph->id(), edge) : std::vector<Uuid>();
}

} // namespace

KernAlikeSheet::KernAlikeSheet(ProjectManager& manager, const Uuid& pair, QWidget* parent)
    : QDialog(parent, Qt::Sheet), manager_(manager),
      sum_(new TextLabel({}, TextStyle::body, Role::textSecondary, this)),
      kern_(new QPushButton(this)) {
  const KerningPair& model = *manager.kerningPairWithId(pair);
  value_ = model.value;
  setObjectName(QStringLiteral("kernAlikeSheet"));
  setWindowModality(Qt::WindowModal);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(grid::section, grid::section, grid::section, grid::margin);
  column->setSpacing(grid::margin);
  column->addWidget(makeSheetHeading(tr("Kern Look-Alikes"), *this));
  auto* lists = new QHBoxLayout;
  lists->setSpacing(grid::margin);
  const auto add = [&](const char* objectName, const QString& title, const Utf8& name,
                       PairEdge edge) {
    auto* part = new QVBoxLayout;
    part->setSpacing(grid::half);
    part->addWidget(new TextLabel(title, TextStyle::body, Role::text, this));
    auto* list = makeList(QString::fromLatin1(objectName), title, alike(manager, name, edge));
    part->addWidget(list);
    lists->addLayout(part, 1);
    return list;
  };
  lefts_ = add("lookAlikesLeft", tr("Ends like %1").arg(shownText(model.leftGlyph)),
               model.leftGlyph, PairEdge::right);
  rights_ = add("lookAlikesRight", tr("Begins like %1").arg(shownText(model.rightGlyph)),
                model.rightGlyph, PairEdge::left);
  column->addLayout(lists, 1);
  sum_->setObjectName(QStringLiteral("kernAlikeSum"));
  column->addWidget(sum_);
  column->addLayout(makeButtons());
  choiceChanged();
}

QListWidget* KernAlikeSheet::makeList(const QString& objectName, const QString& title,
                                      const std::vector<Uuid>& glyphs) {
  auto* list = new QListWidget(this);
  list->setObjectName(objectName);
  list->setAccessibleName(title);
  list->setMinimumSize(kListWidth, kListHeight);
  list->setUniformItemSizes(true);
  for (const Uuid& id : glyphs) {
    const Glyph* const glyph = manager_.glyphWithId(id);
    const QString character = shownText(std::string(glyph->character()));
    auto* item = new QListWidgetItem(character.isEmpty() ? shownText(glyph->name())
                                                         : character + QStringLiteral("   ") +
                                                               shownText(glyph->name()),
                                     list);
    item->setData(kGlyphRole, QString::fromStdString(id.toString()));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Checked);
  }
  if (list->count() > 0) list->setCurrentRow(0);
  connect(list, &QListWidget::itemChanged, this, &KernAlikeSheet::choiceChanged);
  return list;
}

QLayout* KernAlikeSheet::makeButtons() {
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName(QStringLiteral("cancel"));
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  kern_->setObjectName(QStringLiteral("kernAlike"));
  kern_->setDefault(true);
  connect(kern_, &QPushButton::clicked, this, [this] {
    kernAlike(manager_, chosen(), value_);
    accept();
  });
  auto* row = new QHBoxLayout;
  row->setSpacing(grid::unit);
  row->addStretch(1);
  row->addWidget(cancel);
  row->addWidget(kern_);
  return row;
}

std::vector<LookAlikePair> KernAlikeSheet::chosen() const {
  return unkernedPairs(manager_, checkedGlyphs(*lefts_), checkedGlyphs(*rights_));
}

void KernAlikeSheet::choiceChanged() {
  const auto count = static_cast<int>(chosen().size());
  const QString value = shownText(kerningText(value_));
  sum_->setText(count == 0   ? tr("All of these pairs have a value already.")
                : count == 1 ? tr("One pair without a value gets %1.").arg(value)
                             : tr("%1 pairs without a value get %2.").arg(count).arg(value));
  kern_->setText(count == 0   ? tr("Kern Pairs")
                 : count == 1 ? tr("Kern 1 Pair")
                              : tr("Kern %1 Pairs").arg(count));
  kern_->setEnabled(count > 0 && value_ != 0);
}

} // namespace quillery
