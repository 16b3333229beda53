#pragma once

#include <QString>
#include <QStringList>

namespace quillery {

/// Whether the name ends in a dot and the extension, in whatever case.
bool hasExtension(const QString& name, const QString& extension);

/// The name with `extension`. One of `others` that it has already is taken off first, so that
/// "A.ttf" becomes "A.otf" where fonts are chosen, while "A.sketch" becomes "A.sketch.otf".
QString withExtension(const QString& name, const QString& extension, const QStringList& others);

/// A name that can stand in a folder: without slashes, control characters and blanks at its ends,
/// and neither hidden nor too long for a file system.
QString usableFileName(const QString& name);

/// How a kind of file is called in a panel, with its patterns ("SVG drawings (*.svg)").
QString nameFilterOf(const QString& extension);

} // namespace quillery
