#include "ui/FindPanel.h"

#include "digital/DigitFindFuncBox.h"
#include "digital/DigitFuncCode.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "platform/qt/QtText.h"
#include "ui/Controls.h"
#include "ui/NumberBox.h"

#include <algorithm>
#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QStylePainter>

namespace {

constexpr int NameWidth = 144, NarrowName = 112;
constexpr int NameFrame = 32;  // what arrow and margins take of it
constexpr int NamesSeen = 12;  // rows of the open list
constexpr int LongestList = 320, ListFrame = 20;
constexpr int NarrowPanel = 760;  // below it the boxes need the room of what explains them
constexpr int DotDigits = 7, ValueDigits = 16;  // of the longest texts
constexpr int BoxFrame = 16;

// The letter that follows values of these digits, as in the channel list.
QString LetterOf(KeyKind digits) {
    switch (digits) {
        case KeyKind::Binary:
            return QStringLiteral("B");
        case KeyKind::Hex:
            return QStringLiteral("H");
        case KeyKind::Octal:
            return QStringLiteral("O");
        default:
            return QStringLiteral("U");
    }
}

// A list that keeps its width: a longer name is shortened in its middle, and the open list has it
// in full.
class NameList final : public QComboBox {
public:
    explicit NameList(QWidget* parent) : QComboBox(parent) { setMaxVisibleItems(NamesSeen); }
    void showPopup() override {
        view()->setMinimumWidth(
            std::clamp(view()->sizeHintForColumn(0) + ListFrame, width(), LongestList));
        QComboBox::showPopup();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        QStyleOptionComboBox option;
        initStyleOption(&option);
        option.currentText =
            fontMetrics().elidedText(currentText(), Qt::ElideMiddle, width() - NameFrame);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }
};

}  // namespace

FindPanel::FindPanel(QWidget* parent)
    : StripPanel("picDigitFind_Edit", "lblFind_Edit_Message", parent) {
    title_ = new QLabel(this);
    title_->setObjectName("lblFindTitle");
    MakeBold(title_);
    static_cast<QHBoxLayout*>(layout())->insertWidget(0, title_);
    AddNames();
    dot_ = AddDigits("txtDigitX", DotDigits, ChangeFindDot);
    value_ = AddDigits("txtDigitY", ValueDigits, ChangeFindValue);
    unit_ = new QLabel(group_);
    unit_->setObjectName("lblDigitUnit");
    unit_->setProperty("dim", true);
    unit_->setFixedWidth(unit_->fontMetrics().horizontalAdvance('H') + 2);
    line_->addWidget(unit_);
}

void FindPanel::AddNames() {
    names_ = new NameList(group_);
    names_->setObjectName("cmbName");
    names_->installEventFilter(this);
    nameCaption_ = AddField("cmbNameLab", names_);
    nameCaption_->setBuddy(names_);
    connect(names_, &QComboBox::activated, this, [this](int chosen) {
        DigitDocument* document = Shown();
        if (document == nullptr) return;
        ChangeFindName(*document, names_->itemText(chosen).toStdString());
        ShowBoxes();
    });
}

NumberBox* FindPanel::AddDigits(const char* name, int digits,
                                void (*change)(DigitDocument&, std::string_view)) {
    auto* box = new NumberBox(KeyKind::Whole, group_);
    box->setObjectName(QLatin1String(name));
    box->setFixedWidth(WidthOfDigits(box, digits) + BoxFrame);
    box->installEventFilter(this);
    AddField(box->objectName() + "Lab", box)->setBuddy(box);
    connect(box, &NumberBox::textEdited, this, [this, change](const QString& typed) {
        DigitDocument* document = Shown();
        if (document == nullptr) return;
        change(*document, typed.toStdString());
        ShowBoxes();
    });
    return box;
}

DigitDocument* FindPanel::Shown() const {
    const bool open = slot_ >= 0 && DigitDocUsed[static_cast<std::size_t>(slot_)];
    return open ? &DigitAt(slot_) : nullptr;
}

// Without a document nothing has changed; a drag in an analog one comes here at every move.
void FindPanel::ShowDocument(std::int16_t slot) {
    if (slot < 0 && slot_ < 0) return;
    slot_ = slot;
    ShowBoxes();
}

// The result of a find takes the room of the letter as well, so that nothing moves between the
// uses.
void FindPanel::ShowBoxes() {
    static const DigitDocument none;
    const DigitDocument* shown = Shown();
    const DigitDocument& document = shown != nullptr ? *shown : none;
    const bool edit = bool(document.PointEditOn);
    const QString find = ToQt(TextOf("Mainfrm", "lblFindTitle"));
    const QString editing = ToQt(TextOf("Mainfrm", "lblFindTitleEdit"));
    title_->setText(edit ? editing : find);
    const QFontMetrics metrics = title_->fontMetrics();
    title_->setFixedWidth(
        std::max(metrics.horizontalAdvance(find), metrics.horizontalAdvance(editing)));
    QStringList names;
    for (const std::string& name : TargetNames(document)) names << ToQt(name);
    FillList(names_, names);
    names_->setCurrentIndex(names_->findText(ToQt(document.FindBoxes.Name), Qt::MatchExactly));
    names_->setToolTip(names_->currentText());
    dot_->ShowHeld(document.FindBoxes.Dot);
    const KeyKind keys = FindValueKeys(document);
    value_->SetKind(keys);
    value_->setReadOnly(!edit);
    value_->setFocusPolicy(edit ? Qt::StrongFocus : Qt::ClickFocus);
    value_->setFixedWidth(WidthOfDigits(value_, ValueDigits) + BoxFrame +
                          (edit ? 0 : StripUnitGap + unit_->width()));
    value_->ShowHeld(document.FindBoxes.Value);
    unit_->setVisible(edit);
    unit_->setText(names_->currentIndex() < 0 ? QString() : LetterOf(keys));
}

void FindPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const bool wide = width() >= NarrowPanel;
    for (QLabel* part : {hint_, nameCaption_}) part->setVisible(wide);
    names_->setFixedWidth(wide ? NameWidth : NarrowName);
}

void FindPanel::FocusFirst() {
    QWidget* first = dot_;
    if (names_->currentIndex() < 0) first = names_;
    first->setFocus(Qt::TabFocusReason);
}

// Enter in a number box moves on by itself.
bool FindPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) {
        emit Left();
        return true;
    }
    if (watched != names_ || (key != Qt::Key_Return && key != Qt::Key_Enter)) return false;
    dot_->setFocus(Qt::TabFocusReason);
    return true;
}
