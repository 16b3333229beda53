#include "desktop/alert_sheet.h"
#include "desktop/file_panel.h"
#include "desktop/qt_desktop.h"
#include "gui/desktop/gui_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTreeView>

using namespace quillery;
using namespace quillery::test;

namespace fs = std::filesystem;

const SavePanelSettings kProject{"Save font project", "My Font.fontproj", "fontproj", std::nullopt};

class PanelsTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void alertsStackAndShowLongMessages() {
    std::string message = "Found:\n\n🔴 Missing <space>\nText.\n";
    for (int i = 0; i < 200; ++i) message += "line " + std::to_string(i) + "\n";
    std::vector<int> order;
    desktop_->showAlert({"First", message, Alert::Style::informational, {"OK"}},
                        [&](auto) { order.push_back(1); });
    auto* const first = find<AlertSheet>("alert");
    QVERIFY(first->height() < 600);
    const auto* const text = first->findChild<QTextEdit*>(u"alertMessage"_s);
    QVERIFY(text->toPlainText().contains("Missing <space>"_L1));
    QVERIFY(!text->toPlainText().contains(u"🔴"_s));
    QVERIFY(text->verticalScrollBar()->maximum() > 0);
    first->setObjectName("first");
    desktop_->showAlert({"Second", "", Alert::Style::critical, {"OK"}},
                        [&](auto) { order.push_back(2); });
    find<AlertSheet>("alert")->reject();
    QTRY_COMPARE(order, std::vector<int>{2});
    first->reject();
    QTRY_COMPARE(order, (std::vector<int>{2, 1}));
  }

  void init() {
    failOnWarnings();
    window_ = std::make_unique<QMainWindow>();
    window_->show();
    desktop_ = std::make_unique<QtDesktop>(QtDesktop::Places{});
    desktop_->setParentWindow(window_.get());
    chosen_.reset();
    answered_ = false;
  }
  void cleanup() {
    desktop_.reset();
    window_.reset();
  }

  void anOpenPanelTakesOnlyFilesOfItsKind() {
    for (const char* name : {"a.svg", "B.SVG", "a.png"}) touch(name);
    OpenPanelSettings settings{"Import drawings", true, "svg"};
    std::vector<fs::path> files;
    desktop_->showOpenPanel(settings, [&](std::vector<fs::path> chosen) {
      files = std::move(chosen);
      answered_ = true;
    });
    auto* const panel = find<FilePanel>("openPanel");
    QVERIFY(panel && panel->isModal() && !answered_);
    QCOMPARE(panel->windowTitle(), u"Import drawings"_s);
    QCOMPARE(panel->nameFilters(), QStringList{u"SVG drawings (*.svg *.SVG)"_s});

    for (const char* refused : {"a.png", "missing.svg"}) {
      type(*panel, path(refused));
      press(*panel);
      auto* const alert = find<AlertSheet>("alert");
      QVERIFY2(alert && panel->isVisible() && !answered_, refused);
      QTest::keyClick(alert, Qt::Key_Escape);
    }
    panel->setDirectory(folder_.path());
    type(*panel, u"\"a.svg\" \"B.SVG\""_s);
    press(*panel);
    QTRY_VERIFY(answered_);
    QVERIFY(
        (files == std::vector<fs::path>{path("a.svg").toStdString(), path("B.SVG").toStdString()}));
  }

  void anOpenPanelForFoldersTakesOne() {
    QVERIFY(QDir(folder_.path()).mkpath(u"Letters/Small"_s));
    std::vector<fs::path> folders;
    desktop_->showOpenPanel({.message = "Watch", .folder = true},
                            [&](std::vector<fs::path> chosen) {
                              folders = std::move(chosen);
                              answered_ = true;
                            });
    auto* const panel = find<FilePanel>("openPanel");
    type(*panel, path("Capitals")); // which is not there
    press(*panel);
    QVERIFY(panel->isVisible() && !answered_);
    type(*panel, path("Letters"));
    press(*panel);
    QTRY_VERIFY(answered_);
    QVERIFY(folders == std::vector<fs::path>{path("Letters").toStdString()});
  }

  void aSavePanelEnforcesTheExtension() {
    const std::pair<const char*, const char*> rows[] = {{"Brush", "Brush.fontproj"},
                                                        {"Brush.fontproj", "Brush.fontproj"},
                                                        {"Brush.FONTPROJ", "Brush.FONTPROJ"},
                                                        {"Brush.v2", "Brush.v2.fontproj"},
                                                        {"Brush.", "Brush.fontproj"}};
    for (const auto& [typed, saved] : rows) {
      answered_ = false;
      showSavePanel(kProject);
      auto* const panel = find<FilePanel>("savePanel");
      QCOMPARE(nameField(*panel)->text(), u"My Font.fontproj"_s);
      QCOMPARE(nameField(*panel)->selectedText(), u"My Font"_s);
      type(*panel, path(typed));
      press(*panel);
      QTRY_VERIFY(answered_);
      QCOMPARE(QString::fromStdString(chosen_->string()), path(saved));
      QTRY_VERIFY(!find<FilePanel>("savePanel"));
    }
  }

  void theListOfFilesShowsItsTextsAndNothingLiesOverTheField() {
    QVERIFY(QDir(folder_.path()).mkpath(u"Projects"_s));
    touch("Projects/A name of some length that is longer than the rest.fontproj");
    showSavePanel(kProject);
    auto* const panel = find<FilePanel>("savePanel");
    panel->setDirectory(path("Projects"));
    auto* const files = panel->findChild<QTreeView*>(u"treeView"_s);
    QTRY_COMPARE(files->model()->rowCount(files->rootIndex()), 1);
    const QModelIndex date = files->model()->index(0, 3, files->rootIndex());
    const int dateWidth = files->fontMetrics().horizontalAdvance(date.data().toString());
    QTRY_VERIFY(files->columnWidth(3) > dateWidth);
    QVERIFY(files->header()->length() <= files->viewport()->width());
    QTest::keyClicks(nameField(*panel), u"A"_s);
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(nameField(*panel)->text(), u"A.fontproj"_s); // the extension was not selected
  }

  void theFormatPopUpChangesTheNameAtOnceAndIsEnforced() {
    const auto handle = showExportPanel("Jo/Ann");
    auto* const panel = find<FilePanel>("savePanel");
    auto* const pop = panel->findChild<QComboBox*>(u"formatPopup"_s);
    QCOMPARE(panel->windowModality(), Qt::NonModal);
    QCOMPARE(pop->parentWidget()->size(), QSize(300, 32));
    QCOMPARE(pop->geometry(), QRect(55, 2, 240, 28));
    QCOMPARE(panel->findChild<QLabel*>(u"formatLabel"_s)->geometry(), QRect(0, 6, 50, 20));
    QCOMPARE(nameField(*panel)->text(), u"Jo-Ann.otf"_s);
    pop->setCurrentIndex(3);
    QCOMPARE(nameField(*panel)->text(), u"Jo-Ann.woff2"_s);
    QCOMPARE(nameField(*panel)->selectedText(), u"Jo-Ann"_s);
    type(*panel, path("Neue.v2"));
    pop->setCurrentIndex(1);
    QCOMPARE(nameField(*panel)->text(), path("Neue.v2.ttf"));
    type(*panel, path("Neue.otf")); // the pop-up says otherwise
    press(*panel);
    QTRY_VERIFY(answered_);
    QCOMPARE(QString::fromStdString(chosen_->string()), path("Neue.ttf"));
    QTRY_VERIFY(!find<FilePanel>("savePanel"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    handle->setExtension("otf"); // the panel is gone
  }

  void allFormatsAtOnceAskAboutEveryFileThatIsThere() {
    for (const char* name : {"Four.otf", "Four.woff2"}) touch(name);
    const auto handle = showExportPanel("Four");
    auto* const panel = find<FilePanel>("savePanel");
    auto* const all = panel->findChild<QCheckBox*>(u"allFormats"_s);
    QVERIFY(all && !all->isChecked());
    all->click();
    QVERIFY(all_ && !panel->findChild<QComboBox*>(u"formatPopup"_s)->isEnabled());
    panel->findChild<QComboBox*>(u"formatPopup"_s)->setCurrentIndex(1);
    type(*panel, path("Four"));
    press(*panel);
    const QString message = find<QTextEdit>("alertMessage")->toPlainText();
    QVERIFY2(message.endsWith("Four.otf\nFour.woff2"_L1), qPrintable(message));
    QTest::mouseClick(find<QPushButton>("alertButton0"), Qt::LeftButton);
    QTRY_VERIFY(answered_);
    QCOMPARE(QString::fromStdString(chosen_->string()), path("Four.ttf"));
  }

  void aFileIsReplacedOnlyWithLeave() {
    touch("Old.ttf");
    const auto handle = showExportPanel("Old");
    auto* const panel = find<FilePanel>("savePanel");
    panel->findChild<QComboBox*>(u"formatPopup"_s)->setCurrentIndex(1);
    type(*panel, path("Old")); // exists under the name with its extension
    press(*panel);
    QVERIFY(find<AlertSheet>("alert")->accessibleName().contains("Old.ttf"_L1));
    // A file is not overwritten by a key pressed in haste.
    QTest::keyClick(find<AlertSheet>("alert")->focusWidget(), Qt::Key_Return);
    QTRY_VERIFY(!find<AlertSheet>("alert"));
    QVERIFY(panel->isVisible() && !answered_);
    press(*panel);
    QTest::mouseClick(find<QPushButton>("alertButton0"), Qt::LeftButton);
    QTRY_VERIFY(answered_);
    QCOMPARE(QString::fromStdString(chosen_->string()), path("Old.ttf"));
  }

  void anAlertAnswersWithTheButtonPressed() {
    struct Row {
      const char* name;
      QList<Qt::Key> keys; // none to close it
      std::size_t answer;
    };
    for (const auto& [name, keys, answer] :
         {Row{"Return presses the default", {Qt::Key_Return}, 0},
          Row{"Return presses what has the focus", {Qt::Key_Backtab, Qt::Key_Return}, 1},
          Row{"Escape presses the last", {Qt::Key_Escape}, 2}, Row{"closing it is the last", {}, 2},
          Row{"Tab", {Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Space}, 2}}) {
      std::vector<std::optional<std::size_t>> answers;
      desktop_->showAlert({"Title <b>", "Message", Alert::Style::warning, {"One", "Two", "Three"}},
                          [&](std::optional<std::size_t> button) { answers.push_back(button); });
      auto* const alert = find<AlertSheet>("alert");
      QVERIFY2(alert && answers.empty(), name);
      QCOMPARE(alert->windowModality(), Qt::WindowModal);
      QCOMPARE(alert->parentWidget(), window_.get());
      QCOMPARE(find<QLabel>("alertTitle")->text(), u"Title <b>"_s);
      QVERIFY(QTest::qWaitForWindowActive(alert));
      QVERIFY(find<QPushButton>("alertButton2")->x() < find<QPushButton>("alertButton0")->x());
      for (const Qt::Key key : keys) QTest::keyClick(alert->focusWidget(), key);
      if (keys.isEmpty()) alert->close();
      QTRY_VERIFY2(answers.size() == 1 && answers[0] == answer, name);
      QTRY_VERIFY(!find<AlertSheet>("alert"));
    }
  }

private:
  QString path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
  void touch(const char* name) const {
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
  }
  static QLineEdit* nameField(const FilePanel& panel) {
    return panel.findChild<QLineEdit*>(u"fileNameEdit"_s);
  }
  static void type(const FilePanel& panel, const QString& name) { nameField(panel)->setText(name); }
  static void press(const FilePanel& panel) {
    auto* const buttons = panel.findChild<QDialogButtonBox*>();
    const bool save = panel.acceptMode() == QFileDialog::AcceptSave;
    buttons->button(save ? QDialogButtonBox::Save : QDialogButtonBox::Open)->click();
  }
  std::shared_ptr<SavePanel> showSavePanel(const SavePanelSettings& settings) {
    return desktop_->showSavePanel(settings, [this](std::optional<fs::path> file) {
      chosen_ = std::move(file);
      answered_ = true;
    });
  }
  /// As the export flow does: the change of the pop-up comes back to the panel.
  std::shared_ptr<SavePanel> showExportPanel(const std::string& name) {
    const auto handle = std::make_shared<std::weak_ptr<SavePanel>>();
    const std::vector<std::string> extensions = {"otf", "ttf", "woff", "woff2"};
    SavePanelSettings settings{"Export font", name, "otf", FormatChooser{}};
    settings.formats->label = "Format:";
    settings.formats->titles = settings.formats->extensions = extensions;
    settings.formats->allLabel = "All formats";
    settings.formats->allChanged = [this](bool all) { all_ = all; };
    settings.freeStanding = true;
    settings.formats->changed = [handle, extensions](std::size_t index) {
      if (const auto panel = handle->lock()) panel->setExtension(extensions.at(index));
    };
    const auto panel = showSavePanel(settings);
    *handle = panel;
    return panel;
  }

  QTemporaryDir folder_;
  std::unique_ptr<QMainWindow> window_;
  std::unique_ptr<QtDesktop> desktop_;
  std::optional<fs::path> chosen_;
  bool answered_ = false;
  bool all_ = false;
};

int main(int argc, char** argv) {
  return runWithTheme<PanelsTest>(argc, argv);
}

#include "panels_test.moc"
