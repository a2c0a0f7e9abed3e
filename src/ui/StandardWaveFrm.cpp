#include "ui/StandardWaveFrm.h"

#include "platform/qt/QtText.h"
#include "ui/Controls.h"
#include "ui/PlotPreview.h"
#include "ui/Theme.h"

#include <QComboBox>
#include <QPixmap>
#include <utility>

// Boxes that a wave type does not use are dimmed; the two rows of parameters that only some types
// have go blank but keep their place, so that the dialog stays still while types are tried.

namespace {

QIcon KindIcon(std::int16_t kind) {
    QIcon icon = ThemedIcon(QStringLiteral("Wave%1").arg(kind));
    if (!icon.isNull()) return icon;
    QPixmap blank(16, 16);  // the type without a drawing lines up with the others
    blank.fill(Qt::transparent);
    return blank;
}

}  // namespace

StandardWaveFrm::StandardWaveFrm(QWidget* parent, int kind)
    : StandardWaveFrm(parent, OpenStandardWave(static_cast<std::int16_t>(kind))) {}

StandardWaveFrm::StandardWaveFrm(QWidget* parent, const StandardWaveDialog& dialog)
    : DialogBase("StandardWaveFrm", parent), dialog_(dialog) {
    BuildForm();
    ApplyTexts();
    ShowFields();
    kinds_->setFocus();
}

void StandardWaveFrm::BuildForm() {
    QGridLayout* form = MakeForm();
    AddKinds(form);
    AddField(form, {MakeBox("DotnumTxt", KeyKind::Whole), MakeLabel("DotnumLab"),
                    MakeWaveSpins("DotNumUp", "DotNumDn", SpinWaveDots), WaveDotnumText,
                    LeaveWaveDotnum, &KindFields::Dots});
    AddField(form, {MakeBox("Cyclestxt", KeyKind::Whole), MakeLabel("CyclesLab"),
                    MakeWaveSpins("CyclesUp", "CyclesDn", SpinCycles), CyclesText, LeaveCycles,
                    &KindFields::Cycles});
    AddField(form, {MakeBox("phasetxt", KeyKind::Whole), MakeLabel("phaseLab"),
                    MakeWaveSpins("PhaseUp", "PhaseDn", SpinPhase), PhaseText, LeavePhase,
                    &KindFields::Phase});
    NumberBox* ampl = MakeBox("ampltxt", KeyKind::Real);
    amplUnit_ = MakeVoltUnits("amplunitCmb", ampl, ChangeWaveAmplUnit);
    AddField(form, {ampl, MakeLabel("amplLab"), amplUnit_, WaveAmplText, LeaveWaveAmpl,
                    &KindFields::Ampl});
    NumberBox* offset = MakeBox("offsettxt", KeyKind::SignedReal);
    offsetUnit_ = MakeVoltUnits("offsetunitCmb", offset, ChangeOffsetUnit);
    AddField(form, {offset, MakeLabel("offsetLab"), offsetUnit_, OffsetText, LeaveOffset,
                    &KindFields::Offset});
    para1Label_ = MakeLabel("para1Lab");
    para1Unit_ = MakeUnitLabel("para1UnitLab");
    AddField(form, {MakeBox("para1txt", KeyKind::SignedReal), para1Label_, para1Unit_, Para1Text,
                    LeavePara1, &KindFields::Para1});
    para2Label_ = MakeLabel("para2Lab");
    para2Unit_ = MakeUnitLabel("para2UnitLab");
    AddField(form, {MakeBox("para2txt", KeyKind::Real), para2Label_, para2Unit_, Para2Text,
                    LeavePara2, &KindFields::Para2});
    form->setRowStretch(form->rowCount(), 1);

    preview_ = new PlotPreview(this);
    LayOut(MakeHalves(form, MakePlot(preview_)), MakeButtonRow());
}

QLabel* StandardWaveFrm::MakeUnitLabel(const char* name) {
    QLabel* label = MakeLabel(name);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return label;
}

