#include "digital/DigitEditFuncBox.h"
#include "ui/ArbitraryValueFrm.h"
#include "ui/CountFrm.h"
#include "ui/DigitPropertyFrm.h"
#include "ui/EvaluateFrm.h"
#include "ui/InsertNodeFrm.h"
#include "ui/MainWindowFixture.h"
#include "ui/PropertyFrm.h"
#include "ui/StandardWaveFrm.h"

#include <map>
#include <sstream>

namespace {

// 100 dots; channel "A", and "BUS" of four channels, selected in 10..12.
class DigitDialogTest : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        Script({Answer::Ok});
        document_.Dots = 100;
        AppendNode(document_, {.Name = "A"});
        AppendNode(document_, {.Name = "BUS", .Width = 4});
        SelectSpan(document_, {1, -1}, 10, 12);
        MarkWaveSelection(document_);
        EditDigitProperty = AssembleMode = EditNodeMode = false;
        EvaluateMode = EvaluateNode = 0;
        LastInserted = {};
    }
    int BusAt(int dot) const { return ValueAt(document_, {1, -1}, dot); }

    DigitDocument& document_ = DigitDocTable[0];
};

TEST_F(DigitDialogTest, ValueFollowsTheRadixAndAnEmptyOneIsAskedFor) {
    ArbitraryValueFrm dialog, cancelled;
    Show(dialog);
    Click(dialog, "OkAresBtn");
    EXPECT_TRUE(dialog.isVisible() && asked.size() == 1);
    EXPECT_EQ(dialog.focusWidget()->objectName(), "NumTxt");
    EXPECT_EQ(Type(dialog, "NumTxt", "12a01")->text(), "101");
    const char *typed[] = {"", "gC", "28", "1f6"}, *before[] = {"", "5", "14", "2"},
               *held[] = {"", "C", "2", "15"};
    for (int radix = 1; radix <= 3; ++radix) {
        QTest::keyClick(FindIn<QComboBox>(dialog, "RadixCmb"), Qt::Key_Down);
        EXPECT_EQ(FindIn(dialog, "NumTxt")->text(), before[radix]);
        EXPECT_EQ(Type(dialog, "NumTxt", typed[radix])->text(), held[radix]);
    }
    Click(dialog, "OkAresBtn");
    EXPECT_TRUE(dialog.result() == QDialog::Accepted && BusAt(9) == 0 && BusAt(12) == 15);
    Show(cancelled);
    Click(cancelled, "OkAresBtn");
    EXPECT_TRUE(!cancelled.isVisible() && !cancelled.result() && asked.size() == 2);
}

TEST_F(DigitDialogTest, EvaluateClosesWhatTheOperationDoesNotUse) {
    EvaluateFrm dialog;
    Show(dialog);
    QTest::keyClick(FindIn<QComboBox>(dialog, "cmbName"), Qt::Key_Down);
    const auto* button = FindIn<QPushButton>(dialog, "ValueAresBtn");
    const char *boxes[] = {"TimeStartTxt",       "TimeEndTxt",       "RadixCmb",   "CountInteTxt",
                           "CountStartValuetxt", "CountIncValueTxt", "ArbValueLab"},
               *enabled[] = {"1100000", "1100000", "1100000", "1100000", "1111001", "1111110"};
    for (const int mode : {0, 1, 2, 3, 5, 4}) {
        button->menu()->actions()[mode]->trigger();
        EXPECT_EQ(button->text(), button->menu()->actions()[mode]->text());
        std::string states;
        for (const char* box : boxes) {
            const auto* control = FindIn<QWidget>(dialog, box);
            states += control->isEnabled() && control->isVisible() ? '1' : '0';
        }
        EXPECT_EQ(states, enabled[mode]);
        if (mode == 5) Type(dialog, "CountInteTxt", "12");
    }
    EXPECT_EQ(FindIn(dialog, "CountInteTxt")->text(), "1");  // its own number, in binary
    Click(dialog, "OkAresBtn");
    EXPECT_TRUE(BusAt(0) == 1 && BusAt(99) == 1);
}

TEST_F(DigitDialogTest, BoxesHoldWhatIsTypedAndWhatIsLeft) {
    DigitDocUsed[0] = EditDigitProperty = true;
    CountFrm count;
    InsertNodeFrm insert;
    DigitPropertyFrm property;
    MakeDocument("");
    PropertyEditMode = true;
    PropertyFrm analog;
    StandardWaveFrm square(nullptr, Square);
    // The dialog by its letter, the box, what is typed, what the box takes of it and leaves.
    const std::map<std::string, QDialog*> dialogs = {
        {"c", &count}, {"i", &insert}, {"p", &property}, {"a", &analog}, {"s", &square}};
    std::istringstream rows(R"(
        c TimeStartTxt 5-0 50 50      c TimeEndTxt 444 99 99       c TimeEndTxt 44 44 50
        c CountInteTxt 0 0 1          c CountStartValuetxt 12 1 1  i DigitBusTXt 17 16 16
        i DigitNameTxt a-b_1 ab_1 ab_1  i DigitBusTXt 0 0 1        i DigitStartTxt 101 100 100
        p PositionTxt 100 99 99       p DotnumTxt 4097 4096 4096   p DotnumTxt 50 50 50
        p PositionTxt 60 49 49        p Freqtxt 3000 2000 2.0000   a DotnumTxt a.-7 7 8
        a ampltxt 1.5.5 1.55 1.5500   a QuantTxt 33 33 32  a Freqtxt 6000 6000 5000.000000000
        s DotnumTxt 5000 5000 4096    s phasetxt 400 400 359       s ampltxt 3 3 2.0000
        s para1txt 90 90 80)");
    for (std::string dialog, box, typed, held, left;
         rows >> dialog >> box >> typed >> held >> left;) {
        QDialog& shown = *dialogs.at(dialog);
        Show(shown);
        EXPECT_EQ(Type(shown, box.c_str(), typed.c_str())->text().toStdString(), held) << box;
        QTest::keyClick(FindIn(shown, box), Qt::Key_Tab);
        EXPECT_EQ(FindIn(shown, box)->text().toStdString(), left) << box;
    }
    EXPECT_EQ(FindIn<QComboBox>(property, "FrequnitCmb")->currentText(), "Mbps");
    EXPECT_FALSE(FindIn<QLabel>(property, "NoteTxt")->text().isEmpty());
    Click(count, "OkAresBtn");
    Click(insert, "OkAresBtn");
    EXPECT_TRUE(BusAt(49) == 0 && BusAt(50) == 1 && BusAt(51) == 0);
    EXPECT_TRUE(document_.NodeCount == 3 && document_.Nodes[2].Name == "ab_1");
    Click(property, "OkAresBtn");
    EXPECT_TRUE(document_.Nodes.empty() && document_.Dots == 50 && document_.Rate == 2e6);
}

}  // namespace
