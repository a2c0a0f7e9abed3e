#pragma once
// The help viewer: the contents at the left, a page at the right. There is one, beside the main
// window and beside whatever dialog stands over it.
#include <functional>
#include <QWidget>
#include <string_view>
#include <vector>

class HelpBrowser;
class QAction;
class QKeySequence;
class QLabel;
class QLineEdit;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;

class HelpFrm : public QWidget {
    Q_OBJECT
public:
    explicit HelpFrm(QWidget* main);

    /// Opens the viewer of the main window, or brings it to the front, at the page of a window.
    static void ShowOver(QWidget* main, std::string_view window);

    /// Puts the texts of the current language on the window, and shows the page in it.
    void ApplyTexts();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAction* AddTool(const char* name, const char* icon, const QList<QKeySequence>& keys,
                     const std::function<void()>& act);
    void AddKey(const QKeySequence& key, const std::function<void()>& act);
    void BuildTools();
    void BuildContents();
    void LayOut();

    void StepPart(int by);
    void Leave();

    void FollowFront();
    void ShowArrival();
    void FilterContents();
    void StepHit(bool forward);

    QToolBar* tools_;
    QAction* back_ = nullptr;
    QAction* forward_ = nullptr;
    QAction* clear_ = nullptr;
    QLineEdit* search_;
    QTreeWidget* contents_;
    QLabel* nothing_;
    HelpBrowser* page_;
    std::vector<QTreeWidgetItem*> items_;  // in the order of HelpPages()
    std::vector<QString> texts_;           // of the pages, in one language; empty: not yet read
};
