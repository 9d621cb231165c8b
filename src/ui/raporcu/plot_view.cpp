#include "ui/raporcu/plot_view.h"

#include "ui/qt/text.h"

#include <QPainter>
#include <QSvgRenderer>

namespace havuz {

PlotView::PlotView(QWidget *parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PlotView::show(const CsvTable &table, const PlotQuestion &question) {
    table_ = table;
    question_ = question;
    words_.clear();
    try {
        PlotSvg(table_, question_);
    } catch (const TableFailure &failure) {
        words_ = failure.what();
    }
    update();
}

std::string PlotView::svg() const {
    PlotQuestion sized = question_;
    sized.width = width();
    sized.height = height();
    return PlotSvg(table_, sized);
}

void PlotView::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(Qt::black);
    if (!plotted()) {
        painter.drawText(rect(), Qt::AlignCenter, words_.empty() ? QStringLiteral("henüz hesaplanmadı") : ToQt(words_));
        return;
    }
    QSvgRenderer picture(QByteArray::fromStdString(svg()));
    picture.render(&painter, QRectF(rect()));
}

} // namespace havuz
