#include "digital/DigitFixture.h"
#include "files/DigitFileFuncCode.h"
#include "GoldenFiles.h"
#include "platform/TempFolder.h"

#include <fstream>

namespace {

using Texts = std::vector<std::string>;

// Written by hand: an open bus on channels 2, 0 and 5, and a channel with one dot less.
const std::string GoldenDrig =
    " 4096 \r\n 100000 \r\n 1 \r\n 2 \r\n 4 \r\n 4 \r\n 0 \r\n 37 \r\n 128 \r\n 132 \r\n 36 \r\n"
    " 1 \r\n 1 \r\n 3 \r\n 1 \r\nD1\r\n 99 \r\n 0 \r\n 4 \r\n 2 \r\n 0 \r\n 5 \r\n"
    " 0 \r\n 0 \r\n 1 \r\n 0 \r\nclk_2\r\n 0 \r\n 4 \r\n 3 \r\n 7 \r\n";

// A user who picks `chosen` in every dialog.
class DigitFileTest : public DigitFixture, protected TempFolder {
protected:
    void SetUp() override {
        DigitFixture::SetUp();
        TheHost().ShowBox = [this](auto text, auto buttons, auto, auto title) {
            const bool plain = buttons != Buttons::OkCancel;
            return asked.push_back((plain ? "" : std::string(title) + "|").append(text)), answer;
        };
        TheHost().ChooseFile = [this](const FileChoice& choice) {
            return choices.push_back(choice), chosen;
        };
        TheHost().ShowTitle = [this](auto tag) { titled = tag; };
    }
    /// The golden document, changed. Slot 0 is taken and, for another slot, has an empty document.
    static DigitDocument& PutDocument(std::int16_t slot = 0) {
        MakeDocument("D1[3]*%1 clk_2", "0000 0 0 000", 4096);
        DigitDocument& document = DigitAt(slot);
        if (slot > 0) document = std::move(DigitAt(0));
        DigitDocUsed[slot] = true;
        document.DigitSamples = {37, 128, 132, 36};
        document.Nodes[0].StartNumber = 99;
        document.Nodes[0].Channels = {2, 0, 5};
        document.Nodes[1].Channels = {7};
        document.Changed = true;
        return document;
    }
    /// What is saved of a file that was opened.
    std::string Reread(std::string_view bytes) {
        DigitDocumentClosed(0);
        EXPECT_TRUE(OpenDigitFile(Put("a.DRIG", bytes))) << bytes;
        return WriteDigitText(DigitAt(0));
    }
    /// Beside the document of slot 0.
    void ExpectRefused(std::string_view bytes) {
        asked.clear();
        EXPECT_FALSE(OpenDigitFile(Put("a.DRIG", bytes))) << bytes;
        EXPECT_EQ(asked, Texts{"The file format is invalid！"}) << bytes;
        EXPECT_TRUE(DigitDocCount == 1 && !DigitDocUsed[1] && ActiveDigitIndex == 0);
        EXPECT_TRUE(DigitAt(1).Nodes.empty() && DigitAt(0).Changed);
    }
    std::string chosen;
    std::vector<FileChoice> choices;
    std::int16_t titled = -1;
};

TEST_F(DigitFileTest, BytesAreKept) {
    EXPECT_EQ(WriteDigitText(PutDocument()), GoldenDrig);
    const std::string beyond = WithLine(WithLine(GoldenDrig, 1, " 1 "), 2, " 1234.5 ");
    const std::string empty = " 8 \r\n 2000000 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n-7 \r\n";
    std::ifstream example(TIDEMARK_SOURCE_DIR "/examples/serial-frame.DRIG", std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(example)), {});
    for (const std::string& file : {GoldenDrig, beyond, empty, bytes})
        EXPECT_EQ(Reread(file), file);
    EXPECT_EQ(ValueAt(DigitAt(0), {3, -1}, 50), 0x3C);  // of the example
}

