#include "ui/LinkTranscriptFrm.h"

#include "link/LinkTranscript.h"
#include "platform/qt/QtText.h"

#include <algorithm>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFontDatabase>
#include <QPlainTextEdit>

// Only new lines are appended, all of a refresh at once. The view forgets its oldest lines by
// itself at the same count as the transcript.

namespace {

constexpr int RefreshPeriod = 200;       // milliseconds
constexpr QSize UsualSize = {720, 400};  // pixels

}  // namespace

LinkTranscriptFrm::LinkTranscriptFrm(QWidget* parent) : DialogBase("LinkTranscriptFrm", parent) {
    setModal(false);
    setWindowFlags(Qt::Tool | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    record_ = Make<QCheckBox>("RecordChk");
    connect(record_, &QCheckBox::clicked, this, [this](bool on) {
        SwitchTranscript(on);
        ShowLines();
    });
    buttons_ = {AddButton("CopyAresBtn", &LinkTranscriptFrm::CopyLines),
                AddButton("ClearAresBtn", &LinkTranscriptFrm::ClearLines),
                AddButton("SaveAresBtn", &LinkTranscriptFrm::SaveLines)};
    lines_ = Make<QPlainTextEdit>("TranscriptTxt");
    lines_->setReadOnly(true);
    lines_->setUndoRedoEnabled(false);
    lines_->setLineWrapMode(QPlainTextEdit::NoWrap);
    lines_->setMaximumBlockCount(static_cast<int>(MostTranscriptLines));
    lines_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* row = new QHBoxLayout;
    row->setSpacing(DialogRowGap);
    row->addWidget(record_);
    row->addStretch(1);
    for (QPushButton* button : buttons_) row->addWidget(button);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
    column->setSpacing(DialogRowGap);
    column->addLayout(row);
    column->addWidget(lines_, 1);
    connect(&refresh_, &QTimer::timeout, this, &LinkTranscriptFrm::ShowLines);
    resize(UsualSize);
    ApplyTexts();
}

QPushButton* LinkTranscriptFrm::AddButton(const char* name, void (LinkTranscriptFrm::*press)()) {
    QPushButton* button = MakeButton(name);
    connect(button, &QPushButton::clicked, this, press);
    return button;
}

void LinkTranscriptFrm::ShowOver(QWidget* main) {
    auto* window = main->findChild<LinkTranscriptFrm*>();
    if (window == nullptr) window = new LinkTranscriptFrm(main);
    window->show();
    window->raise();
    window->activateWindow();
}

void LinkTranscriptFrm::showEvent(QShowEvent* event) {
    DialogBase::showEvent(event);
    ShowLines();
    refresh_.start(RefreshPeriod);
}

void LinkTranscriptFrm::hideEvent(QHideEvent* event) {
    DialogBase::hideEvent(event);
    refresh_.stop();
}

void LinkTranscriptFrm::ShowLines() {
    record_->setChecked(TranscriptOn());
    lines_->setPlaceholderText(RowText(QLatin1String(TranscriptOn() ? "HintOn" : "HintOff")));
    const auto& lines = TranscriptLines();
    const std::uint64_t first = FirstTranscriptLine();
    shown_ = std::max(shown_, first);
    QStringList added;
    for (; shown_ < first + lines.size(); ++shown_)
        added << ToQt(lines[static_cast<std::size_t>(shown_ - first)]);
    if (!added.isEmpty()) lines_->appendPlainText(added.join(u'\n'));
    for (QPushButton* button : buttons_) button->setEnabled(!lines.empty());
}

void LinkTranscriptFrm::SaveLines() {
    SaveTranscript();
}

// The selected part, or everything where nothing is selected.
void LinkTranscriptFrm::CopyLines() {
    if (lines_->textCursor().hasSelection())
        lines_->copy();
    else
        QApplication::clipboard()->setText(lines_->toPlainText());
}

void LinkTranscriptFrm::ClearLines() {
    ClearTranscript();
    lines_->clear();
    ShowLines();
}
