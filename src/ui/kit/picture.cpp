#include "ui/kit/picture.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace havuz {

static QString FileOf(const QString &name) { return QStringLiteral(":/icons/%1.svg").arg(name); }

bool HasPicture(const QString &name) { return QFile::exists(FileOf(name)); }

static QPixmap Render(const QString &name, QSize size, double ratio, const QColor &line) {
    QFile file(FileOf(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray drawing = file.readAll();
    drawing.replace("#202020", line.name().toLatin1()); // the line colour in every file
    QSvgRenderer renderer(drawing);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPixmap picture(size * ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    renderer.render(&painter);
    painter.end();
    picture.setDevicePixelRatio(ratio);
    return picture;
}

QPixmap PictureOf(const QString &name, QSize size, double ratio, const QColor &line) {
    const QString key =
        QStringLiteral("%1 %2 %3 %4 %5").arg(name).arg(size.width()).arg(size.height()).arg(ratio).arg(line.name());
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = Render(name, size, ratio, line);
        QPixmapCache::insert(key, picture);
    }
    return picture;
}

} // namespace havuz
