// Which picture stands on an element: files are named after elements, so that no table of them is needed.
#pragma once

#include "ui/window/element.h"

#include <QSize>
#include <QString>

namespace havuz {

// The first of form-name, name-index-picture, name-index, name-p-picture, name, in small letters, that is a file of
// src/ui/qt/icons; "" when none is. picture: the number that the logic gave the element.
QString PictureName(Element element, int picture);

QSize PictureSize(Element element); // device-independent pixels

} // namespace havuz
