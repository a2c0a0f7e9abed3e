#include "ui/StatusStrip.h"

#include "analog/AnalogDocument.h"
#include "analog/EntryFuncBox.h"
#include "digital/DigitPropertyFuncBox.h"
#include "digital/DigitView.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/commands/CommandTable.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "link/ConnectFuncBox.h"
#include "link/LinkWork.h"
#include "platform/qt/QtText.h"
#include "ui/ActionTable.h"
#include "ui/FindPanel.h"
#include "ui/NumberBox.h"
#include "ui/Theme.h"
#include "ui/WaitPanel.h"

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QStackedLayout>
#include <QStackedWidget>
#include <QToolButton>

namespace {

struct PanelRow {
    const char* Panel;
    const char* Label;
};

constexpr PanelRow Panels[] = {
    {"picIdle", "lblIdleMessage"},
    {"picSelect", "lblSelectDataMessage"},
    {"picEditDot", "lblEditDotMessage"},
    {"picLineDraw", "lbLineDrawEnterMessage"},
    {"PicZoom", "lblZoomHVMessage"},
    {"picZoomH", "lblZoomHMessage"},
    {"picZoomV", "lblZoomVMessage"},
    {"picZoomCenter", "lblZoomCenterMessage"},
    {"picDigitDispTimeBar", "lblDigitIdleMessage"},
};

constexpr int StripHeight = 40;
constexpr int RightWidth = 240, NarrowRight = 184;
constexpr int NarrowStrip = 1100;  // below it the boxes need some of the room at the right
constexpr int WaitWidth = 320;
constexpr qint64 Moment = 200;  // milliseconds of work before the bar shows

QString StripText(const QString& control) {
    return ToQt(TextOf("Mainfrm", control.toStdString()));
}

struct DigitReadOut {
    const char *Caption, *Label;
    int Digits;  // of the longest text
    std::string (*Text)(const DigitDocument& document);
};

const DigitReadOut DigitReadOuts[] = {
    {"CaliperLab", "lblCaliper", 7,
     [](const DigitDocument& document) { return std::to_string(document.Caliper); }},
    {"CaliperTimeLab", "lblCaliperTime", 12,
     [](const DigitDocument& document) { return TimeOfDot(document, document.Caliper); }},
    {"DigitDotsLab", "lblDigitDots", 7,
     [](const DigitDocument& document) { return std::to_string(document.Dots); }},
    {"RateLab", "lblRate", 11,
     [](const DigitDocument& document) { return RateWithUnit(document.Rate); }}};

// "KT3300 connected" or "Not connected".
QString LinkText(std::string_view text) {
    return ToQt(text).replace("%1", ToQt(ModelName(Link.ConnectedModel)));
}

// The Chinese texts are shorter, and measuring them would open their large font at each start.
int WidestLinkText(const QWidget* widget) {
    int widest = 0;
    for (const WindowText& row : WindowTexts()) {
        if (row.Window != "Mainfrm" || !row.Control.starts_with("lblLink")) continue;
        const QString text = LinkText(row.English);
        widest = std::max(widest, widget->fontMetrics().horizontalAdvance(text));
    }
    return widest;
}

// A dot that says by its shape too whether an instrument is there.
class LinkSign final : public QWidget {
public:
    explicit LinkSign(QWidget* parent) : QWidget(parent) {
        setObjectName("imgLink");
        setFixedSize(10, 10);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const ChromePalette& chrome = CurrentChrome();
        const QColor colour = Link.IsConnected ? chrome.connected : chrome.dim;
        painter.setPen(QPen(colour, 1.4));
        if (Link.IsConnected) painter.setBrush(colour);
        painter.drawEllipse(QRectF(rect()).adjusted(1.2, 1.2, -1.2, -1.2));
    }
};

}  // namespace

StatusStrip::StatusStrip(const ActionTable& actions, QWidget* parent) : QWidget(parent) {
    setObjectName("StatusStrip");
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(StripHeight);
    panels_ = new QStackedWidget(this);
    for (const PanelRow& row : Panels)
        AddPanel(new StripPanel(row.Panel, row.Label, panels_), row.Panel);
    find_ = new FindPanel(panels_);
    AddPanel(find_, "picDigitFind_Edit");
    connect(find_, &FindPanel::Left, this, &StatusStrip::Left);
    for (const EntryRow& row : EntryRows()) AddBox(row);
    AddButtons(actions);
    AddReadOut("picSelect", "StartLab", "lblStart");
    AddReadOut("picSelect", "EndLab", "lblEnd");
    AddReadOut("picSelect", "SelectDotLab", "lblSelectDot");
    AddReadOut("picIdle", "lblXLab", "lblX");
    AddReadOut("picIdle", "lblYLab", "lblY");
    for (const DigitReadOut& readOut : DigitReadOuts)
        AddReadOut("picDigitDispTimeBar", readOut.Caption, readOut.Label, readOut.Digits);
    for (const auto& [name, panel] : panelOf_) panel->Line()->addStretch(1);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 4, 12, 4);
    row->setSpacing(12);
    row->addWidget(panels_, 1);
    row->addWidget(MakeRight());
    row->addLayout(MakeSign());
    wait_ = new WaitPanel(WaitPanel::Place::Strip, "prgLink", this);
    wait_->setAttribute(Qt::WA_StyledBackground);
    wait_->setProperty("strip", true);
    ShowEntries(-1);
}

