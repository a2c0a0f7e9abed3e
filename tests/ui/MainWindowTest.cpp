#include "ui/MainWindowFixture.h"

#include "analog/DrawAnalogWave.h"
#include "frame/commands/CommandTable.h"
#include "platform/Settings.h"

namespace {

// --- texts --------------------------------------------------------------------------------------

void ExpectMenu(const QString& menu, const QList<QAction*>& entries) {
    QStringList texts;
    for (const QAction* entry : entries)
        if (entry->isVisible()) texts << entry->text();  // separators have none
    ExpectUniqueMnemonics(menu, texts);
}

TEST_F(MainWindowTest, EveryDoorSpeaksTheLanguageInUse) {
    const int pages = NewDigit().PageCount;
    New();
    for (const auto& [language, close, page] :
         {std::tuple("MnuHelp_Lang_Ch", "关闭", "第 1 / %1 页"),
          {"MnuHelp_Lang_En", "Close", "Page 1 / %1"}}) {
        Command(language)->trigger();
        EXPECT_TRUE(Command(language)->isChecked());
        EXPECT_EQ(GetSetting(ApplicationTitle, "Tidemark_Language", "Language", ""),
                  std::to_string(UseEnglish));
        EXPECT_EQ(Find<QLabel>("lblSelectDataMessage")->text().toStdString(), ResText(8));
        EXPECT_EQ(Find("ExtBtn")->toolTip(), close);
        EXPECT_EQ(Find<QLabel>("PageInfo")->text(), QString(page).arg(pages));
        EXPECT_EQ(Find<QWidget>("DigitWavePic")->accessibleName().toStdString(),
                  TextOf("DigitWaveFrm", "DigitWavePic"));
        for (const CommandRow& row : Commands()) {
            if (row.Button.empty()) continue;
            const auto* button = Find(row.Button);
            EXPECT_EQ(button->toolTip().section(" (", 0, 0).toStdString(),
                      TextOf("Mainfrm", row.Button));
            EXPECT_TRUE(!button->icon().isNull() || button->text().size() <= 2) << row.Button;
        }
        EXPECT_EQ(Command("MnuFile_Save")->text().toStdString(), TextOf("Mnufrm", "MnuFile_Save"));
        ExpectMenu("strip", Find<QMenuBar>("MnuBtnAresBtn")->actions());
        for (const QMenu* menu : window_->findChildren<QMenu*>()) {
            const QString name = menu->objectName();
            if (!name.startsWith("mnu", Qt::CaseInsensitive)) continue;
            EXPECT_EQ(menu->title().toStdString(), TextOf("Mnufrm", name.toStdString()));
            ExpectMenu(name, menu->actions());
        }
    }
}

// --- states -------------------------------------------------------------------------------------

TEST_F(MainWindowTest, StatesFollowTheRecords) {
    const auto open = [this] {
        std::string states;
        for (const char* door : {"SaveAresBtn", "MnuEdit_Undo", "MnuIdle_Undo", "CutAresBtn"})
            states += Command(door)->isEnabled() ? '1' : '0';
        return states;
    };
    EXPECT_TRUE(open() == "0000" && !Command("GridAresBtn")->isChecked());
    New();
    EXPECT_TRUE(open() == "1000" && Command("GridAresBtn")->isChecked());
    InsertSine();
    EXPECT_EQ(open(), "1110");
    Command("MnuEdit_SelAll")->trigger();
    EXPECT_EQ(open(), "1111");
    QTest::mouseClick(window_->AnalogWindow(0)->Plot(), Qt::RightButton, {},
                      {LabelGutter + WaveAreaLeft + 20, WaveAreaTop + 20});
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->objectName(), "MnuSelect");
    popup->close();
    Script({Answer::No});
    Press(0, "ExtBtn");
    EXPECT_TRUE(open() == "0000" && Find<QLabel>("lblIdleMessage")->isVisible());
}

