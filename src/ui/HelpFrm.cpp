#include "ui/HelpFrm.h"

#include "frame/HelpPages.h"
#include "frame/LoadLanguageCode.h"
#include "platform/qt/QtText.h"
#include "ui/DialogBase.h"
#include "ui/HelpBrowser.h"
#include "ui/Theme.h"

#include <algorithm>
#include <iterator>
#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTextDocumentFragment>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWindow>

// A modal dialog blocks every window that does not belong to it. The viewer belongs to the main
// window for life; only its native window changes hands: it belongs to the dialog in front, which
// is looked up again whenever the focus moves or that dialog goes. So the viewer stays as it is,
// without a flicker, and is used beside the dialog that it tells about.

namespace {

constexpr QSize UsualSize = {960, 680};  // pixels
constexpr int ContentsWidth = 264;
constexpr int LeastContents = 160;
constexpr int SearchWidth = 264;

QString Text(const char* control) {
    return ToQt(TextOf("HelpFrm", control));
}

QString TitleOf(const HelpPage& page) {
    return ToQt(PickText(page.English, page.Chinese));
}

// All that is typed, in any order; a page has to have every word.
QStringList WordsOf(const QString& typed) {
    return typed.simplified().split(' ', Qt::SkipEmptyParts);
}

QRegularExpression PatternOf(const QStringList& words) {
    QStringList parts;
    for (const QString& word : words) parts << QRegularExpression::escape(word);
    return QRegularExpression(parts.join('|'), QRegularExpression::CaseInsensitiveOption);
}

}  // namespace

HelpFrm::HelpFrm(QWidget* main) : QWidget(main, Qt::Window) {
    setObjectName(QStringLiteral("HelpFrm"));
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowIcon(main->windowIcon());
    search_ = new QLineEdit(this);
    contents_ = new QTreeWidget(this);
    nothing_ = new QLabel(this);
    page_ = new HelpBrowser(this);
    page_->setObjectName(QStringLiteral("PageTxt"));
    BuildTools();
    BuildContents();
    LayOut();
    for (const auto change : {&QTextBrowser::backwardAvailable, &QTextBrowser::forwardAvailable})
        connect(page_, change, change == &QTextBrowser::backwardAvailable ? back_ : forward_,
                &QAction::setEnabled);
    connect(page_, &QTextBrowser::sourceChanged, this, &HelpFrm::ShowArrival);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &HelpFrm::FollowFront);
    main->installEventFilter(this);
    resize(UsualSize.boundedTo(main->screen()->availableSize()));
    ApplyTexts();
}

QAction* HelpFrm::AddTool(const char* name, const char* icon, const QList<QKeySequence>& keys,
                          const std::function<void()>& act) {
    QAction* tool = tools_->addAction(ThemedIcon(QLatin1String(icon)), QString());
    tool->setObjectName(QLatin1String(name));
    tool->setShortcuts(keys);
    addAction(tool);
    connect(tool, &QAction::triggered, this, act);
    tools_->widgetForAction(tool)->setObjectName(tool->objectName());
    tools_->widgetForAction(tool)->setFocusPolicy(Qt::TabFocus);
    return tool;
}

void HelpFrm::AddKey(const QKeySequence& key, const std::function<void()>& act) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, act);
}

