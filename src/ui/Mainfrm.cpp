#include "ui/Mainfrm.h"

#include "analog/AnalogDocument.h"
#include "analog/ToolFuncBox.h"
#include "digital/DigitDocumentFuncBox.h"
#include "frame/commands/CommandTable.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "link/LinkWork.h"
#include "link/RS232FuncBox.h"
#include "platform/Host.h"
#include "platform/qt/QtText.h"
#include "ui/ActionTable.h"
#include "ui/ButtonWalk.h"
#include "ui/CaptionBar.h"
#include "ui/ConnectImage.h"
#include "ui/DigitWaveFrm.h"
#include "ui/DocumentArea.h"
#include "ui/LinkDialog.h"
#include "ui/LinkWait.h"
#include "ui/StatusStrip.h"
#include "ui/Theme.h"
#include "ui/TrayIcon.h"
#include "ui/WaveFrm.h"
#include "ui/WavePic.h"

#include <algorithm>
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
        if (actions_->FindMenu(row.Name) != nullptr) continue;  // a sub menu
        QMenu* menu = actions_->MakeMenu(row, this);
        if (row.Name == "MnuMin") tray_ = new TrayIcon(this, menu);
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
        if (row.Name == "MnuWindow") windowMenu_ = menu;
    }
    connect(windowMenu_, &QMenu::aboutToShow, this, &Mainfrm::FillWindowMenu);
    column->addWidget(caption_);
    column->addWidget(menus_);
    setMenuWidget(top);
    captionButtons_ = new ButtonWalk({caption_}, ButtonWalk::Tab::Passes, this);
    connect(captionButtons_, &ButtonWalk::Left, this, &Mainfrm::FocusPicture);
    connect(caption_, &CaptionBar::MoveBegins, this, &Mainfrm::BeginMove);
    connect(caption_, &CaptionBar::MinimisePressed, this, &QWidget::showMinimized);
    connect(caption_, &CaptionBar::MaximisePressed, this, &Mainfrm::ToggleMaximised);
    connect(caption_, &CaptionBar::ExitPressed, this, &QWidget::close);
}

void Mainfrm::BuildToolBars() {
    setContextMenuPolicy(Qt::NoContextMenu);  // the tool bars cannot be hidden
    std::vector<QList<QWidget*>> lines;
    for (const MenuRow& row : ToolBars()) {
        if (row.NewLine && !bars_.empty()) addToolBarBreak();
        if (row.NewLine) lines.emplace_back();
        QToolBar* bar = actions_->MakeToolBar(row, this);
        addToolBar(bar);
        if (row.Entries.back() == "-") {  // the same room on both sides of the last separator
            bar->ensurePolished();
            QMargins rim = bar->layout()->contentsMargins();
            rim.setRight(0);
            bar->layout()->setContentsMargins(rim);
        }
        bars_.push_back(bar);
        lines.back() << bar;
        // The style's own arrow to what does not fit is black on every ground.
        if (auto* more = bar->findChild<QToolButton*>("qt_toolbar_ext_button")) {
            more->setIcon(ThemedIcon("ChevronDown"));
            more->setStyleSheet("padding: 0");  // it is 12 pixels wide
        }
    }
    for (const QList<QWidget*>& line : lines) {
        lines_.push_back(new ButtonWalk(line, ButtonWalk::Tab::Stops, this));
        connect(lines_.back(), &ButtonWalk::Left, this, &Mainfrm::FocusPicture);
    }
}

void Mainfrm::BuildDocumentArea() {
    auto* centre = new QWidget(this);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    area_ = new DocumentArea(centre);
    status_ = new StatusStrip(*actions_, centre);
    connect(status_, &StatusStrip::Left, this, &Mainfrm::FocusPicture);
    // Behind the command, which has brought the panel to the front or taken it away.
    for (const char* door : {"FindAresBtn", "mnuDigitDrawFind", "mnuDigitDrawPointEdit"})
        connect(actions_->Find(door), &QAction::triggered, status_, &StatusStrip::FocusFindPanel);
    column->addWidget(area_, 1);
    column->addWidget(status_);
    setCentralWidget(centre);
    connect(area_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* window) {
        if (window == nullptr || DocBuilding) return;
        RefreshCommands();
        ShowActiveTool();
        status_->ShowPointer({});
        TabToActive();
    });
    connect(new QShortcut(QKeySequence("Ctrl+Tab"), this), &QShortcut::activated, area_,
            &QMdiArea::activateNextSubWindow);
    connect(new QShortcut(QKeySequence("Ctrl+Shift+Tab"), this), &QShortcut::activated, area_,
            &QMdiArea::activatePreviousSubWindow);
    for (const auto& [keys, by] : {std::pair("F6", 1), {"Shift+F6", -1}})
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this,
                [this, by = by] { StepPart(by); });
    connect(new QShortcut(QKeySequence("Ctrl+W"), this), &QShortcut::activated, this, [this] {
        if (QMdiSubWindow* window = area_->activeSubWindow()) window->close();
    });
}

