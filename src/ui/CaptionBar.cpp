#include "ui/CaptionBar.h"

#include "frame/LoadLanguageCode.h"
#include "platform/qt/QtText.h"
#include "ui/Controls.h"
#include "ui/Theme.h"
#include "ui/WindowLayout.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>
#include <QWindow>

namespace {

constexpr int BarHeight = 36;
constexpr int GripWidth = 5;
constexpr QSize ButtonSize{32, 28};

QString Text(std::string_view control) {
    return ToQt(TextOf("Mainfrm", control));
}

// One edge or corner. It lies over the window's content and follows its size.
class EdgeGrip : public QWidget {
public:
    EdgeGrip(QWidget* window, Qt::Edges edges, QSize smallest, std::function<void()> begins)
        : QWidget(window),
          target_(window),
          edges_(edges),
          smallest_(smallest),
          begins_(std::move(begins)) {
        setObjectName("EdgeGrip");
        setCursor(CursorOf(edges));
        window->installEventFilter(this);
        Place();
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize) Place();
        return false;
    }
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton) return;
        if (begins_) begins_();
        start_ = target_->geometry();
        press_ = event->globalPosition().toPoint();
        byHand_ = !target_->isWindow() || !target_->windowHandle()->startSystemResize(edges_);
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!byHand_ || !(event->buttons() & Qt::LeftButton)) return;
        const QPoint moved = event->globalPosition().toPoint() - press_;
        // Tiles may be smaller. The last pixel lies one before left plus width.
        const QSize least = smallest_.boundedTo(start_.size()) - QSize(1, 1);
        QRect box = start_;
        if (edges_ & Qt::LeftEdge)
            box.setLeft(qMin(start_.left() + moved.x(), start_.right() - least.width()));
        if (edges_ & Qt::RightEdge)
            box.setRight(qMax(start_.right() + moved.x(), start_.left() + least.width()));
        if (edges_ & Qt::TopEdge)
            box.setTop(qMin(start_.top() + moved.y(), start_.bottom() - least.height()));
        if (edges_ & Qt::BottomEdge)
            box.setBottom(qMax(start_.bottom() + moved.y(), start_.top() + least.height()));
        const bool inside = !target_->isWindow();
        if (inside && KeepReachable(box, target_->parentWidget()->size()) != box.topLeft()) return;
        target_->setGeometry(box);
    }
    void mouseReleaseEvent(QMouseEvent*) override { byHand_ = false; }

private:
    static Qt::CursorShape CursorOf(Qt::Edges edges) {
        if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
            return Qt::SizeFDiagCursor;
        if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
            return Qt::SizeBDiagCursor;
        return (edges & (Qt::LeftEdge | Qt::RightEdge)) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
    }
    void Place() {
        const QSize size = target_->size();
        QRect box(0, 0, size.width(), size.height());
        if (edges_ & Qt::LeftEdge) box.setWidth(GripWidth);
        if (edges_ & Qt::RightEdge) box.setLeft(size.width() - GripWidth);
        if (edges_ & Qt::TopEdge) box.setHeight(GripWidth);
        if (edges_ & Qt::BottomEdge) box.setTop(size.height() - GripWidth);
        setGeometry(box);
        raise();
    }

    QWidget* target_;
    Qt::Edges edges_;
    QSize smallest_;
    std::function<void()> begins_;
    QRect start_;
    QPoint press_;
    bool byHand_ = false;
};

}  // namespace