TEST_F(MainWindowTest, CommandsWorkOnTheActiveDocument) {
    for (int i = 0; i < 2; ++i) NewSine();
    Key(Qt::Key_Tab);
    EXPECT_EQ(window_->ActiveTag(), 0);
    EXPECT_EQ(window_->windowTitle().toStdString(), "Waveform0 • - TideMark");
    Key(Qt::Key_A);
    EXPECT_EQ(Find<QLabel>("lblEnd")->text(), "99");
    Key(Qt::Key_T);
    EXPECT_TRUE(Find<QLabel>("lblEnd")->text().endsWith("s"));
    Key(Qt::Key_Delete, Qt::NoModifier);
    EXPECT_EQ(Find<QLabel>("lblEnd")->text(), "");
    EXPECT_TRUE(AnalogDocs[0].Dots == 0 && AnalogDocs[1].Dots == 100);
    Key(Qt::Key_G);
    EXPECT_FALSE(Command("GridAresBtn")->isChecked());
    Key(Qt::Key_Tab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(window_->ActiveTag() == 1 && Command("GridAresBtn")->isChecked());
}

TEST_F(MainWindowTest, WindowMenuAndClosingTurnToTheRightDocument) {
    for (int i = 0; i < 4; ++i) New();
    Script({});
    Press(1, "ExtBtn");
    EXPECT_TRUE(asked.empty());  // there is nothing to save
    AnalogDocs[2].Name = "R&D.txt";
    window_->ShowTitle(2);
    auto* menu = Find<QMenu>("MnuWindow");
    emit menu->aboutToShow();
    emit menu->aboutToShow();
    QList<QAction*> entries = menu->actions();
    entries.removeIf([](QAction* entry) { return !entry->objectName().startsWith("Mnuwin_W"); });
    ASSERT_EQ(entries.size(), 3);
    EXPECT_EQ(entries[0]->text(), "&1 Waveform0");
    EXPECT_EQ(entries[1]->text(), "&2 R&&D.txt");
    EXPECT_TRUE(entries[2]->isChecked());
    entries[0]->trigger();
    EXPECT_EQ(window_->ActiveTag(), 0);
    entries[2]->trigger();
    Press(3, "ExtBtn");
    EXPECT_EQ(window_->ActiveTag(), 0);  // the document used before
    EXPECT_EQ(ActiveAnalogIndex, 0);
    Key(Qt::Key_W);
    EXPECT_EQ(window_->ActiveTag(), 2);
}

// --- closing ------------------------------------------------------------------------------------

TEST_F(MainWindowTest, ClosingAsksForAModifiedDocument) {
    // The file chosen in the file dialog, none where that is cancelled; whether the document
    // closes.
    const std::tuple<Answer, const char*, bool> rows[] = {
        {Answer::Cancel, "sine.txt", false},
        {Answer::Yes, "", false},
        {Answer::Yes, "no/sine.txt", false},  // cannot be written
        {Answer::No, "sine.txt", true},
        {Answer::Yes, "sine.txt", true}};
    const QTemporaryDir folder;
    for (const auto& [given, file, closed] : rows) {
        SCOPED_TRACE(file);
        const QString path = *file ? folder.filePath(file) : QString();
        TheHost().ChooseFile = [&](const FileChoice&) { return path.toStdString(); };
        if (AnalogDocCount == 0) NewSine();
        Script({given});
        Press(0, "ExtBtn");
        EXPECT_EQ(asked.at(0), "Save changes to Waveform0 ?");
        EXPECT_EQ(AnalogDocCount, closed ? 0 : 1);
        EXPECT_EQ(QFile::exists(path), given == Answer::Yes && closed);
        EXPECT_TRUE(closed || (AnalogDocs[0].Modified && AnalogDocs[0].Dots == 100));
    }
}

TEST_F(MainWindowTest, ReusedSlotShowsNothingOfTheOldDocument) {
    const auto plot = [&] { return window_->AnalogWindow(0)->Plot()->grab().toImage(); };
    New();
    const QImage fresh = plot();
    InsertSine();
    Command("MnuView_Grid")->trigger();
    AnalogDocs[0].Name = "old.txt";
    window_->ShowTitle(0);
    EXPECT_NE(plot(), fresh);
    Script({Answer::No});
    Press(0, "ExtBtn");
    window_->resize(1200, 780);
    window_->resize(1280, 800);
    New();
    EXPECT_TRUE(plot() == fresh && Find<QLabel>("lblTitle")->text() == "Waveform0");
    EXPECT_EQ(Find<QMdiArea>("DocumentArea")->subWindowList().size(), 1);
}

// --- sizes --------------------------------------------------------------------------------------

TEST_F(MainWindowTest, ResizeScalesSurfacesAndLimits) {
    New();
    New();
    for (const QSize size : {QSize(1000, 640), QSize(1400, 900)}) {
        const std::int32_t width = AnalogDocs[0].PlotWidth;
        window_->resize(size);
        Key(Qt::Key_Tab);
        EXPECT_NE(AnalogDocs[0].PlotWidth, width);
        for (std::int16_t slot = 0; slot < 2; ++slot) {
            const AnalogWaveRecord& wave = AnalogDocs[static_cast<std::size_t>(slot)];
            const QSize plot = window_->AnalogWindow(slot)->Plot()->size();
            EXPECT_EQ(QSize(wave.BackSurface.Width(), wave.BackSurface.Height()), plot);
            EXPECT_EQ(wave.PlotWidth, plot.width() - LabelGutter - WaveMarginWidth);
            EXPECT_EQ(wave.PlotHeight, plot.height() - WaveMarginHeight);
            EXPECT_NEAR(wave.XLimitLeft, 0.2 * wave.PlotWidth, 0.01);
            EXPECT_NEAR(wave.XLimitRight, 0.8 * wave.PlotWidth, 0.01);
            EXPECT_NEAR(wave.YLimitTop, wave.PlotHeight / 8.0, 0.01);
            EXPECT_NEAR(wave.YLimitBottom, wave.PlotHeight * 7.0 / 8.0, 2.0);  // less a pixel
        }
    }
}

TEST_F(MainWindowTest, MaximisesUpToTheLargestScreenAndLeavesItByHand) {
    ASSERT_EQ(QGuiApplication::screens().size(), 3);
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect usual(screen->geometry().topLeft() + QPoint(30, 20), QSize(1000, 700));
        window_->setGeometry(usual);
        Script({});
        Find("MaxAbtn")->click();
        if (screen->name() == "largest") {
            EXPECT_EQ(window_->geometry(), screen->geometry());
            QTest::mouseDClick(Find<QLabel>("dragflaglbl"), Qt::LeftButton);
            EXPECT_TRUE(asked.empty() && window_->geometry() == usual);
            Find("MaxAbtn")->click();
            Drag(Find<QLabel>("dragflaglbl"), {0, 40});
            EXPECT_EQ(window_->size(), usual.size());
            for (const int width : {1180, 1280}) {
                Find("MaxAbtn")->click();
                EXPECT_EQ(window_->width(), 1280);
                Drag(RightGrip(window_.get()), {width - 1280, 0});
                EXPECT_EQ(window_->width(), width);
            }
        } else {
            EXPECT_EQ(asked, std::vector<std::string>{"Software support for the largest screen "
                                                      "resolution is 1280 × 1024"});
            EXPECT_EQ(window_->geometry(), usual);
        }
    }
}

