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
    ConnectSpins();
    ApplyTexts();
    ShowFields();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    dotnum_->setFocus();
}

void PropertyFrm::BuildForm() {
    dotnum_ = MakeBox("DotnumTxt", KeyKind::Whole);
    dotsUp_ = MakeSpin("DotNumUp", true);
    dotsDown_ = MakeSpin("DotNumDn", false);
    ampl_ = MakeBox("ampltxt", KeyKind::Real);
    amplUnit_ = MakeUnits("amplunitCmb", {QStringLiteral("V"), QStringLiteral("mV")});
    QGridLayout* form = MakeForm();
    AddRow(form, MakeLabel("DotnumLab", dotnum_), dotnum_, MakeSpinPair(dotsUp_, dotsDown_));
    AddRow(form, MakeLabel("amplLab", ampl_), ampl_, amplUnit_);
    form->addWidget(MakeLabel("OptLab"), form->rowCount(), 0);
    form->addLayout(BuildOptions(), form->rowCount() - 1, 2, 1, 3);
    AddRateRow(form);
    quant_ = MakeBox("QuantTxt", KeyKind::Whole);
    quantUp_ = MakeSpin("QuantUp", true);
    quantDown_ = MakeSpin("QuantDn", false);
    AddRow(form, MakeLabel("QuantLab", quant_), quant_, MakeSpinPair(quantUp_, quantDown_));
    dotnum_->setMinimumWidth(WidestNumber(dotnum_));

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
    column->setSpacing(DialogRowGap * 2);
    column->addLayout(form);
    column->addLayout(MakeButtonRow());

    fields_ = {{dotnum_, DotnumText, LeaveDotnum},
               {ampl_, AmplText, LeaveAmpl},
               {freq_, FreqText, LeaveFreq},
               {period_, PeriodText, LeavePeriod},
               {quant_, QuantText, LeaveQuant}};
    for (const Field& field : fields_)
        connect(field.Box, &NumberBox::left, this, [this, field] { LeaveField(field); });
}

QLayout* PropertyFrm::BuildOptions() {
    optFreq_ = new QRadioButton(this);
    optFreq_->setObjectName(QStringLiteral("OptFreq"));
    optPer_ = new QRadioButton(this);
    optPer_->setObjectName(QStringLiteral("OptPer"));
    auto* row = new QHBoxLayout;
    row->setSpacing(DialogRowGap * 2);
    row->addWidget(optFreq_);
    row->addWidget(optPer_);
    row->addStretch(1);
    connect(optFreq_, &QRadioButton::clicked, this, [this] {
        dialog_.ShowFrequency = true;
        ShowFields();
    });
    connect(optPer_, &QRadioButton::clicked, this, [this] {
        dialog_.ShowFrequency = false;
        ShowFields();
    });
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

void PropertyFrm::ConnectSpins() {
    for (SpinButton* spin : {dotsUp_, dotsDown_})
        connect(spin, &SpinButton::tick, this, [this, up = spin == dotsUp_](int count) {
            SpinPropertyDots(dialog_, count, up);
            ShowFields();
        });
    for (SpinButton* spin : {quantUp_, quantDown_})
        connect(spin, &SpinButton::tick, this, [this, up = spin == quantUp_] {
            SpinQuantify(dialog_, up);
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
