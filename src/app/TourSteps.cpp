#include "app/TourSteps.h"

#include "app/TourHands.h"
#include "frame/GlobalDefineCode.h"
#include "link/LinkWork.h"
#include "ui/ActionTable.h"
#include "ui/WaveFrm.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>

void Step(TourState& tour, const char* what, bool good) {
    std::printf("%s  %s\n", good ? "ok    " : "FAILED", what);
    std::fflush(stdout);
    if (!good) ++tour.Failed;
}

void Picture(TourState& tour, QWidget* window, const char* name) {
    const QString number = QString("%1").arg(++tour.Pictures, 2, 10, QChar('0'));
    TakePicture(window, tour.Folder.filePath(number + "-" + name + ".png"));
}

void Choose(TourState& tour, const char* menuEntry) {
    tour.Window->Actions()->Find(menuEntry)->trigger();
    Settle();
}

QWidget* Part(const TourState& tour, const char* name) {
    return Control(tour.Window.get(), name);
}

void FillIn(QWidget* dialog, std::initializer_list<BoxEntry> entries) {
    for (const auto& [box, text] : entries) {
        TypeInto(Control(dialog, box), text);
        PressKey(Control(dialog, box), Qt::Key_Tab);
    }
}

void NewDocument(TourState& tour, const char* dots, const char* vpp, const char* picture) {
    WithDialog([&] { Click(Part(tour, "NewAnaWaveAresBtn")); },
               [&](QWidget* dialog) {
                   FillIn(dialog, {{"DotnumTxt", dots}, {"ampltxt", vpp}});
                   if (picture) Picture(tour, dialog, picture);
                   Click(Control(dialog, "OkAresBtn"));
               });
}

void InsertWave(TourState& tour, const WaveValues& wave, const char* picture) {
    WithDialog([&] { Click(Part(tour, wave.Button)); },
               [&](QWidget* dialog) {
                   const BoxEntry entries[] = {{"DotnumTxt", wave.Dots},
                                               {"Cyclestxt", wave.Cycles},
                                               {"ampltxt", wave.Ampl},
                                               {"para1txt", wave.Para1}};
                   for (const BoxEntry& entry : entries)
                       if (entry.Text != nullptr) FillIn(dialog, {entry});
                   if (picture) Picture(tour, dialog, picture);
                   Click(Control(dialog, "OkAresBtn"));
               });
}

void InsertFourWaves(TourState& tour, bool pictures) {
    InsertWave(tour, {"WaveAresBtn0", "1200", "3", "1.7", nullptr},
               pictures ? "standard-wave" : nullptr);
    InsertWave(tour, {"WaveAresBtn7", "900", "1", "1.9", "10"}, nullptr);
    InsertWave(tour, {"WaveAresBtn1", "800", "3", "1", "50"}, nullptr);
    InsertWave(tour, {"WaveAresBtn5", "600", "2", "1.6", "-5"}, pictures ? "exponential" : nullptr);
}

void DiscardDocument(TourState& tour) {
    WithDialog([&] { Click(Control(tour.Window->Window(tour.Window->ActiveTag()), "ExtBtn")); },
               [](QWidget* box) { AnswerBox(box, Answer::No); });
}

bool Tells(const QWidget* box, const char* text) {
    return std::ranges::any_of(box->findChildren<QLabel*>(), [text](const QLabel* label) {
        return label->text() == QString::fromUtf8(text);
    });
}

void AnswerBox(const QWidget* box, Answer answer) {
    for (QAbstractButton* button : box->findChildren<QAbstractButton*>())
        if (button->property("answer") == static_cast<int>(answer)) button->click();
}

void AnswerFileDialog(QWidget* dialog, const QString& path) {
    TypeInto(Control(dialog, "fileNameEdit"), path);
    PressKey(Control(dialog, "fileNameEdit"), Qt::Key_Return);
}

QStringList Entries(const QWidget* dialog, const char* list) {
    const auto* box = static_cast<QComboBox*>(Control(dialog, list));
    QStringList entries;
    for (int i = 0; i < box->count(); ++i) entries << box->itemText(i);
    return entries;
}

void WithCatalogue(TourState& tour, const char* button, const std::function<void(QWidget*)>& act) {
    const auto isRead = [] {
        const QWidget* dialog = QApplication::activeModalWidget();
        return Link.WorkDepth == 0 && !Entries(dialog, "cmbAllWave").empty();
    };
    WithDialog([&] { Click(Part(tour, button)); }, act, isRead);
}

QWidget* Transcript(TourState& tour) {
    Choose(tour, "MnuTool_Transcript");
    return Part(tour, "LinkTranscriptFrm");
}

bool Near(double value, double wished, double within) {
    return std::fabs(value - wished) <= within;
}

bool SameDots(const AnalogWaveRecord& wave, const std::vector<WaveDot>& dots, double within) {
    if (wave.Dots != static_cast<std::int32_t>(dots.size())) return false;
    for (std::size_t i = 0; i < dots.size(); ++i)
        if (!(std::fabs(wave.DotArray[i].Y - dots[i].Y) <= within)) return false;
    return true;
}

std::vector<WaveDot> DotsOf(const AnalogWaveRecord& wave) {
    return {wave.DotArray.begin(), wave.DotArray.begin() + wave.Dots};
}
