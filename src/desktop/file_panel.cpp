#include "desktop/file_panel.h"

#include "desktop/alert_sheet.h"
#include "desktop/file_names.h"
#include "desktop/theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QTreeView>
#include <algorithm>

namespace quillery {
namespace {

// The choice of a format has one size and place.
constexpr QRect kAccessory(0, 0, 300, 32);
constexpr QRect kFormatLabel(0, 6, 50, 20);
constexpr QRect kFormatPopup(55, 2, 240, 28);

// Of the toolkit's list of files.
constexpr int kNameColumn = 0;
constexpr int kKindColumn = 2;

std::filesystem::path pathOf(const QString& file) {
  return QFile::encodeName(file).toStdString();
}

/// Takes a part of the dialog out of sight for good.
void putAway(QWidget* part) {
  if (part) part->setVisible(false);
}

} // namespace

FilePanel::FilePanel(const OpenPanelSettings& settings, const QString& folder, QWidget* parent,
                     std::function<void(Files)> completion)
    : QFileDialog(parent, QString(), folder), completion_(std::move(completion)) {
  setObjectName(QStringLiteral("openPanel"));
  setAcceptMode(AcceptOpen);
  setFileMode(settings.folder              ? Directory
              : settings.multipleSelection ? ExistingFiles
                                           : ExistingFile);
  begin(settings.message, QString::fromStdString(settings.extension));
  if (settings.folder) askForFolder();
}

FilePanel::FilePanel(const SavePanelSettings& settings, const QString& folder, QWidget* parent,
                     std::function<void(Files)> completion)
    : QFileDialog(parent, QString(), folder), completion_(std::move(completion)) {
  setObjectName(QStringLiteral("savePanel"));
  setAcceptMode(AcceptSave);
  setFileMode(AnyFile);
  const QString extension = QString::fromStdString(settings.extension);
  freeStanding_ = settings.freeStanding;
  begin(settings.message, extension);
  if (settings.formats) addFormats(*settings.formats);
  const QString proposed = QString::fromStdString(settings.proposedName);
  const bool nameless = proposed == QLatin1Char('.') + extension;
  QString name = nameless ? QString() : usableFileName(proposed);
  if (name.isEmpty()) name = tr("Untitled");
  selectFile(withExtension(name, extension, {}));
  selectStem();
}

void FilePanel::begin(const std::string& message, const QString& extension) {
  extension_ = extension;
  setWindowTitle(QString::fromStdString(message));
  setAccessibleName(windowTitle());
  if (!extension.isEmpty()) {
    setNameFilter(nameFilterOf(extension));
    setDefaultSuffix(extension);
  }
  setOption(HideNameFilterDetails);
  takeNameField();
  resize(720, 520);
  setAttribute(Qt::WA_DeleteOnClose);
  connect(this, &QDialog::finished, this, &FilePanel::finish);
}

void FilePanel::takeNameField() {
  nameField_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  if (!nameField_) return;
  // The toolkit's own panel has a field whose label names it to the eye only.
  nameField_->setAccessibleName(tr("File name"));
  // A list of completions would lie over the choice below and take the first click for itself.
  // A file to save has a new name as a rule, which nothing should complete.
  if (acceptMode() == AcceptSave)
    nameField_->setCompleter(nullptr);
  else if (QCompleter* const completer = nameField_->completer())
    completer->setCompletionMode(QCompleter::InlineCompletion);
}

void FilePanel::askForFolder() {
  setLabelText(FileName, tr("Folder:"));
  if (nameField_) nameField_->setAccessibleName(tr("Folder"));
  putAwayTypes();
}

// Where there is nothing to choose, or another choice takes its place.
void FilePanel::putAwayTypes() {
  putAway(findChild<QWidget*>(QStringLiteral("fileTypeLabel")));
  putAway(findChild<QWidget*>(QStringLiteral("fileTypeCombo")));
}

void FilePanel::addFormats(const FormatChooser& formats) {
  setOption(DontUseNativeDialog);
  for (const std::string& extension : formats.extensions)
    otherExtensions_ << QString::fromStdString(extension);
  takeNameField();

  auto* const accessory = new QWidget(this);
  accessory->setFixedSize(kAccessory.size());
  auto* const pop = new QComboBox(accessory);
  pop->setGeometry(kFormatPopup);
  pop->setObjectName(QStringLiteral("formatPopup"));
  for (const std::string& title : formats.titles) pop->addItem(QString::fromStdString(title));
  pop->setCurrentIndex(static_cast<int>(formats.selected));
  auto* const label = new QLabel(QString::fromStdString(formats.label), accessory);
  label->setFixedSize(kFormatLabel.size()); // the style makes those without one higher
  label->move(kFormatLabel.topLeft());
  label->setObjectName(QStringLiteral("formatLabel"));
  label->setBuddy(pop);
  pop->setAccessibleName(label->text());
  connect(pop, &QComboBox::currentIndexChanged, this, [changed = formats.changed](int index) {
    if (changed && index >= 0) changed(static_cast<std::size_t>(index));
  });

  if (!formats.allLabel.empty()) {
    all_ = new QCheckBox(QString::fromStdString(formats.allLabel), this);
    all_->setObjectName(QStringLiteral("allFormats"));
    connect(all_, &QCheckBox::toggled, this, [pop, changed = formats.allChanged](bool all) {
      pop->setEnabled(!all);
      if (changed) changed(all);
    });
  }

  // It takes the place of the choice of file types, which would say the same less clearly.
  putAwayTypes();
  if (auto* const rows = qobject_cast<QGridLayout*>(layout())) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(grid::margin);
    row->addWidget(accessory);
    if (all_) row->addWidget(all_);
    row->addStretch(1);
    rows->addLayout(row, rows->rowCount() - 1, 0, 1, 2);
  }
  if (nameField_) setTabOrder(nameField_, pop);
  if (all_) setTabOrder(pop, all_);
}

