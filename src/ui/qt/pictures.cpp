#include "ui/qt/pictures.h"

#include "ui/kit/picture.h"
#include "ui/qt/text.h"

namespace havuz {

QString PictureName(const Field &field, Element element, int picture) {
    if (field.picture.width == 0)
        return {};
    const QString form = ToQt(element.form).toLower(), name = ToQt(element.name).toLower();
    const QString index = QString::number(element.index), number = QString::number(picture);
    for (const QString &file : {form + '-' + name, name + '-' + index + '-' + number, name + '-' + index,
                                name + QStringLiteral("-p-") + number, name})
        if (HasPicture(file))
            return file;
    return {};
}

QSize PictureSize(const Field &field) { return {field.picture.width, field.picture.height}; }

} // namespace havuz
