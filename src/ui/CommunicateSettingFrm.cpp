#include "ui/CommunicateSettingFrm.h"

#include "platform/qt/QtText.h"
#include "ui/Controls.h"

#include <algorithm>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpressionValidator>

// One form with a section for each transport: its option, then its rows, which are open while the
// option is chosen.

namespace {

constexpr int NameWidth = 368;  // pixels: a resource name with a long serial number
constexpr int ChoiceWidth = 160;
constexpr int SectionGap = 4;   // more than between two rows
constexpr int InfoHeight = 16;  // whatever the script, whose fonts differ in height
constexpr int ParityCount = 3;

// A value that the list does not offer stands behind the others, so that opening the dialog does
// not change it.
template <std::size_t N>
QStringList Choices(const std::array<std::string_view, N>& offered, const std::string& value) {
    QStringList entries;
    for (const std::string_view text : offered) entries << ToQt(text);
    if (!entries.contains(ToQt(value))) entries << ToQt(value);
    return entries;
}

// The start of a long name tells instruments apart, down to the serial number.
void ShowList(QComboBox& list, const QStringList& entries, int current) {
    list.clear();
    AddShortened(&list, entries, Qt::ElideRight);
    list.setCurrentIndex(current);
    list.setToolTip(list.currentData(Qt::ToolTipRole).toString());
}

void ShowList(QComboBox& list, const QStringList& entries, const std::string& current) {
    ShowList(list, entries, static_cast<int>(entries.indexOf(ToQt(current))));
}

}  // namespace

CommunicateSettingFrm::CommunicateSettingFrm(QWidget* parent)
    : DialogBase("CommunicateSettingFrm", parent) {
    OpenCommunicateDialog(dialog_);
    BuildForm();
    ApplyTexts();
    ShowFields();
    const std::array<QWidget*, 3> first = {devices_, address_, ports_};
    for (std::size_t type = 0; type < first.size(); ++type)
        if (options_[type]->isChecked()) first[type]->setFocus();
}

void CommunicateSettingFrm::BuildForm() {
    QGridLayout* form = MakeForm();
    AddUsb(form);
    AddGpib(form);
    AddSerial(form);
    QPushButton* rescan = MakeButton("RescanAresBtn");
    connect(rescan, &QPushButton::clicked, this, [this] {
        RescanDevices(dialog_);
        ShowFields();
    });
    QHBoxLayout* buttons = MakeButtonRow();
    buttons->insertWidget(0, rescan);
    LayOut(form, buttons);
}

void CommunicateSettingFrm::AddUsb(QGridLayout* form) {
    BeginSection(form, "USBOption", 0);
    devices_ = AddChoice(form, "cmbDevice", "DeviceLab", NameWidth);
    connect(devices_, &QComboBox::activated, this, [this](int index) {
        PickUsbDevice(dialog_, static_cast<std::int16_t>(index));
        ShowFields();
    });
}

void CommunicateSettingFrm::AddGpib(QGridLayout* form) {
    BeginSection(form, "GPIBOption", 1);
    address_ = MakeBox("AddressTxt", KeyKind::Whole);
    AddField(form, "AddressLab", address_, ChoiceWidth);
    AddInfo(form, "GPIBInfo");
    connect(address_, &QLineEdit::textEdited, this,
            [this](const QString& typed) { dialog_.PrimaryAddress = typed.toStdString(); });
}

void CommunicateSettingFrm::AddSerial(QGridLayout* form) {
    BeginSection(form, "RS232Option", 2);
    ports_ = AddChoice(form, "PortCmb", "PortLab", ChoiceWidth);
    serialDevices_ = AddChoice(form, "SerialDeviceCmb", "SerialDeviceLab", NameWidth);
    AddBaudRate(form);
    handShakes_ = AddChoice(form, "HandshakeCmb", "HandshakeLab", ChoiceWidth);
    parities_ = AddChoice(form, "ParityCmb", "ParityLab", ChoiceWidth);
    parities_->addItems(EntryTexts("ParityCmb", ParityCount));
    AddInfo(form, "LineInfo");
    connect(ports_, &QComboBox::textActivated, this, [this](const QString& port) {
        dialog_.Port = port.toStdString();
        ShowFields();
    });
    connect(serialDevices_, &QComboBox::activated, this, [this](int index) {
        PickSerialDevice(dialog_, serialDevices_->itemData(index).toString().toStdString());
        ShowFields();
    });
    connect(handShakes_, &QComboBox::textActivated, this,
            [this](const QString& text) { dialog_.Hand_Shake = text.toStdString(); });
    connect(parities_, &QComboBox::activated, this,
            [this](int index) { dialog_.ParityDataBits = static_cast<std::uint8_t>(index); });
}