QMdiSubWindow* Mainfrm::MakeWindow(std::int16_t tag) {
    DocumentWindow* window = nullptr;
    if (tag < FirstDigitTag) {
        auto* analog = new WaveFrm(tag, nullptr);
        connect(analog->Plot(), &WavePic::EntryAsked, status_, &StatusStrip::FocusEntry);
        window = analog;
    } else {
        window = new DigitWaveFrm(static_cast<std::int16_t>(tag - FirstDigitTag), nullptr);
    }
    connect(window, &DocumentWindow::ContextAsked, this, &Mainfrm::PopupMenu);
    connect(window, &DocumentWindow::TabPressed, this, &Mainfrm::focusNextPrevChild);
    connect(window, &DocumentWindow::PointerMoved, status_, &StatusStrip::ShowPointer);
    QMdiSubWindow* frame = area_->AddDocument(window);
    frame->setObjectName(window->objectName() + QString::number(window->Slot()));
    frame->setFocusPolicy(Qt::NoFocus);  // the window in it has the stops
    frame->installEventFilter(this);
    return frame;
}

void Mainfrm::OpenWindow(std::int16_t tag) {
    QMdiSubWindow*& frame = frames_[static_cast<std::size_t>(tag)];
    if (frame == nullptr) frame = MakeWindow(tag);
    DocumentWindow* window = Window(tag);
    window->ShowTitle();
    area_->Open(frame);
    TabToActive();
    window->setFocus();
    window->LayOut();
    ShowTitle(tag);
}

void Mainfrm::TabToActive() {
    for (QMdiSubWindow* frame : frames_)
        if (frame != nullptr) WindowOf(frame)->LetTabIn(frame == area_->currentSubWindow());
}

// Without a document nothing has the focus, as after the start.
void Mainfrm::FocusPicture() {
    if (DocumentWindow* window = Window(ActiveTag()))
        window->Picture()->setFocus();
    else if (QWidget* focused = focusWidget())
        focused->clearFocus();
}

// The parts of the window in a ring: picture, caption of the document, caption of the window, tool
// bars, status strip. A part without an open control is passed over.
void Mainfrm::StepPart(int by) {
    struct Part {
        QWidget* Stop;
        bool Here;
    };
    std::vector<Part> parts;
    DocumentWindow* shown = Window(ActiveTag());
    const auto within = [this](const QWidget* part) { return part->isAncestorOf(focusWidget()); };
    const auto addRow = [&parts](const ButtonWalk* row) {
        parts.push_back({row->Stop(), row->HasFocus()});
    };
    if (shown != nullptr) {
        QWidget* picture = shown->Picture();
        const bool inside = within(shown) && !shown->Buttons()->HasFocus();
        parts.push_back({picture->isVisible() ? picture : nullptr, inside});
        addRow(shown->Buttons());
    }
    addRow(captionButtons_);
    for (const ButtonWalk* line : lines_) addRow(line);
    parts.push_back({status_->FirstStop(), within(status_)});
    const int count = static_cast<int>(parts.size());
    const auto here = std::ranges::find(parts, true, &Part::Here);
    int at = by > 0 ? -1 : count;
    if (here != parts.end()) at = static_cast<int>(here - parts.begin());
    for (int i = 0; i < count; ++i) {
        at = (at + by + count) % count;
        QWidget* stop = parts[static_cast<std::size_t>(at)].Stop;
        if (stop != nullptr) return stop->setFocus(Qt::TabFocusReason);
    }
}

DocumentWindow* Mainfrm::Window(std::int16_t tag) const {
    QMdiSubWindow* frame = tag < 0 ? nullptr : frames_[static_cast<std::size_t>(tag)];
    return frame ? WindowOf(frame) : nullptr;
}

WaveFrm* Mainfrm::AnalogWindow(std::int16_t slot) const {
    return static_cast<WaveFrm*>(Window(slot));
}

std::int16_t Mainfrm::ActiveTag() const {
    QMdiSubWindow* frame = area_->currentSubWindow();
    if (frame == nullptr || !frame->isVisibleTo(area_->viewport())) return -1;
    return WindowOf(frame)->Tag();
}

