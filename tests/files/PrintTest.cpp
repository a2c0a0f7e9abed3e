#include "files/PrintFuncBox.h"

#include "analog/AnalogFixture.h"
#include "analog/DrawAnalogWave.h"
#include "analog/PrintAnalogWave.h"
#include "digital/DigitFixture.h"
#include "frame/Narrow.h"
#include "platform/SafeFile.h"
#include "platform/TempFolder.h"

#include <QGuiApplication>

namespace {

using Pixels = std::vector<Colour>;
using Texts = std::vector<std::string>;

constexpr std::int32_t PlotX = 64, PlotY = 32;  // of the plot at scale 1; it is 678 by 564

Pixels PixelsOf(const Surface& surface) {
    Pixels pixels;
    for (std::int32_t y = 0; y < surface.Height(); ++y)
        for (std::int32_t x = 0; x < surface.Width(); ++x) pixels.push_back(surface.Pixel(x, y));
    return pixels;
}

// What is printed at a scale; nothing where the surface cannot be made.
template <typename Document>
Surface Print(Document& document, double scale = 1.0) {
    Surface picture;
    const bool painted = PaintForPrint(document, 780, 624, scale, picture);
    EXPECT_EQ(painted, !picture.IsNull());
    return picture;
}

struct Analog : AnalogFixture {
    using AnalogFixture::MakeDocument;
};

class PrintTest : public DigitFixture {
protected:
    static void SetUpTestSuite() {  // texts need the application's fonts
        static int count = 1;
        static char name[] = "files_tests", *names[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        if (qApp == nullptr) static const QGuiApplication application(count, names);
    }
    // 300 of 1000 dots, of which 100..299 are seen: -0.6 before dot 210, 0.6 from there on. The
    // window's plot is 326 by 240.
    static AnalogWaveRecord& MakeStep() {
        AnalogWaveRecord& wave = Analog::MakeDocument("c", 300);
        for (std::int32_t i = 0; i < 300; ++i) wave.DotArray[i] = {double(i), i < 210 ? -0.6 : 0.6};
        wave.SegmentMarkOn = false;
        std::tie(wave.ViewStart, wave.ViewEnd) = std::pair(100, 299);
        LayoutAnalogSurfaces(wave, 400, 300, 1.0);
        std::tie(wave.XLimitLeft, wave.XLimitRight) = std::pair(20.0F, 100.0F);
        return wave;
    }
};

TEST_F(PrintTest, ShowsTheDotsOfTheViewInEveryResolution) {
    AnalogWaveRecord& wave = MakeStep();
    for (const std::int32_t scale : {1, 5}) {
        const Surface picture = Print(wave, scale);
        ASSERT_TRUE(picture.Width() == 780 * scale && picture.Height() == 624 * scale);
        // 0.6 stands at 0.4 / 2 of the plot's height, dot 209 at 371.4 and dot 210 at 374.8 of 678.
        const std::int32_t high = PlotY * scale + RoundToInt(0.2 * (564 * scale - 1));
        EXPECT_EQ(picture.Pixel((PlotX + 370) * scale, high), 0xFFFFFFU) << scale;
        EXPECT_LT(picture.Pixel((PlotX + 376) * scale, high), 0x808080U) << scale;
    }
}

TEST_F(PrintTest, PrintsNothingOfTheMouseAndLeavesTheWindow) {
    AnalogWaveRecord& wave = MakeStep();
    wave.XLimitOn = true;
    const Surface bare = Print(wave);
    EXPECT_EQ(bare.Pixel(PlotX + 42, PlotY + 2), 0U);  // 20 of 326 is 41.6 of 678: a limit line
    wave.HasSelection = wave.TrackShown = wave.XZoomed = wave.YZoomed = true;
    wave.SelStart = wave.TrackDot = 150;
    wave.SelEnd = 250;
    RepaintAnalog(0, true);
    const auto shown = [&] {
        return std::tuple(PixelsOf(wave.PlotSurface), PixelsOf(wave.BackSurface), wave.XLimitLeft,
                          wave.XLimitRight, bool(wave.PrintMode));
    };
    const auto before = shown();
    EXPECT_TRUE(PixelsOf(Print(wave)) == PixelsOf(bare) && Print(wave, 50000.0).IsNull());
    EXPECT_TRUE(shown() == before);
}

TEST_F(PrintTest, ImpossibleViewIsAnEmptyGridOfTenByEight) {
    Pixels upright(11, PrintColours.Grid), level(9, PrintColours.Grid);
    upright[0] = level[4] = PrintColours.Axis;
    for (const int row : {0, 1, 2}) {
        AnalogWaveRecord& wave = MakeStep();
        if (row == 0) wave.ViewEnd = wave.ViewStart;
        if (row == 1) wave.ViewTop = wave.ViewBottom;
        if (row == 2) wave.Dots = 0;
        const Surface picture = Print(wave);
        Pixels across, down;  // what a row and a column between two lines meet
        for (std::int32_t x = 0; x < 678; ++x) across.push_back(picture.Pixel(PlotX + x, 62));
        for (std::int32_t y = 0; y < 564; ++y) down.push_back(picture.Pixel(94, PlotY + y));
        for (Pixels* line : {&across, &down}) std::erase(*line, 0xFFFFFF);
        EXPECT_TRUE(across == upright && down == level) << row;
    }
}

TEST_F(PrintTest, TheSameDotsFillThePictureAndTheWindowIsLeft) {
    DigitDocument& document = MakeDocument("c d[2]*", "0000011111 01 10");
    LayoutDigitSurfaces(document, {200, 600, 300}, 1.0);
    ShowDotsFrom(0, 2);
    PutCaliper(0, 8);
    const Surface bare = Print(document);
    // The list has 200 pixels, ten dots from dot 2 on the other 580, so that "c" rises at 174. Its
    // high level is 6 pixels below the ruler's 32.
    EXPECT_TRUE(bare.Pixel(200 + 172, 38) == 0xFFFFFFU && bare.Pixel(200 + 176, 38) == 0U);
    EXPECT_EQ(bare.Pixel(200 + 6 * 58, 300), 0U);  // the caliper on dot 8, below the rows
    Select(document, "c:3-6");
    document.Nodes[1].ListSelected = document.SelectDrag = true;
    document.EditDot = 3;
    document.EditName = "c";
    Paint(0, true, true);
    const auto shown = [&] {
        return std::tuple(PixelsOf(document.ShownSurface), PixelsOf(document.StaticSurface),
                          PixelsOf(document.ListSurface), document.Nodes[0].SelectLeft,
                          document.Zoom, document.CaliperPixel, document.PictureWidth,
                          document.FirstDot, document.LastDot, bool(document.PrintMode));
    };
    const auto before = shown();
    EXPECT_TRUE(PixelsOf(Print(document)) == PixelsOf(bare));  // neither selection nor mark
    EXPECT_TRUE(Print(document, 50000.0).IsNull() && shown() == before);
}

// Every run writes the same file, so that all of them are in one test.
TEST_F(PrintTest, FlowTellsOneFaultAndNeverPrintsAnOldPicture) {
    MakeStep().Name = "Step";
    ActiveDigit() = DigitDocument();
    ActiveDigit().Title = "Logic";
    bool printed = true;
    std::int32_t resolution = 120;
    TheHost().PrinterResolution = [&] { return resolution; };
    TheHost().RunReport = [&](const Report& report, bool preview) {
        std::string bytes;
        EXPECT_EQ(ReadWholeFile(report.Image, 1 << 24, bytes), 0);
        EXPECT_EQ(bytes.size(), 54U + 780 * 624 * 3);  // a bitmap of 24 bits
        asked.push_back(report.Title + (preview ? " preview" : " print"));
        return printed;
    };
    const auto run = [&](void (*command)()) { return asked.clear(), command(), asked; };
    for (const auto command : {PrintAnalog, PreviewAnalog, PrintDigit, PreviewDigit}) command();
    EXPECT_EQ(asked, (Texts{"Step print", "Step preview", "Logic print", "Logic preview"}));
    EXPECT_EQ(RunOnFullDisk([&] { return run(PrintAnalog); }), Texts{"File too large"});
    printed = false;
    EXPECT_EQ(run(PrintAnalog), (Texts{"Step print", " Print Error!"}));
    resolution = 6000000;
    UseEnglish = 0;
    EXPECT_EQ(run(PreviewDigit), Texts{" 打印错误！"});
}

}  // namespace
