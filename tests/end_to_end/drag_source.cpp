// A window to drag files from, as from a file manager: drag_source FILE...

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace {

class Source : public QWidget {
public:
  explicit Source(QList<QUrl> files) : files_(std::move(files)) {
    setWindowTitle(QStringLiteral("Drag source"));
    setFixedSize(120, 60);
  }

protected:
  void mouseMoveEvent(QMouseEvent*) override {
    auto* data = new QMimeData;
    data->setUrls(files_);
    auto* drag = new QDrag(this);
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction);
  }

private:
  QList<QUrl> files_;
};

} // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QList<QUrl> files;
  for (const QString& file : QApplication::arguments().mid(1)) files << QUrl::fromLocalFile(file);
  Source source(files);
  source.show();
  return QApplication::exec();
}