QWidget* StatusStrip::MakeRight() {
    auto* right = new QWidget(this);
    right_ = new QStackedLayout(right);
    pointer_ = new QLabel(right);
    pointer_->setObjectName("lblPointer");
    pointer_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    pointer_->setProperty("dim", true);
    progress_ = new QProgressBar(right);
    progress_->setObjectName("prgWork");
    right_->addWidget(pointer_);
    right_->addWidget(progress_);
    return right;
}

// Whether an instrument is connected; as wide as the longest text.
QLayout* StatusStrip::MakeSign() {
    sign_ = new LinkSign(this);
    link_ = new QLabel(this);
    link_->setObjectName("lblLink");
    link_->setFixedWidth(WidestLinkText(link_));
    auto* line = new QHBoxLayout;
    line->setSpacing(StripGap);
    line->addWidget(sign_);
    line->addWidget(link_);
    return line;
}

void StatusStrip::AddPanel(StripPanel* panel, const char* name) {
    panels_->addWidget(panel);
    panelOf_[name] = panel;
}

void StatusStrip::AddBox(const EntryRow& row) {
    StripPanel* panel = panelOf_.at(row.Panel);
    const bool value = row.Value != nullptr;
    auto* box = new NumberBox(value ? KeyKind::SignedReal : KeyKind::Whole, panel->Group());
    box->setObjectName(ToQt(row.Box));
    if (value) box->SetLongestText(ValueBoxLength);
    box->setFixedWidth(WidthOfDigits(box, value ? 9 : 8) + 16);
    box->installEventFilter(this);
    panel->AddField(ToQt(row.Box) + "Lab", box)->setBuddy(box);
    boxes_.insert(static_cast<int>(row.Which), box);
    const Entry entry = row.Which;
    connect(box, &NumberBox::textEdited, this, [box, entry](const QString& text) {
        if (ActiveDocumentIndex() < 0) return;
        AnalogWaveRecord& wave = ActiveAnalog();
        ChangeEntry(wave, entry, text.toStdString());
        const QString shown = QString::fromStdString(EntryText(wave, entry));
        if (shown != text) box->setText(shown);  // and the caret goes to the end
    });
    connect(box, &NumberBox::left, this, [box, entry] {
        if (ActiveDocumentIndex() < 0) return;
        AnalogWaveRecord& wave = ActiveAnalog();
        LeaveEntry(wave, entry);
        box->setText(QString::fromStdString(EntryText(wave, entry)));
    });
}

// Volts and millivolts as one switch of two halves; then the button that applies the boxes.
void StatusStrip::AddButtons(const ActionTable& actions) {
    for (const MenuRow& row : StatusPanels()) {
        StripPanel* panel = panelOf_.at(row.Name);
        panel->Line()->addSpacing(StripGap);
        for (const std::string_view name : row.Entries) {
            QAction* action = actions.Find(name);
            auto* button = new QToolButton(panel->Group());
            button->setDefaultAction(action);
            button->setObjectName(action->objectName());
            button->setFocusPolicy(Qt::TabFocus);
            button->setFixedHeight(28);
            if (action->icon().isNull()) {  // the unit itself is the picture
                button->setProperty("unit", true);
                button->setMinimumWidth(36);
            } else {
                button->setIconSize(QSize(20, 20));
                button->setProperty("apply", true);
                button->installEventFilter(this);
            }
            panel->Line()->addWidget(button);
        }
    }
}

void StatusStrip::AddReadOut(const char* panel, const char* caption, const char* label,
                             int digits) {
    auto* frame = new QLabel(panelOf_.at(panel)->Group());
    frame->setObjectName(label);
    frame->setProperty("readout", true);
    frame->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    frame->setMinimumWidth(WidthOfDigits(frame, digits) + 16);
    frame->setFixedHeight(28);
    readOuts_[label] = frame;
    panelOf_.at(panel)->AddField(caption, frame);
}

void StatusStrip::ApplyTexts() {
    for (QLabel* label : findChildren<QLabel*>()) {
        const QString text = StripText(label->objectName());
        if (text.isEmpty()) continue;
        label->setText(text);
        if (label->buddy() != nullptr) label->buddy()->setAccessibleName(text);
    }
    find_->ShowBoxes();
    wait_->ApplyTexts(StripText("CancelWaitBtn"), StripText("CancelWaitTip"));
}