void HelpFrm::BuildTools() {
    tools_ = new QToolBar(this);
    tools_->setIconSize(QSize(24, 24));
    back_ = AddTool("BackBtn", "Back", {Qt::ALT | Qt::Key_Left, Qt::Key_Back},
                    [this] { page_->backward(); });
    forward_ = AddTool("ForwardBtn", "Forward", {Qt::ALT | Qt::Key_Right, Qt::Key_Forward},
                       [this] { page_->forward(); });
    AddTool("HomeBtn", "Home", {Qt::ALT | Qt::Key_Home, Qt::Key_F1},
            [this] { page_->ShowPage(ToQt(HelpPages().front().Name)); });
    tools_->addSeparator();
    AddTool("ZoomInBtn", "ZoomIn", {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
            [this] { page_->ChangeTextSize(1); });
    AddTool("ZoomOutBtn", "ZoomOut", {Qt::CTRL | Qt::Key_Minus},
            [this] { page_->ChangeTextSize(-1); });
    back_->setEnabled(false);
    forward_->setEnabled(false);
    auto* gap = new QWidget(tools_);
    gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    tools_->addWidget(gap);
    search_->setObjectName(QStringLiteral("SearchTxt"));
    search_->setFixedWidth(SearchWidth);
    clear_ = search_->addAction(ThemedIcon(QStringLiteral("Close")), QLineEdit::TrailingPosition);
    clear_->setVisible(false);
    connect(clear_, &QAction::triggered, search_, &QLineEdit::clear);
    connect(search_, &QLineEdit::textChanged, this, &HelpFrm::FilterContents);
    connect(search_, &QLineEdit::returnPressed, this, [this] { StepHit(true); });
    tools_->addWidget(search_);
    AddKey(Qt::CTRL | Qt::Key_0, [this] { page_->ChangeTextSize(0); });
    AddKey(QKeySequence::Find, [this] {
        search_->setFocus();
        search_->selectAll();
    });
    AddKey(Qt::Key_F3, [this] { StepHit(true); });
    AddKey(Qt::SHIFT | Qt::Key_F3, [this] { StepHit(false); });
    AddKey(Qt::Key_F6, [this] { StepPart(1); });
    AddKey(Qt::SHIFT | Qt::Key_F6, [this] { StepPart(-1); });
    AddKey(Qt::Key_Escape, [this] { Leave(); });
}

void HelpFrm::BuildContents() {
    contents_->setObjectName(QStringLiteral("ContentsList"));
    contents_->setHeaderHidden(true);
    contents_->setFrameShape(QFrame::NoFrame);
    contents_->setRootIsDecorated(false);
    contents_->setItemsExpandable(false);
    contents_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    contents_->header()->setSectionResizeMode(QHeaderView::Stretch);
    contents_->setMinimumWidth(LeastContents);
    for (const HelpPage& page : HelpPages()) {
        auto* item =
            page.Sub
                ? new QTreeWidgetItem(contents_->topLevelItem(contents_->topLevelItemCount() - 1))
                : new QTreeWidgetItem(contents_);
        item->setData(0, Qt::UserRole, ToQt(page.Name));
        items_.push_back(item);
    }
    contents_->expandAll();
    connect(contents_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        const QString name = item->data(0, Qt::UserRole).toString();
        if (name != page_->Page()) page_->ShowPage(name);
    });
}

void HelpFrm::LayOut() {
    nothing_->setObjectName(QStringLiteral("NothingLab"));
    nothing_->setWordWrap(true);
    nothing_->setContentsMargins(DialogMargin, DialogRowGap, DialogMargin, DialogRowGap);
    nothing_->hide();
    auto* left = new QWidget(this);
    auto* leftColumn = new QVBoxLayout(left);
    leftColumn->setContentsMargins(0, 0, 0, 0);
    leftColumn->setSpacing(0);
    leftColumn->addWidget(nothing_);
    leftColumn->addWidget(contents_, 1);
    auto* halves = new QSplitter(this);
    halves->setHandleWidth(1);
    halves->setChildrenCollapsible(false);
    halves->addWidget(left);
    halves->addWidget(page_);
    halves->setStretchFactor(1, 1);
    halves->setSizes({ContentsWidth, UsualSize.width() - ContentsWidth});
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(tools_);
    column->addWidget(halves, 1);
    setTabOrder(search_, contents_);
    setTabOrder(contents_, page_);
}

void HelpFrm::ShowOver(QWidget* main, std::string_view window) {
    auto* viewer = main->findChild<HelpFrm*>();
    if (viewer == nullptr) viewer = new HelpFrm(main);
    viewer->page_->ShowPage(ToQt(HelpPageOf(window)));
    if (!viewer->isVisible()) viewer->page_->setFocus();
    viewer->setWindowState(viewer->windowState() & ~Qt::WindowMinimized);
    viewer->show();
    viewer->FollowFront();
    viewer->raise();
    viewer->activateWindow();
}

