#pragma once
// The real main window with scripted answers, for tests of whole flows.
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/StatusText.h"
#include "platform/Host.h"
#include "ui/ActionTable.h"
#include "ui/Mainfrm.h"
#include "ui/MainHost.h"
#include "ui/StatusStrip.h"
#include "ui/WaveFrm.h"

#include <gtest/gtest.h>
#include <deque>
#include <functional>
#include <memory>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <set>
#include <stdexcept>

// Runs `open`, which shows one modal window, and `act` on it; what `act` leaves open is closed.
inline void WithDialog(const std::function<void()>& open,
                       const std::function<void(QWidget* dialog)>& act) {
    int seen = 0;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || !dialog->isVisible()) return;
        ++seen;
        act(dialog);
        if (QApplication::activeModalWidget() == dialog) dialog->close();
    });
    poll.start(1);
    open();
    EXPECT_EQ(seen, 1);
}

inline void ConfirmDots(QWidget* dialog, const char* dots) {
    auto* box = dialog->findChild<QLineEdit*>("DotnumTxt");
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QLatin1String(dots));
    dialog->findChild<QAbstractButton*>("OkAresBtn")->click();
}

inline QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Every text of the tables in the language in use.
inline std::set<QString> KnownTexts() {
    std::set<QString> known = {""};
    for (const WindowText& row : WindowTexts()) known.insert(Text(TextOf(row.Window, row.Control)));
    for (std::int32_t id = 1; id <= 51; ++id) known.insert(Text(ResText(id)));
    return known;
}

// The program as it stands after its start: no document, English, the real dialogs.
class MainWindowTest : public testing::Test {
protected:
    void SetUp() override {
        UseEnglish = 1;
        InstrumentModel = 0;
        InitialiseGlobals();
        ActiveAnalogIndex = 0;
        window_ = std::make_unique<Mainfrm>();
        InstallHost(*window_);
        window_->RefreshCommands();
        ShowStatus(26);
        window_->resize(1280, 800);
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }
    void TearDown() override {
        window_.reset();  // with its documents, as when the session ends
        TheHost() = host_;
        UseEnglish = 1;
        for (AnalogWaveRecord& wave : AnalogDocs) wave = AnalogWaveRecord{};
        AnalogInUse.fill(false);
        AnalogDocCount = 0;
        ClipDotCount = 0;
        ClipValues.clear();
    }

    template <typename Type>
    Type* Find(const char* name) const {
        auto* found = window_->findChild<Type*>(QLatin1String(name));
        if (found == nullptr) throw std::runtime_error(std::string("no ") + name);
        return found;
    }
    QAction* Command(std::string_view name) const {
        QAction* action = window_->Actions()->Find(name);
        if (action == nullptr) throw std::runtime_error("no " + std::string(name));
        return action;
    }
    void Choose(std::string_view name) const { Command(name)->trigger(); }
    void New(const char* dots = "1000") const {
        WithDialog([&] { Find<QToolButton>("NewAnaWaveAresBtn")->click(); },
                   [&](QWidget* dialog) { ConfirmDots(dialog, dots); });
    }
    void InsertSine(const char* dots = "100") const {
        WithDialog([&] { Find<QToolButton>("WaveAresBtn0")->click(); },
                   [&](QWidget* dialog) { ConfirmDots(dialog, dots); });
    }
    void PressClose(std::int16_t slot) const {
        window_->AnalogWindow(slot)->findChild<QToolButton*>("ExtBtn")->click();
    }
    void Key(int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) const {
        window_->activateWindow();  // no window manager does it after a dialog
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        QTest::keyClick(window_.get(), static_cast<Qt::Key>(key), modifiers);
    }
    /// Message boxes are answered in turn, with Cancel behind the last answer.
    void Script(std::deque<Answer> answers) {
        answers_ = std::move(answers);
        TheHost().Ask = [this](std::string_view text, Buttons, MessageIcon) {
            asked_.emplace_back(text);
            if (answers_.empty()) return Answer::Cancel;
            const Answer answer = answers_.front();
            answers_.pop_front();
            return answer;
        };
    }
    QList<QMdiSubWindow*> Frames() const {
        return Find<QMdiArea>("DocumentArea")->subWindowList(QMdiArea::CreationOrder);
    }
    std::string Hint() const {
        for (const QLabel* label : window_->Status()->findChildren<QLabel*>())
            if (label->isVisible()) return label->text().toStdString();
        return {};
    }

    const Host host_ = TheHost();
    std::unique_ptr<Mainfrm> window_;
    std::vector<std::string> asked_;
    std::deque<Answer> answers_;
};
