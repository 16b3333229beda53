#include "desktop/alert_sheet.h"

#include "desktop/icons.h"
#include "desktop/message_text.h"
#include "desktop/sheet_heading.h"
#include "desktop/theme.h"
#include "desktop/widgets.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

namespace quillery {
namespace {

constexpr int kTextWidth = 400;
constexpr int kSymbolSize = 40;

struct Mark {
  const char16_t* text;
  Role role;
};

// Messages mark findings with coloured circles that only fonts with pictures have. A plain circle
// in the colour is in every font, and it looks like the rest of the window.
constexpr std::array<Mark, 3> kMarks = {{
    {u"\U0001F534", Role::danger},
    {u"\U0001F7E1", Role::warning},
    {u"\U0001F535", Role::accentForeground},
}};

/// The message with its marks as coloured circles and the words behind them as headings; empty when
/// there are none.
QString withMarks(const QString& message) {
  bool found = false;
  QStringList lines = message.split(QLatin1Char('\n'));
  for (QString& line : lines) {
    line = line.toHtmlEscaped();
    for (const Mark& mark : kMarks) {
      const QString text = QString::fromUtf16(mark.text);
      if (!line.startsWith(text)) continue;
      found = true;
      line = QStringLiteral("<span style=\"color:%1\">\u25CF</span> <span style=\"color:%2; "
                            "font-weight:600\">%3</span>")
                 .arg(themeColor(mark.role).name(), themeColor(Role::text).name(),
                      line.mid(text.size()).trimmed());
    }
  }
  return found ? lines.join(QLatin1String("<br>")) : QString();
}

std::pair<Symbol, Role> symbolOf(Alert::Style style) {
  switch (style) {
  case Alert::Style::informational:
    return {Symbol::infoCircleFill, Role::accentForeground};
  case Alert::Style::warning:
    return {Symbol::exclamationTriangleFill, Role::warning};
  case Alert::Style::critical:
    return {Symbol::exclamationCircleFill, Role::danger};
  }
  return {Symbol::infoCircleFill, Role::accentForeground};
}

QWidget* makeMessage(const QString& text, QWidget* parent) {
  auto* const message = new MessageText(kTextWidth, Qt::AlignLeading, parent);
  message->setObjectName(QStringLiteral("alertMessage"));
  const auto show = [message, text] {
    const QString rich = withMarks(text);
    if (rich.isEmpty())
      message->setMessage(text);
    else
      message->setRichMessage(text, rich);
  };
  show();
  QObject::connect(&Theme::current(), &Theme::changed, message, show); // for its marks
  return message;
}

} // namespace

AlertSheet::AlertSheet(const Alert& alert, QWidget* parent)
    : QDialog(parent), buttonCount_(static_cast<int>(alert.buttons.size())) {
  const QString title = QString::fromStdString(alert.title);
  setObjectName(QStringLiteral("alert"));
  // A sheet has one size: nothing to enlarge or to minimize.
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);

  const auto [symbol, role] = symbolOf(alert.style);
  auto* const titleLabel = makeSheetHeading(title, *this, TextStyle::headline);
  titleLabel->setObjectName(QStringLiteral("alertTitle"));
  titleLabel->setWordWrap(true);
  titleLabel->setFixedWidth(kTextWidth);

  auto* const words = new QVBoxLayout;
  words->setSpacing(grid::unit);
  words->addWidget(titleLabel);
  if (!alert.message.empty())
    words->addWidget(makeMessage(QString::fromStdString(alert.message), this));
  words->addStretch();

  auto* const content = new QHBoxLayout;
  content->setSpacing(grid::margin);
  content->addWidget(new SymbolLabel(symbol, kSymbolSize, role, this), 0, Qt::AlignTop);
  content->addLayout(words);

  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(grid::unit);
  buttons->addStretch();
  for (int index = buttonCount_ - 1; index >= 0; --index) { // as the eye goes, and the Tab key
    auto* const button = new QPushButton(
        QString::fromStdString(alert.buttons[static_cast<std::size_t>(index)]), this);
    button->setObjectName(QStringLiteral("alertButton%1").arg(index));
    button->setAccessibleName(button->text());
    connect(button, &QPushButton::clicked, this, [this, index] { done(index); });
    buttons->addWidget(button);
    if (static_cast<std::size_t>(index) != alert.defaultButton) continue;
    button->setDefault(true);
    button->setFocus();
  }

  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(grid::section, grid::section, grid::section, grid::section);
  column->setSpacing(grid::section);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addLayout(content);
  column->addLayout(buttons);
}

void AlertSheet::reject() {
  done(std::max(0, buttonCount_ - 1));
}

} // namespace quillery
