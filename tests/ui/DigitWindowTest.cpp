#include "digital/DigitView.h"
#include "frame/PlotPalette.h"
#include "ui/MainWindowFixture.h"

namespace {

class DigitWindowTest : public MainWindowTest {
protected:
    void Turn(QWidget* part, Qt::KeyboardModifiers modifiers, QPoint angle) const {
        const QPointF at = part->rect().center();
        QWheelEvent wheel(at, part->mapToGlobal(at), {}, angle, {}, modifiers, {}, false);
        QApplication::sendEvent(part, &wheel);
    }
};

TEST_F(DigitWindowTest, MenusToolsAndShortcutsFollowTheKind) {
    New();
    PaintCounter area, plot;
    Find<QMdiArea>("DocumentArea")->installEventFilter(&area);
    Find<WavePic>("WavePic")->installEventFilter(&plot);
    const DigitDocument& document = NewDigit();
    const std::tuple<const char*, std::string_view, const char*> rows[] = {
        // clang-format off
        {"WaveBar", "a", ""}, {"ToolBar", "a", ""}, {"ValueBar", "d", ""}, {"DigitBar", "d", ""},
        {"FileBar", "ad", ""}, {"LinkBar", "ad", ""}, {"picSelect", "a", ""},
        {"picDigitDispTimeBar", "d", ""}, {"MnuFile", "ad", ""}, {"MnuEdit", "a", ""},
        {"MnuMath", "a", ""}, {"MnuDigitEdit", "d", ""}, {"MnuDigitDraw", "d", ""},
        {"MnuEdit_Undo", "a", "Ctrl+Z"}, {"MnuDigitEdit_Undo", "d", "Ctrl+Z"},
        {"MnuView_ShowTime", "a", "Ctrl+T"}, {"mnuDigitView_ShowTime", "d", "Ctrl+T"},
        {"MnuEdit_Paste", "ad", "Ctrl+V"}, {"mnuDigitViewZoomIn", "ad", "Ctrl+="},
        {"mnuDigitListPopMenu_SelectEntire", "ad", "Ctrl+Shift+A"}};
    // clang-format on
    const auto* strip = Find<QMenuBar>("MnuBtnAresBtn");
    for (const char kind : {'d', 'a', 'd'}) {
        SCOPED_TRACE(kind);
        std::set<QKeySequence> keys;
        for (const QShortcut* own : window_->findChildren<QShortcut*>()) keys.insert(own->key());
        for (const QAction* action : window_->actions())
            EXPECT_TRUE(keys.insert(action->shortcut()).second) << action->text().toStdString();
        for (const auto& [name, when, shortcut] : rows) {
            const auto* menu = window_->findChild<QMenu*>(name);
            const bool shown = *shortcut ? !Command(name)->shortcut().isEmpty()
                               : menu    ? strip->actions().contains(menu->menuAction())
                                         : Find<QWidget>(name)->isVisible();
            EXPECT_EQ(shown, when.find(kind) != when.npos) << name;
            EXPECT_TRUE(!*shortcut || keys.contains(QKeySequence(shortcut))) << name;
        }
        QStringList texts;
        for (const QAction* menu : strip->actions()) texts << menu->text();
        ExpectUniqueMnemonics("strip", texts);
        window_->layout()->activate();
        EXPECT_EQ(area.Sizes, 0);  // not even for a moment: all documents would be painted anew
        plot.Paints = 0;
        window_->repaint();
        EXPECT_EQ(plot.Paints > 0, kind == 'a');  // nothing of it behind the digital one
        const bool time = bool(document.ShowTime);
        Key(Qt::Key_T);
        EXPECT_EQ(bool(document.ShowTime) != time, kind == 'd');
        Key(Qt::Key_Tab);
    }
    CloseActive();  // the last analog document
    EXPECT_TRUE(Find<QWidget>("picDigitDispTimeBar")->isVisible());
    CloseActive();
    EXPECT_TRUE(Find<QWidget>("WaveBar")->isVisible() && Command("WaveAresBtn0")->isEnabled());
}

TEST_F(DigitWindowTest, CancelAtTheEndKeepsWhatIsNotYetClosed) {
    for (int i = 0; i < 2; ++i) NewSine();
    NewDigit().Changed = true;
    for (const int kept : {1, 0}) {  // analog documents
        Script({Answer::No, Answer::Cancel});
        Find("ExitAbtn")->click();
        EXPECT_TRUE(window_->isVisible() && asked.size() == 2);
        EXPECT_TRUE(AnalogDocCount == kept && bool(AnalogInUse[1]) == (kept == 1));
        EXPECT_TRUE(AnalogDocs[1].Dots == 100 * kept && DigitAt(0).NodeCount == 2);
    }
    EXPECT_EQ(asked.at(1), "Save changes to Digital Waveform 0 ?");
    Script({Answer::No});
    CloseActive();
    EXPECT_TRUE(DigitDocCount == 0 && DigitAt(0).Nodes.empty());
    NewDigit();
    EXPECT_EQ(window_->windowTitle(), "Digital Waveform 0 - TideMark");
    EXPECT_EQ(Find<QMdiArea>("DocumentArea")->subWindowList().size(), 3);
    Command("MnuFile_Exit")->trigger();
    EXPECT_FALSE(window_->isVisible());
}

TEST_F(DigitWindowTest, SurfacesFollowTheParts) {
    const DigitDocument& document = NewDigit();
    auto* split = Find<QWidget>("SeperateImage");
    for (const QSize size : {QSize(960, 600), QSize(1280, 800)}) {
        window_->resize(size);
        const int half = Find<QWidget>("DigitWaveFrm0")->width() / 2;
        for (const auto& [by, list] : {std::pair(0, 220), {5000, half}, {-5000, 120}, {100, 220}}) {
            Drag(split, {by, 0});
            const QSize picture = Find<QWidget>("DigitWavePic")->size();
            EXPECT_EQ(picture, QSize(document.PictureWidth, document.PictureHeight));
            EXPECT_EQ(document.ListWidth, list) << by;
            EXPECT_EQ(Find<QWidget>("DispParaListView")->size(), QSize(list, picture.height()));
            EXPECT_EQ(document.VisibleDots, picture.width() / 60);
        }
    }
}

TEST_F(DigitWindowTest, HandsReachTheRecord) {
    DigitDocument& document = NewDigit();
    auto* picture = Find<QWidget>("DigitWavePic");
    auto* list = Find<QWidget>("DispParaListView");
    EXPECT_EQ(window_->focusWidget(), picture);
    for (const auto& [key, dot] :
         {std::pair(Qt::Key_End, 4095), {Qt::Key_Home, 0}, {Qt::Key_Right, 1}}) {
        QTest::keyClick(picture, key);
        EXPECT_TRUE(document.Caliper == dot && Find<QLabel>("lblCaliper")->text().toInt() == dot);
    }
    EXPECT_EQ(Find<QLabel>("lblCaliperTime")->text() + Find<QLabel>("lblRate")->text(),
              "1.000000ms1.0000 Kbps");

    Drag(picture, {130, 15}, {160, 0});
    EXPECT_TRUE(document.Nodes[0].SelectStart == 2 && document.Nodes[0].SelectEnd == 4);
    EXPECT_TRUE(Find<QLabel>("lblPointer")->text().startsWith("4 "));
    QTest::mouseClick(list, Qt::LeftButton, {}, {60, 45});
    QTest::keyClick(list, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_TRUE(document.Nodes[0].ListSelected && document.Nodes[1].ListSelected);
    QTest::mouseClick(list, Qt::RightButton, {}, {60, 45});
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget()->objectName(), "mnuDigitListPopMenu");
    QApplication::activePopupWidget()->close();

    for (const auto& [key, rows] :
         {std::pair(Qt::Key_Plus, 14U), {Qt::Key_Space, 2U}, {Qt::Key_Space, 14U}}) {
        QTest::keyClick(list, key);
        EXPECT_EQ(document.ListRows.size(), rows);
    }
    window_->resize(960, 600);
    auto* scroll = Find<QScrollBar>("RowScroll");
    EXPECT_TRUE(scroll->isVisible() && scroll->maximum() == 14 - document.PageRows);
    Turn(list, {}, {0, -120});
    EXPECT_TRUE(document.FirstRow == std::min(3, scroll->maximum()) && document.FirstRow > 0);
    EXPECT_EQ(scroll->value(), document.FirstRow);
    Turn(picture, Qt::ShiftModifier, {0, -240});
    EXPECT_EQ(document.FirstDot, 2 * (document.VisibleDots / 4));
    Turn(picture, {}, {120, 0});
    EXPECT_EQ(Find<QScrollBar>("DotScroll")->value(), document.VisibleDots / 4);
    Turn(picture, Qt::ControlModifier, {0, 360});
    EXPECT_TRUE(document.Zoom == 0.125 && !Find("ZoomInAresBtn")->isEnabled());
}

TEST_F(DigitWindowTest, HeldPageButtonTurnsFasterAndStopsAtTheEnd) {
    const DigitDocument& document = NewDigit();
    auto* next = Find("NextPageAtn");
    auto* timer = Find<QTimer>("SpeedTimer");
    QTest::mousePress(next, Qt::LeftButton);
    std::int32_t turns = 1;
    for (const auto& [until, wait] :
         {std::pair(1, 400), {2, 200}, {20, 200}, {21, 100}, {40, 100}, {41, 50}}) {
        for (; turns < until; ++turns) {
            QTimerEvent tick(timer->timerId());
            QApplication::sendEvent(timer, &tick);
        }
        EXPECT_EQ(timer->interval(), wait) << until;
        EXPECT_EQ(document.FirstDot, turns * document.VisibleDots);
    }
    QTest::mouseRelease(next, Qt::LeftButton);
    EXPECT_FALSE(timer->isActive());
    PutCaliper(0, 4095);
    EXPECT_TRUE(Find("FrontPageAtn")->isEnabled() && !next->isEnabled());
}

TEST_F(DigitWindowTest, FindPanelLeadsFromBoxToBox) {
    DigitDocument& document = NewDigit();
    ExtendSamples(document, 1, 9);
    document.DigitSamples[7] = 1 << document.Nodes[1].Channels[0];
    const auto press = [this](Qt::Key key) {
        QTest::keyClick(window_->focusWidget(), key);
        return window_->focusWidget()->objectName().toStdString();
    };
    Key(Qt::Key_F);
    ASSERT_EQ(window_->focusWidget(), Find<NumberBox>("txtDigitX"));  // a name is chosen
    QTest::keyClicks(window_->focusWidget(), "a7");
    auto* names = Find<QComboBox>("cmbName");
    names->setFocus();
    EXPECT_EQ(press(Qt::Key_Down), "cmbName");
    EXPECT_EQ(press(Qt::Key_Return), "txtDigitX");
    EXPECT_EQ(press(Qt::Key_Return), "FindOkAresBtn");  // the result is not typed
    press(Qt::Key_Return);
    EXPECT_EQ(Find<NumberBox>("txtDigitY")->text(), "100000000000B");
    EXPECT_EQ(press(Qt::Key_Escape), "DigitWavePic");

    Key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Find<QLabel>("lblDigitUnit")->text(), "B");
    EXPECT_EQ(Type(*window_, "txtDigitY", "29g1")->text(), "1");
    EXPECT_EQ(press(Qt::Key_Return), "FindOkAresBtn");
    press(Qt::Key_Return);
    EXPECT_EQ(document.DigitSamples[7], 1 << document.Nodes[1].Channels[11]);
    Key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window_->focusWidget()->objectName(), "DigitWavePic");
}

