#include "analog/DrawAnalogWave.h"
#include "frame/commands/CommandTable.h"
#include "ui/MainWindowFixture.h"

#include <filesystem>
#include <fstream>
#include <QAccessible>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProcess>
#include <QProgressBar>
#include <QScreen>
#include <QShortcut>
#include <QTemporaryDir>
#include <set>

namespace {

// --- texts --------------------------------------------------------------------------------------

void ExpectDoorTexts(const Mainfrm& window) {
    for (const CommandRow& row : Commands()) {
        for (const std::string_view menu : row.Menus) {
            if (menu.empty()) continue;
            const QAction* action = window.Actions()->Find(menu);
            ASSERT_NE(action, nullptr) << menu;
            EXPECT_EQ(action->objectName(), Text(menu));
            EXPECT_EQ(action->text(), Text(TextOf("Mnufrm", menu)));
            EXPECT_FALSE(action->text().isEmpty()) << menu;
        }
        if (row.Button.empty()) continue;
        auto* button = window.findChild<QToolButton*>(Text(row.Button));
        ASSERT_NE(button, nullptr) << row.Button;
        const QString text = Text(TextOf("Mainfrm", row.Button));
        EXPECT_FALSE(text.isEmpty()) << row.Button;
        EXPECT_TRUE(button->toolTip().startsWith(text)) << row.Button;
        EXPECT_EQ(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name), text);
        EXPECT_FALSE(button->icon().isNull()) << row.Button;
    }
}

void ExpectKnownTexts(const Mainfrm& window) {
    std::set<QString> known = KnownTexts();
    known.insert("Waveform0");
    const auto expect = [&](const QObject* of, const QString& text) {
        EXPECT_TRUE(known.contains(text))
            << of->objectName().toStdString() << ": " << text.toStdString();
    };
    for (const QLabel* label : window.findChildren<QLabel*>())
        if (label->isVisible()) expect(label, label->text());
    for (const QMenu* menu : window.findChildren<QMenu*>())
        if (menu->objectName().startsWith("Mnu")) expect(menu, menu->title());
    for (const QToolButton* button : window.findChildren<QToolButton*>()) {
        expect(button, button->text());
        expect(button, button->toolTip().section(" (", 0, 0));
        expect(button, button->accessibleName());
    }
}

TEST_F(MainWindowTest, EveryDoorSpeaksTheLanguageInUse) {
    New();
    const struct {
        const char *Entry, *Hint, *Close;
    } languages[] = {{"MnuHelp_Lang_Ch", "选择波形数据", "关闭"},
                     {"MnuHelp_Lang_En", "Select waveform data", "Close"}};
    for (const auto& language : languages) {
        Choose(language.Entry);
        EXPECT_TRUE(Command(language.Entry)->isChecked());
        ExpectDoorTexts(*window_);
        ExpectKnownTexts(*window_);
        EXPECT_EQ(Hint(), language.Hint);
        EXPECT_EQ(Find<QToolButton>("ExtBtn")->toolTip(), language.Close);
    }
}

void ExpectUniqueMnemonics(const QString& menu, const QList<QAction*>& entries) {
    std::set<QChar> letters;
    for (const QAction* entry : entries) {
        const qsizetype mark = entry->text().indexOf('&');
        if (entry->isSeparator()) continue;
        ASSERT_GE(mark, 0) << entry->text().toStdString();
        EXPECT_TRUE(letters.insert(entry->text()[mark + 1].toUpper()).second)
            << menu.toStdString() << ": " << entry->text().toStdString();
    }
}

TEST_F(MainWindowTest, MnemonicsAndShortcutsAreUnique) {
    for (const char* language : {"MnuHelp_Lang_Ch", "MnuHelp_Lang_En"}) {
        Choose(language);
        ExpectUniqueMnemonics("strip", Find<QMenuBar>("MnuBtnAresBtn")->actions());
        for (const QMenu* menu : window_->findChildren<QMenu*>())
            if (menu->objectName().startsWith("Mnu"))
                ExpectUniqueMnemonics(menu->objectName(), menu->actions());
    }
    std::multiset<QKeySequence> keys;
    for (const QAction* action : window_->findChildren<QAction*>(Qt::FindDirectChildrenOnly))
        if (!action->shortcut().isEmpty()) keys.insert(action->shortcut());
    for (const QShortcut* shortcut : window_->findChildren<QShortcut*>())
        keys.insert(shortcut->key());
    EXPECT_TRUE(keys.contains(QKeySequence("Ctrl+S")));
    for (const QKeySequence& key : keys)
        EXPECT_EQ(keys.count(key), 1U) << key.toString().toStdString();
}