TEST_F(DigitFileTest, OtherWritersFormsAreRead) {
    const std::pair<const char*, const char*> changes[] = {
        {"\r\n", "\n"}, {"\r\n", "\r"}, {"^", "\xEF\xBB\xBF"}, {" ?\r\n ?", "\r\n"}, {"^ ", "\n,+"},
        {" \r\n$", ""}, {"$", " \t\n"}, {" ?\r\n ?", " "},     {"\r\n(?=.)", ", "}};
    for (const auto& [from, to] : changes)
        EXPECT_EQ(Reread(std::regex_replace(GoldenDrig, std::regex(from), to)), GoldenDrig) << to;
    std::istringstream rows(  // line, what stands there, the number that is saved
        "1 1048576 1048576  2 1 1  2 1.5e+6 1500000  3 2147483647 2147483647  8 -65499 37 "
        "8 65573 37  11 164 36  13 -1 1  13 0 1  15 -32768 1  15 2 1  17 100 100  18 -32768 0 "
        "23 3 3  24 1 0  26 -1 0  29 32767 4");
    std::string text, number;
    for (int line = 0; rows >> line >> text >> number;)
        EXPECT_EQ(Reread(WithLine(GoldenDrig, line, text)),
                  WithLine(GoldenDrig, line, ' ' + number + ' '));
    for (const std::string& name : {std::string("D1"), std::string(64, 'z')})
        EXPECT_EQ(Reread(WithLine(GoldenDrig, 27, name)), WithLine(GoldenDrig, 27, name));
}

TEST_F(DigitFileTest, HostileFilesAreRefused) {
    PutDocument();
    for (std::size_t size = 0; size + 4 <= GoldenDrig.size(); ++size)
        ExpectRefused(GoldenDrig.substr(0, size));
    for (const auto& file :
         {GoldenDrig + "0", GoldenDrig + '\0', std::string(999, '\0'), GoldenText})
        ExpectRefused(file);
    ForRows(R"(1 => 0 -1 1048577 4096.5 nan 0x10 4294971392 "4096"; 2 => 0.99 2000001 inf -9 1e400;
        3 => -1 2147483648; 4 => 17 -1 1 3 256; 5 => 3 5 17 260; 7 => 2147483648;
        6 => 3 5 -1 16777216 2147483647; 8 => 2147483648 -2147483649 1.5 x 1:2 +-1; 12 => 4 -1;
        13 => 32768 yes; 14 => 0 17 2 4 -3; 16 => a-b D1: 名; 17 => 101 -1; 18 => 32768 -32769;
        19 => 5 -1; 20 => 16 -1 5 7; 31 => 0 7, 7: 7,8)",
            [&](const std::string& line, const std::string& texts) {
                std::istringstream words(texts);
                for (std::string text; words >> text;)
                    ExpectRefused(WithLine(GoldenDrig, std::stoi(line), text));
            });
    LoadedDigit content;
    EXPECT_FALSE(ReadDigitText(WithLine(GoldenDrig, 6, "16777216"), content));
    EXPECT_EQ(content.DigitSamples.capacity(), 0U);  // a count that lies asks for no memory
    for (const std::string& name : {std::string(), std::string(65, 'a'), std::string("a\0b", 3)})
        ExpectRefused(WithLine(GoldenDrig, 16, name));
}

TEST_F(DigitFileTest, SaveAsksForANameOnceAndSaveAsAlways) {
    DigitDocument& document = PutDocument(1);
    document.Title = "wave";
    EXPECT_FALSE(SaveDigit(1));  // cancelled
    EXPECT_TRUE(document.Changed && document.FilePath.empty() && titled == -1);
    UseEnglish = 0;
    chosen = PathOf("a\\ring.1");
    Put("a\\ring.1.DRIG", "replaced without a word");
    EXPECT_TRUE(SaveDigit(1) && Content("a\\ring.1.DRIG") == GoldenDrig);
    EXPECT_EQ((Texts{document.Title, document.FilePath}), (Texts{"ring.1.DRIG", chosen + ".DRIG"}));
    EXPECT_TRUE(document.IsSaved && !document.Changed && titled == 11);
    EXPECT_TRUE(SaveDigit(1) && choices.size() == 2);
    chosen = PathOf("ring.dRig");
    EXPECT_TRUE(SaveDigitAs(1) && Content("ring.dRig") == GoldenDrig && asked.empty());
    for (const FileChoice& choice : choices)
        EXPECT_TRUE(choice.Filter == "数字波形文件(.DRIG)|*.DRIG" && choice.ConfirmReplace);
    EXPECT_EQ((Texts{choices[1].Title, choices[2].Title, choices[1].Name, choices[2].Name}),
              (Texts{"保存为DRIG文件", "另存为DRIG文件", "wave", "ring.1.DRIG"}));
}

