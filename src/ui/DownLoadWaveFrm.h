#pragma once
// The dialog that reads a waveform back from the instrument. It shows and collects; the rules
// stand in link/UploadFuncBox.
#include "link/UploadFuncBox.h"
#include "ui/LinkDialog.h"

class DownLoadWaveFrm final : public LinkDialog {
public:
    explicit DownLoadWaveFrm(const UploadKind& kind, QWidget* parent = nullptr);

    void Refresh() override;

protected:
    void Begin() override;
    bool CloseAsked() const override { return bool(dialog_.CloseAsked); }

private:
    DownLoadDialog dialog_;
    QComboBox* waves_;
    QPushButton *load_, *cancel_;
};
