#include "desktop/alert_sheet.h"
#include "desktop/file_names.h"
#include "desktop/file_panel.h"
#include "desktop/qt_desktop.h"
#include "gui/desktop/gui_test.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTemporaryDir>

using namespace quillery;
using namespace quillery::test;

namespace fs = std::filesystem;

class PanelsTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
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
    touch("a.svg");
    touch("B.SVG");
    touch("a.png");
    OpenPanelSettings settings{"Import drawings", true, "svg"};
    std::vector<fs::path> files;
    desktop_->showOpenPanel(settings, [&](std::vector<fs::path> chosen) {
      files = std::move(chosen);
      answered_ = true;
    });
    auto* const panel = find<FilePanel>("openPanel");
    QVERIFY(panel && panel->isModal() && !answered_);
    QCOMPARE(panel->windowTitle(), QStringLiteral("Import drawings"));
    QCOMPARE(panel->nameFilters(), QStringList{QStringLiteral("SVG drawings (*.svg *.SVG)")});

    for (const char* refused : {"a.png", "missing.svg"}) {
      type(*panel, path(refused));
      press(*panel);
      auto* const alert = find<AlertSheet>("alert");
      QVERIFY2(alert && panel->isVisible() && !answered_, refused);
      QTest::keyClick(alert, Qt::Key_Escape);
      QTRY_VERIFY(!find<AlertSheet>("alert"));
    }
    panel->setDirectory(folder_.path());
    type(*panel, QStringLiteral("\"a.svg\" \"B.SVG\""));
    press(*panel);
    QTRY_VERIFY(answered_);
    QVERIFY(
        (files == std::vector<fs::path>{path("a.svg").toStdString(), path("B.SVG").toStdString()}));
  }

  void aCancelledPanelAnswersWithNothing() {
    std::vector<fs::path> files = {"unchanged"};
    desktop_->showOpenPanel({"Open", false, "fontproj"}, [&](auto chosen) { files = chosen; });
    QTest::keyClick(find<FilePanel>("openPanel"), Qt::Key_Escape);
    QVERIFY(files.empty());
    showSavePanel({"Save font project", "My Font.fontproj", "fontproj", std::nullopt});
    QTest::keyClick(find<FilePanel>("savePanel"), Qt::Key_Escape);
    QVERIFY(answered_ && !chosen_);
  }

  void aSavePanelEnforcesTheExtension_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("saved");
    QTest::newRow("none") << "Brush"
                          << "Brush.fontproj";
    QTest::newRow("right") << "Brush.fontproj"
                           << "Brush.fontproj";
    QTest::newRow("capitals") << "Brush.FONTPROJ"
                              << "Brush.FONTPROJ";
    QTest::newRow("another") << "Brush.v2"
                             << "Brush.v2.fontproj";
    QTest::newRow("a dot at its end") << "Brush."
                                      << "Brush.fontproj";
  }
  void aSavePanelEnforcesTheExtension() {
    QFETCH(QString, typed);
    QFETCH(QString, saved);
    showSavePanel({"Save font project", "My Font.fontproj", "fontproj", std::nullopt});
    auto* const panel = find<FilePanel>("savePanel");
    QCOMPARE(nameField(*panel)->text(), QStringLiteral("My Font.fontproj"));
    type(*panel, path(typed));
    press(*panel);
    QTRY_VERIFY(answered_);
    QCOMPARE(QString::fromStdString(chosen_->string()), path(saved));
  }

  void theFormatPopUpChangesTheNameAtOnceAndIsEnforced() {
    const auto handle = showExportPanel("Jo/Ann");
    auto* const panel = find<FilePanel>("savePanel");
    auto* const pop = panel->findChild<QComboBox*>(QStringLiteral("formatPopup"));
    QCOMPARE(nameField(*panel)->text(), QStringLiteral("Jo-Ann.otf"));
    QVERIFY(pop->isVisible());
    pop->setCurrentIndex(3);
    QCOMPARE(nameField(*panel)->text(), QStringLiteral("Jo-Ann.woff2"));
    QCOMPARE(nameField(*panel)->selectedText(), QStringLiteral("Jo-Ann"));
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

  void aFileIsReplacedOnlyWithLeave() {
    touch("Old.ttf");
    const auto handle = showExportPanel("Old");
    auto* const panel = find<FilePanel>("savePanel");
    panel->findChild<QComboBox*>(QStringLiteral("formatPopup"))->setCurrentIndex(1);
    type(*panel, path("Old")); // exists under the name with its extension
    press(*panel);
    QVERIFY(find<AlertSheet>("alert")->windowTitle().contains(QLatin1String("Old.ttf")));
    QTest::keyClick(find<AlertSheet>("alert"), Qt::Key_Escape);
    QTRY_VERIFY(!find<AlertSheet>("alert"));
    QVERIFY(panel->isVisible() && !answered_);
    press(*panel);
    QTest::mouseClick(find<QPushButton>("alertButton0"), Qt::LeftButton);
    QTRY_VERIFY(answered_);
    QCOMPARE(QString::fromStdString(chosen_->string()), path("Old.ttf"));
  }

  void proposedNamesCanStandInAFolder() {
    QCOMPARE(usableFileName(QStringLiteral(" ../a/b\n ")), QStringLiteral("-a-b"));
    QCOMPARE(usableFileName(QStringLiteral("\u00E9").repeated(300)).toUtf8().size(), 200);
    showSavePanel({"Save font project", ".fontproj", "fontproj", std::nullopt});
    QCOMPARE(nameField(*find<FilePanel>("savePanel"))->text(), QStringLiteral("Untitled.fontproj"));
  }

  void anAlertAnswersWithTheButtonPressed_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("answer");
    QTest::newRow("Return presses the first") << int(Qt::Key_Return) << 0;
    QTest::newRow("Escape presses the last") << int(Qt::Key_Escape) << 2;
    QTest::newRow("closing it is the last") << 0 << 2;
    QTest::newRow("Tab and Space") << int(Qt::Key_Tab) << 1;
  }
  void anAlertAnswersWithTheButtonPressed() {
    QFETCH(int, key);
    QFETCH(int, answer);
    std::optional<std::size_t> pressed;
    int answers = 0;
    desktop_->showAlert({"Title <b>", "Message", Alert::Style::warning, {"One", "Two", "Three"}},
                        [&](std::optional<std::size_t> button) {
                          pressed = button;
                          ++answers;
                        });
    auto* const alert = find<AlertSheet>("alert");
    QVERIFY(alert && answers == 0);
    QCOMPARE(alert->windowModality(), Qt::WindowModal);
    QCOMPARE(alert->parentWidget(), window_.get());
    QCOMPARE(find<QLabel>("alertTitle")->text(), QStringLiteral("Title <b>"));
    QVERIFY(QTest::qWaitForWindowActive(alert));
    auto* const first = find<QPushButton>("alertButton0");
    QVERIFY(first->isDefault() && first->hasFocus());
    QVERIFY(first->x() < find<QPushButton>("alertButton1")->x());
    if (key == 0) {
      alert->close();
    } else {
      QTest::keyClick(first, static_cast<Qt::Key>(key));
      if (key == Qt::Key_Tab) QTest::keyClick(alert->focusWidget(), Qt::Key_Space);
    }
    QTRY_COMPARE(answers, 1);
    QCOMPARE(*pressed, std::size_t(answer));
  }

  void alertsStackAndShowLongMessages() {
    std::string message = "Found:\n\n🔴 Missing <space>\nText.\n";
    for (int i = 0; i < 200; ++i) message += "line " + std::to_string(i) + "\n";
    std::vector<int> order;
    desktop_->showAlert({"First", "", Alert::Style::informational, {"OK"}},
                        [&](auto) { order.push_back(1); });
    QVERIFY(QTest::qWaitForWindowActive(find<AlertSheet>("alert")));
    desktop_->showAlert({"Second", message, Alert::Style::critical, {"OK"}},
                        [&](auto) { order.push_back(2); });
    AlertSheet* second = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->isVisible() && widget->windowTitle() == QLatin1String("Second"))
        second = qobject_cast<AlertSheet*>(widget);
    QVERIFY(second && second->height() < 600);
    auto* const text = second->findChild<QLabel*>(QStringLiteral("alertMessage"));
    QVERIFY(text->text().contains(QLatin1String("Missing &lt;space&gt;")));
    QVERIFY(!text->text().contains(QStringLiteral("🔴")));
    QVERIFY(text->height() >= text->heightForWidth(text->width()));
    second->reject();
    QTRY_COMPARE(order, std::vector<int>{2});
    find<AlertSheet>("alert")->reject();
    QTRY_COMPARE(order, (std::vector<int>{2, 1}));
  }

private:
  QString path(const QString& name) const { return folder_.filePath(name); }
  QString path(const char* name) const { return path(QString::fromUtf8(name)); }
  void touch(const char* name) const {
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
  }
  static QLineEdit* nameField(const FilePanel& panel) {
    return panel.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
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
    settings.formats->titles = extensions;
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
};

int main(int argc, char** argv) {
  return runWithTheme<PanelsTest>(argc, argv);
}

#include "panels_test.moc"
