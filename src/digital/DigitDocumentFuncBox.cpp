#include "digital/DigitDocumentFuncBox.h"

#include "digital/DigitEditFuncBox.h"
#include "digital/DigitFuncCode.h"
#include "digital/DigitView.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/Narrow.h"
#include "frame/StatusText.h"
#include "platform/Host.h"

#include <algorithm>
#include <utility>

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

// The position of the view that shows the caliper's place, at zoom 1.
void ShowFromCaliper(DigitDocument& document) {
    document.Zoom = 1.0;
    document.FirstRow = 0;
    document.FirstDot = 0;
    RenumberRows(document);  // and the page figures
    document.Caliper = std::clamp(document.CaliperDefault, 0, std::max(document.Dots - 1, 0));
    if (document.Caliper > document.VisibleDots - 1) document.FirstDot = document.Caliper;
    document.LastDot = document.FirstDot + document.VisibleDots;
    document.CaliperPixel = DotToPixel(document, document.Caliper);
}

// Bits behind a node's data are low, whatever another writer has left there.
void LowerBehindData(LoadedDigit& loaded) {
    std::vector<std::int32_t>& words = loaded.DigitSamples;
    for (const DigitNode& node : loaded.Nodes) {
        std::int32_t channels = 0;
        for (std::size_t k = 0; k < static_cast<std::size_t>(node.Width); ++k)
            channels |= 1 << node.Channels[k];
        for (auto dot = static_cast<std::size_t>(node.DataLength); dot < words.size(); ++dot)
            words[dot] &= ~channels;
    }
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

bool RoomForDigit() {
    if (DigitDocCount + 1 <= MaxDocuments) return true;
    Complain(PickText("Exceed maximum digit file numbers limit", "数字波形文件数目达到上限"));
    return false;
}

bool OpenLoadedDigit(LoadedDigit loaded, std::string title) {
    if (!RoomForDigit()) return false;
    ActiveDigitIndex = FirstFreeSlot(DigitDocUsed);
    DigitDocument& document = ActiveDigit();
    document.Dots = loaded.Dots;
    document.Rate = loaded.Rate;
    document.CaliperDefault = loaded.CaliperDefault;
    if (!CreateDigitDocument()) return false;
    LowerBehindData(loaded);
    document.Title = std::move(title);
    document.Reserved1 = loaded.Reserved1;
    document.Nodes = std::move(loaded.Nodes);
    document.DigitSamples = std::move(loaded.DigitSamples);
    document.SampleCount = Narrow<std::int32_t>(document.DigitSamples.size());
    document.ChannelCount = CountChannels(document);
    ShowFromCaliper(document);
    RefreshValues(document);
    TheHost().ShowTitle(TagOfDigit(ActiveDigitIndex));
    TheHost().RefreshCommands();
    Paint(ActiveDigitIndex, true, true);
    return true;
}

void ResetDigitDocument(DigitDocument& document) {
    document.Nodes.clear();
    document.DigitSamples.clear();
    document.SampleCount = 0;
    document.ChannelCount = 0;
    document.Reserved1 = 0;
    document.ClickRow = document.AnchorRow = document.ListPressRow = document.ListDropNode = -1;
    document.SelectDrag = document.CaliperDrag = document.ListDrag = false;
    ClearSelection(document);
    EndFind(document);
    DropSnapshot(document);
    ShowFromCaliper(document);
}

bool QueryCloseDigit(std::int16_t index, bool (*save)(std::int16_t index)) {
    const DigitDocument& document = DigitAt(index);
    return !document.Changed || MayClose(document.Title, index, save);
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
    const DigitDocument& document = ActiveDigit();
    ShowStatus(document.PointEditOn ? 4 : document.FindOn ? 51 : 9);
}
