// What QtSvg 5.15 takes from Qt 5 and Qt 6 no longer has: a reference into a text, here a view. One of no text has a zero to
// read, as a QString has.
#pragma once

#include <QString>
#include <QStringView>

class QStringRef : public QStringView {
public:
    QStringRef() : QStringView(u"") {}
    QStringRef(QStringView view) : QStringView(view.isNull() ? QStringView(u"") : view) {}
    explicit QStringRef(const QString *text) : QStringView(*text) {}
    QStringRef(const QString *text, qsizetype at, qsizetype size) : QStringView(QStringView(*text).mid(at, size)) {}
    QStringRef(const QStringRef *text, qsizetype at, qsizetype size) : QStringView(text->mid(at, size)) {}
    const QStringRef *string() const { return this; } // that it refers to; its place in there is 0
    qsizetype position() const { return 0; }
    const QChar *unicode() const { return data(); }
};
