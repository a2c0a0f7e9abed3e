#include "ui/Mainfrm.h"

#include "analog/AnalogDocument.h"
#include "analog/DrawAnalogWave.h"
#include "analog/ToolFuncBox.h"
#include "files/FileOptFuncCode.h"
#include "frame/commands/CommandTable.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "link/LinkWork.h"
#include "link/RS232FuncBox.h"
#include "platform/Host.h"
#include "platform/qt/QtText.h"
#include "ui/ActionTable.h"
#include "ui/CaptionBar.h"
#include "ui/ConnectImage.h"
#include "ui/DocumentArea.h"
#include "ui/LinkDialog.h"
#include "ui/LinkWait.h"
#include "ui/StatusStrip.h"
#include "ui/Theme.h"
#include "ui/TrayIcon.h"
#include "ui/WaveFrm.h"
#include "ui/WavePic.h"

#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr QSize UsualSize{1280, 800};
constexpr QSize SmallestSize{960, 600};
constexpr QSize LargestScreen{1280, 1024};  // to maximise on
constexpr int ReadTick = 100;               // milliseconds

QString Text(std::string_view window, std::string_view control) {
    return ToQt(TextOf(window, control));
}

}  // namespace

Mainfrm::Mainfrm() {
    setObjectName("Mainfrm");
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setWindowIcon(QIcon(":/icons/tidemark.svg"));
    setMinimumSize(SmallestSize);
    actions_ = new ActionTable(this);
    BuildCaption();
    BuildToolBars();
    BuildDocumentArea();
    for (const MenuRow& row : PopupMenus()) {
        if (row.Name == "MnuIdle") idleMenu_ = actions_->MakeMenu(row, this);
        if (row.Name == "MnuSelect") selectMenu_ = actions_->MakeMenu(row, this);
        if (row.Name == "MnuMin") tray_ = new TrayIcon(this, actions_->MakeMenu(row, this));
    }
    activity_ = new ConnectImage(findChild<QToolButton*>("ConnectAresBtn"));
    auto* ticks = new QTimer(this);
    ticks->setObjectName("TimerOutTimer");
    connect(ticks, &QTimer::timeout, this, CountReadTick);
    ticks->start(ReadTick);
    connect(tray_, &TrayIcon::Pressed, this, &Mainfrm::ShowEditor);
    AddEdgeGrips(this, SmallestSize, [this] { LeaveMaximised(); });
    const QSize room = screen()->availableSize();
    resize(UsualSize.boundedTo(room));
    move(screen()->availableGeometry().center() - rect().center());
    ApplyLanguage();
}

void Mainfrm::BuildCaption() {
    auto* top = new QWidget(this);
    auto* column = new QVBoxLayout(top);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    caption_ = new CaptionBar(top);
    menus_ = new QMenuBar(top);
    menus_->setObjectName("MnuBtnAresBtn");
    menus_->setNativeMenuBar(false);
    for (const MenuRow& row : MenuStrip()) {
        QMenu* menu = actions_->MakeMenu(row, menus_);
        menus_->addMenu(menu);
        if (row.Name == "MnuWindow") windowMenu_ = menu;
    }
    connect(windowMenu_, &QMenu::aboutToShow, this, &Mainfrm::FillWindowMenu);
    column->addWidget(caption_);
    column->addWidget(menus_);
    setMenuWidget(top);
    connect(caption_, &CaptionBar::MoveBegins, this, &Mainfrm::BeginMove);
    connect(caption_, &CaptionBar::MinimisePressed, this, &QWidget::showMinimized);
    connect(caption_, &CaptionBar::MaximisePressed, this, &Mainfrm::ToggleMaximised);
    connect(caption_, &CaptionBar::ExitPressed, this, &QWidget::close);
}

void Mainfrm::BuildToolBars() {
    setContextMenuPolicy(Qt::NoContextMenu);  // the tool bars cannot be hidden
    bool first = true;
    for (const MenuRow& row : ToolBars()) {
        if (!first) addToolBarBreak();
        QToolBar* bar = actions_->MakeToolBar(row, this);
        addToolBar(bar);
        // The style's own arrow to what does not fit is black on every ground.
        if (auto* more = bar->findChild<QToolButton*>("qt_toolbar_ext_button")) {
            more->setIcon(ThemedIcon("ChevronDown"));
            more->setStyleSheet("padding: 0");  // it is 12 pixels wide
        }
        first = false;
    }
}

