#pragma once
// The window of a digital document: channel list at the left, ruler above picture at the right, the
// line between them that moves the split, scroll bars and page buttons.
#include "ui/DocumentWindow.h"

#include <array>
#include <QTimer>

class DigitBackWavePic;
class DigitWavePic;
class DispParaListView;
class DispParaPic;
class QLabel;
class QScrollBar;
class QToolButton;
class SeperateImage;

class DigitWaveFrm : public DocumentWindow {
    Q_OBJECT
public:
    DigitWaveFrm(std::int16_t slot, QWidget* parent);

    void ApplyTexts() override;
    void ShowTitle() override;
    void LayOut() override;
    void ShowPlot() override;
    void LetTabIn(bool active) override;
    QWidget* Picture() const override;
    bool IsOpen() const override;
    bool IsChanged() const override;
    bool QueryClose() override;
    void Closed() override;

protected:
    void Repaint() override;

private:
    void BuildPlot();
    void BuildPageBar();
    QToolButton* MakePageButton(const char* name, const char* icon);
    void PlaceParts();
    void ShowPlace();
    void TurnPage();

    int listWidth_;  // as wished; a narrow window shows less
    QWidget *body_, *gutter_, *bar_;
    DispParaPic* head_;
    DispParaListView* list_;
    SeperateImage* split_;
    DigitBackWavePic* ruler_;
    DigitWavePic* picture_;
    QScrollBar *rows_, *dots_;
    QToolButton *front_, *next_;
    QLabel* page_;
    std::array<std::int32_t, 6> place_{};  // first dot and the like that the bars show
    QTimer* speedTimer_;                   // repeats a page button that is held
    std::int32_t turns_ = 0;               // pages turned since the press
};
