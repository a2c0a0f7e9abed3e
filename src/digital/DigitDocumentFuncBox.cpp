#include "digital/DigitDocumentFuncBox.h"

#include "digital/DigitEditFuncBox.h"
#include "digital/DigitFuncCode.h"
#include "digital/DigitView.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/StatusText.h"
#include "platform/Host.h"

#include <algorithm>

namespace {

void DropSnapshot(DigitDocument& document) {
    document.UndoAvailable = document.ResumeAvailable = false;
    document.UndoNodes.clear();
    document.UndoSamples = {};
    document.UndoNodeCount = document.UndoChannelCount = 0;
    document.UndoSampleCount = 0;
    document.UndoFirstRow = document.UndoLastRow = 0;
    document.UndoReserved1 = 0;
    document.UndoListScrollShown = false;
}

}  // namespace

void NewDigitDocument() {
    if (!MayOpenAnother(DigitDocCount)) return;
    PropertyApplied = false;
    EditDigitProperty = false;
    const std::int16_t active = ActiveDigitIndex;  // the dialog turns to the first free slot
    TheHost().RunDialog("DigitPropertyFrm", 0);
    if (!PropertyApplied) {
        ActiveDigitIndex = active;
        return;
    }
    CreateDigitDocument();
}

bool CreateDigitDocument() {
    if (!MayOpenAnother(DigitDocCount)) return false;
    const std::int16_t slot = ActiveDigitIndex;
    DigitDocument& document = ActiveDigit();
    DocReady = false;
    DocBuilding = true;
    DigitDocUsed[static_cast<std::size_t>(slot)] = true;
    document.Title = "Digital Waveform " + std::to_string(slot);
    document.IsSaved = document.Changed = false;
    document.FilePath.clear();
    document.OpenPath.clear();
    ++DigitDocCount;
    ActiveIsDigital = true;
    TheHost().OpenWindow(TagOfDigit(slot));
    ResetDigitDocument(document);
    DocReady = true;
    TheHost().RefreshCommands();
    ShowDigitStatus();
    Paint(slot, true, true);
    DocBuilding = false;
    return true;
}

void ResetDigitDocument(DigitDocument& document) {
    document.Nodes.clear();
    document.DigitSamples.clear();
    document.SampleCount = 0;
    document.ChannelCount = 0;
    document.Reserved1 = 0;
    document.FirstRow = 0;
    document.FirstDot = 0;
    document.ClickRow = document.AnchorRow = -1;
    document.SelectDrag = document.CaliperDrag = false;
    document.Zoom = 1.0;
    ClearSelection(document);
    DropSnapshot(document);
    RenumberRows(document);  // and the page figures
    document.Caliper = std::clamp(document.CaliperDefault, 0, std::max(document.Dots - 1, 0));
    if (document.Caliper > document.VisibleDots - 1) document.FirstDot = document.Caliper;
    document.LastDot = document.FirstDot + document.VisibleDots;
    document.CaliperPixel = DotToPixel(document, document.Caliper);
}

bool QueryCloseDigit(std::int16_t index) {
    const DigitDocument& document = DigitAt(index);
    if (!document.Changed) return true;
    switch (AskToSave(document.Title)) {
        case Answer::Yes:
            Complain(PickText("Digital waveforms cannot be saved yet", "暂不支持保存数字波形"));
            return false;
        case Answer::No:
            return true;
        default:
            return false;
    }
}

void DigitDocumentClosed(std::int16_t index) {
    const auto slot = static_cast<std::size_t>(index);
    if (!DigitDocUsed[slot]) return;
    DigitDocUsed[slot] = false;
    --DigitDocCount;
    DigitDocTable[slot] = DigitDocument();  // gives back samples and surfaces
    if (AnalogDocCount + DigitDocCount == 0) {
        ActiveIsDigital = false;
        ShowStatus(50);
    }
    TheHost().RefreshCommands();
}

void ShowDigitStatus() {
    ShowStatus(9);
}
