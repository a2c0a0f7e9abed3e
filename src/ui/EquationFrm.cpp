#include "ui/EquationFrm.h"

#include "platform/qt/QtText.h"
#include "ui/PlotPreview.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {

constexpr int FieldWidth = 176;  // pixels
constexpr int NoteLines = 2;

}  // namespace

EquationFrm::EquationFrm(QWidget* parent, int replace)
    : DialogBase("EquationFrm", parent), dialog_(OpenEquation(replace != 0)) {
    count_.setSingleShot(true);
    connect(&count_, &QTimer::timeout, this, &EquationFrm::CountMore);
    BuildForm();
    ApplyTexts();
    ChooseExpression(ToQt(dialog_.Text));
    ShowDots();
    expression_->setFocus();
}

void EquationFrm::BuildForm() {
    QLayout* expression = BuildExpression();  // first for the Tab key as well
    QGridLayout* form = MakeForm();
    AddLists(form);
    AddDots(form);
    auto* left = new QVBoxLayout;
    left->setSpacing(DialogRowGap * 2);
    left->addLayout(form);
    left->addWidget(MakeLegend());
    left->addStretch(1);
    preview_ = new PlotPreview(this);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(DialogRowGap);
    rows->addLayout(expression);
    rows->addLayout(MakeHalves(left, MakePlot(preview_)));
    LayOut(rows, MakeButtonRow());
    ok_ = findChild<QPushButton*>(QStringLiteral("OkAresBtn"));
}

QLayout* EquationFrm::BuildExpression() {
    expression_ = Make<QLineEdit>("ExpressionTxt");
    expression_->setMaxLength(LongestEquation);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(16);
    expression_->setFont(font);
    expression_->setFixedHeight(36);
    connect(expression_, &QLineEdit::textEdited, this, [this](const QString& text) {
        for (QComboBox* list : {examples_, history_}) list->setCurrentIndex(-1);
        TakeExpression(text);
    });
    // The OK button, which would take Enter, is off while there is a fault.
    connect(expression_, &QLineEdit::returnPressed, this, &EquationFrm::ShowFault);
    QGridLayout* row = MakeForm();
    AddRow(row, MakeLabel("ExpressionLab", expression_), expression_, nullptr);
    AddNote(row, NoteLines);
    return row;
}

QComboBox* EquationFrm::MakeList(const char* name, const char* hint) {
    auto* list = Make<QComboBox>(name);
    list->setPlaceholderText(RowText(QLatin1String(hint)));
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMaxVisibleItems(static_cast<int>(ExampleCount));
    return list;
}

void EquationFrm::AddLists(QGridLayout* form) {
    examples_ = MakeList("ExampleCmb", "ExampleHint");
    for (std::size_t i = 0; i < ExampleCount; ++i)
        examples_->addItem(RowText(QStringLiteral("ExampleCmb%1").arg(i)),
                           ToQt(EquationExamples[i]));
    history_ = MakeList("HistoryCmb", "HistoryHint");
    for (const std::string& text : dialog_.History) history_->addItem(ToQt(text), ToQt(text));
    history_->setEnabled(history_->count() > 0);
    AddRow(form, MakeLabel("ExampleLab", examples_), examples_, nullptr);
    AddRow(form, MakeLabel("HistoryLab", history_), history_, nullptr);
    for (QComboBox* list : {examples_, history_}) {
        list->setCurrentIndex(-1);
        QComboBox* other = list == examples_ ? history_ : examples_;
        connect(list, &QComboBox::activated, this, [this, list, other] {
            other->setCurrentIndex(-1);
            ChooseExpression(list->currentData().toString());
        });
    }
}

void EquationFrm::AddDots(QGridLayout* form) {
    dots_ = MakeBox("DotnumTxt", KeyKind::Whole);
    dots_->setFixedWidth(FieldWidth);
    QWidget* spins = MakeSpins("DotNumUp", "DotNumDn", [this](int count, bool up) {
        SpinEquationDots(dialog_, count, up);
        ShowDots();
    });
    AddRow(form, MakeLabel("DotnumLab", dots_), dots_, spins);
    AddRow(form, MakeLabel("PlaceLab"), new QLabel(ToQt(EquationPlace(dialog_)), this), nullptr);
    connect(dots_, &NumberBox::left, this, [this](const QString& typed) {
        LeaveEquationDots(dialog_, typed.toStdString());
        ShowDots();
    });
}

QLabel* EquationFrm::MakeLegend() {
    auto* legend = Make<QLabel>("LegendInfo");
    legend->setTextFormat(Qt::RichText);
    legend->setProperty("dim", true);
    return legend;
}

void EquationFrm::TakeExpression(const QString& text) {
    ChangeEquation(dialog_, text.toStdString());
    ShowEquation();
}

void EquationFrm::ChooseExpression(const QString& text) {
    expression_->setText(text);
    expression_->selectAll();
    TakeExpression(text);
}

void EquationFrm::ShowDots() {
    dots_->setText(ToQt(EquationDotsText(dialog_)));
    ShowEquation();
}

// While the expression is at fault, the picture stays that of the last one that could be read.
void EquationFrm::ShowEquation() {
    std::vector<WaveDot> dots;
    if (PreviewEquation(dialog_, dots)) preview_->ShowDots(std::move(dots));
    ok_->setEnabled(dialog_.Fault.Error == EquationError::None);
    CountMore();
}

void EquationFrm::CountMore() {
    if (!CountEquation(dialog_)) count_.start(0);
    const bool fault = dialog_.Fault.Error != EquationError::None;
    ShowNote(EquationNote(dialog_), fault ? NoteSign::Fault : NoteSign::Warning);
}

void EquationFrm::ShowFault() {
    const EquationFault& fault = dialog_.Fault;
    if (fault.Error == EquationError::None) return;
    const std::string_view text = dialog_.Text;
    const auto column = ToQt(text.substr(0, fault.Byte)).size();
    const bool stands = text.substr(fault.Byte).starts_with(fault.Token);
    expression_->setFocus();
    expression_->setCursorPosition(static_cast<int>(column));
    if (stands && !fault.Token.empty())
        expression_->setSelection(static_cast<int>(column),
                                  static_cast<int>(ToQt(fault.Token).size()));
}

void EquationFrm::accept() {
    LeaveFocusedBox();
    if (dialog_.Fault.Error != EquationError::None) {
        ShowFault();
        return;
    }
    CloseAfter(ConfirmEquation(dialog_));
}
