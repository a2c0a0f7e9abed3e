#pragma once
// The picture shown while the program starts. It is not modal and takes no part in anything.
#include <QWidget>

class FlashFrm : public QWidget {
public:
    /// Stands in the middle of the first screen; the caller shows and deletes it.
    FlashFrm();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
};
