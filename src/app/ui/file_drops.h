#pragma once

#include "svg/svg_drop.h"

#include <QObject>

class QMimeData;
class QWidget;

namespace quillery {

/// Takes files that are dropped anywhere on a window, on fields as well: drawings and folders of
/// them are imported, a project is opened where no changes would be lost.
class FileDrops : public QObject {
  Q_OBJECT
public:
  FileDrops(ProjectManager& manager, QWidget& window);

Q_SIGNALS:
  /// A project is held over the window that is not taken: changes would be lost.
  void projectRefused(const QString& name);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  bool takes(const QMimeData& data);
  bool drop(const QMimeData& data);

  ProjectManager& manager_;
  QWidget& window_;
  SVGDropDelegate drawings_;
};

} // namespace quillery