// The strip's panel of the active document's tool. Without a document the hint of the one that
// closed last stands.
void Mainfrm::ShowActiveTool() {
    const std::int16_t active = ActiveTag();
    if (active >= FirstDigitTag)
        ShowDigitStatus();
    else if (active >= 0)
        ShowTool(active);
}

void Mainfrm::ShowTitle(std::int16_t tag) {
    if (DocumentWindow* window = Window(tag)) window->ShowTitle();
    const DocumentWindow* shown = Window(ActiveTag());
    caption_->ShowDocument(shown ? shown->windowTitle() : QString());
    setWindowTitle(shown ? shown->windowTitle() + " - TideMark" : QString("TideMark"));
    setAccessibleName(shown ? shown->accessibleName() + " - TideMark" : QString("TideMark"));
}

void Mainfrm::ShowPlot(std::int16_t tag) {
    if (DocumentWindow* window = Window(tag)) window->ShowPlot();
}

// Tool bars of the other kind of document are hidden; both kinds have two lines of them. Its menus
// leave the strip, which would keep the mnemonics of hidden ones.
void Mainfrm::ShowKind() {
    const ShownFor kind = ActiveIsDigital ? ShownFor::Digital : ShownFor::Analog;
    const auto belongs = [kind](const MenuRow& row) {
        return row.Kind == ShownFor::Both || row.Kind == kind;
    };
    actions_->ShowKind(kind);
    QList<QAction*> menus;
    for (const MenuRow& row : MenuStrip())
        if (belongs(row)) menus << actions_->FindMenu(row.Name)->menuAction();
    if (menus_->actions() != menus) {
        menus_->clear();
        menus_->addActions(menus);
    }
    // The layout waits for the last bar: a line less for a moment would have every document behind
    // it painted at another size and back, and bars of both kinds in a line would widen the window.
    layout()->setEnabled(false);
    for (std::size_t i = 0; i < bars_.size(); ++i) bars_[i]->setVisible(belongs(ToolBars()[i]));
    layout()->setEnabled(true);
}

void Mainfrm::RefreshCommands() {
    ActiveDocumentIndex();
    RefreshDotCommands();
    ShowKind();
    actions_->Refresh();
    const std::int16_t active = ActiveTag();
    ShowTitle(active);
    status_->ShowEntries(active);
    if (DocumentWindow* window = Window(active)) window->ShowToolCursor();
}

void Mainfrm::ApplyLanguage() {
    actions_->ApplyTexts();
    caption_->ApplyTexts();
    status_->ApplyTexts();
    area_->viewport()->update();
    for (QMdiSubWindow* frame : frames_) {
        if (frame == nullptr) continue;
        WindowOf(frame)->ApplyTexts();
        WindowOf(frame)->ShowTitle();
    }
    for (QToolBar* bar : bars_)
        bar->setAccessibleName(Text("Mainfrm", bar->objectName().toStdString()));
    for (QToolButton* button : findChildren<QToolButton*>())  // to what does not fit
        if (button->objectName().endsWith("_ext_button"))
            button->setAccessibleName(Text("Mainfrm", "MoreAresBtn"));
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
    DocumentWindow* window = WindowOf(frame);
    event->ignore();
    if (!window->IsOpen()) return true;
    if (window->IsChanged()) area_->setActiveSubWindow(frame);
    if (!window->QueryClose()) return true;
    frame->hide();
    area_->ActivateUsedBefore(frame);
    window->Closed();
    ShowActiveTool();
    return true;
}

bool Mainfrm::CloseAllDocuments() {
    for (QMdiSubWindow* frame : frames_) {
        if (frame == nullptr || !WindowOf(frame)->IsOpen()) continue;
        frame->close();
        if (WindowOf(frame)->IsOpen()) return false;
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
    const bool asks = std::any_of(frames_.begin(), frames_.end(), [](QMdiSubWindow* frame) {
        return frame != nullptr && WindowOf(frame)->IsOpen() && WindowOf(frame)->IsChanged();
    });
    if (asks && isMinimized()) ShowEditor();
    event->setAccepted(CloseAllDocuments());
    if (event->isAccepted()) tray_->Remove();
}

void Mainfrm::PopupMenu(const QString& name, QPoint global) {
    RefreshCommands();
    if (QMenu* menu = actions_->FindMenu(name.toStdString())) menu->popup(global);
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
        const QString face = Text("Mnufrm", name.toStdString()) + " " + title;
        QAction* entry = windowMenu_->addAction(face.trimmed());  // the first ten have numbers
        entry->setObjectName(name);
        entry->setProperty("window", true);
        entry->setCheckable(true);
        entry->setChecked(frame == area_->currentSubWindow());
        connect(entry, &QAction::triggered, area_, [this, frame] { area_->Reveal(frame); });
    }
}
