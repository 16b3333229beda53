#include "export/ui/export_progress_view.h"

#include "desktop/message_text.h"
#include "desktop/widgets.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>

namespace quillery {
namespace {

using State = ExportStatus::State;

constexpr int kWidth = 400;
constexpr int kPadding = 20;
constexpr int kPictureSize = 60;

// A spinner while the export runs, then the symbol of its outcome.
class Picture : public QWidget {
public:
  explicit Picture(QWidget* parent) : QWidget(parent), spinner_(new Spinner(kSpinnerSize, this)) {
    setFixedSize(kPictureSize, kPictureSize);
    spinner_->move((kPictureSize - kSpinnerSize) / 2, (kPictureSize - kSpinnerSize) / 2);
  }

  void showState(State state) {
    state_ = state;
    spinner_->setVisible(state == State::preparing || state == State::exporting);
    update();
  }

protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    if (state_ == State::success)
      paintSymbol(painter, Symbol::checkCircleFill, rect(), themeColor(Role::success));
    else if (state_ == State::failed)
      paintSymbol(painter, Symbol::crossCircleFill, rect(), themeColor(Role::danger));
  }

private:
  static constexpr int kSpinnerSize = 32;
  State state_ = State::preparing;
  Spinner* spinner_;
};

QString outputFormat(const ExportStatus& status) {
  if (status.state != State::success) return QStringLiteral("Font");
  return QFileInfo(QString::fromStdString(status.text)).suffix().toUpper();
}

} // namespace

ExportProgressView::ExportProgressView(ProjectManager& manager, ExportFlow& exportFlow,
                                       QWidget* parent)
    : QDialog(parent, Qt::Sheet), manager_(manager), exportFlow_(exportFlow),
      picture_(new Picture(this)), title_(new TextLabel({}, TextStyle::title, Role::text, this)),
      text_(new MessageText(kWidth - 2 * kPadding, Qt::AlignHCenter, this)),
      buttons_(new QHBoxLayout), watch_(manager, {{ProjectChange::What::exportState}},
                                        [this](const ProjectChanges&) { refresh(); }) {
  setObjectName(QStringLiteral("exportProgress"));
  setWindowModality(Qt::WindowModal);
  setWindowTitle(tr("Export Font"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
  column->setSpacing(kPadding);
  column->addWidget(picture_, 0, Qt::AlignHCenter);
  title_->setObjectName(QStringLiteral("exportTitle"));
  title_->setAlignment(Qt::AlignCenter);
  column->addWidget(title_);
  text_->setObjectName(QStringLiteral("exportText"));
  column->addWidget(text_);
  buttons_->setSpacing(grid::unit);
  column->addLayout(buttons_);
  setFixedWidth(kWidth);
}

void ExportProgressView::refresh() {
  if (!manager_.isExporting()) return hide();
  showState();
  if (!isVisible()) open();
}

void ExportProgressView::showState() {
  const ExportStatus& status = manager_.exportStatus();
  static_cast<Picture*>(picture_)->showState(status.state);
  while (QLayoutItem* item = buttons_->takeAt(0)) {
    // It may be what is being clicked.
    item->widget()->hide();
    item->widget()->deleteLater();
    delete item;
  }
  const QString text = QString::fromStdString(status.text);
  switch (status.state) {
  case State::preparing:
    title_->setText(tr("Preparing Export..."));
    text_->setMessage(tr("Preparing font data for ") +
                      QString::fromStdString(manager_.currentProject().name));
    break;
  case State::exporting:
    title_->setText(tr("Generating Font..."));
    text_->setMessage(tr("Creating ") + outputFormat(status) + tr(" file..."));
    break;
  case State::success:
    title_->setText(tr("Export Complete!"));
    text_->setMessage(tr("Font successfully exported to:\n") + text);
    addButton(tr("Show in Finder"), "showInFileManager", true,
              [this] { exportFlow_.revealExportedFont(); });
    addButton(tr("Done"), "done", false, [this] { exportFlow_.dismissProgress(); });
    break;
  case State::failed:
    title_->setText(tr("Export Failed"));
    text_->setMessage(text);
    addButton(tr("OK"), "ok", true, [this] { exportFlow_.dismissProgress(); });
    break;
  }
  adjustSize();
}

void ExportProgressView::addButton(const QString& title, const char* objectName, bool isDefault,
                                   const std::function<void()>& press) {
  auto* button = new QPushButton(title, this);
  button->setObjectName(QString::fromLatin1(objectName));
  button->setDefault(isDefault);
  connect(button, &QPushButton::clicked, this, press);
  buttons_->addWidget(button);
  button->show();
  if (isDefault) button->setFocus();
}

void ExportProgressView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    exportFlow_.dismissProgress();
  else
    QDialog::keyPressEvent(event);
}

void ExportProgressView::closeEvent(QCloseEvent* event) {
  event->ignore();
  exportFlow_.dismissProgress();
}

} // namespace quillery