TEST_F(DigitFileTest, AFolderIsAskedAboutAndKeepsThePath) {
    const Texts question = {"将文件另存为！|该文件已存在要覆盖吗"};
    const Texts fault = {question[0], "The file could not be saved: Is a directory"};
    std::filesystem::create_directory(PathOf("f.DRIG"));
    chosen = PathOf("f");
    for (const std::string& known : {std::string(), PathOf("f.DRIG"), PathOf("old.DRIG")})
        for (const Answer given : {Answer::Cancel, Answer::Ok}) {
            DigitDocument& document = PutDocument(2);
            document.FilePath = known;
            AnalogDocs[2].FileName = AnalogDocs[1].FileName = "analog.txt";
            answer = given;
            asked.clear();
            EXPECT_FALSE(known == PathOf("old.DRIG") ? SaveDigitAs(2) : SaveDigit(2));
            EXPECT_EQ(asked, given == Answer::Ok ? fault : question);
            EXPECT_EQ(AnalogDocs[2].FileName, given == Answer::Ok ? "analog.txt" : "");
            EXPECT_EQ(AnalogDocs[1].FileName, "analog.txt");
            EXPECT_TRUE(document.FilePath == known && document.Changed && !document.IsSaved);
        }
}

TEST_F(DigitFileTest, SaveAllAndClosingEndWithASaveThatFailed) {
    DigitDocument& second = PutDocument(1);
    PutDocument(0);
    second.DigitSamples.assign(second.SampleCount = 1000, 1);  // 5000 bytes and more
    second.FilePath = Put("full.DRIG", "old");
    EXPECT_FALSE(SaveAllDigit());  // no file is chosen for the first
    EXPECT_TRUE(second.Changed);
    DigitAt(0).Changed = false;
    EXPECT_FALSE(RunOnFullDisk(SaveAllDigit));
    EXPECT_EQ(asked, Texts{"The file could not be saved: File too large"});
    EXPECT_TRUE(second.Changed && Content("full.DRIG") == "old");
    answer = Answer::Yes;
    DigitAt(0).Changed = true;
    EXPECT_FALSE(QueryCloseDigit(0, SaveDigit));
    EXPECT_TRUE(QueryCloseDigit(1, SaveDigit) && !second.Changed);
}

TEST_F(DigitFileTest, OpenMakesTheActiveDocument) {
    const auto temp = std::filesystem::read_symlink("/proc/self/exe").parent_path() / "temp";
    PutDocument();
    OpenDigit();  // cancelled
    EXPECT_TRUE(DigitDocCount == 1 && choices.at(0).Folder.empty());
    std::filesystem::create_directory(temp);
    chosen = Put("a\\two.DRIG", GoldenDrig);
    OpenDigit();
    std::filesystem::remove(temp);
    EXPECT_TRUE(choices.at(1).Title == "打开波形文件" && choices[1].Folder == temp.string());
    const DigitDocument& document = DigitAt(1);
    EXPECT_TRUE(DigitDocCount == 2 && ActiveDigitIndex == 1 && document.IsSaved && titled == 11);
    EXPECT_EQ((Texts{document.Title, document.FilePath, document.OpenPath}),
              (Texts{"two.DRIG", chosen, chosen}));
    EXPECT_TRUE(QueryCloseDigit(1, SaveDigit) && asked.empty());
    EXPECT_FALSE(OpenDigitFile(folder));
    DigitDocCount = 10;
    OpenDigit();
    const std::string limit = "Exceed maximum digit file numbers limit";
    EXPECT_EQ(asked, (Texts{"The file could not be opened: Is a directory", limit}));
    EXPECT_EQ(choices.size(), 2U);
}

}  // namespace
