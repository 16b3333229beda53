#include "desktop/file_names.h"

#include <QCoreApplication>

namespace quillery {
namespace {

// Names may have 255 bytes; some are left for an extension and for a sibling file while saving.
constexpr qsizetype kMostBytes = 200;

struct Words {
  Q_DECLARE_TR_FUNCTIONS(quillery::FilePanel)
};

QString kindOf(const QString& extension) {
  if (extension == QLatin1String("fontproj")) return Words::tr("Font project");
  if (extension == QLatin1String("svg")) return Words::tr("SVG drawings");
  if (extension == QLatin1String("otf")) return Words::tr("OpenType font");
  if (extension == QLatin1String("ttf")) return Words::tr("TrueType font");
  if (extension.startsWith(QLatin1String("woff"))) return Words::tr("Web font");
  return Words::tr("%1 file").arg(extension.toUpper());
}

} // namespace

bool hasExtension(const QString& name, const QString& extension) {
  return name.size() > extension.size() + 1 &&
         name.endsWith(QLatin1Char('.') + extension, Qt::CaseInsensitive);
}

QString withExtension(const QString& name, const QString& extension, const QStringList& others) {
  if (extension.isEmpty() || hasExtension(name, extension)) return name;
  for (const QString& other : others)
    if (hasExtension(name, other)) return name.chopped(other.size()) + extension;
  QString stem = name;
  while (stem.size() > 1 && stem.endsWith(QLatin1Char('.'))) stem.chop(1);
  return stem + QLatin1Char('.') + extension;
}

QString usableFileName(const QString& name) {
  QString result;
  for (const QChar c : name) {
    if (c == QLatin1Char('/'))
      result += QLatin1Char('-');
    else if (c.category() != QChar::Other_Control)
      result += c;
  }
  result = result.trimmed();
  while (result.startsWith(QLatin1Char('.'))) result.remove(0, 1);
  while (result.toUtf8().size() > kMostBytes) result.chop(result.back().isLowSurrogate() ? 2 : 1);
  return result;
}

QString nameFilterOf(const QString& extension) {
  // The desktop's own panels may take patterns literally, so capitals are named as well.
  return QStringLiteral("%1 (*.%2 *.%3)").arg(kindOf(extension), extension, extension.toUpper());
}

} // namespace quillery
