#pragma once
// The dialog that computes dots from an equation. It shows and collects; the rules stand in
// calculus/EquationFuncBox.
#include "calculus/EquationFuncBox.h"
#include "ui/DialogBase.h"

#include <QTimer>

class PlotPreview;
class QLineEdit;

class EquationFrm : public DialogBase {
public:
    /// `replace` other than 0: the dots take the place of a selection.
    explicit EquationFrm(QWidget* parent = nullptr, int replace = 0);

    /// OK: hands over the box being typed in, then confirms. An expression at fault keeps the
    /// window open, with the caret at the fault.
    void accept() override;

private:
    void BuildForm();
    QLayout* BuildExpression();
    QComboBox* MakeList(const char* name, const char* hint);
    void AddLists(QGridLayout* form);
    void AddDots(QGridLayout* form);
    QLabel* MakeLegend();
    void TakeExpression(const QString& text);
    void ChooseExpression(const QString& text);
    void ShowDots();
    void ShowEquation();
    void ShowFault();
    void CountMore();

    EquationDialog dialog_;
    QLineEdit* expression_;
    QComboBox *examples_, *history_;
    NumberBox* dots_;
    PlotPreview* preview_;
    QPushButton* ok_;
    QTimer count_;  // goes on counting between two keys
};