void HelpFrm::ApplyTexts() {
    for (QAction* tool : tools_->actions()) {
        if (tool->objectName().isEmpty()) continue;
        tool->setText(Text(tool->objectName().toLatin1().constData()));
        const QString key = tool->shortcut().toString(QKeySequence::NativeText);
        tool->setToolTip(tool->text() + " (" + key + ")");
    }
    search_->setPlaceholderText(Text("SearchTxt"));
    search_->setAccessibleName(Text("SearchTxt"));
    clear_->setToolTip(Text("ClearBtn"));
    contents_->setAccessibleName(Text("ContentsList"));
    page_->setAccessibleName(Text("PageTxt"));
    nothing_->setText(Text("NothingLab"));
    for (std::size_t i = 0; i < items_.size(); ++i) {
        items_[i]->setText(0, TitleOf(HelpPages()[i]));
        items_[i]->setToolTip(0, items_[i]->text(0));
    }
    texts_.clear();
    page_->ShowAgain();
    FilterContents();
    ShowArrival();
}

// Whatever has led to the page, the contents show where it stands.
void HelpFrm::ShowArrival() {
    const QString name = page_->Page();
    const auto shown = std::ranges::find_if(
        items_, [&](auto* item) { return item->data(0, Qt::UserRole).toString() == name; });
    if (shown == items_.end()) return setWindowTitle(Text(""));
    contents_->setCurrentItem(*shown);
    setWindowTitle((*shown)->text(0) + " - " + Text(""));
}

// A main page stays while one of its sub pages has the words, in the colour of what is passed over.
void HelpFrm::FilterContents() {
    const QStringList words = WordsOf(search_->text());
    clear_->setVisible(!words.isEmpty());
    if (!words.isEmpty() && texts_.empty())
        for (QTreeWidgetItem* item : items_) {
            const QString html = HelpBrowser::ReadPage(item->data(0, Qt::UserRole).toString());
            texts_.push_back(QTextDocumentFragment::fromHtml(html).toPlainText());
        }
    bool any = false;
    for (std::size_t i = items_.size(); i-- > 0;) {  // sub pages before the page that they hang on
        QTreeWidgetItem* item = items_[i];
        const bool fits = std::ranges::all_of(words, [&](const QString& word) {
            return texts_[i].contains(word, Qt::CaseInsensitive);
        });
        bool shown = fits;
        for (int sub = 0; sub < item->childCount(); ++sub) shown |= !item->child(sub)->isHidden();
        item->setHidden(!shown);
        item->setData(0, Qt::UserRole + 1, fits);
        item->setForeground(0, fits ? CurrentChrome().text : CurrentChrome().dim);
        any |= fits;
    }
    nothing_->setVisible(!any);
    page_->MarkHits(PatternOf(words));
}

// Behind the last hit of a page comes the first one of the next page that is listed.
void HelpFrm::StepHit(bool forward) {
    if (WordsOf(search_->text()).isEmpty() || page_->GoToHit(forward)) return;
    const auto count = static_cast<std::ptrdiff_t>(items_.size());
    std::ptrdiff_t at = std::ranges::find(items_, contents_->currentItem()) - items_.begin();
    for (std::ptrdiff_t step = 0; step < count; ++step) {
        at = (at + (forward ? 1 : count - 1)) % count;
        QTreeWidgetItem* item = items_[static_cast<std::size_t>(at)];
        if (!item->data(0, Qt::UserRole + 1).toBool()) continue;
        contents_->setCurrentItem(item);
        page_->GoToEnd(!forward);
        page_->GoToHit(forward);
        return;
    }
}

// The native window belongs to the dialog in front, otherwise to the main window.
void HelpFrm::FollowFront() {
    QWidget* front = QApplication::activeModalWidget();
    if (front == nullptr) front = parentWidget();
    if (windowHandle() == nullptr || windowHandle()->transientParent() == front->windowHandle())
        return;
    windowHandle()->setTransientParent(front->windowHandle());
    front->installEventFilter(this);  // once, however often it is asked for
}

bool HelpFrm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
        if (watched == parentWidget())
            close();  // the main window has closed
        else
            QMetaObject::invokeMethod(this, &HelpFrm::FollowFront, Qt::QueuedConnection);
    }
    return QWidget::eventFilter(watched, event);
}

// Search, contents, page, in a ring.
void HelpFrm::StepPart(int by) {
    QWidget* const parts[] = {search_, contents_, page_};
    const auto count = static_cast<int>(std::size(parts));
    const auto* here = std::ranges::find_if(parts, &QWidget::hasFocus);
    const int at = here == std::end(parts) ? -1 : static_cast<int>(here - parts);
    parts[(at + by + count) % count]->setFocus();
}

void HelpFrm::Leave() {
    if (search_->hasFocus() && !search_->text().isEmpty())
        search_->clear();
    else
        close();
}
