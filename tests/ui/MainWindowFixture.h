#pragma once
// Real windows under scripted hands, for tests of whole flows.
#include "analog/AnalogFixture.h"
#include "digital/DigitDocumentFuncBox.h"
#include "digital/DigitFuncCode.h"
#include "digital/GlobalDigitDefineCode.h"
#include "ui/DocumentWindow.h"
#include "ui/Mainfrm.h"
#include "ui/MainHost.h"
#include "ui/NumberBox.h"
#include "ui/SpinButton.h"
#include "ui/WaveFrm.h"
#include "ui/WavePic.h"

#include <functional>
#include <memory>
#include <QtTest>
#include <QtWidgets>
#include <set>
#include <stdexcept>

// Runs `open`, which shows one modal window, and `act` on it; what `act` leaves open is closed.
inline void WithDialog(const std::function<void()>& open,
                       const std::function<void(QWidget* dialog)>& act) {
    int seen = 0;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || !dialog->isActiveWindow()) return;
        ++seen;
        act(dialog);
        if (QApplication::activeModalWidget() == dialog) dialog->close();
    });
    poll.start(1);
    open();
    EXPECT_EQ(seen, 1);
}

// A control by its name, a number box unless said otherwise.
template <typename Control = NumberBox>
Control* FindIn(const QWidget& window, std::string_view name) {
    auto* found = window.findChild<Control*>(QLatin1String(QByteArrayView(name)));
    if (found == nullptr) throw std::runtime_error("no " + std::string(name));
    return found;
}

// Types over the number of a box, which stays in it. A visit to the box selects its number.
inline NumberBox* Type(const QWidget& window, const char* name, const char* text) {
    auto* box = FindIn(window, name);
    if (box->hasFocus()) box->selectAll();
    box->setFocus();
    QTest::keyClicks(box, QLatin1String(text));
    return box;
}

inline void Click(const QWidget& window, const char* name) {
    FindIn<QAbstractButton>(window, name)->click();
}

// Clicks as the window system reports it, which may move the focus, or be kept away by a dialog.
inline void ClickOn(const QWidget* control) {
    const QPoint middle = control->mapTo(control->window(), control->rect().center());
    QTest::mouseClick(control->window()->windowHandle(), Qt::LeftButton, {}, middle);
}

// Chooses in a list by the keyboard.
inline void Pick(const QWidget& window, const char* list, Qt::Key key, int times = 1) {
    auto* box = FindIn<QComboBox>(window, list);
    box->setFocus();
    for (int i = 0; i < times; ++i) QTest::keyClick(box, key);
}

// By an amount, in two steps as a hand does it.
inline void Drag(QWidget* handle, QPoint start, QPoint by) {
    const QPoint from = handle->mapToGlobal(start);
    const auto send = [&](QEvent::Type type, QPoint at, Qt::MouseButtons held) {
        QMouseEvent event(type, handle->mapFromGlobal(at), at, Qt::LeftButton, held, {});
        QApplication::sendEvent(handle, &event);
    };
    send(QEvent::MouseButtonPress, from, Qt::LeftButton);
    for (const int part : {2, 1}) send(QEvent::MouseMove, from + by / part, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, from + by, Qt::NoButton);
}
inline void Drag(QWidget* handle, QPoint by) {
    Drag(handle, handle->rect().center(), by);
}

// Counts how often the widgets that it filters are painted and get another size.
struct PaintCounter : QObject {
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++Paints;
        if (event->type() == QEvent::Resize) ++Sizes;
        return false;
    }
    int Paints = 0, Sizes = 0;
};

inline void ExpectUniqueMnemonics(const QString& where, const QStringList& texts) {
    std::set<QChar> letters;
    for (const QString& text : texts) {
        const qsizetype mark = text.indexOf('&');
        if (mark < 0) continue;
        EXPECT_TRUE(letters.insert(text[mark + 1].toUpper()).second)
            << where.toStdString() << ": " << text.toStdString();
    }
}

// The records as they stand after the start: no document, English.
class RecordsTest : public AnalogFixture {
protected:
    void SetUp() override {
        AnalogFixture::SetUp();
        InitialiseGlobals();
        PropertyEditMode = false;
        ClipValues.clear();
        for (DigitDocument& document : DigitDocTable) document = DigitDocument();
        DigitDocUsed.fill(false);
        DigitDocCount = 0;
    }
    /// An open document of 4096 dots at most, 2 V peak to peak, 10 us.
    static AnalogWaveRecord& MakeDocument(std::string_view runs, std::int32_t count = 100,
                                          std::int16_t slot = 0) {
        AnalogWaveRecord& wave = AnalogFixture::MakeDocument(runs, count, 4096, slot);
        wave.Vpp = 2.0;
        wave.Period = 1e-5;
        return wave;
    }
    static void Show(QWidget& dialog) {
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
};

// The main window on these records, with the real dialogs.
class MainWindowTest : public RecordsTest {
protected:
    void SetUp() override {
        RecordsTest::SetUp();
        window_ = std::make_unique<Mainfrm>();
        InstallHost(*window_);
        window_->RefreshCommands();
        window_->resize(1280, 800);
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }
    void TearDown() override {
        window_.reset();
        RecordsTest::TearDown();
    }

    template <typename Control = QToolButton>
    Control* Find(std::string_view name) const {
        return FindIn<Control>(*window_, name);
    }
    QAction* Command(std::string_view name) const { return Find<QAction>(name); }
    void ConfirmDots(const char* button, const char* dots) const {
        WithDialog([&] { Find(button)->click(); },
                   [&](QWidget* dialog) {
                       Type(*dialog, "DotnumTxt", dots);
                       FindIn<QAbstractButton>(*dialog, "OkAresBtn")->click();
                   });
    }
    void New() const { ConfirmDots("NewAnaWaveAresBtn", "1000"); }
    // 4096 dots at 1 kbps, "clk" and the bus "b" of 12 channels.
    static DigitDocument& NewDigit() {
        ActiveDigitIndex = FirstFreeSlot(DigitDocUsed);
        DigitDocument& document = ActiveDigit();
        document.Dots = 4096;
        document.Rate = 1000.0;
        CreateDigitDocument();
        AppendNode(document, {.Name = "clk"});
        AppendNode(document, {.Name = "b", .Width = 12});
        RenumberRows(document);
        TheHost().RefreshCommands();
        return document;
    }
    void InsertSine() const { ConfirmDots("WaveAresBtn0", "100"); }
    void NewSine() const {
        New();
        InsertSine();
    }
    void Press(std::int16_t window, const char* button) const {
        Click(*window_->Window(window), button);
    }
    void CloseActive() const { Press(window_->ActiveTag(), "ExtBtn"); }
    static QWidget* RightGrip(QWidget* window) {
        return window->childAt(window->width() - 2, window->height() / 2);
    }
    void Activate() const {  // no window manager does it after a dialog
        window_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) const {
        Activate();
        QTest::keyClick(window_.get(), key, modifiers);
    }
    /// Message boxes are answered in turn, with Cancel behind the last answer.
    void Script(const std::vector<Answer>& answers) {
        asked.clear();
        TheHost().ShowBox = [this, answers](auto text, auto, auto, auto) {
            asked.emplace_back(text);
            return asked.size() <= answers.size() ? answers[asked.size() - 1] : Answer::Cancel;
        };
    }

    std::unique_ptr<Mainfrm> window_;
};
