#include "ui/kit/vek_form.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QScreen>

namespace havuz {

VekForm::VekForm(const QString &name, QWidget *owner, Qt::WindowFlags flags) : QWidget(owner, flags) {
    setObjectName(name);
    setAcceptDrops(true);
}

void VekForm::closeEvent(QCloseEvent *event) {
    event->ignore();
    if (closeAsked)
        closeAsked();
}

bool VekForm::event(QEvent *event) {
    if (event->type() == QEvent::WindowActivate && activated)
        activated();
    return QWidget::event(event);
}

// A window that is no longer maximised leaves some of the screen free.
void VekForm::takeUsualSize() {
    const QRect free = screen()->availableGeometry();
    if (width() * 10 < free.width() * 9 && height() * 10 < free.height() * 9)
        return;
    resize(free.size() * 4 / 5);
    move(free.center() - rect().center());
}

void VekForm::changeEvent(QEvent *event) {
    if (event->type() == QEvent::WindowStateChange && !isMinimized() && restored)
        restored();
    if (event->type() == QEvent::WindowStateChange && windowState() == Qt::WindowNoState &&
        static_cast<QWindowStateChangeEvent *>(event)->oldState().testFlag(Qt::WindowMaximized))
        takeUsualSize();
    QWidget::changeEvent(event);
}

static QString DroppedFile(const QMimeData *data) {
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

void VekForm::dragEnterEvent(QDragEnterEvent *event) {
    if (dropped && !DroppedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void VekForm::dropEvent(QDropEvent *event) {
    event->acceptProposedAction();
    if (dropped)
        dropped(DroppedFile(event->mimeData()));
}

} // namespace havuz