// --- states -------------------------------------------------------------------------------------

TEST_F(MainWindowTest, StatesFollowTheRecords) {
    const struct {
        const char* Door;
        std::string_view Open;  // none, new, with Dots, Selected
    } rows[] = {
        {"NewAnaWaveAresBtn", "n+ds"}, {"OpenAresBtn", "n+ds"},
        {"WaveAresBtn0", "n+ds"},  // without a document it asks for one
        {"SaveAresBtn", "+ds"},        {"MnuFile_SaveAs", "+ds"},
        {"MnuFile_SaveAll", "+ds"},    {"GridAresBtn", "+ds"},
        {"MnuView_ShowTime", "+ds"},   {"MnuRework_property", "+ds"},
        {"MnuIdle_Insert", "+ds"},     {"UndoAresBtn", "ds"},
        {"MnuEdit_Undo", "ds"},        {"MnuEdit_SelAll", "ds"},
        {"CutAresBtn", "s"},           {"MnuEdit_Copy", "s"},
        {"MnuSelect_Delete", "s"},     {"PasteAresBtn", ""},
        {"ResumeAresBtn", ""},
    };
    const auto expect = [&](char stage) {
        for (const auto& row : rows)
            EXPECT_EQ(Command(row.Door)->isEnabled(), row.Open.find(stage) != row.Open.npos)
                << row.Door << " at " << stage;
        EXPECT_EQ(Command("GridAresBtn")->isChecked(), stage != 'n');
    };
    expect('n');
    New();
    expect('+');
    InsertSine();
    expect('d');
    Choose("MnuEdit_SelAll");
    expect('s');
    Script({Answer::No});
    PressClose(0);
    expect('n');
    EXPECT_EQ(Hint(), "Please create a new analog waveform file");
}

TEST_F(MainWindowTest, CommandsWorkOnTheActiveDocument) {
    New();
    InsertSine();
    New();
    InsertSine();
    Key(Qt::Key_Tab);
    EXPECT_EQ(window_->ActiveTag(), 0);
    EXPECT_EQ(window_->windowTitle().toStdString(), "Waveform0 • - TideMark");
    Key(Qt::Key_A);
    Key(Qt::Key_Delete, Qt::NoModifier);
    EXPECT_EQ(AnalogDocs[0].Dots, 0);
    EXPECT_EQ(AnalogDocs[1].Dots, 100);
    Key(Qt::Key_G);
    EXPECT_FALSE(Command("GridAresBtn")->isChecked());
    Key(Qt::Key_Tab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window_->ActiveTag(), 1);
    EXPECT_TRUE(Command("GridAresBtn")->isChecked());
    EXPECT_TRUE(Command("MnuEdit_SelAll")->isEnabled());
}

TEST_F(MainWindowTest, WindowMenuListsTheOpenDocuments) {
    for (int i = 0; i < 3; ++i) New();
    PressClose(1);
    AnalogDocs[2].Name = "R&D.txt";
    window_->ShowTitle(2);
    auto* menu = Find<QMenu>("MnuWindow");
    QStringList shown;
    QAction* first = nullptr;
    for (int opened = 0; opened < 2; ++opened) {
        emit menu->aboutToShow();
        shown.clear();
        for (QAction* entry : menu->actions()) {
            if (!entry->objectName().startsWith("Mnuwin_W")) continue;
            if (shown.isEmpty()) first = entry;
            shown << entry->text() + (entry->isChecked() ? " active" : "");
        }
        EXPECT_EQ(shown.join(", ").toStdString(), "&1 Waveform0, &2 R&&D.txt active");
    }
    first->trigger();
    EXPECT_EQ(window_->ActiveTag(), 0);
}

TEST_F(MainWindowTest, ClosingTurnsToTheDocumentUsedBefore) {
    for (int i = 0; i < 4; ++i) New();
    Find<QMdiArea>("DocumentArea")->setActiveSubWindow(Frames()[0]);
    Find<QMdiArea>("DocumentArea")->setActiveSubWindow(Frames()[3]);
    PressClose(3);
    EXPECT_EQ(window_->ActiveTag(), 0);
    EXPECT_EQ(ActiveAnalogIndex, 0);
    Key(Qt::Key_W);
    EXPECT_EQ(window_->ActiveTag(), 2);
}

