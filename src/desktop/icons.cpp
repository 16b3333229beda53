#include "desktop/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPaintDevice>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <array>
#include <cmath>

// Keeps the linker from dropping the drawings of a static library. It can't stand in a namespace.
static void initializeIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace quillery {
namespace {

struct SymbolFile {
  Symbol symbol;
  const char* name;
};

constexpr std::array<SymbolFile, kSymbolCount> kFiles = {{
    {Symbol::arrowLeft, "arrow-left"},
    {Symbol::arrowRight, "arrow-right"},
    {Symbol::arrowUp, "arrow-up"},
    {Symbol::arrowsLeftRight, "arrows-left-right"},
    {Symbol::check, "check"},
    {Symbol::checkCircleFill, "check-circle-fill"},
    {Symbol::chevronDown, "chevron-down"},
    {Symbol::chevronLeft, "chevron-left"},
    {Symbol::chevronRight, "chevron-right"},
    {Symbol::chevronUp, "chevron-up"},
    {Symbol::computer, "computer"},
    {Symbol::cross, "cross"},
    {Symbol::crossCircleFill, "cross-circle-fill"},
    {Symbol::document, "document"},
    {Symbol::documentImage, "document-image"},
    {Symbol::documentText, "document-text"},
    {Symbol::ellipsis, "ellipsis"},
    {Symbol::exclamationCircleFill, "exclamation-circle-fill"},
    {Symbol::exclamationTriangle, "exclamation-triangle"},
    {Symbol::exclamationTriangleFill, "exclamation-triangle-fill"},
    {Symbol::exportFont, "export"},
    {Symbol::eye, "eye"},
    {Symbol::eyeOff, "eye-off"},
    {Symbol::folder, "folder"},
    {Symbol::folderNew, "folder-new"},
    {Symbol::gridLarge, "grid-large"},
    {Symbol::gridSmall, "grid-small"},
    {Symbol::home, "home"},
    {Symbol::importDrawing, "import"},
    {Symbol::infoCircleFill, "info-circle-fill"},
    {Symbol::kerning, "kerning"},
    {Symbol::letter, "letter"},
    {Symbol::listDetails, "list-details"},
    {Symbol::listIcons, "list-icons"},
    {Symbol::minus, "minus"},
    {Symbol::moon, "moon"},
    {Symbol::pencilScribble, "pencil-scribble"},
    {Symbol::plus, "plus"},
    {Symbol::questionCircle, "question-circle"},
    {Symbol::redo, "redo"},
    {Symbol::reset, "reset"},
    {Symbol::search, "search"},
    {Symbol::share, "share"},
    {Symbol::sliders, "sliders"},
    {Symbol::sun, "sun"},
    {Symbol::textLines, "text-lines"},
    {Symbol::trash, "trash"},
    {Symbol::undo, "undo"},
    {Symbol::wandStars, "wand-stars"},
}};

constexpr bool inOrder() {
  for (std::size_t i = 0; i < kFiles.size(); ++i)
    if (kFiles[i].symbol != static_cast<Symbol>(i)) return false;
  return true;
}
static_assert(inOrder());

QByteArray drawing(Symbol symbol) {
  initializeIcons();
  const auto* const name = kFiles[static_cast<std::size_t>(symbol)].name;
  QFile file(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A picture of `side` × `side` device pixels, with a pixel ratio of 1.
QPixmap rendered(Symbol symbol, int side, const QColor& color) {
  const QString key = QStringLiteral("quillery-symbol-%1-%2-%3")
                          .arg(static_cast<int>(symbol))
                          .arg(side)
                          .arg(color.rgba(), 8, 16);
  QPixmap picture;
  if (QPixmapCache::find(key, &picture)) return picture;
  picture = QPixmap(side, side);
  picture.fill(Qt::transparent);
  QByteArray content = drawing(symbol);
  content.replace("currentColor", color.name(QColor::HexRgb).toLatin1());
  QSvgRenderer renderer(content);
  QPainter painter(&picture);
  painter.setOpacity(color.alphaF());
  renderer.render(&painter, QRectF(0, 0, side, side));
  painter.end();
  QPixmapCache::insert(key, picture);
  return picture;
}

class SymbolEngine : public QIconEngine {
public:
  SymbolEngine(Symbol symbol, Role role) : symbol_(symbol), role_(role) {}

  void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State) override {
    paintSymbol(*painter, symbol_, area, color(mode));
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    const int side = std::min(size.width(), size.height());
    return side > 0 ? rendered(symbol_, side, color(mode)) : QPixmap();
  }
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                       qreal ratio) override {
    QPixmap picture = pixmap(size, mode, state);
    picture.setDevicePixelRatio(ratio);
    return picture;
  }
  QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
    const int side = std::min(size.width(), size.height());
    return {side, side};
  }
  QIconEngine* clone() const override { return new SymbolEngine(*this); }
  QString key() const override { return QStringLiteral("quillery-symbol"); }
  bool isNull() override { return false; }

private:
  QColor color(QIcon::Mode mode) const {
    return themeColor(mode == QIcon::Disabled ? Role::textDisabled : role_);
  }

  Symbol symbol_;
  Role role_;
};

} // namespace

QIcon icon(Symbol symbol, Role role) {
  return QIcon(new SymbolEngine(symbol, role));
}

void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& area, const QColor& color) {
  const QTransform& toDevice = painter.deviceTransform();
  const double scale = std::hypot(toDevice.m11(), toDevice.m12());
  const double edge = std::min(area.width(), area.height());
  const int side = static_cast<int>(std::lround(edge * scale));
  if (side <= 0) return;
  // Onto whole device pixels, or the picture would be blurred at ratios like 1.5.
  const QRectF square(area.center() - QPointF(edge, edge) / 2, QSizeF(edge, edge));
  QPointF corner = toDevice.map(square.topLeft());
  corner = {std::round(corner.x()), std::round(corner.y())};
  const QPointF at = toDevice.inverted().map(corner);
  painter.drawPixmap(QRectF(at, QSizeF(side / scale, side / scale)), rendered(symbol, side, color),
                     QRectF(0, 0, side, side));
}

QPixmap symbolPixmap(Symbol symbol, int size, double pixelRatio, const QColor& color) {
  QPixmap picture = rendered(symbol, static_cast<int>(std::lround(size * pixelRatio)), color);
  picture.setDevicePixelRatio(pixelRatio);
  return picture;
}

QIcon applicationIcon() {
  initializeIcons();
  QSvgRenderer renderer(QStringLiteral(":/icons/application.svg"));
  QIcon result;
  for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    renderer.render(&painter, QRectF(0, 0, side, side));
    painter.end();
    result.addPixmap(picture);
  }
  return result;
}

} // namespace quillery
