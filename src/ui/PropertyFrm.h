#pragma once
// The property dialog of an analog document. It shows and collects; the rules stand in
// calculus/PropertyFuncBox.
#include "calculus/PropertyFuncBox.h"
#include "ui/DialogBase.h"

class QRadioButton;
class QStackedLayout;

class PropertyFrm : public DialogBase {
public:
    /// Opens for a new document, or for the active one where PropertyEditMode is set.
    explicit PropertyFrm(QWidget* parent = nullptr);

    /// OK: hands over the box being typed in, then confirms.
    void accept() override;

private:
    struct Field {
        NumberBox* Box;
        std::string (*Text)(const PropertyDialog&);
        void (*Leave)(PropertyDialog&, std::string_view);
    };

    void BuildForm();
    QLayout* BuildOptions();
    void AddRateRow(QGridLayout* form);
    void ConnectUnits();
    void LeaveField(const Field& field);
    void ShowFields();

    PropertyDialog dialog_;
    std::vector<Field> fields_;
    NumberBox *dotnum_, *ampl_, *freq_, *period_, *quant_;
    QComboBox *amplUnit_, *freqUnit_, *periodUnit_;
    QRadioButton *optFreq_, *optPer_;
    std::vector<QStackedLayout*> rateStacks_;  // label, box and unit: page 0 frequency, 1 period
};
