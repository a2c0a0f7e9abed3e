#include "ui/DigitWaveFrm.h"

#include "digital/DigitDocumentFuncBox.h"
#include "digital/DigitFuncCode.h"
#include "digital/DigitPropertyFuncBox.h"
#include "digital/DigitView.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"
#include "files/DigitFileFuncCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/PlotPalette.h"
#include "platform/Host.h"
#include "platform/qt/QtText.h"
#include "ui/DigitPics.h"
#include "ui/HintLabel.h"
#include "ui/Theme.h"

#include <algorithm>
#include <initializer_list>
#include <QLayout>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolButton>

// Rows of the list and of the picture stand side by side: both begin below the heads and end above
// the page bar. The room of the vertical scroll bar is always kept, so that the picture has one
// width whether the rows scroll or not.

namespace {

constexpr int UsualList = 220, LeastList = 120;
constexpr int SplitWidth = 5, GutterWidth = 12, ScrollHeight = 12;
constexpr int BarHeight = 28, PageButton = 24;

// Waits of SpeedTimer in milliseconds. The first is long, so that a click turns one page.
constexpr int FirstWait = 400, UsualWait = 200, QuickWait = 100, QuickestWait = 50;
constexpr std::int32_t QuickFrom = 20, QuickestFrom = 40, MostTurns = 1000;

using Widgets = std::initializer_list<QWidget*>;

QString Text(const QWidget* control) {
    return ToQt(TextOf("DigitWaveFrm", control->objectName().toStdString()));
}

int WaitAfter(std::int32_t turns) {
    if (turns > QuickestFrom) return QuickestWait;
    return turns > QuickFrom ? QuickWait : UsualWait;
}

void ShowRange(QScrollBar* bar, std::int32_t most, std::int32_t page, std::int32_t value) {
    const QSignalBlocker quiet(bar);
    bar->setRange(0, std::max(most, 0));
    bar->setPageStep(page);
    bar->setValue(value);
}

// The row of the last press or step, which has no widget of its own: "clk 1B".
QString RowText(const DigitDocument& document) {
    const DigitTarget target = TargetAtRow(document, document.ClickRow);
    if (target.Node < 0) return {};
    const DigitNode& node = document.Nodes[static_cast<std::size_t>(target.Node)];
    const QString name = ToQt(TargetName(document, target));
    if (target.Member < 0) return (name + ' ' + ToQt(node.ValueText)).trimmed();
    return name + ' ' + QString::number(node.MemberValues[static_cast<std::size_t>(target.Member)]);
}

}  // namespace

DigitWaveFrm::DigitWaveFrm(std::int16_t slot, QWidget* parent)
    : DocumentWindow(TagOfDigit(slot), parent), listWidth_(UsualList) {
    setObjectName("DigitWaveFrm");
    body_ = new QWidget(this);
    BuildPlot();
    BuildPageBar();
    SetContent(body_);
    const auto askMenu = [this](DigitPic* pic) {
        connect(pic, &DigitPic::ContextAsked, this, &DocumentWindow::ContextAsked);
    };
    askMenu(list_);
    askMenu(picture_);
    DigitWaveFrm::ApplyTexts();
}

void DigitWaveFrm::BuildPlot() {
    const std::int16_t slot = Slot();
    head_ = new DispParaPic(slot, body_);
    list_ = new DispParaListView(slot, head_);
    split_ = new SeperateImage(body_);
    ruler_ = new DigitBackWavePic(slot, body_);
    picture_ = new DigitWavePic(slot, body_);
    gutter_ = new QWidget(body_);
    gutter_->setAutoFillBackground(true);
    QPalette ground = gutter_->palette();
    ground.setColor(QPalette::Window, QColor::fromRgb(PlotSurround));
    gutter_->setPalette(ground);
    rows_ = new QScrollBar(Qt::Vertical, gutter_);
    rows_->setObjectName("RowScroll");
    rows_->setProperty("plot", true);
    connect(picture_, &DigitWavePic::PointerMoved, this, &DocumentWindow::PointerMoved);
    connect(rows_, &QScrollBar::valueChanged, this, [slot](int row) { ShowRowsFrom(slot, row); });
    connect(split_, &SeperateImage::Dragged, this, [this](int x) {
        listWidth_ = std::clamp(x, LeastList, std::max(body_->width() / 2, LeastList));
        FollowSize();
    });
}

void DigitWaveFrm::BuildPageBar() {
    bar_ = new QWidget(body_);
    page_ = new HintLabel(bar_);
    page_->setObjectName("PageInfo");
    page_->setProperty("dim", true);
    front_ = MakePageButton("FrontPageAtn", "FrontPage");
    dots_ = new QScrollBar(Qt::Horizontal, bar_);
    dots_->setObjectName("DotScroll");
    next_ = MakePageButton("NextPageAtn", "NextPage");
    speedTimer_ = new QTimer(this);
    speedTimer_->setObjectName("SpeedTimer");
    connect(speedTimer_, &QTimer::timeout, this, &DigitWaveFrm::TurnPage);
    connect(dots_, &QScrollBar::valueChanged, this,
            [slot = Slot()](int dot) { ShowDotsFrom(slot, dot); });
}

QToolButton* DigitWaveFrm::MakePageButton(const char* name, const char* icon) {
    auto* button = new QToolButton(bar_);
    button->setObjectName(name);
    button->setIcon(ThemedIcon(icon));
    button->setIconSize(QSize(16, 16));
    button->setFixedSize(PageButton, PageButton);
    connect(button, &QToolButton::pressed, this, [this] {
        turns_ = 0;
        TurnPage();
        speedTimer_->start(FirstWait);
    });
    connect(button, &QToolButton::released, this, [this] {
        speedTimer_->stop();
        turns_ = 0;
    });
    return button;
}

