#include "frame/HelpPages.h"
#include "platform/qt/QtText.h"
#include "ui/HelpBrowser.h"
#include "ui/HelpFrm.h"
#include "ui/MainWindowFixture.h"

#include <QDesktopServices>

namespace {

using Names = std::vector<std::string>;

class HelpTest : public MainWindowTest {
protected:
    HelpFrm* Viewer() const { return window_->findChild<HelpFrm*>(); }
    HelpBrowser* Page() const { return FindIn<HelpBrowser>(*Viewer(), "PageTxt"); }
    std::string Shown() const { return Page()->Page().toStdString(); }
    /// The page after F1 in a window. It counts as active already when its owner is.
    std::string HelpOf(QWidget* window) const {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == window; }));
        QWidget* focused = window->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : window, Qt::Key_F1);
        return Shown();
    }
    std::string ShownBy(const char* button) const {
        return ClickOn(FindIn<QToolButton>(*Viewer(), button)), Shown();
    }
    void Follow(const char* link) const { emit Page()->anchorClicked(QUrl(link)); }
    /// Pages in the contents, without those that only have a page below them.
    Names Listed() const {
        Names names;
        for (QTreeWidgetItemIterator item(Find<QTreeWidget>("ContentsList"),
                                          QTreeWidgetItemIterator::NotHidden);
             *item != nullptr; ++item)
            if ((*item)->foreground(0).color() == Viewer()->palette().windowText().color())
                names.push_back((*item)->data(0, Qt::UserRole).toString().toStdString());
        return names;
    }
};

TEST_F(HelpTest, KeyOpensThePageOfTheWindowInUse) {
    EXPECT_EQ(HelpOf(window_.get()), "index");
    New();
    EXPECT_EQ(HelpOf(window_.get()), "analog");
    NewDigit();
    EXPECT_EQ(HelpOf(window_.get()), "digital");
    TheHost().RunDialog("LinkTranscriptFrm", 0);
    EXPECT_EQ(HelpOf(Find<QDialog>("LinkTranscriptFrm")), "troubleshooting");
}

TEST_F(HelpTest, IsUsedBesideADialogAndStaysBehindIt) {
    New();
    WithDialog([] { TheHost().RunDialog("PropertyFrm", 0); },
               [&](QWidget* dialog) {
                   EXPECT_EQ(HelpOf(dialog), "property");
                   EXPECT_EQ(ShownBy("HomeBtn"), "index");
                   QTimer::singleShot(0, dialog, [&] {  // one over the other
                       QWidget* box = QApplication::activeModalWidget();
                       EXPECT_EQ(HelpOf(box), "property");
                       EXPECT_EQ(ShownBy("BackBtn"), "index");
                       box->close();
                   });
                   TheHost().Ask("?", Buttons::Ok, MessageIcon::Question);
                   QTest::qWait(1);
                   Follow("zoom.html");
                   Viewer()->resize(800, 600);
                   EXPECT_EQ(ShownBy("BackBtn"), "index");
               });
    QTest::qWait(1);
    EXPECT_TRUE(Viewer()->isVisible() && Viewer()->size() == QSize(800, 600));
    EXPECT_EQ(ShownBy("ForwardBtn"), "zoom");
    EXPECT_EQ(Find<QTreeWidget>("ContentsList")->currentItem()->data(0, Qt::UserRole), "zoom");
    WithDialog([] { TheHost().RunDialog("AboutFrm", 0); },  // opened while the viewer stands
               [&](QWidget*) { EXPECT_EQ(ShownBy("BackBtn"), "index"); });
    window_->close();
    EXPECT_FALSE(Viewer()->isVisible());
}

TEST_F(HelpTest, ShowsTheSamePageInTheOtherLanguage) {
    TheHost().ShowHelp("EquationFrm");
    const HelpPage& page = *std::ranges::find(HelpPages(), "equation", &HelpPage::Name);
    for (UseEnglish = 0; UseEnglish <= 1; ++UseEnglish) {
        TheHost().ApplyLanguage();
        const QString title = ToQt(UseEnglish == 1 ? page.English : page.Chinese);
        EXPECT_TRUE(Page()->toPlainText().startsWith(title) && Shown() == "equation");
        EXPECT_EQ(Viewer()->windowTitle(), title + " - " + ToQt(TextOf("HelpFrm", "")));
    }
}