CaptionBar::CaptionBar(QWidget* window) : QWidget(window) {
    setObjectName("CaptionBar");
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(BarHeight);
    auto* logo = new QLabel(this);
    logo->setPixmap(QIcon(":/icons/tidemark.svg").pixmap(QSize(20, 20), devicePixelRatioF()));
    auto* title = new QLabel(Text(""), this);
    MakeBold(title);
    drag_ = new QLabel(this);
    drag_->setObjectName("dragflaglbl");
    drag_->setAlignment(Qt::AlignCenter);
    drag_->setTextFormat(Qt::PlainText);  // names of files may look like markup
    drag_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    drag_->setProperty("dim", true);
    minimise_ = MakeCaptionButton(this, "MinimizeAbtn", "Minimize", ButtonSize);
    maximise_ = MakeCaptionButton(this, "MaxAbtn", "Maximize", ButtonSize);
    exit_ = MakeCaptionButton(this, "ExitAbtn", "Close", ButtonSize);
    connect(minimise_, &QToolButton::clicked, this, &CaptionBar::MinimisePressed);
    connect(maximise_, &QToolButton::clicked, this, &CaptionBar::MaximisePressed);
    connect(exit_, &QToolButton::clicked, this, &CaptionBar::ExitPressed);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 0, 8, 0);
    row->setSpacing(8);
    row->addWidget(logo);
    row->addWidget(title);
    row->addWidget(drag_, 1);
    for (QToolButton* button : {minimise_, maximise_, exit_}) row->addWidget(button);
    for (QWidget* part :
         {static_cast<QWidget*>(logo), static_cast<QWidget*>(title), static_cast<QWidget*>(drag_)})
        part->installEventFilter(this);
}

void CaptionBar::ApplyTexts() {
    for (QToolButton* button : {minimise_, maximise_, exit_}) {
        const QString text = Text(button->objectName().toStdString());
        button->setToolTip(text);
        button->setAccessibleName(text);
    }
}

void CaptionBar::ShowDocument(const QString& name) {
    drag_->setText(name);
}

void CaptionBar::ShowMaximised(bool maximised) {
    maximise_->setIcon(ThemedIcon(maximised ? "Restore" : "Maximize"));
}

bool CaptionBar::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick) {
        pressed_ = moving_ = false;
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) emit MaximisePressed();
        return true;
    }
    if (event->type() == QEvent::MouseButtonPress) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        pressed_ = mouse->button() == Qt::LeftButton;
        grip_ = mouse->globalPosition().toPoint() - window()->pos();
    }
    if (event->type() == QEvent::MouseButtonRelease) pressed_ = moving_ = false;
    if (event->type() == QEvent::MouseMove && pressed_) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (!(mouse->buttons() & Qt::LeftButton)) return false;
        const QPoint at = mouse->globalPosition().toPoint();
        const bool far =
            (at - grip_ - window()->pos()).manhattanLength() >= QApplication::startDragDistance();
        if (!moving_ && far) {
            emit MoveBegins(at);
            grip_ = at - window()->pos();
            moving_ = !window()->windowHandle()->startSystemMove();
            pressed_ = moving_;
        }
        if (moving_) window()->move(at - grip_);
    }
    return false;
}

QToolButton* MakeCaptionButton(QWidget* strip, const char* name, const char* icon, QSize size) {
    auto* button = new QToolButton(strip);
    button->setObjectName(name);
    button->setIcon(ThemedIcon(icon));
    button->setIconSize(QSize(16, 16));
    button->setFixedSize(size);
    return button;
}

void AddEdgeGrips(QWidget* window, QSize smallest, const std::function<void()>& begins) {
    const Qt::Edges grips[] = {Qt::LeftEdge,
                               Qt::RightEdge,
                               Qt::TopEdge,
                               Qt::BottomEdge,
                               Qt::LeftEdge | Qt::TopEdge,
                               Qt::RightEdge | Qt::TopEdge,
                               Qt::LeftEdge | Qt::BottomEdge,
                               Qt::RightEdge | Qt::BottomEdge};
    for (const Qt::Edges edges : grips) new EdgeGrip(window, edges, smallest, begins);
}

void ShowEdgeGrips(QWidget* window, bool shown) {
    const auto grips = window->findChildren<QWidget*>("EdgeGrip", Qt::FindDirectChildrenOnly);
    for (QWidget* grip : grips) grip->setVisible(shown);
}
