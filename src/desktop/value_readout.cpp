#include "desktop/value_readout.h"

#include "desktop/widgets.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace quillery {
namespace {

constexpr int kEntryWidth = 72;

} // namespace

ValueReadout::ValueReadout(const QString& accessibleName, QWidget* parent)
    : QStackedWidget(parent),
      label_(new TextLabel({}, TextStyle::caption, Role::textSecondary, this)),
      entry_(new QLineEdit(this)) {
  label_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  const auto setFont = [this] { label_->setFont(Theme::current().numberFont(TextStyle::caption)); };
  setFont();
  connect(&Theme::current(), &Theme::changed, this, setFont);
  entry_->setObjectName(QStringLiteral("entry"));
  entry_->setAccessibleName(accessibleName);
  entry_->setAlignment(Qt::AlignRight);
  entry_->installEventFilter(this);
  addWidget(label_);
  addWidget(entry_);
  setMinimumWidth(kEntryWidth);
  setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  setToolTip(tr("Double-click to enter a value"));
  connect(entry_, &QLineEdit::returnPressed, this, [this] { closeEntry(true); });
}

QString ValueReadout::text() const {
  return label_->text();
}

void ValueReadout::show(const QString& text, Role role) {
  label_->setText(text);
  label_->setRole(role);
}

void ValueReadout::setAlignment(Qt::Alignment side) {
  label_->setAlignment(side | Qt::AlignVCenter);
}

void ValueReadout::beginEntry(const QString& typed) {
  entry_->setText(typed.isEmpty() ? text() : typed);
  setCurrentWidget(entry_);
  entry_->setFocus(Qt::OtherFocusReason);
  if (typed.isEmpty())
    entry_->selectAll();
  else
    entry_->setModified(true);
}

void ValueReadout::closeEntry(bool enter) {
  if (!isInEntry()) return;
  const QString typed = entry_->text();
  setCurrentWidget(label_); // first: hiding the field takes its focus, which comes back here
  // What is typed may look like the value shown, which is rounded, and be another.
  if (enter && entry_->isModified()) Q_EMIT entered(typed);
  Q_EMIT entryClosed();
}

void ValueReadout::mouseDoubleClickEvent(QMouseEvent*) {
  beginEntry();
}

bool ValueReadout::eventFilter(QObject* watched, QEvent* event) {
  if (watched == entry_ && event->type() == QEvent::FocusOut) closeEntry(true);
  if (watched == entry_ && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    closeEntry(false);
    return true;
  }
  return QStackedWidget::eventFilter(watched, event);
}

} // namespace quillery
