#include "desktop/widgets.h"
#include "gui/app/program.h"
#include "kerning/kerning_pairs.h"

#include <QAbstractScrollArea>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QTranslator>

using namespace quillery;
using namespace quillery::test;

namespace {

/// Texts as much longer as translations are: short ones by more than half, long ones by a third.
class LongTexts : public QTranslator {
public:
  QString translate(const char*, const char* source, const char*, int) const override {
    const QString text = QString::fromUtf8(source);
    const auto longer = text.size() < 10 ? text.size() * 3 / 5 : text.size() / 3;
    return text + QStringLiteral("eigenschaft der Bezeichnungs").repeated(3).left(longer);
  }
  bool isEmpty() const override { return false; }
};

QRect placeOf(const QWidget& widget) {
  return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

QString describe(const QWidget& widget) {
  const QRect place = placeOf(widget);
  return QStringLiteral("%1 '%2' %3 at %4,%5 %6x%7")
      .arg(QLatin1String(widget.metaObject()->className()), widget.objectName(),
           widget.property("text").toString())
      .arg(place.x())
      .arg(place.y())
      .arg(place.width())
      .arg(place.height());
}

bool isScrolled(const QWidget& widget) {
  for (const QWidget* up = widget.parentWidget(); up; up = up->parentWidget())
    if (const auto* area = qobject_cast<const QAbstractScrollArea*>(up->parentWidget()))
      if (area->viewport() == up) return true;
  return false;
}

// What the user can see of it.
QRect visiblePart(const QWidget& widget) {
  QRect part = placeOf(widget);
  for (const QWidget* up = widget.parentWidget(); up; up = up->parentWidget()) part &= placeOf(*up);
  return part;
}

// Panels scroll, upwards and downwards; nothing else is out of sight.
bool isClipped(const QWidget& widget) {
  const QRect place = placeOf(widget);
  for (const QWidget* up = widget.parentWidget(); up; up = up->parentWidget()) {
    const QRect room = placeOf(*up);
    if (place.left() < room.left() || place.right() > room.right()) return true;
  }
  return !isScrolled(widget) && visiblePart(widget) != place;
}

bool textFits(const QWidget& widget) {
  if (qobject_cast<const ElidedLabel*>(&widget)) return widget.width() > 0;
  if (const auto* label = qobject_cast<const QLabel*>(&widget))
    return label->wordWrap() ? label->height() >= label->heightForWidth(label->width())
                             : label->width() >= label->sizeHint().width();
  if (const auto* icon = qobject_cast<const IconButton*>(&widget))
    return icon->width() >= icon->iconSize().width();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
    return button->width() >= button->minimumSizeHint().width();
  return widget.width() > 0 && widget.height() > 0;
}

// The controls and texts themselves, not what holds them.
QList<QWidget*> leaves(const QWidget& window) {
  QList<QWidget*> found;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || qobject_cast<QSplitterHandle*>(widget)) continue;
    if (qobject_cast<QLineEdit*>(widget->parentWidget())) continue; // its own buttons
    const auto parts = widget->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    const bool holdsOthers = std::any_of(parts.begin(), parts.end(),
                                         [](const QWidget* part) { return part->isVisible(); });
    const bool says = !widget->property("text").toString().isEmpty() ||
                      !widget->accessibleName().isEmpty() || qobject_cast<SymbolLabel*>(widget);
    if (says && (!holdsOthers || qobject_cast<QLineEdit*>(widget))) found.push_back(widget);
  }
  return found;
}

} // namespace

class WindowLayoutTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void init() { failOnWarnings(); }

  void everythingIsWholeInWindowsOfAllSizes_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("longTexts");
    for (const QSize size :
         {QSize(900, 600), QSize(1000, 640), QSize(1152, 720), QSize(1440, 900), QSize(2560, 1440)})
      for (const bool longTexts : {false, true})
        QTest::addRow("%d%s", size.width(), longTexts ? ", long texts" : "") << size << longTexts;
  }

  void everythingIsWholeInWindowsOfAllSizes() {
    QFETCH(QSize, size);
    QFETCH(bool, longTexts);
    LongTexts translation;
    if (longTexts) QCoreApplication::installTranslator(&translation);
    Program program{"A", "B", "V", "aVeryLongGlyphNameThatNoCardAndNoPanelHasRoomFor.alternate"};
    const Uuid pair = addKerningPair(program.manager, quillery::Utf8("A"), quillery::Utf8("V"));
    QVERIFY(
        program.manager.saveProjectTo(program.folder / (std::string(120, 'N') + ".fontproj")).ok());
    program.window.resize(size);
    QCOMPARE(program.window.size(), size);
    const std::pair<const char*, std::function<void()>> states[] = {
        {"nothing selected", [] {}},
        {"a glyph", [&] { program.click(3); }},
        {"many glyphs", [&] { program.manager.selectAllGlyphs(); }},
        {"many glyphs, no preview",
         [] { QTest::mouseClick(find<QToolButton>("togglePreview"), Qt::LeftButton); }},
        {"kerning", [&] { program.manager.setSelectedTab(1); }},
        {"a pair", [&] { program.manager.selectKerningPair(pair); }},
        {"a pair and the preview",
         [] { QTest::mouseClick(find<QToolButton>("togglePreview"), Qt::LeftButton); }},
        {"no glyphs", [&] { program.manager.newProject(); }}};
    QStringList faults;
    for (const auto& [state, bring] : states) {
      bring();
      for (int turn = 0; turn < 3; ++turn) settle();
      const auto widgets = leaves(program.window);
      for (const QWidget* widget : widgets) {
        if (isClipped(*widget)) faults << QLatin1String(state) + " clips "_L1 + describe(*widget);
        if (!textFits(*widget))
          faults << QLatin1String(state) + " has no room for "_L1 + describe(*widget);
      }
      for (qsizetype i = 0; i < widgets.size(); ++i)
        for (qsizetype j = 0; j < i; ++j)
          if (visiblePart(*widgets[i]).intersects(visiblePart(*widgets[j])))
            faults << QLatin1String(state) + " lays "_L1 + describe(*widgets[i]) + " over "_L1 +
                          describe(*widgets[j]);
    }
    QCoreApplication::removeTranslator(&translation);
    QVERIFY2(faults.empty(), qPrintable(faults.join(u'\n')));
  }
};

int main(int argc, char** argv) {
  return runWithTheme<WindowLayoutTest>(argc, argv);
}

#include "window_layout_test.moc"