// One page for the press and for each tick while the button is held.
void DigitWaveFrm::TurnPage() {
    turns_ = std::min(turns_ + 1, MostTurns);
    speedTimer_->setInterval(WaitAfter(turns_));
    if (front_->isDown())
        FrontPage(Slot());
    else if (next_->isDown())
        NextPage(Slot());
    else
        speedTimer_->stop();
}

void DigitWaveFrm::ApplyTexts() {
    DocumentWindow::ApplyTexts();
    for (QWidget* part : Widgets{front_, next_}) part->setToolTip(Text(part));
    for (QWidget* part : Widgets{front_, next_, list_, picture_, split_})
        part->setAccessibleName(Text(part));
    place_ = {};
    FollowSize();  // list and hint have texts
}

void DigitWaveFrm::ShowTitle() {
    const DigitDocument& document = DigitAt(Slot());
    SetTitle(document.Title, bool(document.Changed));
    const QString told =
        ToQt(TextOf("DigitWaveFrm", "Description"))
            .arg(ToQt(document.Title), QString::number(document.Dots),
                 QString::number(document.ChannelCount), ToQt(RateWithUnit(document.Rate)));
    picture_->setAccessibleDescription(told);
    list_->setAccessibleDescription(RowText(document));
}

void DigitWaveFrm::LayOut() {
    layout()->activate();
    PlaceParts();
    LayoutDigitSurfaces(DigitAt(Slot()), {list_->width(), picture_->width(), picture_->height()},
                        devicePixelRatioF());
}

void DigitWaveFrm::PlaceParts() {
    const int width = body_->width();
    const int half = width / 2;
    const int list = std::clamp(listWidth_, std::min(LeastList, half), std::max(half, 1));
    const int left = list + SplitWidth;
    const int picture = std::max(width - left - GutterWidth, 1);
    const int bottom = std::max(body_->height() - BarHeight, RulerHeight + 1);
    const int rows = bottom - RulerHeight;
    head_->setGeometry(0, 0, list, bottom);
    list_->setGeometry(0, RulerHeight, list, rows);
    split_->setGeometry(list, 0, SplitWidth, bottom);
    ruler_->setGeometry(left, 0, picture, RulerHeight);
    picture_->setGeometry(left, RulerHeight, picture, rows);
    gutter_->setGeometry(left + picture, 0, GutterWidth, bottom);
    rows_->setGeometry(0, RulerHeight, GutterWidth, rows);
    bar_->setGeometry(0, bottom, width, BarHeight);
    const int top = (BarHeight - PageButton) / 2;
    page_->setGeometry(12, top, std::max(list - 12, 1), PageButton);
    front_->move(left, top);
    next_->move(width - PageButton - 4, top);
    const int scroll = left + PageButton + 4;
    dots_->setGeometry(scroll, (BarHeight - ScrollHeight) / 2, std::max(next_->x() - 4 - scroll, 1),
                       ScrollHeight);
}

void DigitWaveFrm::ShowPlot() {
    for (QWidget* part : Widgets{head_, list_, ruler_, picture_}) part->update();
    list_->ShowDrag();
    ShowPlace();
}

// A drag shows the plot at every step, and the place stays. Paging may go on past the last whole
// screen: the bar reaches as far as the page shown.
void DigitWaveFrm::ShowPlace() {
    const DigitDocument& document = DigitAt(Slot());
    const auto rows = static_cast<std::int32_t>(document.ListRows.size());
    const std::array place = {document.FirstDot,
                              document.VisibleDots,
                              document.Dots,
                              std::int32_t{document.FirstRow},
                              std::int32_t{document.PageRows},
                              rows};
    if (place == place_) return;
    place_ = place;
    ShowRange(rows_, rows - document.PageRows, document.PageRows, document.FirstRow);
    rows_->setVisible(bool(document.ListScrollShown));
    ShowRange(dots_, std::max(document.Dots - document.VisibleDots, document.FirstDot),
              document.VisibleDots, document.FirstDot);
    dots_->setSingleStep(std::max(document.VisibleDots / 10, 1));
    front_->setEnabled(CanPageBack(document));
    next_->setEnabled(CanPageOn(document));
    // The page figures know two pages at least.
    const std::int32_t pages = document.VisibleDots >= document.Dots ? 1 : document.PageCount;
    page_->setText(Text(page_).arg(std::min(PageNumber(document), pages)).arg(pages));
}

void DigitWaveFrm::LetTabIn(bool active) {
    for (QWidget* part : Widgets{list_, picture_})
        part->setFocusPolicy(active ? Qt::StrongFocus : Qt::ClickFocus);
    for (QWidget* part : Widgets{split_, front_, next_})
        part->setFocusPolicy(active ? Qt::TabFocus : Qt::NoFocus);
}

QWidget* DigitWaveFrm::Picture() const {
    return picture_;
}

bool DigitWaveFrm::IsOpen() const {
    return bool(DigitDocUsed[static_cast<std::size_t>(Slot())]);
}

bool DigitWaveFrm::IsChanged() const {
    return bool(DigitAt(Slot()).Changed);
}

bool DigitWaveFrm::QueryClose() {
    return QueryCloseDigit(Slot(), SaveDigit);
}

void DigitWaveFrm::Closed() {
    DigitDocumentClosed(Slot());
}

// Another size shows more or less of the waveform: commands on pages and zoom may change.
void DigitWaveFrm::Repaint() {
    if (TheHost().ActiveWindowTag() == Tag()) TheHost().RefreshCommands();
    Paint(Slot(), true, true);
}
