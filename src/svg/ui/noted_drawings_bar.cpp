#include "svg/ui/noted_drawings_bar.h"

#include "svg/ui/noted_drawings_sheet.h"
#include "svg/ui/noted_drawings_text.h"
#include "svg/window_import.h"

#include <QCheckBox>
#include <QPushButton>
#include <algorithm>

namespace quillery {

NotedDrawingsBar::NotedDrawingsBar(ProjectManager& manager, QWidget* parent)
    : NoticeBar(parent), manager_(manager),
      convert_(addButton(QStringLiteral("convertNoted"), tr("Convert"))), always_(nullptr),
      watch_(manager, {{ProjectChange::What::imports}},
             [this](const ProjectChanges& changes) { refresh(changes); }) {
  setObjectName(QStringLiteral("notedDrawings"));
  connect(convert_, &QPushButton::clicked, this, &NotedDrawingsBar::convert);
  connect(addButton(QStringLiteral("showNoted"), tr("Show")), &QPushButton::clicked, this,
          &NotedDrawingsBar::showSheet);
  always_ = addCheckBox(QStringLiteral("alwaysConvert"), tr("Always convert"));
  connect(always_, &QCheckBox::clicked, this, [this](bool on) {
    ImportPreferences preferences = importPreferences(manager_.desktop());
    preferences.alwaysConvert = on;
    setImportPreferences(manager_, preferences);
  });
  connect(this, &NoticeBar::closed, this, &NotedDrawingsBar::putAside);
}

std::vector<NotedDrawing> NotedDrawingsBar::news() const {
  std::vector<NotedDrawing> result;
  for (const NotedDrawing& noted : manager_.notedDrawings())
    if (!seen_.contains({noted.file, noted.glyph})) result.push_back(noted);
  return result;
}

void NotedDrawingsBar::refresh(const ProjectChanges& changes) {
  if (changes.anotherProject()) {
    seen_.clear();
    seenDrawings_ = 0;
  }
  const std::vector<NotedDrawing> noted = news();
  setVisible(!noted.empty());
  if (noted.empty()) return;
  const std::size_t lookedAt =
      std::max(noted.size(),
               manager_.drawingsLookedAt() - std::min(seenDrawings_, manager_.drawingsLookedAt()));
  setNotice(Symbol::infoCircleFill, Role::accentForeground, sentenceFor(noted, lookedAt));
  const bool converts = manager_.desktop().drawingFlattener() != nullptr;
  convert_->setVisible(converts && std::any_of(noted.begin(), noted.end(), isUnread));
  convert_->setEnabled(manager_.imports().empty());
  always_->setVisible(converts);
  always_->setChecked(importPreferences(manager_.desktop()).alwaysConvert);
}

void NotedDrawingsBar::convert() {
  watch_.catchUp();
  std::vector<std::filesystem::path> files;
  for (const NotedDrawing& noted : news())
    if (isUnread(noted)) files.push_back(noted.file);
  convertDrawings(manager_, std::move(files));
}

void NotedDrawingsBar::showSheet() {
  watch_.catchUp();
  auto* sheet = new NotedDrawingsSheet(manager_, news(), window());
  sheet->setAttribute(Qt::WA_DeleteOnClose);
  sheet->open();
}

void NotedDrawingsBar::putAside() {
  for (const NotedDrawing& noted : manager_.notedDrawings()) seen_.emplace(noted.file, noted.glyph);
  seenDrawings_ = manager_.drawingsLookedAt();
  hide();
}

} // namespace quillery
