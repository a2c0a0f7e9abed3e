#include "analog/ScreenColours.h"
#include "analog/ToolFuncBox.h"
#include "frame/PlotPalette.h"
#include "ui/ControlWalk.h"
#include "ui/EquationFrm.h"
#include "ui/MainWindowFixture.h"
#include "ui/Theme.h"

#include <sstream>

namespace {

class AccessibilityTest : public MainWindowTest {
protected:
    /// Presses keys, "F6 MaxBtn Shift+F6 -": each goes to the control that has the focus and leads
    /// to the one behind it, "-" for none.
    void ExpectStops(const std::string& walk) {
        Activate();
        std::istringstream steps(walk);
        for (std::string key, stop; steps >> key >> stop;) {
            QWidget* focused = window_->focusWidget();
            Press(focused != nullptr ? focused : window_.get(), key);
            focused = window_->focusWidget();
            EXPECT_EQ(focused != nullptr ? focused->objectName().toStdString() : "-", stop) << key;
        }
    }
    static void Press(QWidget* control, const std::string& keys) {
        const QKeyCombination key = QKeySequence(keys.c_str())[0];
        QTest::keyClick(control, key.key(), key.keyboardModifiers());
    }
};

TEST_F(AccessibilityTest, EachControlHasANameAndPicturesTellWhatTheyShow) {
    NewSine();
    const QWidget* plot = window_->AnalogWindow(0)->Plot();
    for (const ToolRow& row : ToolRows()) {
        SwitchTool(ActiveAnalogIndex, row.Which);
        ExpectNames(*window_);
    }
    AnalogDocs[0].Name = "%1.txt";
    Command("MnuEdit_SelAll")->trigger();
    EXPECT_EQ(plot->accessibleDescription(),
              "%1.txt, 100 of 1000 dots, 2.00V peak to peak, 10.00us, dots 0 to 99 selected");
    EXPECT_EQ(window_->accessibleName(), "%1.txt, changed - TideMark");
    NewDigit();
    Command("mnuDigitDrawFind")->trigger();
    Command("MnuHelp_Lang_Ch")->trigger();
    ExpectNames(*window_);
    EXPECT_EQ(plot->accessibleName(), "波形");  // of a document behind
    EXPECT_EQ(Find("WaveAresBtn1")->accessibleName(), "插入方波");
    EXPECT_EQ(Find<QWidget>("DigitWavePic")->accessibleDescription(),
              "Digital Waveform 0，4096 点，13 通道，1.0000 Kbps");
    auto* list = Find<QWidget>("DispParaListView");
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down}) QTest::keyClick(list, key);
    EXPECT_EQ(list->accessibleDescription(), "clk 0B");
}

TEST_F(AccessibilityTest, F6GoesRoundThePartsAndArrowsWalkTheButtons) {
    ExpectStops("F6 MinimizeAbtn Esc -");
    NewSine();  // the strip has nothing to fill in
    ExpectStops("F6 MaxBtn F6 MinimizeAbtn F6 NewAnaWaveAresBtn F6 SelectAresBtn F6 WavePic");
    SwitchTool(0, Tool::LineDraw);
    // Zoom off and undo behind the last button are closed. A line of buttons is one stop of Tab,
    // the button of the last visit.
    ExpectStops(R"(Shift+F6 txtLineX1 Shift+F6 SelectAresBtn Right HandDrawAresBtn
        Home SelectAresBtn Space SelectAresBtn End ZoomOutCenterAresBtn
        Right ZoomOutCenterAresBtn Esc WavePic
        Tab NewAnaWaveAresBtn Tab ZoomOutCenterAresBtn Tab WavePic)");
    EXPECT_TRUE(ActiveAnalog().SelectMode);
    Find("UndoAresBtn")->setFocus();
    ExpectStops("Return WavePic");  // its command has closed it
    EXPECT_EQ(AnalogDocs[0].Dots, 0);
    NewDigit();
    ExpectStops("F6 MaxBtn F6 MinimizeAbtn F6 NewAnaWaveAresBtn F6 InsertNodeAresBtn");
}

TEST_F(AccessibilityTest, ShiftDrawsSpansOfRowsInThePicture) {
    DigitDocument& document = NewDigit();
    document.Caliper = 5;
    // The caliper alone leaves the span; a new one follows. "*": of the second row as well.
    std::istringstream rows(
        "Shift+Right 5-6 Shift+Down 5-6* Shift+Home 0-5* Shift+Up 0-5 "
        "Right 0-5 Shift+Right 1-2");
    for (std::string key, span; rows >> key >> span;) {
        Press(Find<QWidget>("DigitWavePic"), key);
        const DigitNode& node = document.Nodes[0];
        EXPECT_EQ(std::to_string(node.SelectStart) + '-' + std::to_string(node.SelectEnd) +
                      (document.Nodes[1].WaveSelected ? "*" : ""),
                  span);
        EXPECT_TRUE(node.WaveSelected) << key;
    }
}

void ExpectContrast(const QColor& colour, const QColor& ground, double least,
                    const std::string& where = "") {
    const QColor seen = MixColours(ground, colour, colour.alphaF());
    EXPECT_GE(ContrastOf(seen.rgb() & 0xFFFFFFU, ground.rgb() & 0xFFFFFFU), least)
        << colour.name().toStdString() << " on " << ground.name().toStdString() << ' ' << where;
}

TEST_F(AccessibilityTest, TextsStandOutFromTheirGrounds) {
    for (const char* name : {"light", "dark", ""}) {
        SCOPED_TRACE(name);
        qputenv("TIDEMARK_CHROME", name);
        ApplyTheme(*qApp);
        const ChromePalette& chrome = CurrentChrome();
        const QColor onAccent = QApplication::palette().color(QPalette::HighlightedText);
        ExpectContrast(onAccent, chrome.accent, 4.5);
        ExpectContrast(chrome.connected, chrome.strip, 3.0);
        for (const bool fault : {false, true}) ExpectContrast(SignColour(fault), chrome.base, 4.5);
        window_->ShowLink();  // has a colour of its own
        const EquationFrm dialog;
        QList<QWidget*> controls = window_->findChildren<QWidget*>();
        controls += dialog.findChildren<QWidget*>();
        for (const QColor& ground : {chrome.base, chrome.panel, chrome.strip}) {
            ExpectContrast(chrome.accent, ground, 3.0);  // the ring around the focus
            ExpectContrast(chrome.text, ground, 4.5);
            // Labels and placeholders as the style sheet leaves them.
            for (QWidget* control : controls) {
                const bool label = qobject_cast<QLabel*>(control) != nullptr;
                if (!label && !control->inherits("QComboBox")) continue;
                control->ensurePolished();
                const auto role = label ? control->foregroundRole() : QPalette::PlaceholderText;
                ExpectContrast(control->palette().color(QPalette::Active, role), ground, 4.5,
                               PathOf(control));
            }
        }
    }
    for (const Colour ground : {PlotBack, PlotSurround})
        ExpectContrast(QColor::fromRgb(PlotLabel), QColor::fromRgb(ground), 4.5);
}

}  // namespace