void FilePanel::arrange() {
  setSizeGripEnabled(false);
  if (auto* const places = findChild<QFrame*>(QStringLiteral("sidebar")))
    places->setFrameShape(QFrame::NoFrame);
  if (auto* const panes = findChild<QSplitter*>()) {
    panes->setHandleWidth(grid::unit);
    panes->setSizes({160, width() - 160});
  }
  // The toolkit remembers widths of columns whatever they were too narrow for.
  if (auto* const files = findChild<QTreeView*>(QStringLiteral("treeView"))) {
    QHeaderView* const columns = files->header();
    columns->setStretchLastSection(false);
    columns->setResizeContentsPrecision(0); // what is seen
    for (int column = 0; column < columns->count(); ++column)
      columns->setSectionResizeMode(column, column == kNameColumn ? QHeaderView::Stretch
                                                                  : QHeaderView::ResizeToContents);
    // All files that a panel shows are of one kind.
    columns->setSectionHidden(kKindColumn, !extension_.isEmpty());
  }
}

void FilePanel::present() {
  freeStanding_ ? show() : open();
  // The desktop's own panel stands in for this widget, which stays off the screen, and asks about
  // replacing by itself. Ours asks in `accept`, about the name with its extension.
  if (testAttribute(Qt::WA_DontShowOnScreen)) return;
  setOption(DontConfirmOverwrite);
  arrange();
  selectStem(); // the toolkit has selected all of the name
}

void FilePanel::setExtension(const QString& extension) {
  const QString name = nameField_ ? nameField_->text() : QString();
  extension_ = extension;
  setNameFilter(nameFilterOf(extension));
  setDefaultSuffix(extension);
  if (!nameField_ || name.isEmpty()) return;
  const QString renamed = withExtension(name, extension, otherExtensions_);
  nameField_->setText(renamed);
  selectStem();
}

// What the user would type over is the name, not the extension.
void FilePanel::selectStem() {
  if (!nameField_ || acceptMode() != AcceptSave) return;
  const qsizetype behind = hasExtension(nameField_->text(), extension_) ? extension_.size() + 1 : 0;
  nameField_->setSelection(0, static_cast<int>(nameField_->text().size() - behind));
}

