#include "ui/DocumentWindow.h"

#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "platform/qt/QtText.h"
#include "ui/ButtonWalk.h"
#include "ui/CaptionBar.h"
#include "ui/Controls.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>

namespace {

constexpr int StripHeight = 32;
constexpr QSize ButtonSize{24, 24};

// Long names of files are cut in the middle, so that the ending stays in sight.
class TitleLabel : public QLabel {
public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }
    void ShowBright(bool bright) {
        bright_ = bright;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(bright_ ? CurrentChrome().text : CurrentChrome().dim);
        painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft,
                         fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
    }

private:
    bool bright_ = true;
};

}  // namespace

DocumentWindow::DocumentWindow(std::int16_t tag, QWidget* parent) : QWidget(parent), tag_(tag) {
    strip_ = new QWidget(this);
    strip_->setFixedHeight(StripHeight);
    strip_->installEventFilter(this);
    title_ = new TitleLabel(strip_);
    title_->setObjectName("lblTitle");
    title_->setTextFormat(Qt::PlainText);
    title_->setAttribute(Qt::WA_TransparentForMouseEvents);
    MakeBold(title_);
    minimise_ = MakeCaptionButton(strip_, "MinBtn", "Minimize", ButtonSize);
    maximise_ = MakeCaptionButton(strip_, "MaxBtn", "Maximize", ButtonSize);
    close_ = MakeCaptionButton(strip_, "ExtBtn", "Close", ButtonSize);
    connect(minimise_, &QToolButton::clicked, this, &DocumentWindow::MinimisePressed);
    connect(maximise_, &QToolButton::clicked, this, &DocumentWindow::TogglePressed);
    connect(close_, &QToolButton::clicked, this, &DocumentWindow::ClosePressed);
    auto* row = new QHBoxLayout(strip_);
    row->setContentsMargins(12, 0, 8, 0);
    row->setSpacing(4);
    row->addWidget(title_, 1);
    for (QToolButton* button : {minimise_, maximise_, close_}) row->addWidget(button);
    buttons_ = new ButtonWalk({strip_}, ButtonWalk::Tab::Passes, this);
    connect(buttons_, &ButtonWalk::Left, this, [this] { Picture()->setFocus(); });
    column_ = new QVBoxLayout(this);
    column_->setSpacing(0);
    column_->addWidget(strip_);
    ShowState(State::Maximised);
}

void DocumentWindow::SetContent(QWidget* content) {
    column_->addWidget(content, 1);
    setFocusProxy(Picture());
}

std::int16_t DocumentWindow::Slot() const {
    return static_cast<std::int16_t>(tag_ % FirstDigitTag);
}

void DocumentWindow::FollowSize() {
    if (!DocReady || !IsOpen() || state_ == State::Minimised) return;
    LayOut();
    Repaint();
}

void DocumentWindow::LetTabIn(bool active) {
    Picture()->setFocusPolicy(active ? Qt::StrongFocus : Qt::ClickFocus);
}

void DocumentWindow::SetTitle(const std::string& name, bool changed) {
    const QString title = QString::fromStdString(name) + (changed ? QString::fromUtf8(" •") : "");
    title_->setText(title);
    setWindowTitle(title);
    // The mark alone says little to a screen reader.
    const QString spoken = QString::fromStdString(name);
    setAccessibleName(changed ? ToQt(TextOf("Mainfrm", "ChangedName")).arg(spoken) : spoken);
    title_->setAccessibleName(accessibleName());
}

void DocumentWindow::ShowState(State state) {
    state_ = state;
    const int border = state == State::Maximised ? 0 : 1;
    column_->setContentsMargins(border, border, border, border);
    minimise_->setVisible(state == State::Normal);
    maximise_->setIcon(ThemedIcon(state == State::Normal ? "Maximize" : "Restore"));
    ShowActive(active_);
}

// A maximised window has no other beside it from which its title would have to stand out.
void DocumentWindow::ShowActive(bool active) {
    active_ = active;
    static_cast<TitleLabel*>(title_)->ShowBright(active || state_ == State::Maximised);
    update();
}

void DocumentWindow::ApplyTexts() {
    for (QToolButton* button : {minimise_, maximise_, close_}) {
        const QString text =
            ToQt(TextOf(objectName().toStdString(), button->objectName().toStdString()));
        button->setToolTip(text);
        button->setAccessibleName(text);
    }
    update();
}

void DocumentWindow::paintEvent(QPaintEvent*) {
    if (state_ == State::Maximised) return;
    QPainter painter(this);
    painter.fillRect(rect(), active_ ? CurrentChrome().accent : CurrentChrome().line);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), CurrentChrome().panel);
}

void DocumentWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    FollowSize();
}

// A window that moves to a screen with another scale needs sharp surfaces again.
bool DocumentWindow::event(QEvent* event) {
    if (event->type() == QEvent::ScreenChangeInternal) FollowSize();
    return QWidget::event(event);
}

bool DocumentWindow::focusNextPrevChild(bool next) {
    emit TabPressed(next);
    return true;
}

// Presses and drags of the caption strip. Other buttons than the left one pass.
bool DocumentWindow::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick &&
        type != QEvent::MouseMove && type != QEvent::MouseButtonRelease)
        return QWidget::eventFilter(watched, event);
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const QPoint at = mouse->globalPosition().toPoint();
    if (type == QEvent::MouseButtonRelease) pressed_ = dragging_ = false;
    if (type == QEvent::MouseButtonDblClick && mouse->button() == Qt::LeftButton) {
        pressed_ = dragging_ = false;
        emit TogglePressed();
    }
    if (type == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton) {
        press_ = at;
        grip_ = at - parentWidget()->pos();
        pressed_ = true;
        emit CaptionPressed();
    }
    if (type == QEvent::MouseMove && pressed_) {
        const int far = (at - press_).manhattanLength();
        dragging_ = dragging_ || far >= QApplication::startDragDistance();
        if (dragging_) emit Dragged(at - grip_);
    }
    return true;
}
