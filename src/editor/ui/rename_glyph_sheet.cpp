#include "editor/ui/rename_glyph_sheet.h"

#include "desktop/sheet_heading.h"
#include "desktop/shown_text.h"
#include "desktop/widgets.h"
#include "editor/rename_glyph.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace quillery {
namespace {

constexpr int kWidth = 320;

} // namespace

RenameGlyphSheet::RenameGlyphSheet(ProjectManager& manager, const Uuid& glyph, QWidget* parent)
    : QDialog(parent, Qt::Sheet), manager_(manager), glyph_(glyph),
      followers_(pairsThatFollow(manager, glyph)), name_(new QLineEdit(this)),
      note_(new ElidedLabel({}, TextStyle::caption, Qt::ElideMiddle, Role::textSecondary, this)),
      rename_(new QPushButton(tr("Rename"), this)) {
  setObjectName(QStringLiteral("renameGlyph"));
  setWindowModality(Qt::WindowModal);
  setAttribute(Qt::WA_DeleteOnClose);
  auto* const heading = makeSheetHeading(tr("Rename Glyph"), *this);
  name_->setObjectName(QStringLiteral("newName"));
  name_->setAccessibleName(tr("Name"));
  if (const Glyph* const renamed = manager.glyphWithId(glyph))
    name_->setText(shownText(renamed->name()));
  name_->selectAll();
  note_->setObjectName(QStringLiteral("nameNote"));
  connect(name_, &QLineEdit::textChanged, this, &RenameGlyphSheet::judge);
  auto* const cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName(QStringLiteral("cancel"));
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  rename_->setObjectName(QStringLiteral("rename"));
  rename_->setDefault(true);
  connect(rename_, &QPushButton::clicked, this, &RenameGlyphSheet::rename);
  setTabOrder(cancel, rename_);

  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(grid::unit);
  buttons->addStretch(1);
  buttons->addWidget(cancel);
  buttons->addWidget(rename_);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(grid::section, grid::section, grid::section, grid::margin);
  column->setSpacing(grid::unit);
  column->addWidget(heading);
  column->addSpacing(grid::unit);
  column->addWidget(name_);
  column->addWidget(note_);
  column->addSpacing(grid::unit);
  column->addLayout(buttons);
  setFixedWidth(kWidth + 2 * grid::section);
  judge();
}

void RenameGlyphSheet::judge() {
  const std::string name = name_->text().toStdString();
  const NameFault fault = faultOfName(manager_, glyph_, name);
  rename_->setEnabled(fault == NameFault::none);
  note_->setRole(fault == NameFault::none ? Role::textSecondary : Role::danger);
  switch (fault) {
  case NameFault::none:
    note_->setText(followers_ == 0   ? tr("No kerning pairs name this glyph.")
                   : followers_ == 1 ? tr("1 kerning pair follows.")
                                     : tr("%1 kerning pairs follow.").arg(shownCount(followers_)));
    break;
  case NameFault::empty:
    note_->setText(tr("A glyph needs a name."));
    break;
  case NameFault::taken:
    note_->setText(tr("Another glyph is called “%1”.").arg(name_->text()));
    break;
  case NameFault::gone:
    note_->setText(tr("The glyph is no longer there."));
    break;
  }
}

void RenameGlyphSheet::rename() {
  const auto name = Utf8::parse(name_->text().toStdString());
  if (name && renameGlyph(manager_, glyph_, *name) == NameFault::none) accept();
}

} // namespace quillery
