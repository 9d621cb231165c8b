// The pictures of the controls: drawn from the program's own SVG files at the size and the resolution asked for.
#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace havuz {

// name: of the file, without directory and extension. size: in device-independent pixels; the picture keeps its
// proportions inside it. ratio: device pixels to one of these. line: what the pictures' line colour becomes. A name
// without a file gives a null pixmap.
QPixmap PictureOf(const QString &name, QSize size, double ratio, const QColor &line);

bool HasPicture(const QString &name);

} // namespace havuz
