#pragma once
// A row of tool buttons as one stop of the keyboard. The arrows, Home and End walk its open
// buttons, Space and Enter press them, Escape leaves the row. A visit comes back to the button that
// was used last.
#include <QList>
#include <QObject>

class QToolButton;
class QWidget;

class ButtonWalk : public QObject {
    Q_OBJECT
public:
    enum class Tab { Stops, Passes };

    /// Takes the tool buttons directly inside `parts`, which is where they stay. With `Passes` the
    /// Tab key does not come here.
    ButtonWalk(const QList<QWidget*>& parts, Tab tab, QObject* parent);

    /// The button for a visit; null where all are closed or hidden.
    QToolButton* Stop() const;
    bool HasFocus() const;

signals:
    /// Escape, or a button that its own command has closed.
    void Left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Forget(QObject* gone);
    QList<QToolButton*> Open() const;
    bool Step(QToolButton* from, int key);
    void Use(QToolButton* button);
    void MoveTabStop();

    QList<QToolButton*> buttons_;  // from the left
    QToolButton* used_ = nullptr;
    Tab tab_;
};
