#pragma once
// The dialog that chooses the way to the instrument. It shows and collects; the rules stand in
// link/CommunicateSetting.
#include "link/CommunicateSetting.h"
#include "ui/DialogBase.h"

#include <array>
#include <vector>

class QRadioButton;

class CommunicateSettingFrm : public DialogBase {
public:
    /// Scans for instruments and serial ports first.
    explicit CommunicateSettingFrm(QWidget* parent = nullptr);

    /// OK: saves the settings and ends the connection.
    void accept() override;

private:
    void BuildForm();
    void AddUsb(QGridLayout* form);
    void AddGpib(QGridLayout* form);
    void AddSerial(QGridLayout* form);
    void AddBaudRate(QGridLayout* form);
    void BeginSection(QGridLayout* form, const char* name, std::uint8_t type);
    void AddField(QGridLayout* form, const char* label, QWidget* field, int width);
    QComboBox* AddChoice(QGridLayout* form, const char* name, const char* label, int width);
    void AddInfo(QGridLayout* form, const char* name);
    void ShowFields();
    void ShowSerialDevices();

    CommunicateDialog dialog_;
    std::array<QRadioButton*, 3> options_{};         // by IOType
    std::array<std::vector<QWidget*>, 3> sections_;  // what belongs to each option
    std::vector<QWidget*>* section_ = nullptr;       // the one being built
    QComboBox *devices_, *ports_, *serialDevices_, *baudRates_, *handShakes_, *parities_;
    NumberBox* address_;
};