void FilePanel::accept() {
  if (testAttribute(Qt::WA_DontShowOnScreen)) return QFileDialog::accept();
  const QStringList files = selectedFiles();
  // A folder is gone into, or is what was asked for.
  if (files.isEmpty() || QFileInfo(files.constFirst()).isDir()) return QFileDialog::accept();
  if (acceptMode() == AcceptOpen) {
    for (const QString& file : files) {
      if (!QFileInfo::exists(file))
        return tell(tr("File Not Found"), tr("There is no file “%1”. Check the name and try again.")
                                              .arg(QFileInfo(file).fileName()));
      if (!extension_.isEmpty() && !hasExtension(file, extension_))
        return tell(tr("Wrong Kind of File"),
                    tr("“%1” can't be opened here. Choose a file whose name ends in “.%2”.")
                        .arg(QFileInfo(file).fileName(), extension_));
    }
    return QFileDialog::accept();
  }
  QStringList replaced = filesToWrite(files.constFirst());
  replaced.removeIf([this](const QString& file) {
    return !QFileInfo::exists(file) || replaceable_.contains(file);
  });
  if (!replaced.isEmpty())
    return confirmReplacing(replaced, this, [this, replaced](bool replace) {
      if (!replace) return;
      replaceable_ = replaced;
      accept();
    });
  QFileDialog::accept();
}

QStringList FilePanel::filesToWrite(const QString& name) const {
  if (!all_ || !all_->isChecked()) return {withExtension(name, extension_, otherExtensions_)};
  QStringList files;
  for (const QString& extension : otherExtensions_)
    files << withExtension(name, extension, otherExtensions_);
  return files;
}

void FilePanel::finish(int result) {
  const auto completion = std::exchange(completion_, nullptr);
  if (!completion) return;
  Files chosen;
  if (result == Accepted) {
    const QStringList files = selectedFiles();
    for (const QString& file : files) {
      if (acceptMode() == AcceptSave)
        chosen.push_back(pathOf(withExtension(file, extension_, otherExtensions_)));
      else if (extension_.isEmpty() || hasExtension(file, extension_))
        chosen.push_back(pathOf(file));
    }
  }
  const QString renamed = chosen.size() == 1 && acceptMode() == AcceptSave
                              ? QFile::decodeName(chosen.front().c_str())
                              : QString();
  // The desktop's own panel asked about the name without the extension.
  const bool unasked = testAttribute(Qt::WA_DontShowOnScreen) && !renamed.isEmpty() &&
                       renamed != selectedFiles().constFirst() && QFileInfo::exists(renamed);
  if (!unasked) return completion(std::move(chosen));
  confirmReplacing({renamed}, parentWidget(),
                   [completion, chosen](bool replace) { completion(replace ? chosen : Files()); });
}

void FilePanel::confirmReplacing(const QStringList& files, QWidget* parent,
                                 std::function<void(bool)> answered) {
  Alert question;
  if (files.size() == 1) {
    question.title =
        tr("Replace “%1”?").arg(QFileInfo(files.constFirst()).fileName()).toStdString();
    question.message = tr("A file of this name exists already. Replacing it overwrites its "
                          "content.")
                           .toStdString();
  } else {
    QStringList names;
    for (const QString& file : files) names << QFileInfo(file).fileName();
    question.title = tr("Replace %1 Files?").arg(files.size()).toStdString();
    question.message = tr("These exist already. Replacing them overwrites their content.\n\n%1")
                           .arg(names.join(QLatin1Char('\n')))
                           .toStdString();
  }
  question.style = Alert::Style::warning;
  question.buttons = {tr("Replace").toStdString(), tr("Cancel").toStdString()};
  question.defaultButton = 1;
  auto* const sheet = new AlertSheet(question, parent);
  sheet->setAttribute(Qt::WA_DeleteOnClose);
  connect(sheet, &QDialog::finished, sheet,
          [answered = std::move(answered)](int button) { answered(button == 0); });
  sheet->open();
}

void FilePanel::tell(const QString& title, const QString& message) {
  Alert alert;
  alert.title = title.toStdString();
  alert.message = message.toStdString();
  alert.style = Alert::Style::warning;
  auto* const sheet = new AlertSheet(alert, this);
  sheet->setAttribute(Qt::WA_DeleteOnClose);
  sheet->open();
}

} // namespace quillery
