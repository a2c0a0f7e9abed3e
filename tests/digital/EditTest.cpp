#include "digital/DigitFixture.h"
#include "digital/DigitKeyFuncBox.h"

namespace {

// Rows "nodes|samples|spans|script|more => document". The last event of the script is the command
// in question: the document that it leaves and what it has asked, or "same" where nothing at all
// has changed. Every edit is taken back and made again. `more` is the number of dots, or what the
// user enters in the node dialog: name, radix, channels, start ("." as proposed, "!" empty).
class EditTest : public DigitFixture {
protected:
    void SetUp() override {
        DigitFixture::SetUp();
        dialog = [this] {
            InsertNodeDialog node = OpenInsertNode();
            std::istringstream texts(entered);
            std::string radix = std::to_string(node.Radix);
            for (std::string* box : {&node.Name, &radix, &node.BusCount, &node.StartNumber})
                if (std::string text; texts >> text && text != ".") *box = text == "!" ? "" : text;
            node.Radix = std::int16_t(std::stoi(radix));
            return ConfirmInsertNode(node) == DialogEnd::Done;
        };
    }
    /// All that a refused command must leave alone.
    std::string Everything() const {
        DigitDocument undo;
        undo.Nodes = doc.UndoNodes;
        undo.DigitSamples = doc.UndoSamples;
        undo.SampleCount = doc.UndoSampleCount;
        return Shown(doc) + '|' + Shown(undo) + '|' + (doc.UndoAvailable ? "u" : "") +
               (doc.ResumeAvailable ? "U" : "") + (doc.Changed ? "!" : "") +
               std::to_string(doc.DigitSamples.size());
    }
    void Check(const std::string& left, const std::string& right) {
        std::istringstream line(left);
        std::string part[5];
        for (std::string& text : part) std::getline(line, text, '|');
        MakeDocument("m n[2]", "0110 01 11");
        DigitDocUsed[1] = true;
        Do('2');  // stands in the other slot
        SpanClipValid = RowClipValid = false;
        entered = part[4];
        const int dots = std::atoi(entered.c_str());
        MakeDocument(part[0], part[1], dots > 0 ? dots : 64);
        Select(doc, part[2]);
        const std::size_t last = part[3].find_last_of(' ') + 1;
        Play(part[3].substr(0, last));
        doc.Changed = false;
        const std::string before = Shown(doc), everything = Everything();
        asked.clear();
        Play(part[3].substr(last));
        const std::string after = Shown(doc);
        std::string result = Everything() == everything ? "same" : after;
        for (const std::string& text : asked)
            if (text != "InsertNodeFrm") result += ' ' + text;
        EXPECT_EQ(result, right);
        ExpectSound(doc);
        if (right.starts_with("same")) return;
        EXPECT_TRUE(doc.Changed && doc.UndoAvailable && !doc.ResumeAvailable);
        for (const auto& [event, state] : {std::pair{'u', before}, {'U', after}, {'u', before}}) {
            Do(event);
            EXPECT_EQ(Shown(doc) + Selection(doc), state + "none");
            ExpectSound(doc);
        }
    }
    void Check(const char* table) {
        ForRows(table, [this](const auto& left, const auto& right) { Check(left, right); });
    }
    DigitDocument& doc = DigitAt(0);
    std::string entered;
};

TEST_F(EditTest, SpansAreCopiedDeletedAndPasted) {
    Check(R"(
        a b|111111 111111|a:1-3|K => a:0=100011 b:1=111111; a|111111|a:3-9|K => a:0=111;
        a|111111|a:3-5|K => a:0=111000; a|111|a:1-3|K => a:0=1; a|11|a:4-9|K => a:0=11;
        d[3]*|111 111 111|d.1:1-9|K => d*:0=111,1=100,2=111;
        a d[2] e[2]*|111 111 111 111 111|a:0-0 d.1:0-0 e.0:0-0|K => a:0=011 d:1=111,2=111 e*:3=011,4=111;
        a d[2]*|111 111 111|d:0-1 d.0:0-1|K => a:0=111 d*:1=001,2=001;
        a d[2]|1111 1111 1111|d:2-8|K => a:0=1111 d:1=11,2=11; a|0110|a:1-5|y k => a:0=000000;
        a b|0110 -|a:1-2|k r30,40 v => a:0=0000 b:1=11; a|01|a:0-3|y r270,10 v => a:0=01000100;
        a b|1101 -|a:0-3|y r150,40 v => a:0=1101 b:1=001101; a|1100|a:0-1|y r90,10 v => a:0=1110;
        a|1100|a:0-1|y r60,10 v => a:0=1100; a|1100|a:0-1|y r180,10 v => a:0=1111;
        d[4] e[2]|10 01 11 00|d:0-1|y r30,40 v => d:0=10,1=01,2=11,3=00 e:4=01,5=10;
        a d[2]* e[3]|101 011 110|a:0-2 d.0:0-2|y r30,130 v => a:0=101 d*:1=011,2=110 e:3=000,4=011,5=101;
        a d[2]*|1011 1 1|a:0-3|y r90,100 v => a:0=1011 d*:1=10000,2=11011;
        a b|110 -|a:0-2|y f5 r150,40 v|8 => a:0=110 b:1=0000000110;
        a|1|a:0-0|y r599,10 v|8 => a:0=10000001;
        a b c e|1 0 0 0|a:0-0|y W600,90 w1 r90,40 v => a:0=1 b:1=0 c:2=01 e:3=0;
        d[2]|101 110|d:0-2|y 2 r90,40 v => m:0=0110 n:1=0110,2=1101; a|11|a:0-1|y r30,200 v => same;
        a|11||r30,10 v => same; a|1||y => same; a|1||k => same; a|1||K => same)");
}

TEST_F(EditTest, KeysSayWhereAPasteGoes) {
    DigitDocument& document = MakeDocument("a b", "110000 000000");
    document.ClickRow = 0;
    StepCaliperByKey(0, 0);
    ExtendSpan(0, 1, 0);
    CopyDigit();
    StepRowByKey(0, 1, ListAdd::Replace);
    StepCaliperByKey(0, 3);
    PasteDigit();
    EXPECT_EQ(Shown(document), "a:0=110000 b:1=000110");
}

TEST_F(EditTest, RowsAreCopiedDeletedAndRepasted) {
    Check(R"(
        a d[2] e|10 11 01 11||L90,10 K => d:1=11,2=01 e:3=11; d[3]*|10 11 01||L90,70 K => d*:0=10,2=01;
        a d[2]*%1|1 10 11||L90,70 K => a:0=1 d%1:2=11; d[3]* e|1 1 1 1||L90,40 C90,70 C90,100 K => e:3=1;
        d[2]* e|1 1 1||L90,10 C90,40 C90,100 K => ;
        a d[2]%1@5 e|10 11 01 11||L90,40 C90,70 y V =>
        a:0=10 d%1@5:1=11,2=01 e:3=11 d%1@5:4=11,5=01 e:6=11;
        a d[2] e|10 11 01 11||L90,10 C90,70 k V => d:1=11,2=01 a:0=10 e:3=11;
        d[3]*%2@4|10 11 01||L90,70 y V => d*%2@4:0=10,1=11,2=01 d5%2:3=11;
        d[3]*|10 11 01||L90,40 C90,100 k V => d:1=11 d0:0=10 d2:2=01; d[2]*|||L90,10 y K V => d*:0=,1=;
        a|101||L90,10 y K V => a:0=101; a|1||L90,10 y 2 V 2 K => ; a|10||L90,10 y V K => a:1=10;
        d[2]|101 11||L90,10 y 2 V => m:0=0110 n:1=01,2=11 d:3=101,4=110;
        a|110011||L90,10 y 2 V => m:0=0110 n:1=01,2=11 a:3=110011;
        d[4]|||L90,10 y V V V => d:0=,1=,2=,3= d:4=,5=,6=,7= d:8=,9=,10=,11= d:12=,13=,14=,15=;
        d[5]|1||L90,10 y V V V => same The channels is overflow!;
        d[16]|||L90,10 y V => same The channels is overflow!; a|1||V => same; a|1||L90,10 e y V => same)");
}

TEST_F(EditTest, NodesAreEnteredAssembledAndSplit) {
    const std::string again = ", Please input again!",
                      same = "same You have input the same name " + again,
                      empty = "same You have input the empty value " + again,
                      overflow = "same The number of channel overflow,can input number is ";
    Check("d[13]||| I|x 0 4 0", overflow + "3" + again);
    Check("a[10] d[2]|||L90,40 T|d 0 7 0", overflow + "6" + again);
    for (const char* left : {"a b|||L90,10 T|b . . .", "a b|||L90,10 C90,40 A|a . . ."})
        Check(left, same);
    for (const char* left :
         {"a|||L90,10 T|! . . .", "a|||L90,10 T|a . ! .", "a|||L90,10 A|e . . !"})
        Check(left, empty);
    Check(R"(
        a d[2] e|1 1 1 1||L90,40 K I|x 0 4 0 => a:0=1 e:3=1 x:1=,2=,4=,5=;
        a b|||L90,10 T|B . . . => B:0= b:1=; d[2]*|1 1||L90,40 T|x . . . => x*:0=1,1=1;
        a d[2]%1@3 e|1 10 11 1||L90,40 T|q 2 4 9 => a:0=1 q%2@9:1=10,2=11,4=00,5=00 e:3=1;
        a d[3]*|1 10 11 01||L90,40 T|d 0 2 0 => a:0=1 d*:1=10,2=11; a|10||L90,10 T|a 0 2 0 => a:0=10,1=00;
        d[3]*|10 11 01||L90,10 T|d 0 1 0 => d:0=10; d[14] a|||L90,40 T|a 0 2 0 =>
        d:0=,1=,2=,3=,4=,5=,6=,7=,8=,9=,10=,11=,12=,13= a:14=,15=;
        a b[2] c|101 11 01 11||L90,10 C90,70 A|e 1 . 3 => e%1@3:0=101,3=110 b:1=11,2=01;
        a b[2] c|1 11 01 111||L90,40 C90,70 A|e 0 . 0 => a:0=1 e:1=110,2=010,3=111;
        a d[2]* c|1 1 0 1||L90,70 C90,100 A|e 0 . 0 => a:0=1 e:1=1,2=0 c:3=1;
        a c d[3]*|1 0 1 0 1||C90,40 C90,100 C90,130 A|e 0 . 0 => a:0=1 e:1=0,2=1,3=0 d:4=1;
        d[2]* b|10 11 1||L90,70 A|e 0 . 0 => d:0=10 e:1=11 b:2=1;
        d[15] a|||L90,10 C90,40 A|e 0 5 0 => e:0=,1=,2=,3=,4=,5=,6=,7=,8=,9=,10=,11=,12=,13=,14=,15=;
        a b c|1 1 1|a:0-0 c:0-0|A|e 0 . 0 => e:0=1,2=1 b:1=1; a b||| A|e 0 . 0 => same;
        a D[2]*@3 c|1 10 11 1||L90,40 b => a:0=1 D3:1=10 D4:2=11 c:3=1;
        d[2]%1 a e[2]%3|10||L90,10 C90,40 C90,70 b => d0%1:0=10 d1%1:1=00 a:2= e0%3:3= e1%3:4=;
        d[2]*|||L90,40 b => same; a|||L90,10 b => same; a d[2]||| b => same)");
}

TEST_F(EditTest, NodesAreSortedAndDragged) {
    Check(R"(
        a9 a10 b a|||g => a:3= a10:1= a9:0= b:2=; a a9 a10 b|||G => b:3= a9:1= a10:2= a:0=;
        b B _ a|||g => B:1= _:2= a:3= b:0=; b a a|1 01 11||g => a:1=01 a:2=11 b:0=1;
        d[2]* a|1 0 1||g => a:2=1 d*:0=1,1=0; a b|||g => same; |||g => same;
        a b c|||L90,10 h70 H => b:1= a:0= c:2=; a b c|||L90,70 h10 H => c:2= a:0= b:1=;
        a b c|1 0 1||L90,10 h250 H => b:1=0 c:2=1 a:0=1;
        a b c e|||L90,10 H C90,70 H L90,70 h200 H => b:1= e:3= a:0= c:2=;
        a b c e|||L90,40 H C90,100 H L90,40 h10 H => b:1= e:3= a:0= c:2=;
        d[2]* a|1 0 1||L90,10 h200 H => a:2=1 d*:0=1,1=0; d[2]* a|||L90,40 h200 H => same;
        d[2]* a|||L90,100 h40 H => same; a b[2]* c|||L90,10 h100 H => same; a b|||L90,10 h12 H => same;
        a b|||L90,10 h40 H => same; a b|||L90,40 h200 H => same;
        a b c|||L90,10 h70 e H => same; a b c|||h70 H => same)");
}

}  // namespace