TEST_F(HelpTest, SearchFiltersTheContentsAndGoesFromHitToHit) {
    TheHost().ShowHelp("zoom");
    EXPECT_EQ(HelpOf(Viewer()), "index");
    auto* search = Find<QLineEdit>("SearchTxt");
    QTest::keyClick(Viewer(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(search->hasFocus());
    QTest::keyClicks(search, "UDEV");
    Names having;  // the file's name occurs with and without capitals
    for (const HelpPage& page : HelpPages())
        if (HelpBrowser::ReadPage(ToQt(page.Name)).contains("udev")) having.emplace_back(page.Name);
    ASSERT_FALSE(having.empty());
    EXPECT_EQ(Listed(), having);
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_EQ(Shown(), having.front());
    const int first = Page()->textCursor().position();
    QTest::keyClick(Viewer(), Qt::Key_F3);
    EXPECT_EQ(Page()->textCursor().selectedText().toLower(), "udev");
    EXPECT_TRUE(Shown() != having.front() || Page()->textCursor().position() != first);
    QTest::keyClicks(search, " qzqz");
    EXPECT_TRUE(Listed().empty() && Find<QLabel>("NothingLab")->isVisible());
    QTest::keyClick(search, Qt::Key_Escape);  // empties the box, then closes the window
    EXPECT_EQ(Listed().size(), HelpPages().size());
    QTest::keyClick(search, Qt::Key_Escape);
    EXPECT_FALSE(Viewer()->isVisible());
}

TEST_F(HelpTest, LeavesItsFolderOnlyForTheBrowser) {
    QTextBrowser browser;  // in place of the user's
    for (const char* scheme : {"http", "https", "file"})
        QDesktopServices::setUrlHandler(scheme, &browser, "setSource");
    TheHost().ShowHelp("");
    for (const char* link : {"file:///etc/passwd", "/etc/passwd", "none.html"}) {
        Follow(link);
        EXPECT_TRUE(Shown() == "index" && browser.source().isEmpty()) << link;
    }
    const QString icon = TIDEMARK_SOURCE_DIR "/src/ui/icons/Help.svg";
    ASSERT_FALSE(QImage(icon).isNull());
    const QUrl url = QUrl::fromLocalFile(icon);
    const QVariant read = Page()->document()->resource(QTextDocument::ImageResource, url);
    EXPECT_TRUE(read.value<QImage>().isNull());
    Follow("https://example.org/");
    EXPECT_EQ(browser.source(), QUrl("https://example.org/"));
    for (const char* scheme : {"http", "https", "file"}) QDesktopServices::unsetUrlHandler(scheme);
}

TEST(HelpPagesTest, EveryDialogHasAPage) {
    for (const std::string_view dialog : DialogNames())
        EXPECT_TRUE(HelpPageOf(dialog) != "index" || dialog == "AboutFrm") << dialog;
}

QStringList AllOf(const QString& html, const char* pattern) {
    QStringList found;
    for (const auto& hit : QRegularExpression(pattern).globalMatch(html)) found << hit.captured(1);
    return found;
}

TEST(HelpPagesTest, EveryLinkAndPictureIsThereInBothLanguages) {
    for (UseEnglish = 0; UseEnglish <= 1; ++UseEnglish) {
        QSet<QString> targets, linked = {"index"};
        QMap<QString, QString> pages;
        for (const HelpPage& page : HelpPages()) {
            const QString name = ToQt(page.Name), html = HelpBrowser::ReadPage(name);
            pages[name] = html;
            targets << name + ".html";
            for (const QString& place : AllOf(html, R"re((?:name|id)="([^"]*)")re"))
                targets << name + ".html#" + place;
        }
        for (const QString& name : pages.keys()) {
            const std::string where = HelpFile() + ' ' + name.toStdString();
            EXPECT_FALSE(pages[name].isEmpty()) << where;
            for (QString link : AllOf(pages[name], R"re(href="([^"]*)")re")) {
                if (link.startsWith("http")) continue;
                if (link.startsWith('#')) link.prepend(name + ".html");
                EXPECT_TRUE(targets.contains(link)) << where << ": " << link.toStdString();
                if (const QString page = link.section('.', 0, 0); page != name) linked << page;
            }
            for (const QString& picture : AllOf(pages[name], R"re(src="([^"]*)")re"))
                EXPECT_TRUE(QFileInfo(ToQt(HelpFile()) + '/' + picture).isFile())
                    << where << ": " << picture.toStdString();
        }
        EXPECT_EQ(linked, QSet<QString>(pages.keyBegin(), pages.keyEnd()));
    }
    UseEnglish = 1;
}

}  // namespace
