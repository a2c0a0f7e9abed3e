#pragma once
// A dialog whose controls work over the link. It is seen first and reads from the instrument then;
// it stays open while work runs, and closes itself when it has nothing to show.
#include "ui/DialogBase.h"

#include <functional>
#include <initializer_list>
#include <QTimer>

class WaitPanel;

class LinkDialog : public DialogBase {
public:
    LinkDialog(const char* window, QWidget* parent);
    ~LinkDialog() override;

    /// The link dialog that is open; null without one.
    static LinkDialog* Current();

    /// Fills every control from the record and the state of the link.
    virtual void Refresh() = 0;

    /// Closes the dialog, unless work of the link runs.
    void reject() override;

protected:
    /// Reads what the dialog shows, once it stands on the screen.
    virtual void Begin() = 0;
    /// The record asks for the end of the dialog.
    virtual bool CloseAsked() const = 0;
    void showEvent(QShowEvent* event) override;

    /// Runs what a control asks for and shows what came of it.
    void Do(const std::function<void()>& act);
    /// The last row: what the link does, and the dialog's buttons.
    QLayout* MakeBottom(std::initializer_list<QPushButton*> buttons);
    void ApplyTexts();
    static bool Working();

    WaitPanel* wait_ = nullptr;

private:
    void Open();

    LinkDialog* before_;
    QTimer timer1_;
    bool opened_ = false;
};
