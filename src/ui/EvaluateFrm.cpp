#include "ui/EvaluateFrm.h"

#include "digital/DigitFuncCode.h"
#include "digital/GlobalDigitDefineCode.h"
#include "platform/qt/QtText.h"
#include "ui/Theme.h"

#include <QComboBox>
#include <QMenu>
#include <QStackedLayout>
#include <QStyleOptionButton>
#include <QStylePainter>

// Boxes that an operation does not use are closed but stay where they are, so that nothing moves
// when the operation changes.

namespace {

// In the order of DigitOperation.
constexpr const char* OperationIcons[] = {"Value0", "Value1",    "Invert",
                                          "Clock",  "Arbitrary", "Counting"};

// A button that looks like the lists around it: its menu's chosen entry at the left, a chevron.
class ChoiceButton final : public QPushButton {
public:
    explicit ChoiceButton(QWidget* parent) : QPushButton(parent) { setProperty("choice", true); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        constexpr int Size = 12;
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        option.features &= ~QStyleOptionButton::HasMenu;  // the style's mark is none of a list
        painter.drawControl(QStyle::CE_PushButton, option);
        ThemedIcon(QStringLiteral("ChevronDown"))
            .paint(&painter, width() - Size - 5, (height() - Size) / 2, Size, Size);
    }
};

}  // namespace

EvaluateFrm::EvaluateFrm(QWidget* parent)
    : ValueForm("EvaluateFrm", parent, dialog_.Boxes), dialog_(OpenEvaluate()) {
    AddTarget();
    AddOperations();
    AddValueBox("TimeStartTxt", "TimeStartLab", ValueBox::First);
    AddValueBox("TimeEndTxt", "TimeEndLab", ValueBox::Last);
    AddRadix();
    start_ = AddValueBox("CountStartValuetxt", "CountStartValueLab", ValueBox::Start);
    increment_ = AddValueBox("CountIncValueTxt", "CountIncValueLab", ValueBox::Increment);
    AddShared();
    Finish();
}

void EvaluateFrm::AddTarget() {
    QStringList names;
    for (const std::string& name : TargetNames(ActiveDigit())) names << ToQt(name);
    QComboBox* list = AddList(form_, "cmbName", "cmbNameLab", names);
    list->setCurrentIndex(dialog_.Chosen);
    connect(list, &QComboBox::activated, this, [this](int chosen) {
        ChooseEvaluateTarget(dialog_, chosen);
        ShowBoxes();
    });
}

void EvaluateFrm::AddOperations() {
    operation_ = Make<ChoiceButton>("ValueAresBtn");
    operation_->setAutoDefault(false);
    auto* menu = new QMenu(operation_);
    std::int16_t mode = 0;
    for (const char* icon : OperationIcons) {
        const QString text = RowText(QStringLiteral("ValueAresBtn%1").arg(mode));
        QAction* action = menu->addAction(ThemedIcon(QLatin1String(icon)), text);
        connect(action, &QAction::triggered, this, [this, mode] {
            EvaluateMode = mode;
            ShowBoxes();
        });
        ++mode;
    }
    connect(menu, &QMenu::aboutToShow, menu,
            [this, menu] { menu->setMinimumWidth(operation_->width()); });
    operation_->setMenu(menu);
    AddRow(form_, MakeLabel("ValueLab", operation_), operation_, nullptr);
}

void EvaluateFrm::AddShared() {
    shared_ = MakeValueBox("CountInteTxt", ValueBox::Interval);
    sharedLabels_ = new QStackedLayout;
    for (const char* label : {"CountInteLab", "ArbValueLab"})
        sharedLabels_->addWidget(MakeLabel(label, shared_));
    AddRow(form_, nullptr, shared_, nullptr);
    form_->addLayout(sharedLabels_, form_->rowCount() - 1, 0);
}

void EvaluateFrm::ShowBoxes() {
    const DigitOperation operation = EvaluateOperation();
    const QAction* chosen = operation_->menu()->actions()[static_cast<int>(operation)];
    operation_->setText(chosen->text());
    operation_->setIcon(chosen->icon());
    operation_->setAccessibleName(chosen->text());
    Bind(shared_, SharedBox(operation));
    sharedLabels_->setCurrentIndex(operation == DigitOperation::Arbitrary ? 1 : 0);
    start_->setEnabled(UsesBox(operation, ValueBox::Start));
    increment_->setEnabled(UsesBox(operation, ValueBox::Increment));
    shared_->setEnabled(UsesBox(operation, SharedBox(operation)));
    radix_->setEnabled(shared_->isEnabled());
    ValueForm::ShowBoxes();
    if (!radix_->isEnabled()) ShowNote({}, NoteSign::Nothing);
}

void EvaluateFrm::accept() {
    LeaveFocusedBox();
    EndWith(ConfirmEvaluate(dialog_));
}
