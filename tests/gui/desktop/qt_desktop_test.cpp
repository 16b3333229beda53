#include "desktop/qt_desktop.h"
#include "gui/desktop/gui_test.h"

#include <QTemporaryDir>
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
