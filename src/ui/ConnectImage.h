#pragma once
// The small activity image on the connect button: while the instrument is connected a pulse runs
// below the plug. It is an animation only; nothing is sent.
#include <QLabel>
#include <QTimer>

class QToolButton;

class ConnectImage : public QLabel {
public:
    explicit ConnectImage(QToolButton* button);

    /// Starts or stops by the state of the link.
    void ShowLink();

private:
    void Step();

    QTimer timer_;
    int phase_ = 0;  // 0..3
};
