#include "desktop/form_width.h"

#include <QEvent>
#include <QScrollArea>

namespace quillery {
namespace {

constexpr char kKept[] = "quilleryFormWidth";

class FormWidth : public QObject {
public:
  explicit FormWidth(QScrollArea& area) : QObject(&area), area_(area) {
    area_.installEventFilter(this);
  }

protected:
  bool eventFilter(QObject*, QEvent* event) override {
    const bool mayChange = event->type() == QEvent::Resize || event->type() == QEvent::Show ||
                           event->type() == QEvent::LayoutRequest;
    if (mayChange && area_.widget() && area_.widgetResizable() &&
        area_.horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff)
      area_.widget()->setMinimumWidth(area_.contentsRect().width());
    return false;
  }

private:
  QScrollArea& area_;
};

} // namespace

void keepFormWidth(QScrollArea& area) {
  if (area.property(kKept).isValid()) return;
  area.setProperty(kKept, true);
  new FormWidth(area);
}

} // namespace quillery
