#include "frame/HelpPages.h"
#include "platform/qt/QtText.h"
#include "ui/HelpBrowser.h"
#include "ui/HelpFrm.h"
#include "ui/MainWindowFixture.h"

#include <gmock/gmock.h>
#include <filesystem>
#include <fstream>
#include <QDesktopServices>
#include <regex>

namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> AllOf(const std::string& html, const char* pattern) {
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator hit(html.begin(), html.end(), expression), end; hit != end; ++hit)
        found.push_back((*hit)[1]);
    return found;
}

class HelpTest : public MainWindowTest {
protected:
    /// A window counts as active already when the one that it belongs to is.
    static void AwaitFocus(const QWidget* window) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == window; }));
    }
    HelpFrm* Viewer() const { return window_->findChild<HelpFrm*>(); }
    HelpBrowser* Page() const { return FindIn<HelpBrowser>(*Viewer(), "PageTxt"); }
    std::string Shown() const { return Page()->Page().toStdString(); }
    /// A click as the window system reports it, which a modal dialog may keep away.
    void ClickInViewer(QWidget* part) const {
        const QPoint middle = part->mapTo(Viewer(), part->rect().center());
        QTest::mouseClick(Viewer()->windowHandle(), Qt::LeftButton, {}, middle);
    }
    void Follow(const char* link) const { emit Page()->anchorClicked(QUrl(link)); }
    std::vector<std::string> Listed() const {
        std::vector<std::string> names;
        for (QTreeWidgetItemIterator item(Find<QTreeWidget>("ContentsList"),
                                          QTreeWidgetItemIterator::NotHidden);
             *item != nullptr; ++item)
            if ((*item)->foreground(0).color() == Viewer()->palette().windowText().color())
                names.push_back((*item)->data(0, Qt::UserRole).toString().toStdString());
        return names;
    }
};

// --- the viewer ---------------------------------------------------------------------------------

TEST_F(HelpTest, KeyOpensThePageOfTheWindowInUse) {
    Key(Qt::Key_F1, {});
    EXPECT_EQ(Shown(), "index");
    New();
    Key(Qt::Key_F1, {});
    EXPECT_EQ(Shown(), "analog");
    NewDigit();
    Key(Qt::Key_F1, {});
    EXPECT_EQ(Shown(), "digital");
    TheHost().RunDialog("LinkTranscriptFrm", 0);
    QWidget* transcript = Find<QDialog>("LinkTranscriptFrm");
    AwaitFocus(transcript);
    QTest::keyClick(transcript, Qt::Key_F1);
    EXPECT_EQ(Shown(), "troubleshooting");
}

TEST_F(HelpTest, IsUsedBesideADialogAndStaysBehindIt) {
    New();
    WithDialog([] { TheHost().RunDialog("PropertyFrm", 0); },
               [&](QWidget* dialog) {
                   QTest::keyClick(FindIn(*dialog, "DotnumTxt"), Qt::Key_F1);
                   EXPECT_EQ(Shown(), "property");
                   ClickInViewer(FindIn<QToolButton>(*Viewer(), "HomeBtn"));
                   EXPECT_EQ(Shown(), "index");
                   QTimer::singleShot(0, dialog, [&] {  // one over the other
                       QWidget* box = QApplication::activeModalWidget();
                       ASSERT_EQ(box->objectName(), "MessageBox");
                       box->activateWindow();
                       AwaitFocus(box);
                       QTest::keyClick(box, Qt::Key_F1);
                       EXPECT_EQ(Shown(), "property");
                       ClickInViewer(FindIn<QToolButton>(*Viewer(), "BackBtn"));
                       EXPECT_EQ(Shown(), "index");
                       box->close();
                   });
                   TheHost().Ask("?", Buttons::Ok, MessageIcon::Question);
                   QTest::qWait(1);
                   Follow("zoom.html");
                   Viewer()->resize(800, 600);
                   ClickInViewer(FindIn<QToolButton>(*Viewer(), "BackBtn"));
                   EXPECT_EQ(Shown(), "index");
               });
    QTest::qWait(1);
    EXPECT_TRUE(Viewer()->isVisible());
    EXPECT_EQ(Viewer()->size(), QSize(800, 600));
    ClickInViewer(FindIn<QToolButton>(*Viewer(), "ForwardBtn"));
    EXPECT_EQ(Shown(), "zoom");
    EXPECT_EQ(Find<QTreeWidget>("ContentsList")->currentItem()->data(0, Qt::UserRole), "zoom");
    WithDialog([] { TheHost().RunDialog("AboutFrm", 0); },  // opened while the viewer stands
               [&](QWidget*) {
                   ClickInViewer(FindIn<QToolButton>(*Viewer(), "BackBtn"));
                   EXPECT_EQ(Shown(), "index");
               });
    window_->close();
    EXPECT_FALSE(Viewer()->isVisible());
}

