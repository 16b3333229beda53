#include "app/ui/licenses_view.h"

#include "base/file.h"
#include "desktop/sheet_heading.h"
#include "desktop/widgets.h"

#include <QBoxLayout>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace quillery {
namespace {

constexpr QSize kSize(760, 600); // wide enough for lines as the licences break them

QWidget* unavailable(QWidget* parent) {
  auto* widget = new QWidget(parent);
  auto* column = new QVBoxLayout(widget);
  auto* symbol = new SymbolLabel(Symbol::exclamationTriangle, grid::largeControlHeight,
                                 Role::textSecondary, widget);
  auto* words = new QLabel(LicensesView::tr("Unable to load license information"), widget);
  column->addStretch(1);
  column->addWidget(symbol, 0, Qt::AlignCenter);
  column->addWidget(words, 0, Qt::AlignCenter);
  column->addStretch(1);
  return widget;
}

} // namespace

LicensesView::LicensesView(const std::optional<std::filesystem::path>& resourceFolder,
                           QWidget* parent)
    : QDialog(parent, Qt::Sheet) {
  setObjectName(QStringLiteral("licenses"));
  setWindowModality(Qt::WindowModal);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(grid::section, grid::section, grid::section, grid::margin);
  column->setSpacing(grid::unit);
  column->addWidget(makeSheetHeading(tr("Third-Party Software Licenses"), *this));
  column->addWidget(new TextLabel(tr("Quillery includes the following open-source components"),
                                  TextStyle::body, Role::textSecondary, this));
  column->addSpacing(grid::unit);

  FileBytes bytes;
  if (resourceFolder && readFile(*resourceFolder / "THIRD_PARTY_LICENSES.txt", bytes)) {
    auto* text = new QPlainTextEdit(this);
    text->setObjectName(QStringLiteral("licenseText"));
    text->setAccessibleName(tr("Licenses"));
    text->setReadOnly(true);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(Theme::current().font(TextStyle::caption).pointSizeF());
    text->setFont(font);
    text->document()->setDocumentMargin(grid::gap);
    text->setPlainText(QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())));
    column->addWidget(text, 1);
  } else {
    column->addWidget(unavailable(this), 1);
  }
  auto* done = new QPushButton(tr("Done"), this);
  done->setObjectName(QStringLiteral("done"));
  done->setDefault(true);
  connect(done, &QPushButton::clicked, this, &QDialog::accept);
  column->addWidget(done, 0, Qt::AlignRight);
  resize(kSize);
}

} // namespace quillery
