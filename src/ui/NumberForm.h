#pragma once
// A dialog of a few numbers, each with its spin buttons, beside a plot of what they make. The plot
// follows the keys; the dialog's values change when a box is left or a spin button ticks.
#include "platform/qt/QtText.h"
#include "ui/DialogBase.h"
#include "ui/PlotPreview.h"

#include <optional>
#include <span>
#include <utility>

/// `Dialog` is the record of the numbers, whose rules stand in calculus.
template <typename Dialog>
class NumberForm : public DialogBase {
protected:
    struct Number {
        const char *Box, *Label, *Up, *Down;  // names of the controls
        std::string (*Text)(const Dialog&);
        void (*Leave)(Dialog&, std::string_view);
        void (*Spin)(Dialog&, std::int32_t tick, bool up);
    };

    NumberForm(const char* window, QWidget* parent, Dialog dialog)
        : DialogBase(window, parent), dialog_(std::move(dialog)), form_(MakeForm()) {}

    void AddNumber(const Number& number) {
        NumberBox* box = MakeBox(number.Box, KeyKind::Whole);
        box->setFixedWidth(DialogFieldWidth);
        QWidget* spins = MakeSpins(number.Up, number.Down, [this, number](int count, bool up) {
            number.Spin(dialog_, count, up);
            ShowFields();
        });
        AddRow(form_, MakeLabel(number.Label, box), box, spins);
        connect(box, &NumberBox::left, this, [this, number](const QString& text) {
            number.Leave(dialog_, text.toStdString());
            ShowFields();
        });
        connect(box, &NumberBox::textEdited, this, [this, number](const QString& typed) {
            if (!HasDigit(typed)) return;
            Dialog tried = dialog_;
            number.Leave(tried, typed.toStdString());
            Preview(tried);
        });
        fields_.emplace_back(box, number.Text);
    }

    /// Lays the window out once it has its rows, and fills it. `before` are the dots as they are.
    void Finish(QLayout* buttons, std::span<const WaveDot> before) {
        form_->setRowStretch(form_->rowCount(), 1);
        preview_ = new PlotPreview(this);
        preview_->ShowUnder(before);
        LayOut(MakeHalves(form_, MakePlot(preview_)), buttons);
        ApplyTexts();
        ShowFields();
        fields_.front().first->setFocus();
    }

    /// Shows what new numbers make, which may be those of a box still being typed in.
    virtual void ShowPreview(const Dialog& dialog) = 0;

    Dialog dialog_;
    QGridLayout* form_;
    PlotPreview* preview_ = nullptr;
    std::optional<Dialog> previewed_;  // what the preview shows or is about to

private:
    void ShowFields() {
        for (const auto& [box, text] : fields_) box->setText(ToQt(text(dialog_)));
        Preview(dialog_);
    }

    void Preview(const Dialog& dialog) {
        if (previewed_ == dialog) return;
        previewed_ = dialog;
        ShowPreview(dialog);
    }

    std::vector<std::pair<NumberBox*, std::string (*)(const Dialog&)>> fields_;
};