TEST_F(HelpTest, ShowsTheSamePageInTheOtherLanguage) {
    TheHost().ShowHelp("EquationFrm");
    for (UseEnglish = 0; UseEnglish <= 1; ++UseEnglish) {
        TheHost().ApplyLanguage();
        const HelpPage& page = *std::ranges::find(HelpPages(), "equation", &HelpPage::Name);
        const QString title = ToQt(UseEnglish == 1 ? page.English : page.Chinese);
        EXPECT_EQ(Shown(), "equation");
        EXPECT_TRUE(Page()->toPlainText().startsWith(title));
        EXPECT_EQ(Viewer()->windowTitle(), title + " - " + ToQt(TextOf("HelpFrm", "")));
    }
}

TEST_F(HelpTest, SearchFiltersTheContentsAndGoesFromHitToHit) {
    TheHost().ShowHelp("");
    AwaitFocus(Viewer());
    auto* search = Find<QLineEdit>("SearchTxt");
    QTest::keyClick(Viewer(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(search->hasFocus());
    QTest::keyClicks(search, "UDEV");
    std::vector<std::string> having;  // the file's name occurs with and without capitals
    for (const HelpPage& page : HelpPages()) {
        const fs::path file = fs::path(HelpFile()) / (std::string(page.Name) + ".html");
        if (ReadFile(file).find("udev") != std::string::npos) having.emplace_back(page.Name);
    }
    ASSERT_FALSE(having.empty());
    EXPECT_EQ(Listed(), having);
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_EQ(Shown(), having.front());
    const int first = Page()->textCursor().position();
    QTest::keyClick(Viewer(), Qt::Key_F3);
    EXPECT_EQ(Page()->textCursor().selectedText().toLower(), "udev");
    EXPECT_TRUE(Shown() != having.front() || Page()->textCursor().position() != first);
    QTest::keyClicks(search, " qzqz");
    EXPECT_TRUE(Listed().empty());
    EXPECT_TRUE(Find<QLabel>("NothingLab")->isVisible());
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
    const std::string program = fs::read_symlink("/proc/self/exe");
    for (const std::string& link :
         {"file://" + program, std::string("file:///etc/passwd"), std::string("../../main.html"),
          std::string("/etc/passwd"), std::string("help:/../x.html"), std::string("none.html")}) {
        Follow(link.c_str());
        EXPECT_EQ(Shown(), "index") << link;
    }
    EXPECT_TRUE(browser.source().isEmpty());
    const auto resource = [&](const std::string& url) {
        return Page()
            ->document()
            ->resource(QTextDocument::ImageResource, QUrl(QString::fromStdString(url)))
            .value<QImage>();
    };
    const std::string icon = TIDEMARK_SOURCE_DIR "/src/ui/icons/Help.svg";
    ASSERT_FALSE(QImage(icon.c_str()).isNull());
    for (const std::string& url : {"file://" + icon, std::string("../../../src/ui/icons/Help.svg")})
        EXPECT_TRUE(resource(url).isNull()) << url;
    Follow("https://example.org/");
    EXPECT_EQ(browser.source(), QUrl("https://example.org/"));
    for (const char* scheme : {"http", "https", "file"}) QDesktopServices::unsetUrlHandler(scheme);
}

// --- the pages ----------------------------------------------------------------------------------

TEST(HelpPagesTest, EveryDialogHasAPage) {
    for (const std::string_view dialog : DialogNames())
        EXPECT_TRUE(HelpPageOf(dialog) != "index" || dialog == "AboutFrm") << dialog;
}

TEST(HelpPagesTest, EveryLinkAndPictureIsThereInBothLanguages) {
    for (const char* language : {"TideMark_EN", "TideMark_CN"}) {
        const fs::path folder = fs::path(TIDEMARK_SOURCE_DIR) / "help" / language;
        std::set<std::string> targets, linked = {"index"};
        std::map<std::string, std::string> pages;
        for (const HelpPage& page : HelpPages()) {
            const std::string name(page.Name);
            const std::string html = ReadFile(folder / (name + ".html"));
            EXPECT_NE(html, "") << language << ' ' << name;
            targets.insert(name + ".html");
            for (const std::string& anchor : AllOf(html, R"re((?:name|id)="([^"]*)")re"))
                targets.insert(name + ".html#" + anchor);
            pages[name] = html;
        }
        for (const auto& [name, html] : pages) {
            for (std::string link : AllOf(html, R"re(href="([^"]*)")re")) {
                if (link.starts_with("http")) continue;
                if (link.starts_with("#")) link.insert(0, name + ".html");
                EXPECT_TRUE(targets.contains(link)) << language << ' ' << name << ": " << link;
                const std::string page = link.substr(0, link.find('.'));
                if (page != name) linked.insert(page);
            }
            for (const std::string& picture : AllOf(html, R"re(src="([^"]*)")re"))
                EXPECT_TRUE(fs::is_regular_file(folder / picture))
                    << language << ' ' << name << ": " << picture;
        }
        for (const auto& [name, html] : pages) EXPECT_TRUE(linked.contains(name)) << name;
    }
}

}  // namespace