TEST_F(MainWindowTest, ContextMenuFollowsTheSelection) {
    New();
    InsertSine();
    for (const char* name : {"MnuIdle", "MnuSelect"}) {
        QWidget* plot = window_->AnalogWindow(0)->Plot();
        const QPoint at = plot->rect().center();
        QContextMenuEvent ask(QContextMenuEvent::Mouse, at, plot->mapToGlobal(at));
        QApplication::sendEvent(plot, &ask);
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        EXPECT_EQ(popup->objectName(), name);
        popup->close();
        Choose("MnuEdit_SelAll");
    }
}

// --- closing ------------------------------------------------------------------------------------

struct CloseRow {
    const char* Name;
    Answer Given;
    const char* File;  // chosen in the file dialog; empty: cancelled
    bool Closed;
};

void PrintTo(const CloseRow& row, std::ostream* out) {
    *out << row.Name;
}

class CloseTest : public MainWindowTest, public testing::WithParamInterface<CloseRow> {};

TEST_P(CloseTest, AsksForAModifiedDocument) {
    const CloseRow& row = GetParam();
    const QTemporaryDir folder;
    const std::string path =
        row.File[0] != 0 ? folder.filePath(row.File).toStdString() : std::string();
    New();
    InsertSine();
    Script({row.Given});
    TheHost().ChooseFile = [&](const FileChoice&) { return path; };
    PressClose(0);
    ASSERT_FALSE(asked_.empty());
    EXPECT_EQ(asked_[0], "Save changes to Waveform0 ?");
    EXPECT_EQ(window_->AnalogWindow(0)->isVisible(), !row.Closed);
    EXPECT_EQ(AnalogDocCount, row.Closed ? 0 : 1);
    EXPECT_EQ(std::filesystem::exists(path), row.Given == Answer::Yes && row.Closed);
    if (row.Closed) return;
    EXPECT_TRUE(AnalogDocs[0].Modified);
    EXPECT_EQ(AnalogDocs[0].Dots, 100);
}

INSTANTIATE_TEST_SUITE_P(Answers, CloseTest,
                         testing::Values(CloseRow{"Yes", Answer::Yes, "sine.txt", true},
                                         CloseRow{"YesWithoutFile", Answer::Yes, "", false},
                                         CloseRow{"YesCannotWrite", Answer::Yes, "no/sine.txt",
                                                  false},
                                         CloseRow{"No", Answer::No, "sine.txt", true},
                                         CloseRow{"Cancel", Answer::Cancel, "sine.txt", false}),
                         [](const auto& row) { return row.param.Name; });

TEST_F(MainWindowTest, CancelAtTheEndKeepsWhatIsNotYetClosed) {
    for (int i = 0; i < 3; ++i) {
        New();
        InsertSine();
    }
    Script({Answer::No, Answer::Cancel});
    Find<QToolButton>("ExitAbtn")->click();
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(asked_.size(), 2U);
    EXPECT_FALSE(AnalogInUse[0]);
    for (const std::size_t slot : {1U, 2U}) EXPECT_EQ(AnalogDocs[slot].Dots, 100);
    Script({Answer::No, Answer::No});
    Choose("MnuFile_Exit");
    EXPECT_FALSE(window_->isVisible());
    EXPECT_EQ(AnalogDocCount, 0);
}

TEST_F(MainWindowTest, ReusedSlotShowsNothingOfTheOldDocument) {
    const auto plot = [&] { return window_->AnalogWindow(0)->Plot()->grab().toImage(); };
    New();
    const QImage fresh = plot();
    InsertSine();
    Choose("MnuView_Grid");
    AnalogDocs[0].Name = "old.txt";
    window_->ShowTitle(0);
    EXPECT_NE(plot(), fresh);
    Script({Answer::No});
    PressClose(0);
    window_->resize(1200, 780);
    window_->resize(1280, 800);
    New();
    EXPECT_EQ(plot(), fresh);
    EXPECT_EQ(Find<QLabel>("lblTitle")->text(), "Waveform0");
    EXPECT_EQ(Find<QLabel>("dragflaglbl")->text(), "Waveform0");
}

