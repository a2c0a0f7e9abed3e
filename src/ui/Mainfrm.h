#pragma once
// The main window: caption strip, menu strip, tool bars, document area and status strip. It draws
// its own frame; commands reach it through the one table of actions.
#include "platform/Host.h"

#include <array>
#include <QMainWindow>
#include <vector>

class ActionTable;
class ButtonWalk;
class CaptionBar;
class ConnectImage;
class DocumentArea;
class DocumentWindow;
class QMdiSubWindow;
class QMenuBar;
class QToolBar;
class StatusStrip;
class TrayIcon;
class WaveFrm;

class Mainfrm : public QMainWindow {
    Q_OBJECT
public:
    Mainfrm();

    /// Makes (or reuses) the window of a document, shows and activates it and sizes its surfaces.
    void OpenWindow(std::int16_t tag);
    /// The tag of the active child window, -1 without one.
    std::int16_t ActiveTag() const;
    /// The window of a document; null before it was first opened, and for -1.
    DocumentWindow* Window(std::int16_t tag) const;
    WaveFrm* AnalogWindow(std::int16_t slot) const;

    void ShowTitle(std::int16_t tag);
    void ShowPlot(std::int16_t tag);
    void RefreshCommands();
    void ApplyLanguage();
    /// Shows the state of the link: connect button, status strip and the open link dialog.
    void ShowLink();
    /// Opens a context menu at a place of the screen.
    void PopupMenu(const QString& name, QPoint global);
    StatusStrip* Status() const { return status_; }
    ActionTable* Actions() const { return actions_; }

    /// Maximises or restores with the program's own caption. Screens above 1280 x 1024 are
    /// declined with a message: the layout of the controls ends there.
    void ToggleMaximised();
    /// Arranges the windows of the open documents.
    void ArrangeWindows(WindowArrangement kind);
    /// Shows the window when it is minimised, and removes the tray icon.
    void ShowEditor();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildCaption();
    void BuildToolBars();
    void BuildDocumentArea();
    QMdiSubWindow* MakeWindow(std::int16_t tag);
    void ShowKind();
    void ShowActiveTool();
    void TabToActive();
    void FocusPicture();
    void StepPart(int by);
    void FillWindowMenu();
    bool CloseAllDocuments();
    void LeaveMaximised();
    void BeginMove(QPoint pointer);

    ActionTable* actions_;
    CaptionBar* caption_;
    ButtonWalk* captionButtons_;
    QMenuBar* menus_;
    QMenu* windowMenu_ = nullptr;
    std::vector<QToolBar*> bars_;     // in the order of ToolBars()
    std::vector<ButtonWalk*> lines_;  // of tool bars, those of both kinds of documents
    DocumentArea* area_;
    StatusStrip* status_;
    ConnectImage* activity_;
    TrayIcon* tray_ = nullptr;
    std::array<QMdiSubWindow*, 20> frames_{};  // by tag; windows stay with their slots, reused
    bool mainMaximised_ = false;
    std::int16_t savedLeft_ = 0, savedTop_ = 0, savedWidth_ = 0, savedHeight_ = 0;
};
