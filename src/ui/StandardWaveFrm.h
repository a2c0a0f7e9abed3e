#pragma once
// The dialog that inserts a computed waveform or edits one again. It shows and collects; the rules
// stand in calculus/StandardWaveFuncBox.
#include "calculus/StandardWaveFuncBox.h"
#include "ui/DialogBase.h"

class PlotPreview;

class StandardWaveFrm : public DialogBase {
public:
    /// `kind` preselects a wave type, -1 keeps the last one.
    explicit StandardWaveFrm(QWidget* parent = nullptr, int kind = -1);
    /// Shows a dialog filled by others, such as an operand's.
    StandardWaveFrm(QWidget* parent, const StandardWaveDialog& dialog);

    /// The wave as it stands in the boxes that were left.
    const WaveSegment& Wave() const { return dialog_.Wave; }

    /// OK: hands over the box being typed in, then confirms.
    void accept() override;

private:
    struct Field {
        NumberBox* Box;
        QLabel* Label;
        QWidget* Unit;
        std::string (*Text)(const StandardWaveDialog&);
        void (*Leave)(StandardWaveDialog&, std::string_view);
        bool KindFields::*Used;
    };
    using Spin = void (*)(StandardWaveDialog&, std::int32_t, bool);
    using ChangeUnit = void (*)(StandardWaveDialog&, Flag, std::string_view);

    void BuildForm();
    QLabel* MakeUnitLabel(const char* name);
    void AddKinds(QGridLayout* form);
    void AddField(QGridLayout* form, Field field);
    QWidget* MakeWaveSpins(const char* up, const char* down, Spin spin);
    QComboBox* MakeVoltUnits(const char* name, NumberBox* box, ChangeUnit change);
    void LeaveField(const Field& field);
    void PreviewTyped(const Field& field, const QString& typed);
    void ShowFields();
    void ShowPara(QLabel* label, QLabel* unit);
    void ShowPreview(const StandardWaveDialog& dialog);

    StandardWaveDialog dialog_;
    std::vector<Field> fields_;
    QComboBox *kinds_, *amplUnit_, *offsetUnit_;
    QLabel *para1Label_, *para1Unit_, *para2Label_, *para2Unit_;
    PlotPreview* preview_;
};
