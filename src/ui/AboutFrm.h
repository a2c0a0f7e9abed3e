#pragma once
// What the program is, and the versions that a report of a fault should name.
#include "ui/DialogBase.h"

#include <utility>
#include <vector>

class AboutFrm : public DialogBase {
public:
    explicit AboutFrm(QWidget* parent = nullptr);

private:
    QLayout* MakeTexts();
    QLabel* MakeText(const char* name, const QString& text);
    void CopyFacts();

    QPushButton* copy_;
    std::vector<std::pair<QString, QString>> facts_;  // name and value
};
