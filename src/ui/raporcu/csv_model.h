// A table of comma-separated values as a model for a view: numbers sort as numbers.
#pragma once

#include <QStandardItemModel>
#include <string>

namespace havuz {

// text: head line and rows in the international style, no quoted fields.
void FillModel(QStandardItemModel &model, const std::string &text);

} // namespace havuz
