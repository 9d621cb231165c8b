// CadLogo: the mark of the program.
#pragma once

#include <QWidget>

namespace havuz {

class CadLogo : public QWidget {
public:
    explicit CadLogo(QWidget *parent);
    QSize sizeHint() const override { return {36, 36}; }

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace havuz
