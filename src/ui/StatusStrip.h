#pragma once
// The status strip: one panel per tool with its message label, swapped in place, and a progress
// bar for long work. Its height never changes.
#include <QElapsedTimer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QStackedWidget;

class StatusStrip : public QWidget {
    Q_OBJECT
public:
    explicit StatusStrip(QWidget* parent);

    /// Puts a text into a message label and brings its panel to the front.
    void ShowText(const QString& label, const QString& text);
    /// Work that lasts longer than a moment shows a bar; total 0 ends it. Returns true when the
    /// bar changed, so that the caller lets it repaint.
    bool ShowProgress(qint64 done, qint64 total);

private:
    QStackedWidget* panels_;
    QProgressBar* progress_;
    QElapsedTimer since_;
};
