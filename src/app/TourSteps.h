#pragma once
// What the chapters of the tour share: the running program, a line for each step, numbered
// pictures, and the dialogs that several chapters go through.
#include "frame/records/AnalogWaveRecord.h"
#include "platform/Host.h"
#include "ui/Mainfrm.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <QDir>
#include <vector>

struct TourState {
    std::unique_ptr<Mainfrm> Window;
    QDir Folder;
    int Pictures = 0;
    int Failed = 0;
};

/// Prints whether a step went well.
void Step(TourState& tour, const char* what, bool good);
/// Saves a picture of a window under the next number.
void Picture(TourState& tour, QWidget* window, const char* name);
/// Chooses a menu entry.
void Choose(TourState& tour, const char* menuEntry);

/// A control of the main window or of its documents.
QWidget* Part(const TourState& tour, const char* name);

struct BoxEntry {
    const char *Box, *Text;
};
/// Types into boxes and leaves each of them.
void FillIn(QWidget* dialog, std::initializer_list<BoxEntry> entries);

/// A new document through its dialog; `picture` names a picture of the dialog, if any.
void NewDocument(TourState& tour, const char* dots, const char* vpp, const char* picture);

struct WaveValues {
    const char* Button;
    const char *Dots, *Cycles, *Ampl, *Para1;  // null: as the dialog proposes
};
void InsertWave(TourState& tour, const WaveValues& wave, const char* picture);

/// Sine, sinc, square and decay, 3500 dots in four segments; with or without pictures.
void InsertFourWaves(TourState& tour, bool pictures);

/// Closes the active document and declines to save it.
void DiscardDocument(TourState& tour);

/// Whether a message box has this text.
bool Tells(const QWidget* box, const char* text);
/// Presses the button of a message box that gives an answer.
void AnswerBox(const QWidget* box, Answer answer);
void AnswerFileDialog(QWidget* dialog, const QString& path);

/// The entries of a list.
QStringList Entries(const QWidget* dialog, const char* list);
/// Runs `act` on a dialog of the link once it has read the catalogue.
void WithCatalogue(TourState& tour, const char* button, const std::function<void(QWidget*)>& act);
/// The window of the link's transcript, opened.
QWidget* Transcript(TourState& tour);

bool Near(double value, double wished, double within);
bool SameDots(const AnalogWaveRecord& wave, const std::vector<WaveDot>& dots, double within);
std::vector<WaveDot> DotsOf(const AnalogWaveRecord& wave);

/// The chapter on drawing, zoom and limits, on a document of its own.
void DrawWithTheMouse(TourState& tour);

/// The chapter on resize, transforms, math and filters, on documents of its own.
void ComputeWaves(TourState& tour);

/// The chapters on digital documents, on some of their own. The second one leaves a file.
void EditDigitalWaves(TourState& tour);
void EditBuses(TourState& tour);

/// The chapter on the link to a simulated instrument; its pauses take most of a minute.
void UseTheInstrument(TourState& tour);

/// The pictures of the help, in both languages, beside an instrument that is connected. Each is
/// compared with the one that the help shows: one that has aged is a step that failed.
void MakeHelpPictures(TourState& tour);

/// The chapter on scope import, print preview and recovery.
void LookAroundTheEditor(TourState& tour);
