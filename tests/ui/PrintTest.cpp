#include "ui/ReportPrinter.h"

#include "MainWindowFixture.h"
#include "platform/qt/QtText.h"
#include "platform/TempFolder.h"

namespace {

class ReportPrinterTest : public MainWindowTest, protected TempFolder {
protected:
    ReportPrinterTest() {
        // Noise, which no compression brings below the 4096 bytes of the full disk.
        QImage picture(65, 52, QImage::Format_RGB32);
        for (quint32 i = 0; i < 65 * 52; ++i)
            picture.setPixel(i % 65, i / 65, (i + 1) * 2654435761U >> 3);
        report_.Title = "Sine";
        report_.Image = PathOf("picture.bmp");
        picture.save(ToQt(report_.Image));
    }
    void SetUpFile(const char* name, const char* button = "OK") {
        WithDialog([] { TheHost().SetUpPrinter(); },
                   [&](QWidget* dialog) {
                       EXPECT_EQ(dialog->windowTitle(), "Printer Setup");
                       FindIn<QLineEdit>(*dialog, "filename")->setText(ToQt(PathOf(name)));
                       for (QPushButton* each : dialog->findChildren<QPushButton*>())
                           if (each->text().remove('&') == button) each->click();
                   });
    }
    bool Printed(bool preview = false) const { return TheHost().RunReport(report_, preview); }
    bool Exists(const char* name) { return std::filesystem::exists(PathOf(name)); }

    Report report_;
};

TEST_F(ReportPrinterTest, PictureStandsAtItsInches) {
    QImage page(850, 1100, QImage::Format_RGB32), picture(65, 52, QImage::Format_RGB32);
    page.setDotsPerMeterX(3937);  // 100 dots per inch
    page.setDotsPerMeterY(3937);
    page.fill(Qt::white);
    picture.fill(Qt::red);
    QPainter painter(&page);
    PaintPage(painter, picture, report_);
    painter.end();
    for (const QPoint inside : {QPoint(111, 201), {758, 718}})
        EXPECT_EQ(page.pixelColor(inside), Qt::red) << inside.x();
    for (const QPoint outside : {QPoint(108, 300), {300, 198}, {762, 300}, {300, 722}})
        EXPECT_EQ(page.pixelColor(outside), Qt::white) << outside.x();
}

TEST_F(ReportPrinterTest, PrintsToTheFileThatWasSetUpOrTellsAFault) {
    SetUpFile("one.pdf");
    EXPECT_EQ(TheHost().PrinterResolution(), 600);
    EXPECT_FALSE(RunOnFullDisk([&] { return Printed(); }));
    std::filesystem::remove(PathOf("one.pdf"));
    EXPECT_TRUE(Printed());
    EXPECT_NE(Content("one.pdf").find("/MediaBox [0 0 612.000000 792.000000]"), std::string::npos);
    SetUpFile("two.pdf", "Cancel");
    // The file that is there stays after a No, and is written anew after a Yes.
    Put("one.pdf", "old");
    Script({Answer::No, Answer::Yes});
    EXPECT_TRUE(Printed() && Content("one.pdf") == "old");
    EXPECT_TRUE(Printed() && Content("one.pdf").size() > 4096 && !Exists("two.pdf"));
    // The folder is gone since the dialog closed; then the picture is.
    std::filesystem::create_directory(PathOf("gone"));
    SetUpFile("gone/one.pdf");
    std::filesystem::remove(PathOf("gone"));
    EXPECT_FALSE(Printed());
    report_.Image += ".not";
    EXPECT_FALSE(Printed(true));
}

TEST_F(ReportPrinterTest, PreviewPrintsLikeTheCommand) {
    SetUpFile("one.pdf");
    int helped = 0;
    TheHost().ShowHelp = [&](std::string_view) { ++helped; };
    WithDialog([&] { EXPECT_TRUE(Printed(true)); },
               [&](QWidget* dialog) {
                   EXPECT_EQ(dialog->windowTitle(), "Print Preview - Sine");
                   QTest::keyClick(dialog, Qt::Key_F1);
                   // Print is the last of the eight buttons that a single page needs.
                   QList<QAction*> buttons;
                   for (QAction* action : dialog->findChild<QToolBar*>()->actions())
                       if (action->isVisible() && !action->icon().isNull()) buttons << action;
                   ASSERT_TRUE(buttons.size() == 8 && !Exists("one.pdf"));
                   buttons.last()->trigger();
               });
    EXPECT_TRUE(helped == 1 && Content("one.pdf").find("%%EOF") != std::string::npos);
}

}  // namespace
