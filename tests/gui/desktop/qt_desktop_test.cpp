#include "desktop/qt_desktop.h"
#include "gui/desktop/gui_test.h"

#include <QDialog>
#include <QFile>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QUrl>
#include <atomic>
#include <thread>

using namespace quillery;
using namespace quillery::test;

using List = std::vector<std::string>;

class QtDesktopTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void init() { failOnWarnings(); }

  void listsComeBackAsTheyWereStored() {
    const auto places = placesIn("round trip");
    const List rows[] = {{},
                         {""},
                         {"/a,b;c", "\"quoted\", 'twice'", "[\"x\"]", "@Invalid()"},
                         {"/two\nlines", "\r\n", "\ttab\\n"},
                         {"/Шрифт/Ёлка.fontproj", "/字体", "/🖋 e\u0301", "/100%", "%41", "%"},
                         {"/bytes that are no text/caf\xE9/\xFF", "after"}};
    for (const List& list : rows) {
      QtDesktop(places).storeList("com.quillery.recentProjects", list);
      const auto read = QtDesktop(places).storedList("com.quillery.recentProjects");
      QVERIFY2(read == list, list.empty() ? "empty" : list.front().c_str());
    }
    QCOMPARE(QtDesktop(places).storedList("another"), std::nullopt);
  }

  void aDesktopThatGoesWaitsForItsThreadsAndDropsWhatTheyPost() {
    bool ran = false;
    std::atomic<bool> worked = false;
    {
      QtDesktop desktop({});
      desktop.runInBackground([&] {
        std::this_thread::yield();
        desktop.postToMain([&] { ran = true; });
        worked = true;
      });
    }
    QVERIFY(worked);
    QCoreApplication::processEvents();
    QVERIFY(!ran);
  }

  // The platform of these tests has no file manager and no browser.
  void whereNothingShowsFilesTheProgramSaysItself() {
    QtDesktop desktop({});
    desktop.revealFile(folder_.filePath(u"My Fonts/Brush.otf"_s).toStdString());
    auto* const alert = find<QDialog>("alert");
    QVERIFY(alert);
    const QString message = alert->findChild<QTextEdit*>(u"alertMessage"_s)->toPlainText();
    QVERIFY2(message.contains(u"Brush.otf"_s) && message.contains(folder_.filePath(u"My Fonts"_s)),
             qPrintable(message));
    alert->reject();
    QFile page(folder_.filePath(u"help page.html"_s));
    QVERIFY(page.open(QIODevice::WriteOnly) &&
            page.write("<title>Help</title><h1>How to</h1>") > 0);
    page.close();
    QVERIFY(desktop.openWebPage(QUrl::fromLocalFile(page.fileName()).toEncoded().toStdString()));
    auto* const window = find<QDialog>("page");
    QVERIFY(window);
    QCOMPARE(window->windowTitle(), u"Help"_s);
    QCOMPARE(find<QTextBrowser>("pageText")->toPlainText(), u"How to"_s);
    window->close();
    QVERIFY(!desktop.openWebPage("file:///nowhere/index.html"));
    QVERIFY(!desktop.openWebPage("https://example.org/"));
  }

  void aTimerFiresOnceUnlessItIsDestroyed() {
    QtDesktop desktop({});
    int kept = 0, cancelled = 0;
    bool end = false;
    const auto first = desktop.startTimer(0.01, [&] { ++kept; });
    desktop.startTimer(0, [&] { ++cancelled; }).reset();
    std::unique_ptr<OneShotTimer> itself;
    itself = desktop.startTimer(0.02, [&] { itself.reset(); }); // destroyed while it fires
    const auto last = desktop.startTimer(0.08, [&] { end = true; });
    QTRY_VERIFY(end);
    QCOMPARE(kept, 1);
    QCOMPARE(cancelled, 0);
    QVERIFY(!itself);
  }

private:
  QtDesktop::Places placesIn(const char* name) const {
    QtDesktop::Places places;
    places.settingsFile = std::filesystem::path(folder_.path().toStdString()) / name;
    return places;
  }

  QTemporaryDir folder_;
};

int main(int argc, char** argv) {
  return runWithTheme<QtDesktopTest>(argc, argv);
}

#include "qt_desktop_test.moc"
