#include "ui/qt/report_paper.h"

#include "ui/qt/report_pages.h"
#include "ui/qt/svg_object.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QByteArray>
#include <QGuiApplication>
#include <QHashSeed>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <memory>

namespace havuz {

namespace {

constexpr int kDotsPerInch = 600;

constexpr auto kSvgUri = "data:image/svg+xml;base64,";

// The pictures of the document become objects that are painted as vectors.
void TakePictures(QTextDocument &document) {
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFragment fragment = at.fragment();
            const QString name = fragment.charFormat().toImageFormat().name();
            if (!fragment.charFormat().isImageFormat() || !name.startsWith(QLatin1String(kSvgUri)))
                continue;
            QTextCharFormat object;
            object.setObjectType(SvgObject::kType);
            object.setProperty(
                SvgObject::kBytes,
                QByteArray::fromBase64(name.mid(static_cast<qsizetype>(std::string(kSvgUri).size())).toLatin1()));
            object.setProperty(SvgObject::kWidth, fragment.charFormat().toImageFormat().width());
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(object);
            break; // a picture stands in a paragraph of its own
        }
    cursor.endEditBlock();
}

struct Paper {
    QRectF text;      // of a page, dots
    double footY = 0; // base line of the foot
};

// A part of the strip at a place of the page.
void DrawPart(QPainter &painter, QTextDocument &document, double top, double bottom, double at) {
    painter.save();
    painter.translate(0.0, at - top);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = QRectF(0.0, top, document.textWidth(), bottom - top);
    context.palette.setColor(QPalette::Text, Qt::black);
    painter.setClipRect(context.clip);
    document.documentLayout()->draw(&painter, context);
    painter.restore();
}

void DrawPage(QPainter &painter, QTextDocument &document, const Paper &paper, const std::vector<StripPage> &pages,
              std::size_t number, const QString &title) {
    const StripPage &page = pages[number];
    if (page.head() > 0.0)
        DrawPart(painter, document, page.headTop, page.headBottom, 0.0);
    DrawPart(painter, document, page.top, page.bottom, page.head());
    painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 7));
    const QRectF foot(0.0, paper.footY, paper.text.width(), 200.0);
    painter.drawText(foot, Qt::AlignLeft, title);
    painter.drawText(foot, Qt::AlignRight, QStringLiteral("Sayfa %1 / %2").arg(number + 1).arg(pages.size()));
}

// The file's date as PDF writes it, in place of the clock's: D:YYYYMMDDHHmmSS+ZZ'ZZ'.
void PutDate(QByteArray &pdf, const std::string &date) {
    const QByteArray head = "/CreationDate (D:";
    const qsizetype at = pdf.indexOf(head);
    if (at < 0)
        return;
    const qsizetype from = at + head.size(), end = pdf.indexOf(')', from);
    QByteArray put = QByteArray::fromStdString(date).replace("-", "") + "000000Z";
    put = put.leftJustified(end - from, ' ', true); // places of objects stay
    pdf.replace(from, end - from, put);
}

} // namespace

void NeedFonts() {
    if (QCoreApplication::instance() != nullptr)
        return;
#ifndef Q_OS_WIN // where fonts ask for no display
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    QHashSeed::setDeterministicGlobalSeed(); // the order of fonts in a file follows it
    static int count = 1;
    static char name[] = "havuz";
    static char *names[] = {name, nullptr};
    static QGuiApplication *const program = new QGuiApplication(count, names); // lives as long as the process
    (void)program;
}

std::string PdfOfHtml(const std::string &html, const std::string &title, const std::string &date) {
    NeedFonts();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kDotsPerInch);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(20.0, 15.0, 18.0, 12.0), QPageLayout::Millimeter);
    writer.setTitle(QString::fromStdString(title));
    writer.setCreator(QStringLiteral("Havuz"));

    QTextDocument document;
    SvgObject pictures(kDotsPerInch);
    document.documentLayout()->registerHandler(SvgObject::kType, &pictures);
    document.documentLayout()->setPaintDevice(&writer);
    document.setDocumentMargin(0.0);
    document.setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    document.setHtml(QString::fromStdString(html));
    TakePictures(document);
    const Paper paper{QRectF(0.0, 0.0, writer.width(), writer.height() - 250.0), writer.height() - 130.0};
    document.setTextWidth(paper.text.width());
    const std::vector<StripPage> pages = CutIntoPages(PiecesOf(document), paper.text.height());

    QPainter painter(&writer);
    for (std::size_t page = 0; page < pages.size(); ++page) {
        if (page > 0)
            writer.newPage();
        DrawPage(painter, document, paper, pages, page, QString::fromStdString(title));
    }
    painter.end();
    PutDate(bytes, date);
    return bytes.toStdString();
}

} // namespace havuz
