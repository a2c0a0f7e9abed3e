// A random walk over the whole program beside an instrument: commands, mouse and keyboard on what
// is in front. A seed repeats it but for what the instrument does, which takes its own time.
#include "digital/DigitFixture.h"
#include "frame/commands/CommandTable.h"
#include "RoadFixture.h"
#include "Soak.h"

#include <random>

namespace {

constexpr int Acts = 3000;

struct DigitChecks : DigitFixture {
    using DigitFixture::ExpectSound;
};

class RandomWalkTest : public RoadFixture, public testing::WithParamInterface<unsigned> {
protected:
    // Nothing outside the folder of the test is opened, written or printed on.
    void SetUp() override {
        RoadFixture::SetUp();
        TheHost().ChooseFile = [this](const FileChoice&) {
            return PathOf(One({"no/file", "a.txt", "b.csv", "c.rdf", "d.DRIG"}));
        };
        TheHost().RunReport = [this](auto...) { return Pick(0, 1) == 0; };
        TheHost().SetUpPrinter = [] {};
        TheSerialPort().Devices = [] { return std::vector<SerialDevice>(); };
    }
    int Pick(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }
    template <typename Each = int>
    Each One(std::initializer_list<Each> all) {
        return all.begin()[Pick(0, int(all.size()) - 1)];
    }
    Qt::KeyboardModifiers Held() {
        return Qt::KeyboardModifiers(Pick(0, 1) ? 0 : One({0x02000000, 0x04000000, 0x08000000}));
    }
    // As it comes from the window system, with shortcuts. The press may be the end of the window.
    void Strike(const QWidget* widget, int key, Qt::KeyboardModifiers held = {}) {
        const QPointer<QWindow> window = widget->windowHandle();
        const QString text = key < Qt::Key_Escape ? QString(QChar(key)).toLower() : QString();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
            if (window != nullptr) qt_handleKeyEvent(window, type, key, held, text);
    }
    void StrikeAny(const QWidget* window) {
        Strike(window,
               One<int>({Pick('-', '9'), Pick('0', '9'), Pick('A', 'Z'),
                         Pick(Qt::Key_Escape, 0x1000007), Pick(Qt::Key_Home, Qt::Key_PageDown),
                         Qt::Key_Space, Qt::Key_F1, Qt::Key_F6}),
               Held());
    }
    // An event of the mouse on a part or a little beside it.
    void Mouse(QPointer<QWidget> part, QEvent::Type type, Qt::MouseButton button, bool held) {
        if (part == nullptr) return;
        const QPointF at(Pick(-9, part->width() + 9), Pick(-9, part->height() + 9));
        QMouseEvent event(type, at, part->mapToGlobal(at), button, held ? button : Qt::NoButton,
                          Held());
        QWheelEvent turn(at, at, {}, {0, One({-120, 120})}, {}, Held(), {}, false);
        QApplication::sendEvent(part, type == QEvent::Wheel ? static_cast<QEvent*>(&turn) : &event);
    }
    // Something seen in a window, the picture of a document more often.
    void Touch(QWidget* window) {
        const DocumentWindow* document = window_->Window(window_->ActiveTag());
        QList<QWidget*> parts = window->findChildren<QWidget*>();
        erase_if(parts, [](const QWidget* part) { return !part->isVisible(); });
        QPointer<QWidget> part = parts.value(Pick(0, int(parts.size())), window);
        if (window == window_.get() && document != nullptr && Pick(0, 1))
            part = document->Picture();
        const auto button = One({Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton});
        if (Pick(0, 4) == 0) return Mouse(part, One({QEvent::MouseMove, QEvent::Wheel}), {}, false);
        Mouse(part, One({QEvent::MouseButtonPress, QEvent::MouseButtonDblClick}), button, true);
        for (int moves = Pick(0, 4); moves > 0; --moves)
            Mouse(part, QEvent::MouseMove, button, true);
        if (Pick(0, 15) == 0) StrikeAny(window_.get());
        Mouse(part, QEvent::MouseButtonRelease, button, false);
    }
    // A stroke under way gets its segment when the button is released.
    void Check() {
        for (std::int16_t slot = 0; slot < MaxDocuments && !HasFatalFailure(); ++slot) {
            if (AnalogInUse[slot] && !AnalogDocs[slot].MouseArmed) ExpectSound(AnalogDocs[slot], 1);
            if (DigitDocUsed[slot]) DigitChecks::ExpectSound(DigitAt(slot));
        }
    }
    // Return now and then; after a while Escape, which cancels work of the link as well.
    void ActInDialog(QWidget* dialog) {
        if (dialog != std::exchange(dialog_, dialog)) stay_ = Pick(1, 30);
        if (--stay_ >= 0 && acts_ < Acts)
            return Pick(0, 1)   ? Touch(dialog)
                   : Pick(0, 1) ? StrikeAny(dialog)
                                : Strike(dialog, Qt::Key_Return);
        Strike(dialog, Qt::Key_Escape);
        if (dialog == QApplication::activeModalWidget()) dialog->close();
    }
    void Act() {
        ++acts_;
        const bool ends = acts_ >= Acts || HasFatalFailure();
        if (const QWidget* popup = QApplication::activePopupWidget())
            return Strike(
                popup, ends ? Qt::Key_Escape : One({Qt::Key_Escape, Qt::Key_Down, Qt::Key_Return}));
        if (QWidget* dialog = QApplication::activeModalWidget()) return ActInDialog(dialog);
        dialog_ = nullptr;
        if (ends) return loop_.quit();
        if (!window_->isVisible() || window_->isMinimized()) return window_->ShowEditor();
        if (acts_ % 16 == 0) Check();
        if (Pick(0, 2) == 0) return RunCommand(Commands()[Pick(0, int(Commands().size()) - 1)]);
        QWidget* active = QApplication::activeWindow();
        QWidget* window = Pick(0, 7) || active == nullptr ? window_.get() : active;
        Pick(0, 2) ? Touch(window) : StrikeAny(window);
    }
    // The next act comes when this one is over, or runs the event loop of a dialog or a wait.
    void Next() {
        QTimer::singleShot(1, &context_, [this] {
            Next();
            const int level = QThread::currentThread()->loopLevel(), before = level_;
            if (level <= before) return;
            level_ = level;
            Act();
            level_ = before;
        });
    }

    QEventLoop loop_;
    QObject context_;
    QPointer<QWidget> dialog_;
    int acts_ = 0, stay_ = 0, level_ = 0;
    std::mt19937 random_{GetParam()};
};

TEST_P(RandomWalkTest, LeavesSoundRecordsAndNoWarning) {
    Next();
    loop_.exec();
    Check();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalkTest, ::testing::ValuesIn(Seeds({1U})));

}  // namespace
