#include "analog/ToolFuncBox.h"
#include "frame/PlotPalette.h"
#include "ui/ControlWalk.h"
#include "ui/EquationFrm.h"
#include "ui/MainWindowFixture.h"
#include "ui/Theme.h"

#include <cmath>

namespace {

class AccessibilityTest : public MainWindowTest {
protected:
    /// The control that has the focus after keys that go to the one that has it.
    std::string Press(Qt::Key key, Qt::KeyboardModifiers held = {}) {
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        QWidget* focused = window_->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : window_.get(), key, held);
        focused = window_->focusWidget();
        return focused == nullptr ? "" : focused->objectName().toStdString();
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
    EXPECT_EQ(Press(Qt::Key_F6), "MinimizeAbtn");
    EXPECT_EQ(Press(Qt::Key_Escape), "");
    NewSine();
    for (const char* stop : {"MaxBtn", "MinimizeAbtn", "NewAnaWaveAresBtn", "SelectAresBtn",
                             "WavePic"})  // the strip has nothing to fill in
        EXPECT_EQ(Press(Qt::Key_F6), stop);
    SwitchTool(0, Tool::LineDraw);
    EXPECT_EQ(Press(Qt::Key_F6, Qt::ShiftModifier), "txtLineX1");
    const std::pair<Qt::Key, const char*> steps[] = {
        {Qt::Key_Right, "HandDrawAresBtn"},
        {Qt::Key_Home, "SelectAresBtn"},
        {Qt::Key_Space, "SelectAresBtn"},
        {Qt::Key_End, "ZoomOutCenterAresBtn"},  // zoom off and undo are closed
        {Qt::Key_Right, "ZoomOutCenterAresBtn"},
        {Qt::Key_Escape, "WavePic"},
        {Qt::Key_Tab, "NewAnaWaveAresBtn"},  // a line is one stop, the button of the last visit
        {Qt::Key_Tab, "ZoomOutCenterAresBtn"},
        {Qt::Key_Tab, "WavePic"}};
    EXPECT_EQ(Press(Qt::Key_F6, Qt::ShiftModifier), "SelectAresBtn");
    for (const auto& [key, stop] : steps) EXPECT_EQ(Press(key), stop) << key;
    EXPECT_TRUE(ActiveAnalog().SelectMode);
    Find("UndoAresBtn")->setFocus();
    EXPECT_EQ(Press(Qt::Key_Return), "WavePic");  // its command has closed it
    EXPECT_EQ(AnalogDocs[0].Dots, 0);
    NewDigit();
    for (const char* stop : {"MaxBtn", "MinimizeAbtn", "NewAnaWaveAresBtn", "InsertNodeAresBtn"})
        EXPECT_EQ(Press(Qt::Key_F6), stop);
}

TEST_F(AccessibilityTest, ShiftDrawsSpansOfRowsInThePicture) {
    DigitDocument& document = NewDigit();
    document.Caliper = 5;
    const std::tuple<Qt::Key, Qt::KeyboardModifier, std::pair<int, int>, bool> rows[] = {
        {Qt::Key_Right, Qt::ShiftModifier, {5, 6}, false},
        {Qt::Key_Down, Qt::ShiftModifier, {5, 6}, true},
        {Qt::Key_Home, Qt::ShiftModifier, {0, 5}, true},
        {Qt::Key_Up, Qt::ShiftModifier, {0, 5}, false},
        {Qt::Key_Right, Qt::NoModifier, {0, 5}, false},  // the caliper alone: a new span follows
        {Qt::Key_Right, Qt::ShiftModifier, {1, 2}, false}};
    for (const auto& [key, held, span, both] : rows) {
        QTest::keyClick(Find<QWidget>("DigitWavePic"), key, held);
        const DigitNode& node = document.Nodes[0];
        EXPECT_EQ(std::pair(node.SelectStart, node.SelectEnd), span) << key;
        EXPECT_TRUE(node.WaveSelected && bool(document.Nodes[1].WaveSelected) == both) << key;
    }
}

// --- contrast: relative luminance by WCAG 2.1 ---------------------------------------------------

double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}
double Contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

// The colours of labels and placeholders as the style sheet leaves them, on the worst ground.
void ExpectReadable(const QWidget& window) {
    const ChromePalette& chrome = CurrentChrome();
    for (QWidget* control : window.findChildren<QWidget*>()) {
        const bool label = qobject_cast<QLabel*>(control) != nullptr;
        if (!label && !control->inherits("QComboBox")) continue;
        control->ensurePolished();
        const auto role = label ? control->foregroundRole() : QPalette::PlaceholderText;
        const QColor colour = control->palette().color(QPalette::Active, role);
        for (const QColor& ground : {chrome.base, chrome.panel, chrome.strip})
            EXPECT_GE(Contrast(MixColours(ground, colour, colour.alphaF()), ground), 4.5)
                << PathOf(control);
    }
}

TEST_F(AccessibilityTest, TextsStandOutFromTheirGrounds) {
    for (const char* name : {"light", "dark", ""}) {
        SCOPED_TRACE(name);
        qputenv("TIDEMARK_CHROME", name);
        ApplyTheme(*qApp);
        const ChromePalette& chrome = CurrentChrome();
        const QColor onAccent = QApplication::palette().color(QPalette::HighlightedText);
        for (const QColor& ground : {chrome.base, chrome.panel, chrome.strip})
            EXPECT_GE(Contrast(chrome.accent, ground), 3.0);  // the ring around the focus
        for (const bool fault : {false, true})
            EXPECT_GE(Contrast(SignColour(fault), chrome.base), 4.5);
        EXPECT_GE(Contrast(chrome.connected, chrome.strip), 3.0);
        window_->ShowLink();  // has a colour of its own
        ExpectReadable(*window_);
        ExpectReadable(EquationFrm());
        // Grounds of the sheet with their own text, or with the usual one.
        static const QRegularExpression rules("([^{}]+)\\{[^}]*background: (#\\w+)([^}]*)");
        static const QRegularExpression front("[; ]color: (#\\w+)"), exempt("disabled|::");
        for (const auto& rule : rules.globalMatch(qApp->styleSheet())) {
            if (rule.captured(1).contains(exempt)) continue;
            const auto own = front.match(rule.captured(3));
            QColor text = rule.captured(1).contains(":default") ? onAccent : chrome.text;
            if (own.hasMatch()) text = QColor(own.captured(1));
            EXPECT_GE(Contrast(text, QColor(rule.captured(2))), 4.5)
                << rule.captured(1).toStdString();
        }
    }
    for (const Colour ground : {PlotBack, PlotSurround})
        EXPECT_GE(Contrast(QColor::fromRgb(PlotLabel), QColor::fromRgb(ground)), 4.5);
}

}  // namespace
