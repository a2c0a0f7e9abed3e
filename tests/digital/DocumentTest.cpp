#include "digital/DigitFixture.h"
#include "digital/RadixText.h"

namespace {

using Texts = std::vector<std::string>;

using DocumentTest = DigitFixture;

TEST_F(DocumentTest, SlotsTitlesLimitAndClosing) {
    dialog = [&] {
        return ActiveDigitIndex = FirstFreeSlot(DigitDocUsed), PropertyApplied = true, true;
    };
    const auto expectNew = [](int slot, int count) {
        NewDigitDocument();
        EXPECT_TRUE(ActiveDigitIndex == slot && DigitDocUsed[slot] && DigitDocCount == count);
        EXPECT_EQ(ActiveDigit().Title, "Digital Waveform " + std::to_string(slot));
    };
    for (int slot = 0; slot < 10; ++slot) expectNew(slot, slot + 1);
    EXPECT_EQ(std::exchange(asked, {}), Texts(10, "DigitPropertyFrm"));
    NewDigitDocument();
    EXPECT_FALSE(CreateDigitDocument());
    EXPECT_EQ(std::exchange(asked, {}), Texts(2, "Exceed maximum file numbers limit"));
    EXPECT_EQ(DigitDocCount, 10);
    const auto saves = [](std::int16_t index) { return index == 1; };
    EXPECT_TRUE(QueryCloseDigit(0, saves) && asked.empty());
    DigitAt(0).Changed = DigitAt(1).Changed = true;
    for (const auto& [said, slot, closes] : {std::tuple(Answer::Cancel, 1, false),
                                             {Answer::No, 0, true},
                                             {Answer::Yes, 0, false},
                                             {Answer::Yes, 1, true}})
        EXPECT_EQ((answer = said, QueryCloseDigit(std::int16_t(slot), saves)), closes);
    EXPECT_EQ(asked.size(), 4U);
    EXPECT_EQ(asked[0], "Save changes to Digital Waveform 1 ?");
    DigitDocumentClosed(7);
    DigitDocumentClosed(3);
    const auto confirmed = std::exchange(dialog, [] { return ActiveDigitIndex = 3, false; });
    NewDigitDocument();
    EXPECT_TRUE(ActiveDigitIndex == 9 && DigitDocCount == 8 && !DigitDocUsed[3]);
    dialog = confirmed;
    expectNew(3, 9);
    expectNew(7, 10);
}

TEST_F(DocumentTest, AResetEmptiesAndShowsTheCaliper) {
    const auto check = [](const std::string& wanted, const std::string& place) {
        DigitDocument& doc = MakeDocument("a d[14]*", "11");
        Play("i u a z1 W600,90 w1 P1,1 p1,1");
        doc.CaliperDefault = std::stoi(wanted);
        doc.Reserved1 = 5;
        ResetDigitDocument(doc);
        Play("U u P1,1 R1,1 l9,9");  // without effect
        std::ostringstream text;
        text << doc.Caliper << ' ' << doc.FirstDot << '-' << doc.LastDot << ' ' << doc.CaliperPixel;
        EXPECT_TRUE(text.str() == place && Shown(doc) + Selection(doc) == "none");
        EXPECT_TRUE(doc.UndoNodes.empty() && doc.Reserved1 == 0 && doc.Zoom == 1);
        ExpectSound(doc);
    };
    ForRows("1 => 1 0-10 60; 9 => 9 0-10 540; 10 => 10 10-20 0; 99 => 63 63-73 0", check);
}

TEST_F(DocumentTest, NewNodesTakeTheLowestChannels) {
    DigitDocument& document = MakeDocument("a b[3] c", "11 11 11 11 11");
    document.Nodes.erase(document.Nodes.begin() + 1);
    document.ChannelCount = 2;
    AppendNode(document, {"d", 1, 4, 7});
    EXPECT_EQ(Shown(document), "a:0=11 c:4=11 d%1@7:1=,2=,3=,5=");
    ExpectSound(document);
    EXPECT_EQ(FreeChannels(document), 0xFFC0);
    EXPECT_EQ(TargetName(document, {2, 1}) + OwnName(document, {2, 1}), "d  8d8");
    document.Nodes[2].Name.assign(LongestNodeName, 'n');  // a file would refuse a longer one
    EXPECT_EQ(OwnName(document, {2, 1}), std::string(LongestNodeName - 1, 'n') + "8");
}

TEST_F(DocumentTest, ValuesStandAtTheCaliper) {
    auto& document = MakeDocument("a d[4]%1 e[7]%2 f[4]%3", "11 1 0 1 0 1 0 1 0 1 1 0 1 0 1 0");
    document.DigitSamples[1] = 0xFFFF;  // behind the data of all but a
    const auto check = [&](const std::string& dot, const std::string& expected) {
        std::string texts;
        PutCaliper(0, std::stoi(dot));
        for (const DigitNode& node : document.Nodes) texts += ' ' + node.ValueText;
        EXPECT_EQ(texts, ' ' + expected);
    };
    ForRows("0 => 1B AH 126O 10U; 1 => 1B 0H 000O 0U", check);
    EXPECT_EQ(DotText(document, 12), "12  120.000000us");
}

TEST_F(DocumentTest, Radices) {
    for (const std::string text : {"1111111111111111B", "FFFFH", "177777O", "65535U"}) {
        const auto radix = std::int16_t(std::string_view("BHOU").find(text.back()));
        EXPECT_EQ(RadixNumber(65535, radix) + text.back(), text);
        EXPECT_EQ(RadixValue(text.substr(0, text.size() - 1), radix), 65535);
    }
    EXPECT_EQ(RadixNumber(10, 1) + RadixNumber(8, 2) + RadixNumber(0, 0), "A100");
    EXPECT_TRUE(RadixValue("fE", 1) == 254 && RadixValue("", 0) == 0);
    EXPECT_TRUE(RadixValue("-2.1", 3) == 201 && RadixValue("1201", 0) == 9);
    EXPECT_EQ(RadixValue("99999999999", 3), 0x7FFFFFFF);
}

}  // namespace
