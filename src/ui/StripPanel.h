#pragma once
// A panel of the status strip: a hint, which gives way in a narrow window, and behind it a line of
// boxes, read-outs and buttons.
#include <QHBoxLayout>
#include <QLabel>

inline constexpr int StripGap = 8;      // pixels between a field and the next caption
inline constexpr int StripUnitGap = 4;  // between what belongs together

class StripPanel : public QWidget {
public:
    StripPanel(const char* name, const char* hint, QWidget* parent);

    /// All but the hint.
    QWidget* Group() const { return group_; }
    QHBoxLayout* Line() const { return line_; }
    /// Adds a field behind its caption.
    QLabel* AddField(const QString& caption, QWidget* field);

protected:
    QLabel* hint_;
    QWidget* group_;
    QHBoxLayout* line_;
};