void StandardWaveFrm::AddKinds(QGridLayout* form) {
    kinds_ = Make<QComboBox>("WaveTypeCmb");
    kinds_->setMaxVisibleItems(WaveKindCount);
    for (std::int16_t kind = 0; kind < WaveKindCount; ++kind)
        kinds_->addItem(KindIcon(kind), RowText(QStringLiteral("WaveTypeCmb%1").arg(kind)));
    AddRow(form, MakeLabel("WaveTypeLab", kinds_), kinds_, nullptr);
    connect(kinds_, &QComboBox::activated, this, [this](int kind) {
        ChangeKind(dialog_, static_cast<std::int16_t>(kind));
        ShowFields();
    });
}

void StandardWaveFrm::AddField(QGridLayout* form, Field field) {
    field.Label->setBuddy(field.Box);
    field.Box->setFixedWidth(DialogFieldWidth);
    AddRow(form, field.Label, field.Box, field.Unit);
    connect(field.Box, &NumberBox::left, this, [this, field] { LeaveField(field); });
    connect(field.Box, &NumberBox::textEdited, this,
            [this, field](const QString& typed) { PreviewTyped(field, typed); });
    const bool isParameter = field.Used == &KindFields::Para1 || field.Used == &KindFields::Para2;
    if (isParameter)
        for (QWidget* widget :
             {static_cast<QWidget*>(field.Box), static_cast<QWidget*>(field.Label)})
            KeepPlace(widget);
    fields_.push_back(field);
}

QWidget* StandardWaveFrm::MakeWaveSpins(const char* up, const char* down, Spin spin) {
    return MakeSpins(up, down, [this, spin](int count, bool rises) {
        spin(dialog_, count, rises);
        ShowFields();
    });
}

QComboBox* StandardWaveFrm::MakeVoltUnits(const char* name, NumberBox* box, ChangeUnit change) {
    QComboBox* units = MakeUnits(name, {QStringLiteral("V"), QStringLiteral("mV")});
    connect(units, &QComboBox::activated, this, [this, box, change](int unit) {
        change(dialog_, unit == 0, box->text().toStdString());
        ShowFields();
    });
    return units;
}

void StandardWaveFrm::LeaveField(const Field& field) {
    field.Leave(dialog_, field.Box->text().toStdString());
    ShowFields();
}

// Typing changes the picture at once and the dialog's value only when the box is left.
void StandardWaveFrm::PreviewTyped(const Field& field, const QString& typed) {
    if (!HasDigit(typed)) return;
    StandardWaveDialog tried = dialog_;
    field.Leave(tried, typed.toStdString());
    ShowPreview(tried);
}

void StandardWaveFrm::ShowFields() {
    const KindFields used = OpenFields(dialog_);
    kinds_->setCurrentIndex(dialog_.Wave.Kind);
    amplUnit_->setCurrentIndex(dialog_.AmplInVolts ? 0 : 1);
    offsetUnit_->setCurrentIndex(dialog_.OffsetInVolts ? 0 : 1);
    for (const Field& field : fields_) {
        field.Box->setText(QString::fromStdString(field.Text(dialog_)));
        const bool on = used.*field.Used;
        for (QWidget* widget :
             {static_cast<QWidget*>(field.Box), static_cast<QWidget*>(field.Label), field.Unit}) {
            widget->setEnabled(on);
            if (widget->sizePolicy().retainSizeWhenHidden()) widget->setVisible(on);
        }
    }
    ShowPara(para1Label_, para1Unit_);
    ShowPara(para2Label_, para2Unit_);
    ShowPreview(dialog_);
}

// Names and units of the parameters are rows such as "para1LabSquare".
void StandardWaveFrm::ShowPara(QLabel* label, QLabel* unit) {
    const QString name = ToQt(WaveKindNames[static_cast<std::size_t>(dialog_.Wave.Kind)]);
    for (QLabel* changing : {label, unit})
        changing->setText(RowText(changing->objectName() + name));
}

void StandardWaveFrm::ShowPreview(const StandardWaveDialog& dialog) {
    std::vector<WaveDot> dots;
    PreviewStandardWave(dialog, dots);
    preview_->ShowDots(std::move(dots));
}

void StandardWaveFrm::accept() {
    LeaveFocusedBox();
    // The type None, or a document without room, leaves everything as it was.
    CloseAfter(ConfirmStandardWave(dialog_));
}
