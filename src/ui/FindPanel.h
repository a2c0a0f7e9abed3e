#pragma once
// The panel for point edit and find: a name, a dot and a value. It shows the boxes of a document's
// record (FindBoxes) and hands over what is chosen and typed; in find the value is a result.
#include "ui/StripPanel.h"

#include <cstdint>
#include <string_view>

class NumberBox;
class QComboBox;
struct DigitDocument;

class FindPanel : public StripPanel {
    Q_OBJECT
public:
    explicit FindPanel(QWidget* parent);

    /// Shows the boxes of the document of a slot; -1 empties them.
    void ShowDocument(std::int16_t slot);
    /// Shows them again, as after a change of the language.
    void ShowBoxes();
    /// Moves the focus to the names, or to the dot where a name is chosen.
    void FocusFirst();

signals:
    /// Escape: the user goes back to the picture.
    void Left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    DigitDocument* Shown() const;
    void AddNames();
    NumberBox* AddDigits(const char* name, int digits,
                         void (*change)(DigitDocument& document, std::string_view typed));

    std::int16_t slot_ = -1;
    QLabel *title_, *nameCaption_;
    QComboBox* names_;
    NumberBox *dot_, *value_;
    QLabel* unit_;
};
