#pragma once
// The dialog that sends the active document to the instrument and manages the waveforms stored
// there. It shows and collects; the rules stand in link/SendWaveFuncBox.
#include "link/SendWaveFuncBox.h"
#include "ui/LinkDialog.h"

#include <vector>

class QRadioButton;

class SendWaveFrm final : public LinkDialog {
public:
    explicit SendWaveFrm(const SendKind& kind, QWidget* parent = nullptr);

    void Refresh() override;

protected:
    void Begin() override;
    bool CloseAsked() const override { return bool(dialog_.CloseAsked); }
    void keyPressEvent(QKeyEvent* event) override;

private:
    class NameBox;
    using Act = void (*)(SendDialog&);

    QWidget* MakeSummary();
    QLayout* MakeStoreRows();
    QLayout* MakeManageRows();
    void AddTargets(QGridLayout* form);
    void AddMarks(QGridLayout* form);
    QLabel* MakeCaption(const char* name);
    void AddHead(QGridLayout* form, const char* name);
    void AddHelp(QGridLayout* form, const char* name);
    QComboBox* MakeList(const char* name, void (*pick)(SendDialog&, std::int16_t));
    NameBox* MakeNameBox(const char* name, void (*change)(SendDialog&, std::string_view),
                         Act enter);
    QPushButton* MakeAct(const char* name, Act act);
    void ShowName(NameBox* box, const std::string& name, bool open);
    void RefreshStore();
    void RefreshManage();

    SendDialog dialog_;
    QRadioButton* targets_[2];  // OptionSave: 0 non-volatile, 1 volatile
    QComboBox *locations_, *waves_;
    NameBox *userName_, *allName_;
    std::vector<QWidget*> marks_;
    QLabel* used_;
    QPushButton *save_, *activate_, *rename_, *delete_, *confirm_, *cancel_, *close_;
};
