#include "desktop/qt_desktop.h"
#include "gui/desktop/gui_test.h"

#include <QDesktopServices>
#include <QSettings>
#include <QTemporaryDir>
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

  void listsComeBackAsTheyWereStored_data() {
    QTest::addColumn<List>("list");
    QTest::newRow("empty") << List{};
    QTest::newRow("one empty text") << List{""};
    QTest::newRow("one") << List{"/home/a/Brush.fontproj"};
    QTest::newRow("separators") << List{"/a,b;c", "\"quoted\", 'twice'", "[\"x\"]", "@Invalid()"};
    QTest::newRow("line breaks") << List{"/two\nlines", "\r\n", "\ttab\\n"};
    QTest::newRow("scripts") << List{"/Шрифт/Ёлка.fontproj", "/字体", "/🖋 e\u0301"};
    QTest::newRow("percent signs") << List{"/100%", "%41", "%"};
    QTest::newRow("bytes that are no text") << List{"/caf\xE9/\xFF.fontproj", "after"};
  }
  void listsComeBackAsTheyWereStored() {
    QFETCH(List, list);
    const auto places = placesIn("round trip");
    QtDesktop(places).storeList("com.quillery.recentProjects", list);
    QtDesktop later(places);
    QVERIFY(later.storedList("com.quillery.recentProjects") == list);
    QCOMPARE(later.storedList("another"), std::nullopt);
  }

  void aSettingOfAnotherTypeReadsAsNothing() {
    const auto places = placesIn("types");
    const QString file = QString::fromStdString(places.settingsFile.string());
    const QVariant values[] = {42,
                               QStringLiteral("plain text"),
                               QStringLiteral("{\"a\": 1}"),
                               QStringLiteral("[\"a\", 1]"),
                               QStringLiteral("[\"unfinished"),
                               QStringList{QStringLiteral("a"), QStringLiteral("b")},
                               QByteArray("\x01\x02", 2),
                               QVariant()};
    for (const QVariant& value : values) {
      {
        QSettings settings(file, QSettings::IniFormat);
        settings.setValue(QStringLiteral("key"), value);
      }
      QVERIFY(!QtDesktop(places).storedList("key"));
    }
  }

  void postedWorkRunsInOrderOnTheMainThread() {
    QtDesktop desktop({});
    std::vector<int> order;
    std::atomic<int> threadsDone = 0;
    desktop.postToMain([&] { order.push_back(-1); });
    constexpr int kPieces = 200;
    for (int thread = 0; thread < 3; ++thread)
      desktop.runInBackground([&, thread] {
        for (int i = 0; i < kPieces; ++i)
          desktop.postToMain([&, value = thread * kPieces + i] { order.push_back(value); });
        ++threadsDone;
      });
    QVERIFY(order.empty()); // never at once
    QTRY_VERIFY(threadsDone == 3 && order.size() == 3 * kPieces + 1);
    QCOMPARE(order.front(), -1);
    for (int thread = 0; thread < 3; ++thread) {
      std::vector<int> own;
      for (const int value : order)
        if (value >= thread * kPieces && value < (thread + 1) * kPieces) own.push_back(value);
      QVERIFY(own.size() == kPieces && std::is_sorted(own.begin(), own.end()));
    }
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
    int kept = 0;
    int cancelled = 0;
    bool end = false;
    std::unique_ptr<OneShotTimer> itself;
    const auto first = desktop.startTimer(0.01, [&] { ++kept; });
    auto second = desktop.startTimer(0, [&] { ++cancelled; });
    second.reset();
    itself = desktop.startTimer(0.02, [&] { itself.reset(); }); // destroyed while it fires
    const auto third = desktop.startTimer(0.08, [&] { end = true; });
    QTRY_VERIFY(end);
    QCOMPARE(kept, 1);
    QCOMPARE(cancelled, 0);
    QVERIFY(!itself);
  }

  void whereThereIsNoFileManagerTheFolderIsOpened() {
    opened_.clear();
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open");
    QtDesktop({}).revealFile("/tmp/with space, ü #1?/My Font.otf");
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QCOMPARE(opened_.size(), 1);
    QCOMPARE(opened_.constFirst().toLocalFile(), QStringLiteral("/tmp/with space, ü #1?"));
  }

  void onlyAddressesOfPagesAreOpened() {
    opened_.clear();
    QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open");
    QtDesktop desktop({});
    QVERIFY(desktop.openWebPage("https://quillery.example/help?a=b#c"));
    QVERIFY(!desktop.openWebPage("not an address"));
    QVERIFY(!desktop.openWebPage(""));
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
    QCOMPARE(opened_, QList<QUrl>{QUrl(QStringLiteral("https://quillery.example/help?a=b#c"))});
  }

public Q_SLOTS:
  void open(const QUrl& url) { opened_ << url; }

private:
  QtDesktop::Places placesIn(const char* name) const {
    QtDesktop::Places places;
    places.settingsFile = std::filesystem::path(folder_.path().toStdString()) / name;
    return places;
  }

  QTemporaryDir folder_;
  QList<QUrl> opened_;
};

Q_DECLARE_METATYPE(List)

int main(int argc, char** argv) {
  return runWithTheme<QtDesktopTest>(argc, argv);
}

#include "qt_desktop_test.moc"
