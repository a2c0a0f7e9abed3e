#pragma once
// Real windows under scripted hands, for tests of whole flows.
#include "analog/AnalogFixture.h"
#include "digital/GlobalDigitDefineCode.h"
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

// Types over the number of a box, which stays in it.
inline NumberBox* Type(const QWidget& window, const char* name, const char* text) {
    auto* box = FindIn(window, name);
    box->setFocus();
    QTest::keyClicks(box, QLatin1String(text));
    return box;
}

inline void ExpectUniqueMnemonics(const QString& where, const QStringList& texts) {
    std::set<QChar> letters;
    for (const QString& text : texts) {
        const qsizetype mark = text.indexOf('&');
        if (mark < 0) continue;
        EXPECT_TRUE(letters.insert(text[mark + 1].toUpper()).second)
            << where.toStdString() << ": " << text.toStdString();
    }
}

// Every text stands in the table, in the language in use, and no two mnemonics meet.
inline void ExpectTexts(const QDialog& dialog) {
    const std::string window = dialog.objectName().toStdString();
    EXPECT_EQ(dialog.windowTitle().toStdString(), TextOf(window, ""));
    QStringList texts;
    for (const QWidget* control : dialog.findChildren<QWidget*>()) {
        QString text = control->accessibleName();
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        if (const auto* label = qobject_cast<const QLabel*>(control)) text = label->text();
        if (button && !qobject_cast<const SpinButton*>(control)) text = button->text();
        const std::string name = control->objectName().toStdString();
        const bool list = name.ends_with("Cmb") && name != "WaveTypeCmb";  // has its label
        const bool speaks = button || list || name.starts_with("Pic");
        EXPECT_TRUE(!text.isEmpty() || !speaks) << name;
        if (text.isEmpty() || name.empty() || name.starts_with("para")) continue;
        if (qobject_cast<const QLabel*>(control) && name.ends_with("Txt")) continue;  // of values
        EXPECT_EQ(text.toStdString(), TextOf(window, name)) << window << ' ' << name;
        texts << text;
    }
    ExpectUniqueMnemonics(dialog.objectName(), texts);
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
    void InsertSine() const { ConfirmDots("WaveAresBtn0", "100"); }
    void NewSine() const {
        New();
        InsertSine();
    }
    void Press(std::int16_t slot, const char* button) const {
        FindIn<QToolButton>(*window_->AnalogWindow(slot), button)->click();
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) const {
        window_->activateWindow();  // no window manager does it after a dialog
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
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