// --- messages -----------------------------------------------------------------------------------

TEST_F(MainWindowTest, MessageBoxesGiveTheAnswer) {
    // Whether in English, and the text of the button pressed; without one the box is closed.
    for (const auto& [english, kind, text, answered] :
         {std::tuple(1, Buttons::Ok, "OK", Answer::Ok),
          {0, Buttons::Ok, "", Answer::Ok},
          {1, Buttons::YesNo, "&Yes", Answer::Yes},
          {0, Buttons::YesNo, "否(&N)", Answer::No},
          {1, Buttons::YesNo, "", Answer::No},
          {0, Buttons::YesNoCancel, "取消", Answer::Cancel},
          {0, Buttons::YesNoCancel, "", Answer::Cancel}}) {
        UseEnglish = english;
        Answer given{};
        WithDialog(
            [&, kind = kind] { given = TheHost().Ask("a < b & c", kind, MessageIcon::Question); },
            [&, text = text](QWidget* box) {
                EXPECT_EQ(static_cast<QMessageBox*>(box)->text(), "a < b & c");
                for (auto* button : box->findChildren<QAbstractButton*>())
                    if (button->text() == text) return button->click();
                EXPECT_STREQ(text, "") << "no such button";
            });
        EXPECT_EQ(given, answered) << text << english;
    }
}

}  // namespace
