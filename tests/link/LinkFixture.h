#pragma once
// An instrument behind both transports that answers from a table and fails on request, and one list
// of all that the link does: calls, pauses, boxes and the progress bar, in order.
#include "analog/AnalogFixture.h"
#include "digital/GlobalDigitDefineCode.h"
#include "link/AnalogTransfer.h"
#include "link/ConnectFuncBox.h"
#include "link/RS232FuncBox.h"
#include "link/SendWaveFuncBox.h"
#include "link/UploadFuncBox.h"
#include "platform/SerialPort.h"
#include "platform/Settings.h"
#include "platform/TempFolder.h"
#include "platform/VisaApi.h"

#include <map>
#include <tuple>

class LinkFixture : public AnalogFixture, protected TempFolder {
public:
    using Texts = std::vector<std::string>;

    /// Connected over USB, with a document of the codes 0, 8192 and 16383 at 100 kHz and 4 V.
    void SetUp() override {
        AnalogFixture::SetUp();
        UseSettingsStore(PathOf("settings.ini"));
        LoadLinkSettings();
        Link.UsbResourceList[0] = "USB0::1";
        Link.IsConnected = true;
        AnalogWaveRecord& wave = MakeDocument("c", 3, 3);
        for (int i = 0; i < 3; ++i) wave.DotArray[i].Y = i - 1;
        wave.Period = 1e-5;
        wave.Vpp = 4.0;
        dialog = SendDialog();
        load = DownLoadDialog();
        load.AllWaveName = {"A1"};
        DigitDocTable = {};
        DigitDocUsed.fill(false);
        DigitDocCount = 0;
        tag = -1;
        road = packets = {};
        pending = bar = "";
        openings = exchanges = pauses = failOpening = failOutput = silentFrom = cancelAt = idle = 0;
        slow = portOpen = false;
        replies = {{"*IDN?", {"NORVIK TECHNOLOGIES,KT2200,1,03.14.071\n"}},
                   {"DATA:Catalog?", {Quoted("SINC,VOLATILE,A1,B2") + "\n"}},
                   {"DATA:Nvolatile:FREE?", {"2\n"}},
                   {"FREQuency?", {"1E+3\n"}},
                   {"VOLTage?", {"15\n"}},
                   {"VOLTage:OFFSet?", {"5\n"}}};
        ScriptUserAndPort();
        ScriptVisa();
    }
    /// A KT3300 with digital waveforms, both dialogs for them, and an active document of one node
    /// for each row of channels; word n is `words`[n].
    DigitDocument& UseDigital(const std::vector<std::vector<std::uint8_t>>& nodes,
                              std::vector<std::int32_t> words) {
        Link.ConnectedModel = 2;
        dialog.Kind = &SendDigitKind;
        load.Kind = &UploadDigitKind;
        tag = FirstDigitTag;
        replies["DIGIT:PROTOCOL?"] = {Quoted("USB,VOLATILE") + "\n"};
        replies["DATA:DIGIT:Catalog?"] = {Quoted("VOLATILE,A1") + "\n"};
        replies["DIGIT:RATE?"] = {"100 Kbps\n"};
        DigitDocCount = 1;
        DigitDocUsed[0] = true;
        DigitDocument& document = DigitAt(0) = DigitDocument();
        document.Dots = document.SampleCount = static_cast<std::int32_t>(words.size());
        document.DigitSamples = std::move(words);
        document.NodeCount = static_cast<std::uint8_t>(nodes.size());
        for (const auto& channels : nodes) {
            DigitNode& node = document.Nodes.emplace_back();
            node.Width = static_cast<std::int16_t>(channels.size());
            std::ranges::copy(channels, node.Channels.begin());
            document.ChannelCount = static_cast<std::uint8_t>(document.ChannelCount + node.Width);
        }
        return document;
    }
    static std::string Joined(const auto& texts, const char* between = ",") {
        std::string all;
        for (const auto& text : texts) all.append(all.empty() ? "" : between).append(text);
        return all;
    }
    /// "A,B" as instruments list names, each in quotes.
    static std::string Quoted(const std::string& names) {
        std::string list = "\"";
        for (const char c : names) list += c == ',' ? std::string(R"(",")") : std::string(1, c);
        return list + '"';
    }
    std::string Road() const { return Joined(road, "|") + "|"; }
    Texts Boxes() const {
        Texts boxes;
        for (const std::string& step : road)
            if (step.starts_with("box ")) boxes.push_back(step.substr(4));
        return boxes;
    }

