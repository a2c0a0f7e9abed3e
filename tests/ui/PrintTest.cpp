#include "ui/ReportPrinter.h"

#include "MainWindowFixture.h"
#include "platform/qt/QtText.h"
#include "platform/TempFolder.h"

namespace {

class ReportPrinterTest : public MainWindowTest, protected TempFolder {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        // Noise, which no compression brings below the 4096 bytes of the full disk.
        QImage picture(65, 52, QImage::Format_RGB32);
        for (quint32 i = 0; i < 65 * 52; ++i)
            picture.setPixel(i % 65, i / 65, (i + 1) * 2654435761U >> 3);
        report_.Title = "Sine";
        report_.Image = PathOf("picture.bmp");
        ASSERT_TRUE(picture.save(ToQt(report_.Image)));
    }
    void SetUpFile(const char* name, QDialogButtonBox::StandardButton button) {
        WithDialog([] { TheHost().SetUpPrinter(); },
                   [&](QWidget* dialog) {
                       EXPECT_EQ(dialog->windowTitle(), "Printer Setup");
                       auto* buttons = dialog->findChild<QDialogButtonBox*>();
                       EXPECT_EQ(buttons->button(QDialogButtonBox::Ok)->text(), "OK");
                       FindIn<QLineEdit>(*dialog, "filename")->setText(ToQt(PathOf(name)));
                       buttons->button(button)->click();
                   });
    }
    bool Printed() const { return TheHost().RunReport(report_, false); }

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
    for (const auto& [x, y, inside] : {std::tuple(111, 201, true),
                                       {758, 718, true},
                                       {108, 300, false},
                                       {300, 198, false},
                                       {762, 722, false}})
        EXPECT_EQ(page.pixelColor(x, y), QColor(inside ? Qt::red : Qt::white)) << x;
}

TEST_F(ReportPrinterTest, PrintsToTheFileThatWasSetUpOrTellsAFault) {
    SetUpFile("one.pdf", QDialogButtonBox::Ok);
    EXPECT_EQ(TheHost().PrinterResolution(), 600);
    EXPECT_FALSE(RunOnFullDisk([&] { return Printed(); }));
    std::filesystem::remove(PathOf("one.pdf"));
    EXPECT_TRUE(Printed());
    EXPECT_NE(Content("one.pdf").find("/MediaBox [0 0 612.000000 792.000000]"), std::string::npos);
    SetUpFile("two.pdf", QDialogButtonBox::Cancel);
    // The file that is there stays after a No, and is written anew after a Yes.
    Put("one.pdf", "old");
    Script({Answer::No, Answer::Yes});
    EXPECT_TRUE(Printed());
    EXPECT_EQ(Content("one.pdf"), "old");
    EXPECT_TRUE(Printed());
    EXPECT_GT(Content("one.pdf").size(), 4096U);
    EXPECT_FALSE(std::filesystem::exists(PathOf("two.pdf")));
    // The folder is gone since the dialog closed; then the picture is.
    std::filesystem::create_directory(PathOf("gone"));
    SetUpFile("gone/one.pdf", QDialogButtonBox::Ok);
    std::filesystem::remove(PathOf("gone"));
    EXPECT_FALSE(Printed());
    report_.Image += ".not";
    EXPECT_FALSE(TheHost().RunReport(report_, true));
}

TEST_F(ReportPrinterTest, PreviewPrintsLikeTheCommand) {
    SetUpFile("one.pdf", QDialogButtonBox::Ok);
    std::string help;
    TheHost().ShowHelp = [&](std::string_view page) { help = page; };
    UseEnglish = 0;
    TheHost().ApplyLanguage();
    WithDialog([&] { EXPECT_TRUE(TheHost().RunReport(report_, true)); },
               [&](QWidget* dialog) {
                   EXPECT_EQ(dialog->windowTitle(), "打印预览 - Sine");
                   QTest::keyClick(dialog, Qt::Key_F1);
                   // Print is the last of the eight buttons that a single page needs.
                   QList<QAction*> buttons;
                   for (QAction* action : dialog->findChild<QToolBar*>()->actions())
                       if (action->isVisible() && !action->icon().isNull()) buttons << action;
                   ASSERT_EQ(buttons.size(), 8);
                   EXPECT_FALSE(std::filesystem::exists(PathOf("one.pdf")));
                   buttons.last()->trigger();
               });
    EXPECT_EQ(help, "PrintPreviewFrm");
    EXPECT_NE(Content("one.pdf").find("%%EOF"), std::string::npos);
    UseEnglish = 1;
    TheHost().ApplyLanguage();
}

}  // namespace