TEST_F(MainWindowTest, ManyDocumentsLeaveNothingBehind) {
    Script(std::deque<Answer>(100, Answer::No));
    for (int round = 0; round < 20; ++round) {
        const auto count = static_cast<std::int16_t>(round % 3 + 1);
        for (int i = 0; i < count; ++i) New();
        InsertSine();
        for (std::int16_t slot = 0; slot < count; ++slot) PressClose(slot);
        ASSERT_EQ(AnalogDocCount, 0);
    }
    EXPECT_EQ(asked_.size(), 20U);  // only one of each round was modified
    EXPECT_EQ(Frames().size(), 3);
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
            EXPECT_EQ(wave.BackSurface.Width(), plot.width());
            EXPECT_EQ(wave.BackSurface.Height(), plot.height());
            EXPECT_EQ(wave.PlotWidth, plot.width() - LabelGutter - WaveMarginWidth);
            EXPECT_EQ(wave.PlotHeight, plot.height() - WaveMarginHeight);
            EXPECT_EQ(wave.PlotSurface.Width(), wave.PlotWidth);
            EXPECT_NEAR(wave.XLimitLeft, 0.2 * wave.PlotWidth, 0.01);
            EXPECT_NEAR(wave.XLimitRight, 0.8 * wave.PlotWidth, 0.01);
            EXPECT_NEAR(wave.YLimitTop, wave.PlotHeight / 8.0, 0.01);
            EXPECT_NEAR(wave.YLimitBottom, wave.PlotHeight * 7.0 / 8.0, 2.0);  // less a pixel
        }
    }
}

TEST_F(MainWindowTest, MaximisesAndRestores) {
    window_->setGeometry(20, 10, 1000, 620);
    const QRect usual = window_->geometry();
    const QRect room = window_->screen()->availableGeometry();
    Find<QToolButton>("MaxAbtn")->click();
    EXPECT_EQ(window_->pos(), room.topLeft());
    EXPECT_EQ(window_->size(), room.size().expandedTo(window_->minimumSize()));
    QTest::mouseDClick(Find<QLabel>("dragflaglbl"), Qt::LeftButton);
    EXPECT_EQ(window_->geometry(), usual);
}

// Screens are given to a program at its start, so this test runs once more in a process with
// three screens side by side.
constexpr const char* Screens = R"({"screens": [
    {"name": "largest", "x": 0, "y": 0, "width": 1280, "height": 1024},
    {"name": "wide", "x": 1280, "y": 0, "width": 1281, "height": 1024},
    {"name": "high", "x": 2561, "y": 0, "width": 1280, "height": 1025}]})";

void RunWithScreens() {
    ASSERT_FALSE(qEnvironmentVariableIsSet("TIDEMARK_TEST_SCREENS")) << "no screens were made";
    const QTemporaryDir folder;
    const QString path = folder.filePath("screens.json");
    std::ofstream(path.toStdString()) << Screens;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen:configfile=" + path);
    environment.insert("TIDEMARK_TEST_SCREENS", "1");
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {"--gtest_filter=MainWindowTest.LargerScreensAreDeclined"});
    ASSERT_TRUE(process.waitForFinished(20000));
    const std::string said = process.readAll().toStdString();
    EXPECT_EQ(process.exitCode(), 0) << said;
    EXPECT_NE(said.find("[  PASSED  ] 1 test"), said.npos) << said;
}

TEST_F(MainWindowTest, LargerScreensAreDeclined) {
    if (QGuiApplication::screens().size() == 1) return RunWithScreens();
    Script({});
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect usual(screen->geometry().topLeft() + QPoint(30, 20), QSize(1000, 700));
        window_->setGeometry(usual);
        ASSERT_EQ(window_->screen(), screen);
        asked_.clear();
        Find<QToolButton>("MaxAbtn")->click();
        if (screen->name() == "largest") {
            EXPECT_EQ(window_->geometry(), screen->geometry());
            Find<QToolButton>("MaxAbtn")->click();
            EXPECT_TRUE(asked_.empty());
        } else {
            EXPECT_EQ(asked_, std::vector<std::string>{"Software support for the largest screen "
                                                       "resolution is 1280 × 1024"});
        }
        EXPECT_EQ(window_->geometry(), usual);
    }
}

// --- messages and progress ----------------------------------------------------------------------

