// Shows every control, colour and symbol, to look at while they are designed.
//   quillery_gallery             opens the window
//   quillery_gallery FOLDER NAME saves pictures of its pages and sheets as FOLDER/NAME-page.png

#include "desktop/alert_sheet.h"
#include "desktop/file_panel.h"
#include "desktop/icons.h"
#include "desktop/segmented_control.h"
#include "desktop/style.h"
#include "desktop/theme.h"
#include "desktop/widgets.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFormLayout>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QMetaEnum>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolBar>
#include <memory>

using namespace quillery;

namespace {

QString text(const char* value) {
  return QString::fromUtf8(value);
}

QWidget* row(std::initializer_list<QWidget*> widgets) {
  auto* const holder = new QWidget;
  auto* const layout = new QHBoxLayout(holder);
  layout->setContentsMargins(0, 0, 0, 0);
  for (QWidget* widget : widgets) layout->addWidget(widget);
  layout->addStretch();
  return holder;
}

QPushButton* button(const char* title, ButtonKind kind = ButtonKind::regular, bool enabled = true) {
  auto* const result = new QPushButton(text(title));
  setButtonKind(*result, kind);
  result->setEnabled(enabled);
  return result;
}

QSlider* slider(int value, bool enabled = true) {
  auto* const result = new QSlider(Qt::Horizontal);
  result->setRange(0, 100);
  result->setValue(value);
  result->setEnabled(enabled);
  result->setFixedWidth(160);
  return result;
}

QLineEdit* field(const char* value, const char* hint = "", bool enabled = true) {
  auto* const result = new QLineEdit(text(value));
  result->setPlaceholderText(text(hint));
  result->setEnabled(enabled);
  return result;
}

template <typename Box> Box* choice(const char* title, bool checked, bool enabled = true) {
  auto* const result = new Box(text(title));
  result->setChecked(checked);
  result->setEnabled(enabled);
  return result;
}

QComboBox* combo(bool editable, bool enabled = true) {
  auto* const result = new QComboBox;
  result->addItems({text("OpenType (.otf)"), text("TrueType (.ttf)")});
  result->setEditable(editable);
  result->setEnabled(enabled);
  return result;
}

QWidget* controlsPage() {
  auto* const page = new QWidget;
  auto* const form = new QFormLayout(page);
  form->setVerticalSpacing(grid::gap);
  form->addRow(new SectionHeader(text("Buttons")));
  form->addRow(row({button("Regular"), button("Import SVGs...", ButtonKind::prominent),
                    button("Delete", ButtonKind::destructive),
                    button("Add Space Character", ButtonKind::link),
                    button("Disabled", ButtonKind::regular, false),
                    button("Disabled", ButtonKind::prominent, false)}));
  auto* const eye = new IconButton(Symbol::eye, text("Toggle Preview"));
  auto* const pressed = new IconButton(Symbol::wandStars, text("Generate"));
  pressed->setCheckable(true);
  pressed->setChecked(true);
  auto* const off = new IconButton(Symbol::trash, text("Delete"));
  off->setEnabled(false);
  auto* const sort = new QToolButton;
  sort->setText(text("Sort: Unicode"));
  sort->setAutoRaise(true);
  sort->setPopupMode(QToolButton::InstantPopup);
  sort->setMenu(new QMenu(sort));
  auto* const share = button("Export Font");
  share->setIcon(icon(Symbol::share));
  form->addRow(row({eye, pressed, off, new IconButton(Symbol::plus, text("Add")), sort, share}));
  auto* const segments = new SegmentedControl(text("View"), {text("Glyphs"), text("Kerning")});
  segments->setFixedWidth(200);
  auto* const disabledSegments =
      new SegmentedControl(text("View"), {text("One"), text("Two"), text("Three")});
  disabledSegments->setEnabled(false);
  form->addRow(row({segments, disabledSegments}));
  form->addRow(new SectionHeader(text("Fields")));
  auto* const focused = field("Ascender");
  focused->setObjectName(text("focused"));
  form->addRow(text("Font Name"), row({field("Quillery Sans"), field("", "Placeholder"),
                                       field("Disabled", "", false), focused}));
  auto* const numbers = new QSpinBox;
  numbers->setRange(0, 2000);
  numbers->setValue(1000);
  form->addRow(text("Choices"), row({combo(false), combo(true), combo(false, false), numbers}));
  form->addRow(text("Sliders"), row({slider(30), slider(80), slider(50, false)}));
  form->addRow(text("Checks"),
               row({choice<QCheckBox>("Off", false), choice<QCheckBox>("On", true),
                    choice<QCheckBox>("Disabled", true, false), choice<QRadioButton>("Radio", true),
                    choice<QRadioButton>("Disabled", false, false)}));
  auto* const progress = new QProgressBar;
  progress->setValue(40);
  progress->setTextVisible(false);
  form->addRow(text("Progress"), row({progress, new Spinner(24), new Spinner(40)}));
  form->addRow(text("Badge"), row({new Badge(Symbol::checkCircleFill, text("Saved!"))}));
  form->addRow(new SectionHeader(text("Lists and text")));
  auto* const list = new QListWidget;
  for (const char* item : {"A V   −80", "T o   −40", "W a   −25", "Y e   +0"})
    list->addItem(text(item));
  list->setCurrentRow(1);
  auto* const words =
      new QPlainTextEdit(text("Sphinx of black quartz, judge my vow.\n").repeated(8));
  auto* const tabs = new QTabWidget;
  tabs->addTab(words, text("Text"));
  tabs->addTab(new QWidget, text("Kerning"));
  tabs->addTab(new QWidget, text("Preview"));
  tabs->setFixedHeight(150);
  list->setFixedHeight(150);
  form->addRow(row({list, tabs}));
  return page;
}

QWidget* coloursPage() {
  class Swatches : public QWidget {
  public:
    Swatches() { setMinimumSize(800, 800); }

  protected:
    void paintEvent(QPaintEvent*) override {
      QPainter painter(this);
      for (int i = 0; i < kRoleCount; ++i) {
        const QRect at(16 + i % 6 * 128, 16 + i / 6 * 88, 112, 48);
        painter.fillRect(at, themeColor(static_cast<Role>(i)));
        painter.setPen(themeColor(Role::text));
        painter.drawText(at.translated(0, 32), Qt::AlignBottom,
                         QString::number(i) + text("  ") + themeColor(static_cast<Role>(i)).name());
      }
    }
  };
  return new Swatches;
}

QWidget* iconsPage() {
  auto* const page = new QWidget;
  auto* const cells = new QGridLayout(page);
  for (int i = 0; i < kSymbolCount; ++i) {
    auto* const large = new QLabel;
    large->setPixmap(symbolPixmap(static_cast<Symbol>(i), 40, page->devicePixelRatioF(),
                                  themeColor(Role::text)));
    auto* const small = new IconButton(static_cast<Symbol>(i), QString::number(i));
    auto* const tiny = new QLabel;
    tiny->setPixmap(symbolPixmap(static_cast<Symbol>(i), 16, page->devicePixelRatioF(),
                                 themeColor(Role::accentForeground)));
    cells->addWidget(row({large, small, tiny}), i / 7, i % 7);
  }
  auto* const program = new QLabel;
  program->setPixmap(applicationIcon().pixmap(QSize(96, 96), page->devicePixelRatioF()));
  cells->addWidget(program, kSymbolCount / 7 + 1, 0);
  return page;
}

QWidget* typePage() {
  auto* const page = new QWidget;
  auto* const column = new QVBoxLayout(page);
  const std::pair<TextStyle, const char*> styles[] = {{TextStyle::largeTitle, "Large title"},
                                                      {TextStyle::title, "Title: No Glyphs Yet"},
                                                      {TextStyle::title2, "Second title"},
                                                      {TextStyle::headline, "Headline"},
                                                      {TextStyle::body, "Body"},
                                                      {TextStyle::subheadline, "New to Quillery?"},
                                                      {TextStyle::caption, "Caption"},
                                                      {TextStyle::caption2, "Caption 2"}};
  for (const auto& [style, words] : styles) {
    column->addWidget(row({new TextLabel(text(words), style),
                           new TextLabel(text(words), style, Role::textSecondary),
                           new TextLabel(text(words), style, Role::accentForeground)}));
  }
  for (const Role role :
       {Role::success, Role::warning, Role::danger, Role::textPlaceholder, Role::textDisabled})
    column->addWidget(new TextLabel(text("The quick brown fox"), TextStyle::body, role));
  column->addWidget(makeSeparator(Qt::Horizontal));
  column->addStretch();
  return page;
}

Alert longAlert() {
  Alert alert;
  alert.title = "Export Warnings";
  alert.message =
      "The following issues were found:\n\n🔴 Missing Space Character\nYour font doesn't have a "
      "space character. Text will not display correctly without it.\n\n🟡 Missing .notdef "
      "Glyph\nFonts should have a .notdef glyph for missing characters.\n\n🔵 Incomplete Character "
      "Set\nYour font has only 12 glyphs.\n\nDo you want to continue with export?";
  alert.style = Alert::Style::critical;
  alert.buttons = {"Export Anyway", "Cancel"};
  return alert;
}

} // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const Theme theme(application);
  QMainWindow window;
  window.setWindowIcon(applicationIcon());
  QMenu* const file = window.menuBar()->addMenu(text("&File"));
  file->addAction(icon(Symbol::plus), text("New Project"), QKeySequence::New, &window, [] {});
  file->addAction(icon(Symbol::importDrawing), text("Import SVG..."))
      ->setShortcut(Qt::CTRL | Qt::Key_I);
  file->addSeparator();
  file->addMenu(text("Open Recent"))->addAction(text("Brush"));
  QAction* const checked = file->addAction(text("Unicode Value"));
  checked->setCheckable(true);
  checked->setChecked(true);
  file->addAction(icon(Symbol::exportFont), text("Export Font..."))->setEnabled(false);
  window.menuBar()->addMenu(text("&Edit"));
  window.menuBar()->addMenu(text("&Help"));
  auto* const tabs = new QTabWidget;
  const std::pair<const char*, QWidget*> pages[] = {{"controls", controlsPage()},
                                                    {"colours", coloursPage()},
                                                    {"icons", iconsPage()},
                                                    {"type", typePage()}};
  for (const auto& [name, page] : pages) {
    auto* const area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(page);
    tabs->addTab(area, text(name));
  }
  window.setCentralWidget(tabs);
  window.resize(1000, 760);
  window.show();
  AlertSheet alert(longAlert(), &window);
  Alert small;
  small.title = "Open Failed";
  small.message = "Could not open project: /home/a/Brush.fontproj: not a font project.";
  AlertSheet smallAlert(small, &window);
  SavePanelSettings saving;
  saving.message = "Export font";
  saving.proposedName = "Quillery Sans";
  saving.extension = "otf";
  saving.formats =
      FormatChooser{"Format:",
                    {"OpenType (.otf)", "TrueType (.ttf)", "Web Open Font Format (.woff)"},
                    {"otf", "ttf", "woff"},
                    0,
                    {}};
  auto* const panel = new FilePanel(saving, QDir::homePath(), &window, [](FilePanel::Files) {});
  if (application.arguments().size() < 3) {
    alert.open();
    return application.exec();
  }

  const QString stem =
      application.arguments().at(1) + text("/") + application.arguments().at(2) + text("-");
  const auto save = [&](QWidget& widget, const QString& name) {
    QApplication::processEvents();
    widget.grab().save(stem + name + text(".png"));
  };
  window.activateWindow();
  window.findChild<QLineEdit*>(text("focused"))->setFocus();
  for (int i = 0; i < tabs->count(); ++i) {
    tabs->setCurrentIndex(i);
    save(window, tabs->tabText(i));
  }
  file->popup(window.mapToGlobal(QPoint(8, 32)));
  save(*file, text("menu"));
  file->close();
  alert.open();
  save(alert, text("alert"));
  alert.close();
  smallAlert.open();
  save(smallAlert, text("alert-small"));
  smallAlert.close();
  panel->present();
  save(*panel, text("panel"));
  panel->close();
  return 0;
}
