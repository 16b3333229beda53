#include "editor/ui/canvas_footer.h"

#include "desktop/gesture_line.h"
#include "desktop/icons.h"
#include "desktop/theme.h"
#include "editor/spacing_text.h"

#include <QAction>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

namespace quillery {
namespace {

constexpr int kFieldWidth = 150;
constexpr int kLeastWithField = 250; // the buttons' marks and the field

// Rhythms that letters are spaced by: straight, round, and where both meet.
const QString kTexts[] = {QStringLiteral("nnHnn"), QStringLiteral("HOHO"),
                          QStringLiteral("nonnoon"), QStringLiteral("HHnHOHnOO"),
                          QStringLiteral("00100110")};

} // namespace

CanvasFooter::CanvasFooter(QWidget* parent)
    : QWidget(parent),
      gestures_(new GestureLine(
          {{MouseButton::left, tr("Move"), tr("Move")},
           {MouseButton::right, tr("Right sidebearing"), tr("Right")},
           {MouseButton::middle, tr("Scale"), tr("Scale")},
           {std::nullopt, tr("Arrow keys move by 1, with Shift by 10"), {}},
           {std::nullopt, tr("Ctrl+wheel zooms, Ctrl+0 fits, Space and drag pans"), {}}},
          this)),
      field_(new QLineEdit(this)), menu_(new QMenu(this)) {
  setObjectName(QStringLiteral("canvasFooter"));
  field_->setObjectName(QStringLiteral("spacingText"));
  field_->setAccessibleName(tr("Neighbours"));
  field_->setPlaceholderText(tr("Neighbours"));
  field_->setToolTip(tr("The text in which the glyph is shown, such as %1").arg(kTexts[0]));
  field_->setFixedWidth(kFieldWidth);
  field_->installEventFilter(this);
  menu_->setObjectName(QStringLiteral("spacingTexts"));
  auto* const open = field_->addAction(icon(Symbol::chevronDown, Role::textSecondary),
                                       QLineEdit::TrailingPosition);
  open->setText(tr("Texts"));
  connect(open, &QAction::triggered, this, [this] {
    fillMenu();
    menu_->popup(field_->mapToGlobal(QPoint(0, field_->height())));
  });
  connect(field_, &QLineEdit::textEdited, this, &CanvasFooter::textChosen);
  connect(field_, &QLineEdit::returnPressed, this, &CanvasFooter::left);

  auto* const row = new QHBoxLayout(this);
  // As high as with the field, also without; the line takes all of it.
  setFixedHeight(grid::controlHeight + 2 * grid::half);
  row->setContentsMargins(grid::gap, 0, grid::half, 0);
  row->setSpacing(grid::unit);
  row->addWidget(gestures_, 1);
  row->addWidget(field_);
}

void CanvasFooter::setText(const QString& text) {
  if (field_->text() != text) field_->setText(text);
}

void CanvasFooter::choose(const QString& text) {
  setText(text);
  Q_EMIT textChosen(text);
}

void CanvasFooter::fillMenu() {
  menu_->clear();
  for (const QString& text : kTexts) menu_->addAction(text, this, [this, text] { choose(text); });
  const QString line = previewLine_ ? previewLine_() : QString();
  menu_->addSeparator();
  if (!line.isEmpty())
    menu_->addAction(tr("Line of the Preview"), this, [this, line] { choose(line); });
  menu_->addAction(tr("None"), this, [this] { choose({}); });
}

bool CanvasFooter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) {
      Q_EMIT left();
      return true;
    }
    if (key == Qt::Key_Down) {
      field_->actions().constFirst()->trigger();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void CanvasFooter::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  field_->setVisible(width() >= kLeastWithField);
}

} // namespace quillery
