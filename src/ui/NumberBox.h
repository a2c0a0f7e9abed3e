#pragma once
// An edit box for one number: keys that cannot lead to a number of its kind are dropped, digits
// stand at the right, and a visit begins with all of the text selected.
#include "frame/KeyFilter.h"

#include <QLineEdit>
#include <string>

/// Pixels that so many digits take in the widget's font.
int WidthOfDigits(const QWidget* widget, int digits);

class NumberBox : public QLineEdit {
    Q_OBJECT
public:
    NumberBox(KeyKind kind, QWidget* parent);

    /// Another kind of number is typed from now on; the text stays.
    void SetKind(KeyKind kind) { kind_ = kind; }
    KeyKind Kind() const { return kind_; }

    /// Drops keys that make the text longer than this.
    void SetLongestText(std::size_t length) { longest_ = length; }
    std::size_t LongestText() const { return longest_; }

    /// Shows what was typed, held to its bounds. A text that stands keeps its cursor.
    void ShowHeld(const std::string& held);

    /// Hands the text over as if the focus had gone.
    void Leave() { emit left(text()); }

signals:
    /// The focus has gone to another control, or Enter was pressed.
    void left(const QString& text);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void FocusNextBox();

    KeyKind kind_;
    std::size_t longest_ = std::size_t{0} - 1;
    bool entered_ = false;  // the mouse press that gave the focus is not released yet
};
