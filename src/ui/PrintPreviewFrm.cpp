#include "ui/PrintPreviewFrm.h"

#include "frame/LoadLanguageCode.h"
#include "platform/qt/QtText.h"
#include "ui/DialogBase.h"
#include "ui/Theme.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QGraphicsView>
#include <QLineEdit>
#include <QPrintPreviewWidget>
#include <QScreen>
#include <QToolBar>
#include <utility>

// The toolkit names few of its actions, so they are found by their texts, through the same
// catalogue that they came from. It shrinks pictures by dropping lines of pixels, so the page is
// painted anew at each zoom, with a picture of the size that is seen.

namespace {

constexpr QSize UsualSize = {900, 700};  // pixels
constexpr int ScreenMargin = 40;         // for the frame of the window

constexpr std::pair<const char*, const char*> Icons[] = {
    {"Fit width", "FitWidth"}, {"Fit page", "FitPage"},      {"Zoom in", "ZoomIn"},
    {"Zoom out", "ZoomOut"},   {"Portrait", "PagePortrait"}, {"Landscape", "PageLandscape"},
    {"Print", "Print"},        {"Page setup", "Property"},
};

constexpr const char* ManyPages[] = {"First page",
                                     "Previous page",
                                     "Next page",
                                     "Last page",
                                     "Show single page",
                                     "Show facing pages",
                                     "Show overview of all pages"};

// A separator that has nothing on one side, or another one before it, is no use.
void HideIdleSeparators(const QToolBar& bar) {
    QAction* last = nullptr;
    bool between = false;
    for (QAction* action : bar.actions()) {
        if (action->isSeparator()) {
            action->setVisible(between);
            if (between) last = action;
            between = false;
        } else {
            between = between || action->isVisible();
        }
    }
    if (!between && last != nullptr) last->setVisible(false);
}

}  // namespace

PrintPreviewFrm::PrintPreviewFrm(QPrinter* printer, const QString& document, QWidget* parent)
    : QPrintPreviewDialog(printer, parent) {
    setObjectName(QStringLiteral("PrintPreviewFrm"));
    setWindowTitle(ToQt(TextOf("PrintPreviewFrm", "")) + " - " + document);
    page_ = findChild<QPrintPreviewWidget*>();
    DressToolBar();
    DressView();
    Redirect("Print", &PrintPreviewFrm::PrintAsked);
    Redirect("Page setup", &PrintPreviewFrm::SetUpAsked);
    GiveHelpKey(*this);
    const QSize room = screen()->availableSize() - QSize(ScreenMargin, ScreenMargin);
    resize(UsualSize.boundedTo(room));
    page_->fitInView();
}

void PrintPreviewFrm::ShowPage() {
    painted_ = PixelsPerInch();
    page_->updatePreview();
}

double PrintPreviewFrm::PixelsPerInch() const {
    return page_->zoomFactor() * logicalDpiX() * devicePixelRatioF();
}

// No signal tells of a new zoom, but it is never without a paint event.
bool PrintPreviewFrm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint && !qFuzzyCompare(painted_, PixelsPerInch())) {
        painted_ = PixelsPerInch();
        QMetaObject::invokeMethod(page_, &QPrintPreviewWidget::updatePreview, Qt::QueuedConnection);
    }
    return QPrintPreviewDialog::eventFilter(watched, event);
}

void PrintPreviewFrm::DressView() {
    auto* view = page_->findChild<QGraphicsView*>();
    if (view == nullptr) return;
    view->setFrameShape(QFrame::NoFrame);
    view->setBackgroundBrush(CurrentChrome().strip);
    view->viewport()->installEventFilter(this);
}

QAction* PrintPreviewFrm::ActionOf(const char* text) const {
    const QString wanted = QCoreApplication::translate("QPrintPreviewDialog", text);
    for (QAction* action : findChildren<QAction*>())
        if (action->text() == wanted) return action;
    return nullptr;
}

void PrintPreviewFrm::DressToolBar() {
    auto* bar = findChild<QToolBar*>();
    if (bar == nullptr) return;
    bar->setMovable(false);
    for (const auto& [text, icon] : Icons)
        if (QAction* action = ActionOf(text)) action->setIcon(ThemedIcon(QLatin1String(icon)));
    for (const char* text : ManyPages)
        if (QAction* action = ActionOf(text)) action->setVisible(false);
    for (QAction* action : bar->actions())  // the number of the page
        if (QWidget* widget = bar->widgetForAction(action);
            widget && widget->findChild<QLineEdit*>())
            if (qobject_cast<QComboBox*>(widget) == nullptr) action->setVisible(false);
    HideIdleSeparators(*bar);
}

void PrintPreviewFrm::Redirect(const char* text, void (PrintPreviewFrm::*asked)()) {
    QAction* action = ActionOf(text);
    if (action == nullptr) return;
    disconnect(action, &QAction::triggered, nullptr, nullptr);
    connect(action, &QAction::triggered, this, asked);
}
