#pragma once
// The window of the link's transcript. It stands beside the main window and follows what goes over
// the link.
#include "ui/DialogBase.h"

#include <array>
#include <QTimer>

class QCheckBox;
class QPlainTextEdit;

class LinkTranscriptFrm : public DialogBase {
    Q_OBJECT
public:
    explicit LinkTranscriptFrm(QWidget* parent = nullptr);

    /// Shows the one window that stands over `main`, or brings it to the front.
    static void ShowOver(QWidget* main);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QPushButton* AddButton(const char* name, void (LinkTranscriptFrm::*press)());
    void ShowLines();
    void SaveLines();
    void CopyLines();
    void ClearLines();

    QCheckBox* record_;
    QPlainTextEdit* lines_;
    std::array<QPushButton*, 3> buttons_;
    QTimer refresh_;           // runs while the window is visible
    std::uint64_t shown_ = 0;  // lines taken in or passed over since the program's start
};
