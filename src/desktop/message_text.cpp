#include "desktop/message_text.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

constexpr int kMostHeight = 320;

} // namespace

MessageText::MessageText(int width, Qt::Alignment alignment, QWidget* parent) : QTextEdit(parent) {
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFixedWidth(width);
  viewport()->setAutoFillBackground(false);
  setTabChangesFocus(true);
  document()->setDocumentMargin(0);
  QTextOption option = document()->defaultTextOption();
  option.setAlignment(alignment);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  document()->setDefaultTextOption(option);
  connect(&Theme::current(), &Theme::changed, this, &MessageText::follow);
}

void MessageText::setMessage(const QString& text) {
  setAccessibleName(text);
  setPlainText(text);
  follow();
}

void MessageText::setRichMessage(const QString& text, const QString& html) {
  setAccessibleName(text);
  setHtml(html);
  follow();
}

void MessageText::follow() {
  setFont(Theme::current().font(TextStyle::body));
  QPalette colors = palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive})
    colors.setColor(group, QPalette::Text, themeColor(Role::textSecondary));
  setPalette(colors);
  document()->setTextWidth(width());
  const auto height = static_cast<int>(std::ceil(document()->size().height()));
  setFixedHeight(std::min(height, kMostHeight));
}

} // namespace quillery
