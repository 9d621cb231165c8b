#include "ui/qt/pictures.h"

#include "ui/kit/picture.h"
#include "ui/qt/text.h"

namespace havuz {

QString PictureName(Element element, int picture) {
    if (element.form.rfind("Tool", 0) == 0)
        return {}; // palettes have none, though their elements are named as tools are
    const QString form = ToQt(element.form).toLower(), name = ToQt(element.name).toLower();
    const QString index = QString::number(element.index), number = QString::number(picture);
    for (const QString &file : {form + '-' + name, name + '-' + index + '-' + number, name + '-' + index,
                                name + QStringLiteral("-p-") + number, name})
        if (HasPicture(file))
            return file;
    return {};
}

QSize PictureSize(Element element) {
    struct Sized {
        std::string_view name;
        QSize size;
    };
    static const Sized sizes[] = {{"Sayfa", {84, 63}},   {"HucreTip", {56, 42}}, {"Yuk", {84, 63}},
                                  {"Frame", {150, 112}}, {"Cap", {18, 18}},      {"TopBar", {22, 22}},
                                  {"Isaret", {16, 16}}};
    for (const Sized &row : sizes)
        if (row.name == element.name)
            return row.size;
    return {28, 28};
}

} // namespace havuz