void CommunicateSettingFrm::AddBaudRate(QGridLayout* form) {
    baudRates_ = AddChoice(form, "BaudCmb", "BaudLab", ChoiceWidth);
    baudRates_->setEditable(true);
    baudRates_->setInsertPolicy(QComboBox::NoInsert);
    baudRates_->setCompleter(nullptr);
    static const QRegularExpression digits(QStringLiteral("[0-9]{0,9}"));
    baudRates_->setValidator(new QRegularExpressionValidator(digits, baudRates_));
    for (const std::string_view rate : BaudRates) baudRates_->addItem(ToQt(rate));
    const auto take = [this](const QString& text) { dialog_.BaudRate = text.toStdString(); };
    connect(baudRates_, &QComboBox::textActivated, this, take);
    connect(baudRates_->lineEdit(), &QLineEdit::textEdited, this, take);
    // An editable list keeps Enter from the default button.
    connect(baudRates_->lineEdit(), &QLineEdit::returnPressed, this,
            &CommunicateSettingFrm::accept);
}

void CommunicateSettingFrm::BeginSection(QGridLayout* form, const char* name, std::uint8_t type) {
    section_ = &sections_[type];
    auto* option = Make<QRadioButton>(name);
    options_[type] = option;
    if (type > 0) form->setRowMinimumHeight(form->rowCount(), SectionGap);
    form->addWidget(option, form->rowCount(), 0, 1, 5, Qt::AlignLeft);
    connect(option, &QRadioButton::clicked, this, [this, type] {
        dialog_.IOType = type;
        ShowFields();
    });
}

void CommunicateSettingFrm::AddField(QGridLayout* form, const char* label, QWidget* field,
                                     int width) {
    field->setFixedWidth(width);
    QLabel* text = MakeLabel(label, field);
    AddRow(form, text, field, nullptr);
    form->setAlignment(field, Qt::AlignLeft | Qt::AlignVCenter);
    section_->insert(section_->end(), {text, field});
}

QComboBox* CommunicateSettingFrm::AddChoice(QGridLayout* form, const char* name, const char* label,
                                            int width) {
    auto* list = Make<QComboBox>(name);
    AddField(form, label, list, width);
    return list;
}

void CommunicateSettingFrm::AddInfo(QGridLayout* form, const char* name) {
    QLabel* info = MakeLabel(name);
    info->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    info->setProperty("dim", true);
    info->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // no text widens the window
    info->setFixedHeight(InfoHeight);
    AddRow(form, nullptr, info, nullptr);
    section_->push_back(info);
}

void CommunicateSettingFrm::ShowFields() {
    const std::size_t type = dialog_.IOType < options_.size() ? dialog_.IOType : 0;
    options_[type]->setChecked(true);
    for (std::size_t i = 0; i < sections_.size(); ++i)
        for (QWidget* widget : sections_[i]) widget->setEnabled(i == type);
    QStringList devices;
    for (const std::string& device : dialog_.Devices) devices << ToQt(device);
    ShowList(*devices_, devices, dialog_.DeviceIndex);
    address_->setText(ToQt(dialog_.PrimaryAddress));
    ShowList(*ports_, Choices(PortNames, dialog_.Port), dialog_.Port);
    ShowSerialDevices();
    baudRates_->setCurrentIndex(baudRates_->findText(ToQt(dialog_.BaudRate)));
    baudRates_->setEditText(ToQt(dialog_.BaudRate));
    ShowList(*handShakes_, Choices(HandShakes, dialog_.Hand_Shake), dialog_.Hand_Shake);
    parities_->setCurrentIndex(dialog_.ParityDataBits);
}

void CommunicateSettingFrm::ShowSerialDevices() {
    const std::string chosen = SerialDeviceOf(dialog_);
    std::vector<SerialDevice> devices = dialog_.SerialDevices;
    if (!chosen.empty() && std::ranges::find(devices, chosen, &SerialDevice::Path) == devices.end())
        devices.push_back({chosen, {}});
    QStringList entries;
    for (const SerialDevice& device : devices)
        entries << (ToQt(device.Path) + QLatin1String("  ") + ToQt(device.What)).trimmed();
    const auto at = std::ranges::find(devices, chosen, &SerialDevice::Path) - devices.begin();
    ShowList(*serialDevices_, entries, chosen.empty() ? -1 : static_cast<int>(at));
    for (int i = 0; i < serialDevices_->count(); ++i)
        serialDevices_->setItemData(i, ToQt(devices[static_cast<std::size_t>(i)].Path));
}

void CommunicateSettingFrm::accept() {
    ConfirmCommunicateDialog(dialog_);
    DialogBase::accept();
}
