// Which picture stands on an element: files are named after elements, so that no table of them is needed; the field of
// the form says whether one stands there, and its size.
#pragma once

#include "ui/window/window.h"

#include <QSize>
#include <QString>

namespace havuz {

// The first of form-name, name-index-picture, name-index, name-p-picture, name, in small letters, that is a file of
// src/ui/qt/icons; "" when none is, and for a field without a picture. picture: the number that the logic gave the
// element.
QString PictureName(const Field &field, Element element, int picture);

QSize PictureSize(const Field &field);

} // namespace havuz
