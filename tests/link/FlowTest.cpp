#include "LinkFixture.h"

#include <set>

namespace {

struct Flow {
    std::uint8_t IOType, Model;
    std::string What, Road;
};

// Drain times: 3.125 ms for each character of a line and its carriage return, ties to even.
std::vector<Flow> DigitFlows() {
    const std::string names = "sleep 200|" + Asked("DIGIT:PROTOCOL?") +
                              Asked("DATA:DIGIT:Catalog?") + Asked("DATA:Nvolatile:FREE?") +
                              Asked("DATA:Nvolatile:FREE?") + Asked("DATA:Catalog?");
    const std::string data =
        "bar 0|RM|open USB0::1|timeout 5000|write [44]|sleep 500|close 2|"
        "close 1|sleep 100|sleep 200|bar 100|pump|";
    const std::string rate = "sleep 100|" + Sent("DIGIT:RATE 100000");
    const std::string finish = Sent("DIGIT:FINISH");
    const std::string pattern =
        Sent("DIGIT:PROTOCOL PO") + rate + Sent("DIGIT:USER VOLATILE") + finish;
    const std::string words = Sent("DATA:DIGIT:LOAD A1") + "sleep 200|" +
                              "sleep 1000|RM|open USB0::1|sleep 100|timeout 5000|sleep 100|write |"
                              "sleep 500|read 1048576|sleep 2000|close 2|close 1|";
    const std::string lines = "sleep 200|" + Out("DIGIT:PROTOCOL?", 50) +
                              Out("DATA:DIGIT:Catalog?", 62) + Out("DATA:Nvolatile:FREE?", 66) +
                              Out("DATA:Nvolatile:FREE?", 66) + Out("DATA:Catalog?", 44);
    return {
        {0, 2, "digit volatile", data + pattern + "bar |"},
        {0, 2, "digit store",
         data + "pump|" + Sent("DATA:DIGIT:COPY NEW") + Sent("") + rate + Sent("DIGIT:USER NEW") +
             finish + names + "bar |"},
        {0, 2, "digit rename", Sent("DATA:REName A1 C3") + names},
        {0, 2, "digit delete", Sent("DATA:DELete A1") + names},
        {0, 2, "digit activate", Sent("") + rate + Sent("DIGIT:USER A1") + finish},
        {0, 2, "digit activate protocol", Sent("DIGIT:PROTOCOL USB") + finish},
        {0, 2, "digit activate volatile", pattern},
        {0, 2, "digit open", names},
        {0, 2, "digit open to load",
         Sent("DATA:DIGIT:Catalog?") + Asked("DATA:DIGIT:Catalog?") + "sleep 1000|"},
        {0, 2, "digit load",
         "bar 1|" + words + words + "bar 50|sleep 200|pump|" + words + "bar 100|sleep 200|pump|" +
             Asked("DIGIT:RATE?") + "bar |"},
        {2, 2, "digit rename", Out("DATA:REName A1 C3", 56) + lines},
        {2, 2, "digit delete", Out("DATA:DELete A1", 47) + lines},
        {2, 2, "digit activate",
         Out("", 3) + "sleep 100|" + Out("DIGIT:RATE 100000", 56) + Out("DIGIT:USER A1", 44) +
             Out("DIGIT:FINISH", 41)},
        {2, 2, "digit open", lines},
    };
}

std::vector<Flow> Flows() {
    const std::string names =
        Asked("DATA:Catalog?") + "sleep 200|" + Asked("DATA:Nvolatile:FREE?") + "sleep 200|";
    const std::string data =
        "bar 0|RM|open USB0::1|timeout 5000|write [42]|sleep 500|close 2|"
        "close 1|sleep 100|sleep 200|bar 90|pump|";
    const std::string apply = "sleep 100|sleep 100|" + Sent("APPLy:USER 100000,4,0") + "sleep 100|";
    const std::string block =
        "sleep 1000|RM|open USB0::1|sleep 100|timeout 5000|sleep 100|write |"
        "sleep 500|read 1048576|sleep 2000|close 2|close 1|";
    const std::string words = Sent("DATA:LOAD A1") + "sleep 200|" + block;
    const std::string lines = Out("DATA:Catalog?", 44) + "sleep 300|sleep 200|" +
                              Out("DATA:Nvolatile:FREE?", 66) + "sleep 200|";
    const std::string dataLine =
        "bar 0|pump|pump|pump|" + Out("DATA:DAC Volatile,0,8192,16383", 97) + "bar 90|pump|";
    const std::string applyLine =
        "sleep 200|sleep 100|" + Out("APPLy:USER 100000,4,0", 69) + "sleep 200|";
    return {
        {0, 0, "connect", Asked("*IDN?")},
        {0, 0, "disconnect", Sent("SYSTEM:LOCAL")},
        {0, 1, "volatile", data + Sent("FUNction:USER VOLATILE") + apply + "bar 100|bar |"},
        {0, 1, "store",
         data + "pump|sleep 3000|pump|" + Sent("DATA:COPY NEW") + "sleep 7000|" +
             Sent("FUNction:USER NEW") + apply + names + "bar 100|bar |"},
        {0, 1, "rename", Sent("DATA:REName,A1,C3") + names},
        {0, 1, "delete", Sent("DATA:DELete A1") + names},
        {0, 1, "activate", Sent("FUNction:USER A1") + apply},
        {0, 2, "open", names + Sent("DATA:CATALOG?") + Asked("DATA:DIGIT:Catalog?")},
        {0, 1, "open to load", Sent("DATA:Catalog?") + Asked("DATA:Catalog?") + "sleep 1000|"},
        {0, 1, "load",
         "bar 1|" + Sent("DATA:LOAD A1") + "pump|sleep 4000|pump|sleep 200|" + block + words +
             "bar 50|sleep 200|pump|" + words + "bar 100|sleep 200|pump|" + Asked("FREQuency?") +
             Asked("VOLTage:OFFSet?") + Asked("VOLTage?") + "bar |"},
        {2, 0, "connect", "port /dev/ttyS0 9600,n,8,1|" + Out("*IDN?", 19)},
        {2, 0, "disconnect", Out("SYSTEM:LOCAL", 41)},
        {2, 1, "volatile",
         dataLine + Out("FUNction:USER VOLATILE", 72) + applyLine + "bar 100|bar |"},
        {2, 1, "store",
         dataLine + "pump|sleep 3000|pump|" + Out("DATA:COPY NEW", 44) + "sleep 7000|" +
             Out("FUNction:USER NEW", 56) + applyLine + "sleep 500|" + lines + "bar 100|bar |"},
        {2, 0, "rename", Out("DATA:REName A1 C3", 56) + "sleep 3000|" + lines},
        {2, 1, "delete", Out("DATA:DELete A1", 47) + "sleep 3000|" + lines},
        {2, 2, "open", lines + Out("DATA:CATALOG?", 44) + Out("DATA:DIGIT:Catalog?", 62)},
    };
}

class FlowTest : public LinkFixture {
public:
    /// A document and an open dialog with A1 chosen; from then on the instrument has other names.
    void Prepare(const Flow& flow) {
        SetUp();
        Link.IOType = flow.IOType;
        Link.ConnectedModel = flow.Model;
        Link.IsConnected = flow.What != "connect";
        if (flow.What.starts_with("digit ")) UseDigital({{2, 0}, {5}}, {1, 2, 3});
        OpenSend(dialog);
        dialog.txtUserWaveName = "NEW";
        PickStoredWave(dialog, 2);
        if (flow.What == "digit activate protocol") PickStoredWave(dialog, 0);
        if (flow.What == "digit activate volatile") PickStoredWave(dialog, 1);
        replies["DATA:Catalog?"] = {Quoted("SINC,VOLATILE,Z9") + "\n"};
        replies["DATA:DIGIT:Catalog?"] = {Quoted("D1") + "\n"};
        replies["DATA:LOAD A1"] = replies["DATA:DIGIT:LOAD A1"] = {
            "A1,2\n", std::string("\0\x20", 2), std::string("\0\0", 2)};
        road.clear();
        openings = exchanges = pauses = 0;
    }
    void Run(std::string_view what) {
        if (what.starts_with("digit ")) what.remove_prefix(6);
        if (what.ends_with("connect")) ToggleConnection();
        if (what == "volatile") PickStoreTarget(dialog, 0);
        if (what == "volatile" || what == "store") SaveToInstrument(dialog);
        if (what == "rename") {
            BeginRename(dialog);
            ChangeAllWaveName(dialog, "c3");
            ConfirmRename(dialog);
        }
        if (what == "delete") DeleteChosenWave(dialog);
        if (what.starts_with("activate")) ActivateChosenWave(dialog);
        if (what == "open") OpenSend(dialog);
        if (what == "open to load") OpenDownLoad(load);
        if (what == "load") LoadChosenWave(load);
    }
    std::string Lists() const {
        return Joined(dialog.Stored.AllWaveName) + "/" + Joined(LocationEntries(dialog)) + "/" +
               Joined(dialog.Stored.DigitWaveName) + "/" + dialog.txtAllWaveName;
    }
};

TEST_F(FlowTest, OrderOfStepsAndAFaultAtEachOfThem) {
    const std::set<std::string> known = {"USB Send Message: Cann't Connect to USB Device",
                                         "Connect to KT: Device not found",
                                         "RS232 Send Message: unplugged",
                                         "RS232 Read Message: Read RS232 time out",
                                         "TideMark: The communication fails!",
                                         "TideMark:   通讯失败！  "};
    const std::tuple<std::uint8_t, int LinkFixture::*, int LinkFixture::*> faults[] = {
        {0, &FlowTest::failOpening, &FlowTest::openings},
        {0, &FlowTest::silentFrom, &FlowTest::exchanges},
        {0, &FlowTest::cancelAt, &FlowTest::pauses},
        {2, &FlowTest::failOutput, &FlowTest::exchanges},
        {2, &FlowTest::silentFrom, &FlowTest::exchanges},
        {2, &FlowTest::cancelAt, &FlowTest::pauses}};
    std::vector<Flow> flows = Flows();
    std::ranges::move(DigitFlows(), std::back_inserter(flows));
    for (const auto& [ioType, failsAt, steps] : faults)
        for (const Flow& flow : flows) {
            if (flow.IOType != ioType) continue;
            Prepare(flow);
            Run(flow.What);
            EXPECT_EQ(Road(), flow.Road);
            EXPECT_EQ(AnalogDocCount, flow.What == "load" ? 2 : 1);
            EXPECT_EQ(DigitDocUsed[1], Flag(flow.What == "digit load"));
            for (int step = 1, last = this->*steps; step <= last; ++step) {
                Prepare(flow);
                const std::string lists = Lists();
                this->*failsAt = step;
                Run(flow.What);
                SCOPED_TRACE(flow.What + ": " + Road());
                EXPECT_TRUE(Link.WorkDepth == 0 && !Link.SendBusy && !Link.ProgressShown && !held);
                EXPECT_TRUE(!Link.Cancelled && Link.Awaited.empty() && !Link.ReadPending);
                EXPECT_TRUE(!Link.CommError || Lists() == lists) << Lists();
                EXPECT_TRUE(AnalogDocCount == 1 && !AnalogInUse[1] && AnalogDocs[0].Dots == 3);
                EXPECT_TRUE(!DigitDocUsed[1] && DigitDocTable[0].SampleCount == 3 * DigitDocCount);
                EXPECT_FALSE(flow.What == "connect" && Link.IsConnected);
                const Texts boxes = Boxes();
                const std::set<std::string> told(boxes.begin(), boxes.end());
                EXPECT_TRUE(told.size() == boxes.size() && std::ranges::includes(known, told));
                if (failsAt == &FlowTest::silentFrom) continue;
                EXPECT_EQ(told.empty(), failsAt == &FlowTest::cancelAt);
                EXPECT_TRUE(Link.CommError || flow.What == "disconnect");
                bool ended = false, cancelled = false;  // nothing goes out any more, nothing waits
                for (const std::string& what : road) {
                    EXPECT_FALSE(ended && (what.starts_with("out") ||
                                           (what.starts_with("write") && what != "write ")));
                    EXPECT_FALSE(cancelled && what.starts_with("sleep"));
                    cancelled = cancelled || what == "cancel";
                    ended = ended || cancelled || what.starts_with("box ");
                }
            }
        }
}

// A line that comes late for an earlier command does not stand for the next one.
TEST_F(FlowTest, EachSerialDataCommandWaitsForItsOwnLine) {
    Prepare({2, 1, "", ""});
    slow = true;
    Link.ParseFinished = true;
    SendWaveData();
    Link.ParseFinished = true;
    CopyToStore("A1");
    EXPECT_EQ(Road(), "bar 0|pump|pump|pump|" + Out("DATA:DAC Volatile,0,8192,16383", 97) +
                          "await|bar 90|pump|pump|sleep 3000|pump|" + Out("DATA:COPY A1", 41) +
                          "sleep 7000|await|");
}

}  // namespace
