// What a control is set to, under short keys. Every control of the kit keeps its settings in one bag, so that all of
// them are set and read in the same way.
#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

namespace havuz {

namespace bag {
inline constexpr const char *kCaption = "cap";
inline constexpr const char *kPicture = "pic"; // name of a picture, without its extension
inline constexpr const char *kSize = "siz";    // of the picture, QSize
inline constexpr const char *kValue = "val";   // checked, or the number of a scroll bar
inline constexpr const char *kMost = "max";    // greatest number of a scroll bar
inline constexpr const char *kBack = "bck";    // colour; none: the platform's own
inline constexpr const char *kBare = "bar";    // shows no caption: a heading says it
inline constexpr const char *kText = "txt";    // colour of the caption; none: what is legible
} // namespace bag

class PropertyBag {
public:
    // Whether the setting changed.
    bool put(const char *key, const QVariant &value) {
        QVariant &kept = settings_[QLatin1String(key)];
        if (kept == value)
            return false;
        kept = value;
        return true;
    }
    QVariant get(const char *key) const { return settings_.value(QLatin1String(key)); }
    bool has(const char *key) const { return get(key).isValid(); }

private:
    QMap<QString, QVariant> settings_;
};

} // namespace havuz