TEST_F(DigitWindowTest, FindPanelFitsInBothLanguages) {
    NewDigit().Nodes[1].Name = "a_bus_with_quite_a_long_name";
    auto* names = Find<QComboBox>("cmbName");
    const auto* panel = Find<QWidget>("picDigitFind_Edit");
    for (const char* door : {"MnuHelp_Lang_Ch", "mnuDigitDrawFind", "mnuDigitDrawPointEdit",
                             "MnuHelp_Lang_En", "mnuDigitDrawFind"}) {
        Command(door)->trigger();
        for (const int width : {960, 1280}) {
            window_->resize(width, 700);
            QCoreApplication::processEvents();
            int right = Find<QLabel>("lblFindTitle")->geometry().right();
            const QLayout* line = names->parentWidget()->layout();
            for (int i = 0; i < line->count() && panel->isVisible(); ++i) {
                const QWidget* part = line->itemAt(i)->widget();
                if (part == nullptr || !part->isVisible()) continue;
                const int left = part->mapTo(panel, QPoint()).x();
                EXPECT_GT(left, right) << part->objectName().toStdString() << ' ' << width;
                EXPECT_GE(part->width(), part->minimumSizeHint().width());
                right = left + part->width() - 1;
            }
            EXPECT_LT(right, panel->width());
        }
    }
    names->showPopup();
    names->view()->scrollToTop();
    const QRect tenth = names->view()->visualRect(names->model()->index(9, 0));
    EXPECT_TRUE(names->view()->viewport()->rect().contains(tenth.bottomLeft()));
}

