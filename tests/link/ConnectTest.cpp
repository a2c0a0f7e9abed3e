#include "frame/FirmwareVersion.h"
#include "link/CommunicateFunBox.h"
#include "link/CommunicateSetting.h"
#include "LinkFixture.h"

namespace {

using ConnectTest = LinkFixture;

// What no flow shows: a type that is none counts as USB, GPIB takes nothing, a line no blocks.
TEST_F(ConnectTest, TransportsByTypeOfLink) {
    const auto said = [this](std::uint8_t ioType, const auto& say) {
        road.clear();
        Link.IOType = ioType;
        return say(), Road();
    };
    const auto text = [] { SendText("*RST"); };
    const auto block = [] { SendBlock(std::vector<std::uint8_t>(3)); };
    EXPECT_EQ(said(9, text) + said(1, text) + said(1, block), Sent("*RST") + "||");
    const auto query = [] { QueryText("*IDN?"); };
    EXPECT_EQ(said(1, query) + said(2, block), "||");
    silentFrom = exchanges + 1;
    EXPECT_EQ(said(2, query),
              Out("*IDN?", 19) + "await|box RS232 Read Message: Read RS232 time out|");
    SetUp();
    failOpening = openings + 1;
    EXPECT_EQ(said(9, block), "RM|box USB Send Message: Cann't Connect to USB Device|");
    EXPECT_TRUE(Link.CommError && !Link.IsConnected);
    SetUp();
    for (const char* port : {"COM1", "/COM3", "COM10"}) {
        Link.RS232Ready = true;
        Link.Port = port;
        RS232Init();
    }
    EXPECT_EQ(Road(),
              "port /dev/ttyS0 9600,n,8,1|close port|port /dev/ttyS2 9600,n,8,1|close port|"
              "box RS232 Init: Invalid port number!|");
    EXPECT_FALSE(Link.RS232Ready);
}

TEST_F(ConnectTest, RepliesAreWhatFitsAndLinesEndAtTheLineFeed) {
    replies["*IDN?"] = {std::string(150, 'a') + std::string(100, 'b'), "7\n"};
    EXPECT_EQ(QueryText("*IDN?"), std::string(150, 'a') + std::string(50, 'b'));
    EXPECT_EQ(QueryText("*IDN?"), "7\n" + std::string(198, '\0'));
    const std::tuple<Texts, std::string, bool, bool> rows[] = {
        {{"AB"}, "AB", true, false},
        {{"A", "B\r", "\n"}, "AB", false, false},
        {{"A\nPARSE FINISHED\n"}, "A", false, false},
        {{"PARSE FIN", "ISHED\r\n"}, "PARSE FINISHED", false, true},
        {{"PARSE FINISHED"}, "PARSE FINISHED", true, true},
        {{std::string(2000000, 'x'), "A\n"}, "A", false, false}};
    for (const auto& [fragments, line, awaited, parsed] : rows) {
        SetUp();
        Link.ReadPending = true;
        Link.ReadTicks = 39;
        for (const std::string& fragment : fragments) RS232OnEvent(2, fragment);
        RS232OnEvent(1004, "noise");
        EXPECT_TRUE(Link.ReadBuffer == line && Link.ReadTicks == 0) << line;
        EXPECT_TRUE(Link.ReadPending == Flag(awaited) && Link.ParseFinished == Flag(parsed));
    }
}

TEST_F(ConnectTest, IdentificationTellsModelFirmwareAndLocations) {
    const std::string field = "NORVIK TECHNOLOGIE,", whole = "NORVIK TECHNOLOGIES,";
    const std::tuple<std::uint8_t, std::string, const char*> rows[] = {
        {0, field + "KT1100,7,02.20.043.00.07SP2\n", "0 old 4"},
        {0, whole + "KT1100,7,02.20.043.00.07SP3\n", "0 new 4"},
        {0, whole + "KT1102,7,02.20.043.00.07SP2\n", "0 variant new 10"},
        {0, whole + "KT2202,7,03.14.070\n", "1 old 4"},
        {0, field + "KT2200,7,03.14.071\r\n", "1 new 4"},
        {0, whole + "KT3300,7,08.06.072\n", "2 old 4"},
        {2, whole + "KT3300,7,08.06.073\r\n", "2 new 4 digital"},
        {0, whole + "VT1100,7,08.06.072\n", "2 old 4"},
        {2, "RrNORVIK " + whole + "KT1100,7,02.20.043.00.07SP2\n", "0 old 4"},
        {0, "R" + whole + "KT1100,7,02.20.043.00.07SP2\n", "none"},
        {0, "NORVIK Technologies,KT1100,7,1\n", "none"},
    };
    for (const auto& [ioType, reply, expected] : rows) {
        SetUp();
        Link.IOType = ioType;
        Link.IsConnected = false;
        replies["*IDN?"] = {reply};
        Link.StoreLocationCount = 10;
        ModelVariant = Link.OldFirmwareKT1100 = Link.OldFirmwareKT2200 = true;
        ToggleConnection();
        const std::string found =
            std::to_string(Link.ConnectedModel) + (ModelVariant ? " variant" : "") +
            (HasOldFirmware() ? " old " : " new ") + std::to_string(Link.StoreLocationCount) +
            (HasDigitalWaves() ? " digital" : "");
        EXPECT_EQ(Link.IsConnected ? found : "none", expected) << reply;
        EXPECT_EQ(Joined(Boxes()), Link.IsConnected ? "" : "Connect to KT: Device not found");
    }
}

// T and F: at or below the threshold or not; ?: not comparable.
TEST_F(ConnectTest, FirmwareIsComparedFieldByField) {
    const std::string kt1100 = "02.20.043.00.07SP2", kt2200 = "03.14.070";
    const std::tuple<std::string, char, Texts> rows[] = {
        {kt1100, 'T', {kt1100, "02.20.043.00.07SP1", "02.20.043.00.07", "02.20.043.00.06SP9"}},
        {kt1100, 'F', {"02.20.043.00.07SP3", "02.20.043.00.08", "02.20.043.01.7SP2"}},
        {kt1100, '?', {"02.20.043.00.7SP2", "02.20.043.00.007"}},
        {kt2200, 'T', {kt2200, "V 03.14.070\r\n,9", "03.13.999", "03.14.069SP1"}},
        {kt2200, 'T', {{"03.14.070\0SP", 12}}},
        {kt2200, 'F', {"03.14.071", "04.00.000", "03.14.070SP1"}},
        {kt2200, '?', {"03.14.070sp1", "03.14", "03.14.070.1", "03.1x.070", "3.14.070", "none"}}};
    for (const auto& [threshold, expected, versions] : rows)
        for (std::string version : versions) {
            const Flag first = IsFirmwareAtOrBelow(version, threshold, true);
            const Flag second = IsFirmwareAtOrBelow(version, threshold, false);
            EXPECT_EQ(first != second ? '?' : first ? 'T' : 'F', expected) << version;
        }
}

TEST_F(ConnectTest, SettingsComeBackAndGarbageDoesNot) {
    const auto state = [] {
        LoadLinkSettings();
        return std::to_string(Link.IOType) + Link.PrimaryAddress + Link.Port + " " +
               std::to_string(Link.BaudRate) + " " + Link.Hand_Shake +
               std::to_string(Link.ParityDataBits);
    };
    EXPECT_EQ(state(), "01COM1 9600 None0");
    CommunicateDialog form;
    for (const int found : {12, 0, 1}) {  // eleven are kept
        resources = Texts(found, "USB0::1");
        resources.insert(resources.begin(), {"ASRL1", "usb0"});
        Link.UsbResourceIndex = 10;
        OpenCommunicateDialog(form);
        EXPECT_EQ(Link.UsbResourceIndex, found == 12 ? 10 : 0);  // of the entry that is shown
        EXPECT_EQ(form.Devices,
                  found > 0 ? Texts(std::min(found, 11), "USB0::1") : Texts{"No Device"});
    }
    form.IOType = form.ParityDataBits = 2;
    form.PrimaryAddress = "5";
    form.Port = "COM3";
    form.BaudRate = "115200";
    form.Hand_Shake = "RTS";
    PickSerialDevice(form, "/dev/ttyUSB0");
    Link.IsConnected = true;
    road.clear();
    ConfirmCommunicateDialog(form);
    EXPECT_EQ(Road(), Sent("SYSTEM:LOCAL"));  // over the link that was in use
    EXPECT_EQ(state(), "25COM3 115200 RTS2");
    EXPECT_EQ(DeviceOfPort(3) + DeviceOfPort(2), "/dev/ttyUSB0/dev/ttyS1");
    form.IOType = 1;
    form.BaudRate = "0";
    ConfirmCommunicateDialog(form);
    EXPECT_EQ(state(), "05COM3 115200 RTS2");
    SaveSetting("KT3300Arb", "IOSetting", "IOType", "256");
    SaveSetting("KT3300Arb", "RS232", "ParityDataBits", "x");
    for (const char* baud : {"", "-5", "96 00"}) {
        SaveSetting("KT3300Arb", "RS232", "BaudRate", baud);
        EXPECT_EQ(state(), "05COM3 9600 RTS0") << baud;
    }
}

}  // namespace
