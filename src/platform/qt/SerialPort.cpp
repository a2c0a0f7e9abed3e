#include "platform/qt/SerialPort.h"

#include "platform/qt/QtText.h"
#include "platform/SimulatorPlace.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <QCoreApplication>
#include <QPointer>
#include <QSerialPort>
#include <QSerialPortInfo>

// The port belongs to the application, since it cannot outlive the event loop that it reads and
// writes by. Nothing is flushed: a flush into a full line fails with the error of a lost port,
// while the loop writes whenever the line takes something.

namespace {

constexpr const char* NotOpen = "The port is not open";
constexpr const char* Lost = "The port was lost";

struct Line {
    QPointer<QSerialPort> Port;
    std::string Fault = NotOpen;  // why nothing can be sent while the port is closed
};

struct LineSettings {
    std::int32_t BaudRate = 0;
    QSerialPort::Parity Parity = QSerialPort::NoParity;
    QSerialPort::DataBits DataBits = QSerialPort::Data8;
    QSerialPort::StopBits StopBits = QSerialPort::OneStop;
};

// "9600,n,8,1": bits per second, parity, data bits, stop bits. False where a part is missing or
// none that a line knows.
bool ReadSettings(const std::string& text, LineSettings& settings) {
    constexpr std::pair<char, QSerialPort::Parity> Parities[] = {{'n', QSerialPort::NoParity},
                                                                 {'e', QSerialPort::EvenParity},
                                                                 {'o', QSerialPort::OddParity},
                                                                 {'m', QSerialPort::MarkParity},
                                                                 {'s', QSerialPort::SpaceParity}};
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, settings.BaudRate);
    if (error != std::errc() || settings.BaudRate <= 0) return false;
    if (end - rest != 6 || rest[0] != ',' || rest[2] != ',' || rest[4] != ',') return false;
    const auto* const parity =
        std::ranges::find(Parities, rest[1], &std::pair<char, QSerialPort::Parity>::first);
    if (parity == std::end(Parities)) return false;
    if (rest[3] < '5' || rest[3] > '8' || rest[5] < '1' || rest[5] > '2') return false;
    settings.Parity = parity->second;
    settings.DataBits = static_cast<QSerialPort::DataBits>(rest[3] - '0');
    settings.StopBits = rest[5] == '1' ? QSerialPort::OneStop : QSerialPort::TwoStop;
    return true;
}

void Forward(QSerialPort& port) {
    const QByteArray bytes = port.readAll();
    if (bytes.isEmpty()) return;
    TheSerialPort().OnEvent(SerialInput, {bytes.data(), static_cast<std::size_t>(bytes.size())});
}

// After a hang-up each turn of the loop would report a failed read again, with an error text that
// has nothing to do with it.
void TakeError(Line& line, QSerialPort::SerialPortError error) {
    if (!line.Port->isOpen()) return;
    if (error == QSerialPort::NoError || error == QSerialPort::UnsupportedOperationError) return;
    line.Fault = Lost;
    line.Port->close();
    TheSerialPort().OnEvent(SerialGone, {});
}

void CloseLine(Line& line) {
    if (line.Port && line.Port->isOpen()) line.Port->close();
    line.Fault = NotOpen;
}

std::string OpenLine(Line& line, const std::string& device, const std::string& settings) {
    CloseLine(line);
    if (!line.Port) return NotOpen;
    LineSettings wanted;
    if (!ReadSettings(settings, wanted)) return "Invalid line settings: " + settings;
    QSerialPort& port = *line.Port;
    port.setPortName(ToQt(device));
    port.setBaudRate(wanted.BaudRate);
    port.setParity(wanted.Parity);
    port.setDataBits(wanted.DataBits);
    port.setStopBits(wanted.StopBits);
    port.setFlowControl(QSerialPort::NoFlowControl);
    if (port.open(QIODevice::ReadWrite)) return {};
    return port.errorString().toStdString();
}

std::string Write(Line& line, std::string_view bytes) {
    if (!line.Port || !line.Port->isOpen()) return line.Fault;
    const auto count = static_cast<qint64>(bytes.size());
    if (line.Port->write(bytes.data(), count) == count) return {};
    return line.Port->errorString().toStdString();
}

std::vector<SerialDevice> FindDevices() {
    std::vector<SerialDevice> devices;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        const QString what = info.manufacturer() + ' ' + info.description();
        devices.push_back({info.systemLocation().toStdString(), what.trimmed().toStdString()});
    }
    for (const std::string& path : SimulatorPorts()) devices.push_back({path, "tidemark-sim"});
    return devices;
}

}  // namespace

SerialPort QtSerialPort() {
    const auto line = std::make_shared<Line>();
    line->Port = new QSerialPort(QCoreApplication::instance());
    QObject::connect(line->Port, &QSerialPort::readyRead, line->Port,
                     [line] { Forward(*line->Port); });
    QObject::connect(line->Port, &QSerialPort::errorOccurred, line->Port,
                     [line](QSerialPort::SerialPortError error) { TakeError(*line, error); });
    return {
        .Open = [line](const std::string& device,
                       const std::string& settings) { return OpenLine(*line, device, settings); },
        .IsOpen = [line] { return line->Port && line->Port->isOpen(); },
        .Close = [line] { CloseLine(*line); },
        .Output = [line](std::string_view bytes) { return Write(*line, bytes); },
        .Devices = FindDevices,
        .OnEvent = TheSerialPort().OnEvent,
    };
}