TEST_F(DigitWindowTest, RowsFollowTheHand) {
    DigitDocument& document = NewDigit();
    for (const char* name : {"c", "d"}) AppendNode(document, {.Name = name});
    auto* list = Find<QWidget>("DispParaListView");
    const auto* held = FindIn<QLabel>(*list, "dragflaglbl");
    const auto order = [&] {
        std::string names;
        for (const DigitNode& node : document.Nodes) names += node.Name.back();
        return names;
    };
    const auto marked = [&](int y) {
        const QImage row = list->grab({200, y, 1, 1}).toImage();
        return row.pixelColor(0, 0) == QColor::fromRgb(PlotPointer);
    };
    QTest::mousePress(list, Qt::LeftButton, {}, {60, 15});
    for (const auto& [y, line] : {std::pair(40, -1), {100, 90}, {300, 120}}) {
        QTest::mouseMove(list, {60, y});
        for (const int edge : {30, 90, 120}) EXPECT_EQ(marked(edge), edge == line) << y;
        EXPECT_EQ(list->cursor().shape(), line < 0 ? Qt::ForbiddenCursor : Qt::ClosedHandCursor);
        EXPECT_TRUE(held->isVisible() && held->text() == "clk" && held->y() > y) << y;
    }
    QTest::mouseMove(list, {60, list->height() + 9});
    EXPECT_TRUE(FindIn<QTimer>(*list, "DragTimer")->isActive());
    QTest::keyClick(list, Qt::Key_Escape);
    EXPECT_FALSE(held->isVisible() || FindIn<QTimer>(*list, "DragTimer")->isActive());
    QTest::mouseRelease(list, Qt::LeftButton, {}, {60, 300});

    QTest::mouseClick(list, Qt::LeftButton, Qt::ControlModifier, {60, 75});
    QTest::mousePress(list, Qt::LeftButton, {}, {60, 15});
    QTest::mouseMove(list, {60, 100});
    EXPECT_EQ(held->text(), "clk +1");
    QTest::mouseRelease(list, Qt::LeftButton, {}, {60, 100});
    EXPECT_EQ(order(), "bkcd");
    for (const auto& [key, moved] : {std::pair(Qt::Key_Down, "bdkc"),
                                     {Qt::Key_Down, "bdkc"},
                                     {Qt::Key_Up, "bkcd"},
                                     {Qt::Key_Up, "kcbd"}}) {
        QTest::keyClick(list, key, Qt::AltModifier);
        EXPECT_EQ(order(), moved);
    }
}

}  // namespace
