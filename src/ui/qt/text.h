// Text of the model is UTF-8; that of Qt is its own.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace havuz {

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString &text) { return text.toStdString(); }

} // namespace havuz