void Mainfrm::BuildDocumentArea() {
    auto* centre = new QWidget(this);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    area_ = new DocumentArea(centre);
    status_ = new StatusStrip(*actions_, centre);
    connect(status_, &StatusStrip::Left, this, [this] {
        if (ActiveTag() >= 0) AnalogWindow(ActiveTag())->Plot()->setFocus();
    });
    column->addWidget(area_, 1);
    column->addWidget(status_);
    setCentralWidget(centre);
    connect(area_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* window) {
        if (window == nullptr || DocBuilding) return;
        RefreshCommands();
        if (ActiveTag() >= 0) ShowTool(ActiveTag());
        status_->ShowPointer({});
        TabToActive();
    });
    connect(new QShortcut(QKeySequence("Ctrl+Tab"), this), &QShortcut::activated, area_,
            &QMdiArea::activateNextSubWindow);
    connect(new QShortcut(QKeySequence("Ctrl+Shift+Tab"), this), &QShortcut::activated, area_,
            &QMdiArea::activatePreviousSubWindow);
    connect(new QShortcut(QKeySequence("Ctrl+W"), this), &QShortcut::activated, this, [this] {
        if (QMdiSubWindow* window = area_->activeSubWindow()) window->close();
    });
}

void Mainfrm::OpenAnalogWindow(std::int16_t slot) {
    QMdiSubWindow*& frame = frames_[static_cast<std::size_t>(slot)];
    if (frame == nullptr) {
        auto* window = new WaveFrm(slot, nullptr);
        frame = area_->AddDocument(window);
        frame->setObjectName("WaveFrm" + window->Tag());
        frame->installEventFilter(this);
        connect(window->Plot(), &WavePic::ContextAsked, this, &Mainfrm::ShowContextMenu);
        connect(window->Plot(), &WavePic::PointerMoved, status_, &StatusStrip::ShowPointer);
        connect(window->Plot(), &WavePic::EntryAsked, status_, &StatusStrip::FocusEntry);
    }
    AnalogWindow(slot)->ShowTitle();
    AnalogWindow(slot)->ApplyTexts();
    area_->Open(frame);
    TabToActive();
    AnalogWindow(slot)->LayOut();
    ShowTitle(slot);
}