void PressButton(QWidget* box, const char* english, const char* chinese) {
    const QString text = QString::fromUtf8(UseEnglish == 1 ? english : chinese);
    for (QAbstractButton* button : box->findChildren<QAbstractButton*>())
        if (button->text() == text) return button->click();
    ADD_FAILURE() << "no button " << text.toStdString();
}
void PressYes(QWidget* box) {
    PressButton(box, "&Yes", "是(&Y)");
}
void PressNo(QWidget* box) {
    PressButton(box, "&No", "否(&N)");
}
void PressOk(QWidget* box) {
    PressButton(box, "OK", "确定");
}
void PressCancel(QWidget* box) {
    PressButton(box, "Cancel", "取消");
}
void PressEscape(QWidget* box) {
    QTest::keyClick(box, Qt::Key_Escape);
}
void PressEnter(QWidget* box) {
    QTest::keyClick(box, Qt::Key_Return);
}
void Close(QWidget* box) {
    box->close();
}

struct AskRow {
    const char* Name;
    Buttons Kind;
    void (*Press)(QWidget* box);
    Answer Given;
};

void PrintTo(const AskRow& row, std::ostream* out) {
    *out << row.Name;
}

class AskTest : public MainWindowTest, public testing::WithParamInterface<AskRow> {};

TEST_P(AskTest, GivesTheAnswer) {
    const AskRow& row = GetParam();
    for (const std::int32_t english : {1, 0}) {
        UseEnglish = english;
        Answer given{};
        WithDialog([&] { given = TheHost().Ask("a < b & c", row.Kind, MessageIcon::Question); },
                   [&](QWidget* box) {
                       auto* message = qobject_cast<QMessageBox*>(box);
                       ASSERT_NE(message, nullptr);
                       EXPECT_EQ(message->text(), "a < b & c");
                       EXPECT_EQ(message->textFormat(), Qt::PlainText);
                       EXPECT_FALSE(message->iconPixmap().isNull());
                       row.Press(box);
                   });
        EXPECT_EQ(given, row.Given);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, AskTest,
    testing::Values(AskRow{"Ok", Buttons::Ok, PressOk, Answer::Ok},
                    AskRow{"OkEscape", Buttons::Ok, PressEscape, Answer::Ok},
                    AskRow{"OkClose", Buttons::Ok, Close, Answer::Ok},
                    AskRow{"Yes", Buttons::YesNo, PressYes, Answer::Yes},
                    AskRow{"No", Buttons::YesNo, PressNo, Answer::No},
                    AskRow{"YesNoEnter", Buttons::YesNo, PressEnter, Answer::Yes},
                    AskRow{"YesNoEscape", Buttons::YesNo, PressEscape, Answer::No},
                    AskRow{"YesNoClose", Buttons::YesNo, Close, Answer::No},
                    AskRow{"CancelYes", Buttons::YesNoCancel, PressYes, Answer::Yes},
                    AskRow{"CancelNo", Buttons::YesNoCancel, PressNo, Answer::No},
                    AskRow{"CancelCancel", Buttons::YesNoCancel, PressCancel, Answer::Cancel},
                    AskRow{"CancelEscape", Buttons::YesNoCancel, PressEscape, Answer::Cancel},
                    AskRow{"CancelClose", Buttons::YesNoCancel, Close, Answer::Cancel}),
    [](const auto& row) { return row.param.Name; });

TEST_F(MainWindowTest, BadFileIsToldOnceAndOpensNothing) {
    const QTemporaryDir folder;
    const std::string path = folder.filePath("bad.txt").toStdString();
    std::ofstream(path) << "no waveform\n";
    TheHost().ChooseFile = [&](const FileChoice&) { return path; };
    WithDialog([&] { Find<QToolButton>("OpenAresBtn")->click(); },
               [&](QWidget* box) {
                   EXPECT_EQ(static_cast<QMessageBox*>(box)->text(),
                             QString::fromUtf8("The file format is invalid！"));
               });
    EXPECT_EQ(AnalogDocCount, 0);
    EXPECT_TRUE(Frames().isEmpty());
    EXPECT_FALSE(Command("SaveAresBtn")->isEnabled());
}

TEST_F(MainWindowTest, ProgressShowsOnlyForLongWork) {
    const auto* bar = Find<QProgressBar>("prgWork");
    for (int work = 0; work < 2; ++work) {  // the clock starts anew with each work
        TheHost().ShowProgress(0, 200);
        TheHost().ShowProgress(50, 200);
        EXPECT_FALSE(bar->isVisible());
        QTest::qSleep(210);
        TheHost().ShowProgress(100, 200);
        EXPECT_TRUE(bar->isVisible());
        EXPECT_EQ(bar->value(), 50);
        TheHost().ShowProgress(0, 0);
        EXPECT_FALSE(bar->isVisible());
    }
}

}  // namespace