    SendDialog dialog;
    DownLoadDialog load;                   // with the one name A1
    Texts road, packets;                   // packets: data, whole
    std::map<std::string, Texts> replies;  // for each time it is asked, the last one from then on
    std::vector<Answer> answers;           // to the next boxes; then `answer`
    Texts resources;                       // of the scan
    int failOpening, failOutput, silentFrom, cancelAt;  // at which step, from 1; 0: never
    int openings, exchanges, pauses;                    // steps so far
    bool held = false;                                  // input is held
    bool slow;  // serial replies come when nothing else is done

private:
    ViStatus Say(const std::string& step) {
        road.push_back(step);
        return VisaSuccess;
    }
    void Pause(const std::string& step) {
        Say(step);
        if (Link.IOType == SerialLink && !pending.empty() && (!slow || step == "await"))
            RS232OnEvent(SerialInput, std::exchange(pending, {}));
        if (++pauses != cancelAt && idle != 100) return;
        Say("cancel");
        CancelLinkWork();
    }
    std::string Hear(const std::string& text) {
        const bool data = text.starts_with("DATA:DAC") || text.starts_with("DATA:DIGITAL16");
        if (data) packets.push_back(text);
        idle = 0;
        if (++exchanges >= silentFrom && silentFrom > 0) return {};
        if (data || text.starts_with("DATA:COPY")) return "PARSE FINISHED\n";
        Texts& known = replies[text];
        std::string reply = known.empty() ? "" : known.front();
        if (known.size() > 1) known.erase(known.begin());
        return reply;
    }
    void ScriptUserAndPort() {
        Host& host = TheHost();
        host.ShowBox = [this](auto text, auto, auto, auto title) {
            Say("box " + std::string(title) + ": " + std::string(text));
            const std::size_t boxes = Boxes().size();
            return boxes > answers.size() ? answer : answers[boxes - 1];
        };
        host.Wait = [this](std::int32_t time) { Pause("sleep " + std::to_string(time)); };
        host.Pump = [this] { Pause("pump"); };
        // A tenth of a second; a user who sees nothing happen for ten seconds gives up.
        host.AwaitEvent = [this] {
            CountReadTick();
            if (idle++ > 0) road.pop_back();
            Pause("await");
        };
        host.HoldInput = [this](bool begins) { held = begins; };
        host.ShowLink = [this] {
            const std::string now = Link.ProgressShown ? std::to_string(Link.ProgressValue) : "";
            if (now != std::exchange(bar, now)) Say("bar " + now);
        };
        SerialPort& port = TheSerialPort();
        port.IsOpen = [this] { return portOpen; };
        port.Close = [this] { Say("close port"); };
        port.Open = [this](const std::string& device, const std::string& settings) {
            portOpen = Say("port " + device + " " + settings) == VisaSuccess;
            return std::string();
        };
        port.Output = [this](std::string_view bytes) {
            const std::string text(bytes.substr(0, bytes.find('\r')));
            Say("out " + text + (bytes.substr(text.size()) == "\r" ? "<0D>" : "<?>"));
            pending = Hear(text);
            return std::string(exchanges == failOutput ? "unplugged" : "");
        };
    }
    void ScriptVisa() {
        VisaApi& visa = TheVisa();
        visa.viOpenDefaultRM = [this](ViSession* manager) {
            *manager = 1;
            Say("RM");
            return ++openings == failOpening ? VisaSystemError : VisaSuccess;
        };
        visa.viOpen = [this](auto, const char* name, auto, auto, ViSession* instrument) {
            *instrument = 2;
            return Say("open " + std::string(name));
        };
        visa.viSetAttribute = [this](auto, std::uint32_t attribute, std::uint64_t value) {
            return Say((attribute == 0x3FFF001A ? "timeout " : "?") + std::to_string(value));
        };
        visa.viWrite = [this](auto, const std::uint8_t* bytes, auto count, auto*) {
            const std::string text(reinterpret_cast<const char*>(bytes), count);
            const bool block = text.starts_with("DATA:DAC16") || text.starts_with("DATA:DIGITAL16");
            if (count > 0) pending = Hear(text);
            return Say("write " + (block ? "[" + std::to_string(count) + "]" : text));
        };
        visa.viRead = [this](auto, std::uint8_t* bytes, auto count, auto* read) {
            *read = static_cast<std::uint32_t>(pending.copy(reinterpret_cast<char*>(bytes), count));
            pending.clear();
            return Say("read " + std::to_string(count));
        };
        visa.viClose = [this](ViSession one) { return Say("close " + std::to_string(one)); };
        visa.viFindNext = [this](auto, char* name) {
            name[resources.front().copy(name, VisaNameLength)] = '\0';
            resources.erase(resources.begin());
            return VisaSuccess;
        };
        visa.viFindRsrc = [this](auto, const char* expression, auto, auto* count, char* name) {
            *count = static_cast<std::uint32_t>(resources.size());
            if (resources.empty() || expression != std::string("?*")) return VisaNotFound;
            return TheVisa().viFindNext(0, name);
        };
    }

    std::string pending, bar;  // a reply on its way; the bar as shown
    int idle;                  // waits since the last exchange
    bool portOpen;
};

// The exchanges over USB and over the serial line, where a line drains for `drain` milliseconds.
inline std::string Sent(const std::string& text) {
    return "RM|open USB0::1|timeout 5000|write " + text + "|close 2|close 1|";
}
inline std::string Asked(const std::string& text) {
    return Sent(text) + "pump|sleep 100|RM|open USB0::1|sleep 100|timeout 5000|sleep 100|write |" +
           "sleep 200|read 200|sleep 50|close 2|close 1|";
}
inline std::string Out(const std::string& text, int drain) {
    return "out " + text + "<0D>|sleep 200|sleep " + std::to_string(drain) + "|";
}
