#include "ui/MainWindowFixture.h"
#include "ui/TrayIcon.h"
#include "ui/WindowLayout.h"

namespace {

using Kind = WindowArrangement;

TEST(WindowPlaces, HaveTheseNumbers) {
    const std::tuple<Kind, QSize, QList<QRect>> rows[] = {
        // clang-format off
        {Kind::Horizontal, {1000, 601}, {{0, 0, 1000, 200}, {0, 200, 1000, 200}, {0, 400, 1000, 201}}},
        {Kind::Vertical, {1000, 600}, {{0, 0, 333, 600}, {333, 0, 333, 600}, {666, 0, 334, 600}}},
        {Kind::Horizontal, {900, 300}, {{0, 0, 450, 300}, {450, 0, 450, 150}, {450, 150, 450, 150}}},
        {Kind::Vertical, {500, 400}, {{0, 0, 500, 200}, {0, 200, 250, 200}, {250, 200, 250, 200}}},
        {Kind::Horizontal, {200, 200}, {{0, 0, 220, 120}, {0, 80, 220, 120}}},  // no grid helps
        {Kind::Cascade, {900, 360}, {{0, 0, 600, 240}, {33, 33, 600, 240}, {66, 66, 600, 240},
                                     {99, 99, 600, 240}, {33, 0, 600, 240}}},
        {Kind::Cascade, {300, 200}, {{0, 0, 360, 240}}},
        {Kind::Icons, {460, 400}, {{4, 362, 220, 34}, {228, 362, 220, 34}, {4, 324, 220, 34}}},
        // clang-format on
    };
    for (const auto& [kind, area, places] : rows)
        EXPECT_EQ(PlaceWindows(kind, area, static_cast<int>(places.size())), places)
            << area.width() << ' ' << area.height();
    for (const Kind kind : {Kind::Horizontal, Kind::Vertical}) {
        for (int count = 1; count <= 10; ++count) {
            QRegion covered;
            int pixels = 0;
            for (const QRect& place : PlaceWindows(kind, {1279, 597}, count)) {
                EXPECT_EQ(place.size().boundedTo(SmallestTile), SmallestTile);
                covered += place;
                pixels += place.width() * place.height();
            }
            EXPECT_TRUE(covered == QRegion(0, 0, 1279, 597) && pixels == 1279 * 597) << count;
        }
    }
}

class WindowArrangementTest : public MainWindowTest {
protected:
    QRect Place(std::int16_t slot) const { return Frame(slot)->geometry(); }
    QWidget* Frame(std::int16_t slot) const { return window_->AnalogWindow(slot)->parentWidget(); }
    QWidget* Caption(std::int16_t slot) const {
        return FindIn<QLabel>(*window_->AnalogWindow(slot), "lblTitle")->parentWidget();
    }
    QRect Area() const { return Find<QMdiArea>("DocumentArea")->viewport()->rect(); }
};

TEST_F(WindowArrangementTest, StatesFollowTheButtons) {
    EXPECT_FALSE(Command("Mnuwin_Cascade")->isEnabled());
    for (int i = 0; i < 3; ++i) New();
    const auto expectPlaces = [&](const QList<QRect>& places) {
        for (std::int16_t slot = 0; slot < 3; ++slot) {
            EXPECT_EQ(Place(slot), places[slot]);
            const AnalogWaveRecord& wave = AnalogDocs[static_cast<std::size_t>(slot)];
            const int border = places[slot] == Area() ? 0 : 2;
            EXPECT_EQ(wave.BackSurface.Width(), places[slot].width() - border);
        }
    };
    expectPlaces({Area(), Area(), Area()});
    Command("Mnuwin_Vertical")->trigger();
    const auto tiles = PlaceWindows(Kind::Vertical, Area().size(), 3);
    expectPlaces(tiles);

    const auto icons = PlaceWindows(Kind::Icons, Area().size(), 2);
    const std::int32_t plotWidth = AnalogDocs[2].PlotWidth;
    Press(2, "MinBtn");
    EXPECT_EQ(window_->ActiveTag(), 1);  // used before
    EXPECT_TRUE(Place(2) == icons[0] && AnalogDocs[2].PlotWidth == plotWidth);
    Press(1, "MinBtn");
    EXPECT_EQ(Place(1), icons[1]);
    Drag(Caption(1), {50, -100});
    Command("Mnuwin_Arrayicons")->trigger();
    EXPECT_EQ(Place(1), icons[0]);  // in the order of the documents
    Command("Mnuwin_Horizon")->trigger();
    EXPECT_EQ(Place(0), Area().adjusted(0, 0, 0, -42));  // a row of icons with its gaps

    auto* menu = Find<QMenu>("MnuWindow");
    emit menu->aboutToShow();
    FindIn<QAction>(*menu, "Mnuwin_W2")->trigger();
    EXPECT_TRUE(Place(1) == tiles[1] && window_->ActiveTag() == 1);
    QTest::mouseDClick(Caption(2), Qt::LeftButton);
    EXPECT_EQ(Place(2), tiles[2]);
    Press(0, "MinBtn");
    QTest::mouseDClick(Caption(2), Qt::LeftButton);
    expectPlaces({Area(), Area(), Area()});
    Press(0, "MaxBtn");
    EXPECT_EQ(Place(2), tiles[2]);
    New();  // the first place of a cascade is taken
    EXPECT_EQ(Place(3), PlaceWindows(Kind::Cascade, Area().size(), 2)[1]);
    Press(3, "ExtBtn");
    EXPECT_EQ(window_->ActiveTag(), 0);
}

TEST_F(WindowArrangementTest, HandsMoveAndSizeAWindow) {
    New();
    Drag(Caption(0), {40, 30});
    EXPECT_EQ(Place(0), Area());
    Press(0, "MaxBtn");
    const QSize usual = Place(0).size();
    Drag(Caption(0), {40, 30});
    EXPECT_EQ(Place(0), QRect(QPoint(40, 30), usual));
    EXPECT_EQ(window_->focusWidget(), window_->AnalogWindow(0)->Plot());
    Drag(RightGrip(Frame(0)), {-30, 5});
    EXPECT_EQ(Place(0), QRect(QPoint(40, 30), usual - QSize(30, 0)));
    Drag(RightGrip(Frame(0)), {-2000, 0});
    EXPECT_EQ(Place(0).width(), 360);
    Drag(Caption(0), {-5000, -5000});
    EXPECT_EQ(Place(0).topRight(), QPoint(79, 0));  // the caption can still be grasped
    Drag(Caption(0), {5000, 5000});
    window_->resize(1000, 640);
    EXPECT_EQ(Place(0).topLeft(), QPoint(Area().width() - 80, Area().height() - 33));
}

TEST_F(WindowArrangementTest, TrayIconStandsWhileTheWindowIsMinimised) {
    // Stands in for the window's own, which has no tray here.
    TrayIcon tray(window_.get(), nullptr, [] { return true; });
    QObject::connect(&tray, &TrayIcon::Pressed, window_.get(), &Mainfrm::ShowEditor);
    NewSine();
    Script({});
    const std::function<void()> ways[] = {[&] { emit tray.Pressed(); },
                                          [&] { window_->showNormal(); },
                                          [&] { Command("MnuMin_ShowEditor")->trigger(); },
                                          [&] { Command("MnuMin_Exit")->trigger(); }};
    for (const auto& comeBack : ways) {
        Find("MinimizeAbtn")->click();
        EXPECT_TRUE(window_->isMinimized() && tray.Stands());
        comeBack();
        EXPECT_FALSE(window_->isMinimized() || tray.Stands());
        EXPECT_TRUE(window_->isVisible());
    }
    EXPECT_EQ(asked.size(), 1U);  // Save changes? Cancel
}

}  // namespace