void StatusStrip::ShowText(const QString& label, const QString& text) {
    auto* target = panels_->findChild<QLabel*>(label);
    if (target == nullptr) return;
    target->setText(text);
    // A box that goes with its panel hands the focus to the plot, not to whatever comes next.
    if (panels_->currentWidget() != target->parentWidget() && isAncestorOf(window()->focusWidget()))
        emit Left();
    panels_->setCurrentWidget(target->parentWidget());
}

void StatusStrip::ShowEntries(std::int16_t tag) {
    const bool digital = tag >= FirstDigitTag;
    const auto slot = static_cast<std::int16_t>(digital ? tag - FirstDigitTag : -1);
    panelOf_.at("picDigitDispTimeBar")->Group()->setVisible(digital);
    find_->ShowDocument(slot);
    if (digital) {
        const DigitDocument& document = DigitAt(slot);
        for (const DigitReadOut& readOut : DigitReadOuts)
            readOuts_.at(readOut.Label)->setText(QString::fromStdString(readOut.Text(document)));
        return;
    }
    static const AnalogWaveRecord none;
    const AnalogWaveRecord& wave = tag < 0 ? none : AnalogAt(tag);
    for (const EntryRow& row : EntryRows()) {
        NumberBox* box = boxes_.value(static_cast<int>(row.Which));
        const std::string& text = EntryText(wave, row.Which);  // digits
        const QLatin1String shown(text.data(), static_cast<qsizetype>(text.size()));
        if (box->text() != shown) box->setText(shown);
    }
    for (const ReadOut& readOut : ReadOuts())
        readOuts_.at(readOut.Label)->setText(QString::fromStdString(readOut.Text(wave)));
    // A hand stroke has nothing to type, and a track nothing to show before its first dot.
    panelOf_.at("picLineDraw")->Group()->setVisible(bool(wave.LineDrawOn));
    panelOf_.at("picIdle")->Group()->setVisible(bool(wave.TrackShown));
}

void StatusStrip::ShowPointer(const QString& text) {
    pointer_->setText(text);
}

void StatusStrip::FocusFindPanel() {
    if (find_->isVisible()) find_->FocusFirst();
}

void StatusStrip::FocusEntry() {
    NumberBox* last = nullptr;
    for (const EntryRow& row : EntryRows()) {
        NumberBox* box = boxes_.value(static_cast<int>(row.Which));
        if (box->isVisible()) last = box;
        if (box->isVisible() && box->text().isEmpty()) break;
    }
    if (last != nullptr) last->setFocus(Qt::TabFocusReason);
}

QWidget* StatusStrip::FirstStop() const {
    QWidget* first = nullptr;
    const auto left = [this](const QWidget* each) { return each->mapTo(this, QPoint()).x(); };
    for (QWidget* each : findChildren<QWidget*>()) {
        const bool stops = each->isVisible() && each->isEnabled() &&
                           (each->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (stops && (first == nullptr || left(each) < left(first))) first = each;
    }
    return first;
}

bool StatusStrip::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) {
        emit Left();
        return true;
    }
    auto* button = qobject_cast<QToolButton*>(watched);
    if (button == nullptr || (key != Qt::Key_Return && key != Qt::Key_Enter)) return false;
    button->click();
    return true;
}

bool StatusStrip::ShowProgress(qint64 done, qint64 total) {
    const bool shown = right_->currentWidget() == progress_;
    if (total <= 0) {
        right_->setCurrentWidget(pointer_);
        since_.invalidate();
        return shown;
    }
    if (!since_.isValid()) since_.start();
    if (since_.elapsed() < Moment) return false;
    const int percent = static_cast<int>(done * 100 / total);
    if (shown && progress_->value() == percent) return false;
    progress_->setValue(percent);
    right_->setCurrentWidget(progress_);
    return true;
}

void StatusStrip::ShowLink(bool working) {
    link_->setText(LinkText(TextOf("Mainfrm", Link.IsConnected ? "lblLinkOn" : "lblLink")));
    const ChromePalette& chrome = CurrentChrome();
    const QColor colour = Link.IsConnected ? chrome.text : chrome.dim;
    const QString sheet = QStringLiteral("color: %1;").arg(colour.name());
    if (link_->styleSheet() != sheet) link_->setStyleSheet(sheet);
    sign_->update();
    wait_->ShowWork(working);
    wait_->setVisible(working);
    PlaceWait();
}

// The text needs more room than lies at the right, and what it covers takes no input meanwhile.
void StatusStrip::PlaceWait() {
    if (wait_->isHidden()) return;
    const QRect right = right_->parentWidget()->geometry();
    wait_->setGeometry(right.right() + 1 - WaitWidth, right.top(), WaitWidth, right.height());
    wait_->raise();
}

void StatusStrip::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    right_->parentWidget()->setFixedWidth(width() < NarrowStrip ? NarrowRight : RightWidth);
    layout()->activate();
    PlaceWait();
}
