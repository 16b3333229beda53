#include "drawing/ui/sheet_import_view.h"

#include "base/file.h"
#include "desktop/sheet_heading.h"
#include "desktop/shown_text.h"
#include "desktop/widgets.h"
#include "drawing/sheet_placement.h"
#include "drawing/ui/letter_card.h"
#include "svg/drawing_files.h"
#include "svg/sheet_import.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStackedWidget>

namespace quillery {
namespace {

constexpr QSize kSize(740, 560);

enum Page { kReadingPage, kLettersPage };

using ReadSheet = Result<DrawingSheet, std::string>;

ReadSheet readSheet(DrawingFlattener& flattener, const std::filesystem::path& file) {
  FileBytes bytes;
  if (const auto read = readFile(file, bytes); !read) return Failure{read.error().description()};
  return flattener.flattenSheet(bytes.view());
}

QString counted(std::size_t count, const QString& one, const QString& many) {
  return count == 1 ? one : many.arg(shownCount(count));
}

} // namespace

SheetImportView::SheetImportView(ProjectManager& manager, std::filesystem::path sheet,
                                 QWidget* parent)
    : QDialog(parent, Qt::Sheet), manager_(manager), file_(std::move(sheet)),
      pages_(new QStackedWidget(this)) {
  setObjectName(QStringLiteral("sheetImport"));
  setWindowModality(Qt::WindowModal);
  resize(kSize);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(grid::section, grid::section, grid::section, grid::margin);
  column->setSpacing(grid::margin);
  column->addWidget(makeSheetHeading(tr("Import Sheet"), *this));
  pages_->insertWidget(kReadingPage, makeReadingPage());
  pages_->insertWidget(kLettersPage, makeLettersPage());
  column->addWidget(pages_, 1);
  column->addLayout(makeButtons());
  read();
}

QWidget* SheetImportView::makeReadingPage() {
  auto* page = new QWidget(pages_);
  auto* column = new QVBoxLayout(page);
  column->setSpacing(grid::gap);
  column->addStretch(1);
  column->addWidget(new Spinner(32, page), 0, Qt::AlignHCenter);
  const QString name = shownText(Utf8::mended(file_.filename().string()));
  column->addWidget(new TextLabel(tr("Looking for letters in %1...").arg(name), TextStyle::body,
                                  Role::textSecondary, page),
                    0, Qt::AlignHCenter);
  column->addStretch(1);
  return page;
}

QWidget* SheetImportView::makeLettersPage() {
  auto* page = new QWidget(pages_);
  characters_ = new QLineEdit(page);
  characters_->setObjectName(QStringLiteral("sheetCharacters"));
  characters_->setAccessibleName(tr("Characters of the letters without a name"));
  characters_->setPlaceholderText(QStringLiteral("ABCDE…"));
  auto* label =
      new TextLabel(tr("Letters without a name, in order:"), TextStyle::body, Role::text, page);
  label->setBuddy(characters_);
  auto* naming = new QHBoxLayout;
  naming->setSpacing(grid::unit);
  naming->addWidget(label);
  naming->addWidget(characters_, 1);

  list_ = new QListView(page);
  list_->setObjectName(QStringLiteral("sheetLetters"));
  list_->setAccessibleName(tr("Letters"));
  list_->setViewMode(QListView::IconMode);
  list_->setMovement(QListView::Static);
  list_->setResizeMode(QListView::Adjust);
  list_->setUniformItemSizes(true);
  list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  list_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                         QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(grid::gap);
  column->addLayout(naming);
  column->addWidget(list_, 1);
  return page;
}

QLayout* SheetImportView::makeButtons() {
  status_ = new ElidedLabel({}, TextStyle::body, Qt::ElideRight, Role::textSecondary, this);
  status_->setObjectName(QStringLiteral("sheetStatus"));
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName(QStringLiteral("cancelSheet"));
  cancel->setAutoDefault(false);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  import_ = new QPushButton(tr("Import"), this);
  import_->setObjectName(QStringLiteral("importLetters"));
  import_->setDefault(true);
  import_->setEnabled(false);
  connect(import_, &QPushButton::clicked, this, &SheetImportView::import);
  auto* row = new QHBoxLayout;
  row->setSpacing(grid::unit);
  row->addWidget(status_, 1);
  row->addWidget(cancel);
  row->addWidget(import_);
  return row;
}

void SheetImportView::read() {
  const auto flattener = manager_.desktop().drawingFlattener();
  const auto finished =
      lifetime_.guard([this](const std::shared_ptr<ReadSheet>& sheet) { show(std::move(*sheet)); });
  manager_.desktop().runInBackground(
      [&desktop = manager_.desktop(), flattener, file = file_, finished] {
        const auto sheet = std::make_shared<ReadSheet>(readSheet(*flattener, file));
        desktop.postToMain([finished, sheet] { finished(sheet); });
      });
}

void SheetImportView::show(Result<DrawingSheet, std::string> sheet) {
  if (!sheet || sheet.value().letters.empty()) {
    const std::string why = sheet ? "it holds no letters" : sheet.error();
    manager_.showError("Import Failed",
                       Utf8::mended(file_.filename().string()) + " is no sheet of letters: " + why);
    return reject();
  }
  model_ = new SheetModel(std::move(sheet).value(), this);
  list_->setModel(model_);
  list_->setItemDelegate(new LetterCard(*model_, list_));
  connect(model_, &QAbstractItemModel::dataChanged, this, &SheetImportView::countNames);
  connect(characters_, &QLineEdit::textChanged, this, [this](const QString& characters) {
    model_->setCharacters(characters);
    showNextUnnamed();
  });
  const bool allNamed = model_->names().namedCount() == model_->names().size();
  pages_->setCurrentIndex(kLettersPage);
  showNextUnnamed();
  characters_->setEnabled(!allNamed);
  allNamed ? list_->setFocus() : characters_->setFocus();
  countNames();
}

// The letter that the next character will be.
void SheetImportView::showNextUnnamed() {
  int row = 0;
  while (row + 1 < model_->rowCount() && !model_->index(row).data().toString().isEmpty()) ++row;
  const bool allNamed = !model_->index(row).data().toString().isEmpty();
  if (allNamed && list_->currentIndex().isValid()) return;
  list_->setCurrentIndex(model_->index(allNamed ? 0 : row));
}

void SheetImportView::countNames() {
  const SheetNames& names = model_->names();
  const std::size_t named = names.namedCount();
  QStringList said;
  if (const std::size_t unnamed = names.size() - named; unnamed > 0)
    said << counted(unnamed, tr("1 letter without a name is left out"),
                    tr("%1 letters without a name are left out"));
  if (const std::size_t repeated = names.repeatedCount(); repeated > 0)
    said << counted(repeated, tr("1 name stands twice: its last letter counts"),
                    tr("%1 names stand again: the last letter of each counts"));
  status_->setText(said.join(QStringLiteral("; ")));
  import_->setText(counted(named, tr("Import 1 Letter"), tr("Import %1 Letters")));
  import_->setEnabled(named > 0);
}

void SheetImportView::import() {
  DrawingSheet sheet = model_->sheet();
  std::vector<std::filesystem::path> letters; // as if each were a file
  for (std::size_t i = 0; i < sheet.letters.size(); ++i) {
    sheet.letters[i].name = model_->names().fileName(i);
    if (!sheet.letters[i].name.empty()) letters.emplace_back(sheet.letters[i].name.str());
  }
  placeSheet(sheet, manager_.currentProject());
  ImportOutcome outcome = importLetters(manager_, std::move(sheet));
  for (NotedDrawing& letter : outcome.noted) letter.converted = true;
  manager_.noteImport(letters, std::move(outcome.noted));
  accept();
}

void importSheet(ProjectManager& manager, QWidget* window) {
  manager.desktop().showOpenPanel(
      {"Select a drawing that holds many letters", false, kDrawingExtension},
      manager.lifetime().guard([&manager, window](const std::vector<std::filesystem::path>& files) {
        if (files.empty() || !manager.desktop().drawingFlattener()) return;
        auto* view = new SheetImportView(manager, files.front(), window);
        view->setAttribute(Qt::WA_DeleteOnClose);
        view->open();
      }));
}

} // namespace quillery