// The Tab key must not wander into documents that lie behind the active one.
void Mainfrm::TabToActive() {
    for (QMdiSubWindow* frame : frames_) {
        if (frame == nullptr) continue;
        const bool active = frame == area_->currentSubWindow();
        static_cast<WaveFrm*>(frame->widget())
            ->Plot()
            ->setFocusPolicy(active ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

void Mainfrm::CloseAnalogWindow(std::int16_t slot) {
    if (QMdiSubWindow* frame = frames_[static_cast<std::size_t>(slot)]) frame->close();
}

WaveFrm* Mainfrm::AnalogWindow(std::int16_t slot) const {
    QMdiSubWindow* frame = frames_[static_cast<std::size_t>(slot)];
    return frame ? static_cast<WaveFrm*>(frame->widget()) : nullptr;
}

std::int16_t Mainfrm::ActiveTag() const {
    QMdiSubWindow* frame = area_->currentSubWindow();
    if (frame == nullptr || !frame->isVisibleTo(area_->viewport())) return -1;
    return static_cast<WaveFrm*>(frame->widget())->Tag().toShort();
}

void Mainfrm::ShowTitle(std::int16_t slot) {
    if (WaveFrm* window = AnalogWindow(slot)) window->ShowTitle();
    const std::int16_t active = ActiveTag();
    WaveFrm* shown = active >= 0 ? AnalogWindow(active) : nullptr;
    caption_->ShowDocument(shown ? shown->windowTitle() : QString());
    setWindowTitle(shown ? shown->windowTitle() + " - TideMark" : QString("TideMark"));
}

void Mainfrm::ShowPlot(std::int16_t slot) {
    if (WaveFrm* window = AnalogWindow(slot)) window->Plot()->update();
}

void Mainfrm::RefreshCommands() {
    ActiveDocumentIndex();
    RefreshDotCommands();
    actions_->Refresh();
    ShowTitle(ActiveAnalogIndex);
    const std::int16_t active = ActiveTag();
    status_->ShowEntries(active);
    if (active >= 0) AnalogWindow(active)->Plot()->ShowToolCursor();
}

void Mainfrm::ApplyLanguage() {
    actions_->ApplyTexts();
    caption_->ApplyTexts();
    status_->ApplyTexts();
    area_->viewport()->update();
    for (QMdiSubWindow* frame : frames_)
        if (frame != nullptr) static_cast<WaveFrm*>(frame->widget())->ApplyTexts();
    ShowLink();
}

void Mainfrm::ShowLink() {
    const CommandRow& row = *FindCommand("ConnectAresBtn");
    actions_->ShowTip(row, Text("Mainfrm", Link.IsConnected ? "ConnectAresBtnOn" : row.Button));
    actions_->Find(row.Button)->setIcon(ThemedIcon(Link.IsConnected ? "Connected" : "Connect"));
    activity_->ShowLink();
    LinkDialog* dialog = LinkDialog::Current();
    status_->ShowLink(Link.WorkDepth > 0 && dialog == nullptr);
    if (dialog != nullptr) dialog->Refresh();
}

void Mainfrm::ToggleMaximised() {
    if (screen()->size().width() > LargestScreen.width() ||
        screen()->size().height() > LargestScreen.height()) {
        TheHost().Ask(PickText("Software support for the largest screen resolution is 1280 × 1024",
                               "软件支持屏幕最大分辨率1280×1024"),
                      Buttons::Ok, MessageIcon::Exclamation);
        return;
    }
    if (mainMaximised_) {
        LeaveMaximised();
        setGeometry(savedLeft_, savedTop_, savedWidth_, savedHeight_);
        return;
    }
    mainMaximised_ = true;
    caption_->ShowMaximised(true);
    savedLeft_ = static_cast<std::int16_t>(x());
    savedTop_ = static_cast<std::int16_t>(y());
    savedWidth_ = static_cast<std::int16_t>(width());
    savedHeight_ = static_cast<std::int16_t>(height());
    setGeometry(screen()->availableGeometry());  // keeps the desktop's panel free
}

void Mainfrm::LeaveMaximised() {
    mainMaximised_ = false;
    caption_->ShowMaximised(false);
}

// A maximised window that is dragged away takes its usual size, with the pointer on the same share
// of the caption.
void Mainfrm::BeginMove(QPoint pointer) {
    if (!mainMaximised_) return;
    const int left = pointer.x() - (pointer.x() - x()) * savedWidth_ / width();
    LeaveMaximised();
    setGeometry(left, y(), savedWidth_, savedHeight_);
}

void Mainfrm::ArrangeWindows(WindowArrangement kind) {
    area_->Arrange(kind);
}

void Mainfrm::ShowEditor() {
    tray_->Remove();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

// A frame is only hidden when its document closes: the next document of the slot shows it again.
bool Mainfrm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Close) return QMainWindow::eventFilter(watched, event);
    auto* frame = static_cast<QMdiSubWindow*>(watched);
    const std::int16_t slot = static_cast<WaveFrm*>(frame->widget())->Slot();
    event->ignore();
    if (!AnalogInUse[static_cast<std::size_t>(slot)]) return true;
    if (AnalogAt(slot).Modified) area_->setActiveSubWindow(frame);
    if (!QueryCloseDocument(slot, SaveAnalog)) return true;
    frame->hide();
    area_->ActivateUsedBefore(frame);
    DocumentClosed(slot);
    return true;
}

bool Mainfrm::CloseAllDocuments() {
    for (std::int16_t slot = 0; slot < MaxDocuments; ++slot) {
        if (!AnalogInUse[static_cast<std::size_t>(slot)]) continue;
        CloseAnalogWindow(slot);
        if (AnalogInUse[static_cast<std::size_t>(slot)]) return false;
    }
    return true;
}

// A question about changes needs a window that is seen, and Cancel leaves it so.
void Mainfrm::closeEvent(QCloseEvent* event) {
    if (InputHeld()) {  // the link's work ends first
        CloseAfterWork(this);
        event->ignore();
        return;
    }
    const bool asks = std::any_of(AnalogDocs.begin(), AnalogDocs.end(),
                                  [](const auto& wave) { return bool(wave.Modified); });
    if (asks && isMinimized()) ShowEditor();
    event->setAccepted(CloseAllDocuments());
    if (event->isAccepted()) tray_->Remove();
}

void Mainfrm::ShowContextMenu(QPoint global) {
    PopupMenu(ActiveAnalog().HasSelection ? "MnuSelect" : "MnuIdle", global);
}

void Mainfrm::PopupMenu(const QString& name, QPoint global) {
    RefreshCommands();
    for (QMenu* menu : {idleMenu_, selectMenu_})
        if (menu->objectName() == name) menu->popup(global);
}

// The open windows stand below the arrangement entries, "1 Waveform0" and so on.
void Mainfrm::FillWindowMenu() {
    for (QAction* action : windowMenu_->actions())
        if (action->property("window").isValid()) delete action;
    QAction* line = windowMenu_->addSeparator();
    line->setProperty("window", true);
    int number = 0;
    for (QMdiSubWindow* frame : area_->Frames()) {
        const QString name = "Mnuwin_W" + QString::number(++number);
        QString title = frame->widget()->windowTitle();
        title.replace('&', "&&");  // a file's name holds no mnemonic
        QAction* entry = windowMenu_->addAction(Text("Mnufrm", name.toStdString()) + " " + title);
        entry->setObjectName(name);
        entry->setProperty("window", true);
        entry->setCheckable(true);
        entry->setChecked(frame == area_->currentSubWindow());
        connect(entry, &QAction::triggered, area_, [this, frame] { area_->Reveal(frame); });
    }
}
