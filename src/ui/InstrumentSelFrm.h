#pragma once
// The dialog that chooses the instrument to edit waveforms for. The rules stand in
// link/CommunicateSetting.
#include "link/CommunicateSetting.h"
#include "ui/DialogBase.h"

class InstrumentSelFrm : public DialogBase {
public:
    explicit InstrumentSelFrm(QWidget* parent = nullptr);

    void accept() override;
    /// The end of the dialog, confirmed or not.
    void done(int result) override;

private:
    void ShowFields();

    InstrumentSelDialog dialog_;
    QComboBox* models_;
    QLabel* note_;
};
