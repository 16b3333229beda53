#include "desktop/page_window.h"

#include "desktop/theme.h"

#include <QBoxLayout>
#include <QDialog>
#include <QFileInfo>
#include <QTextBrowser>
#include <QUrl>

namespace quillery {
namespace {

constexpr QSize kSize(640, 560);

} // namespace

bool showPage(const QUrl& page, QWidget* parent) {
  if (!page.isLocalFile() || !QFileInfo(page.toLocalFile()).isReadable()) return false;
  auto* const window = new QDialog(parent);
  window->setObjectName(QStringLiteral("page"));
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->resize(kSize);
  auto* const text = new QTextBrowser(window);
  text->setObjectName(QStringLiteral("pageText"));
  text->setFrameShape(QFrame::NoFrame);
  text->document()->setDocumentMargin(grid::section);
  text->setSource(page);
  const QString title = text->documentTitle();
  window->setWindowTitle(title.isEmpty() ? page.fileName() : title);
  window->setAccessibleName(window->windowTitle());
  text->setAccessibleName(window->windowTitle());
  auto* const column = new QVBoxLayout(window);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(text);
  window->show();
  return true;
}

} // namespace quillery
