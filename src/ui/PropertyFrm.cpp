#include "ui/PropertyFrm.h"

#include "platform/qt/QtText.h"

#include <QComboBox>
#include <QRadioButton>
#include <QStackedLayout>
#include <QVBoxLayout>

// Frequency and period are one quantity and share one row: a stack for each of its three columns
// keeps the size of the larger page, so that nothing moves when the option changes.

namespace {

template <std::size_t N>
QStringList UnitNames(const std::array<UnitRow, N>& units) {
    QStringList names;
    for (const UnitRow& unit : units) names.append(ToQt(unit.Name));
    return names;
}

// The longest number, a period of 1e6 seconds in kiloseconds or finer, has 17 characters.
int WidestNumber(const QWidget* box) {
    return box->fontMetrics().horizontalAdvance(QString(18, QLatin1Char('0'))) + 20;
}

}  // namespace

PropertyFrm::PropertyFrm(QWidget* parent)
    : DialogBase("PropertyFrm", parent), dialog_(OpenPropertyDialog()) {
    BuildForm();
    ConnectUnits();
    ApplyTexts();
    ShowFields();
    dotnum_->setFocus();
}

void PropertyFrm::BuildForm() {
    dotnum_ = MakeBox("DotnumTxt", KeyKind::Whole);
    QWidget* dotSpins = MakeSpins("DotNumUp", "DotNumDn", [this](int count, bool up) {
        SpinPropertyDots(dialog_, count, up);
        ShowFields();
    });
    ampl_ = MakeBox("ampltxt", KeyKind::Real);
    amplUnit_ = MakeUnits("amplunitCmb", {QStringLiteral("V"), QStringLiteral("mV")});
    QGridLayout* form = MakeForm();
    AddRow(form, MakeLabel("DotnumLab", dotnum_), dotnum_, dotSpins);
    AddRow(form, MakeLabel("amplLab", ampl_), ampl_, amplUnit_);
    form->addWidget(MakeLabel("OptLab"), form->rowCount(), 0);
    form->addLayout(BuildOptions(), form->rowCount() - 1, 2, 1, 3);
    AddRateRow(form);
    quant_ = MakeBox("QuantTxt", KeyKind::Whole);
    QWidget* quantSpins = MakeSpins("QuantUp", "QuantDn", [this](int, bool up) {
        SpinQuantify(dialog_, up);
        ShowFields();
    });
    AddRow(form, MakeLabel("QuantLab", quant_), quant_, quantSpins);
    dotnum_->setMinimumWidth(WidestNumber(dotnum_));
    LayOut(form, MakeButtonRow());

    fields_ = {{dotnum_, DotnumText, LeaveDotnum},
               {ampl_, AmplText, LeaveAmpl},
               {freq_, FreqText, LeaveFreq},
               {period_, PeriodText, LeavePeriod},
               {quant_, QuantText, LeaveQuant}};
    for (const Field& field : fields_)
        connect(field.Box, &NumberBox::left, this, [this, field] { LeaveField(field); });
}

QLayout* PropertyFrm::BuildOptions() {
    optFreq_ = Make<QRadioButton>("OptFreq");
    optPer_ = Make<QRadioButton>("OptPer");
    auto* row = new QHBoxLayout;
    row->setSpacing(DialogRowGap * 2);
    for (QRadioButton* option : {optFreq_, optPer_}) {
        row->addWidget(option);
        connect(option, &QRadioButton::clicked, this, [this, option] {
            dialog_.ShowFrequency = option == optFreq_;
            ShowFields();
        });
    }
    row->addStretch(1);
    return row;
}

void PropertyFrm::AddRateRow(QGridLayout* form) {
    freq_ = MakeBox("Freqtxt", KeyKind::Real);
    freqUnit_ = MakeUnits("FrequnitCmb", UnitNames(FrequencyUnits));
    period_ = MakeBox("Periodtxt", KeyKind::Real);
    periodUnit_ = MakeUnits("PeriodunitCmb", UnitNames(PeriodUnits));
    const std::pair<QWidget*, QWidget*> pages[] = {
        {MakeLabel("FreqLab", freq_), MakeLabel("PeriodLab", period_)},
        {freq_, period_},
        {freqUnit_, periodUnit_}};
    const int row = form->rowCount();
    int column = 0;
    for (const auto& [frequency, period] : pages) {
        auto* stack = new QStackedLayout;
        stack->addWidget(frequency);
        stack->addWidget(period);
        form->addLayout(stack, row, column);
        rateStacks_.push_back(stack);
        column += 2;
    }
}

void PropertyFrm::ConnectUnits() {
    connect(amplUnit_, &QComboBox::activated, this, [this](int unit) {
        ChangeAmplUnit(dialog_, unit == 0, ampl_->text().toStdString());
        ShowFields();
    });
    connect(freqUnit_, &QComboBox::activated, this, [this](int unit) {
        ChangeFreqUnit(dialog_, static_cast<std::int16_t>(unit), freq_->text().toStdString());
        ShowFields();
    });
    connect(periodUnit_, &QComboBox::activated, this, [this](int unit) {
        ChangePeriodUnit(dialog_, static_cast<std::int16_t>(unit), period_->text().toStdString());
        ShowFields();
    });
}

void PropertyFrm::LeaveField(const Field& field) {
    field.Leave(dialog_, field.Box->text().toStdString());
    ShowFields();
}

void PropertyFrm::ShowFields() {
    for (const Field& field : fields_)
        field.Box->setText(QString::fromStdString(field.Text(dialog_)));
    amplUnit_->setCurrentIndex(dialog_.AmplInVolts ? 0 : 1);
    freqUnit_->setCurrentIndex(dialog_.FrequencyUnit);
    periodUnit_->setCurrentIndex(dialog_.PeriodUnit);
    (dialog_.ShowFrequency ? optFreq_ : optPer_)->setChecked(true);
    for (QStackedLayout* stack : rateStacks_) stack->setCurrentIndex(dialog_.ShowFrequency ? 0 : 1);
}

void PropertyFrm::accept() {
    LeaveFocusedBox();
    ConfirmProperty(dialog_);
    DialogBase::accept();
}
