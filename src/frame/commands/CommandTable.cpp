#include "frame/commands/CommandTable.h"

#include "analog/AnalogDocument.h"
#include "analog/DrawAnalogWave.h"
#include "analog/EditFuncBox.h"
#include "analog/EntryFuncBox.h"
#include "analog/LimitFuncBox.h"
#include "analog/ScreenColours.h"
#include "analog/StrokeFuncBox.h"
#include "analog/ToolFuncBox.h"
#include "analog/ZoomFuncBox.h"
#include "calculus/RunEdit.h"
#include "calculus/TransformFuncBox.h"
#include "calculus/WindowMathFuncBox.h"
#include "digital/DigitClipFuncBox.h"
#include "digital/DigitDocumentFuncBox.h"
#include "digital/DigitEditFuncBox.h"
#include "digital/DigitFindFuncBox.h"
#include "digital/DigitFuncCode.h"
#include "digital/DigitNodeFuncBox.h"
#include "digital/DigitValueFuncBox.h"
#include "digital/DigitView.h"
#include "digital/GlobalDigitDefineCode.h"
#include "digital/InsertNodeFuncBox.h"
#include "files/DigitFileFuncCode.h"
#include "files/FileOptFuncCode.h"
#include "files/ImportScopeFileFuncBox.h"
#include "files/PrintFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/StatusText.h"
#include "link/ConnectFuncBox.h"
#include "link/LinkWork.h"
#include "link/SendWaveFuncBox.h"
#include "link/UploadFuncBox.h"
#include "platform/Host.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace {

bool dotCommandsOn = false;  // kept with exactly one dot, see RefreshDotCommands

// --- when a command is open ---------------------------------------------------------------

bool HasAnalog() {
    return !ActiveIsDigital && bool(AnalogInUse[static_cast<std::size_t>(ActiveAnalogIndex)]);
}
bool HasDocument() {
    return AnalogDocCount + DigitDocCount > 0;
}
bool HasDigit() {
    return ActiveIsDigital && bool(DigitDocUsed[static_cast<std::size_t>(ActiveDigitIndex)]);
}
bool HasNoDigital() {
    return !ActiveIsDigital;
}
bool CanUndo() {
    return HasDigit() ? bool(ActiveDigit().UndoAvailable)
                      : HasAnalog() && ActiveAnalog().UndoAvailable;
}
bool CanResume() {
    return HasDigit() ? bool(ActiveDigit().ResumeAvailable)
                      : HasAnalog() && ActiveAnalog().ResumeAvailable;
}
bool HasSelectedDots() {
    return HasAnalog() && dotCommandsOn && ActiveAnalog().HasSelection && ActiveAnalog().Dots > 0;
}
bool HasNodes() {
    return HasDigit() && ActiveDigit().NodeCount > 0;
}
bool CanPaste() {
    return HasDigit() ? HasNodes() && SpanClipValid : HasAnalog() && ClipDotCount != 0;
}
bool CanRepaste() {
    return HasDigit() && RowClipValid;
}
bool HasDots() {
    return HasAnalog() && ActiveAnalog().Dots > 0;
}
bool CanSelectAll() {
    return HasDots() || HasNodes();
}
bool CanSelectEntire() {
    return HasNodes() && TargetAtRow(ActiveDigit(), ActiveDigit().ClickRow).Node >= 0;
}
bool CanInsertNode() {
    return HasDigit() && ActiveDigit().ChannelCount < MaxChannels;
}
bool HasBus() {
    return HasDigit() && std::ranges::any_of(ActiveDigit().Nodes, [](const DigitNode& node) {
               return bool(node.IsBus);
           });
}
bool HasSelectedSpan() {
    return HasDigit() && ActiveDigit().ValueEnabled;
}
bool CanCopy() {
    return HasSelectedDots() || HasSelectedSpan();
}
bool CanSplit() {
    return HasDigit() && HasSelectedBus(ActiveDigit());
}
bool CanSort() {
    return HasDigit() && ActiveDigit().NodeCount > 1;
}
bool CanZoomDigitIn() {
    return HasDigit() && CanZoomIn(ActiveDigit());
}
bool CanZoomDigitOut() {
    return HasDigit() && CanZoomOut(ActiveDigit());
}
bool CanTurnBack() {
    return HasDigit() && CanPageBack(ActiveDigit());
}
bool CanTurnOn() {
    return HasDigit() && CanPageOn(ActiveDigit());
}
bool HasActiveDocument() {
    return HasAnalog() || HasDigit();
}
bool HasWave() {
    return HasAnalog() && ActiveAnalog().Dots >= LeastWholeWave;
}
bool CanCut() {
    return HasSelectedDots() && ActiveAnalog().YLimitOn;
}
bool CanCombineWindows() {
    return HasNoDigital() && HasWindowMath();
}
bool HasRoom() {
    return ActiveAnalog().HasSelection || !DotsFull(ActiveAnalog());
}
bool CanAppend() {
    return HasAnalog() && !DotsFull(ActiveAnalog());
}
bool CanInsert() {
    return HasAnalog() && HasRoom();
}
// The wave buttons stay open without a document: they tell the user to make one.
bool CanPickWave() {
    return HasNoDigital() && (AnalogDocCount == 0 || HasRoom());
}

bool CanMoveLimits() {
    return HasAnalog() && !ActiveAnalog().LimitFixed;
}
bool HasLimits() {
    return HasAnalog() && (ActiveAnalog().XLimitOn || ActiveAnalog().YLimitOn);
}
bool CanLeaveZoom() {
    if (HasDigit()) return ActiveDigit().Zoom != 1.0;
    return HasAnalog() && (ActiveAnalog().XZoomed || ActiveAnalog().YZoomed);
}
bool IsConnected() {
    return bool(Link.IsConnected);
}
bool IsDisconnected() {
    return !Link.IsConnected;
}
bool CanUndoZoom() {
    return HasAnalog() && ActiveAnalog().ZoomUndoAvailable;
}

// --- when a switch is on ------------------------------------------------------------------

template <Flag AnalogWaveRecord::*Field>
bool IsOn() {
    return HasAnalog() && ActiveAnalog().*Field;
}
bool ShowsTime() {
    return HasDigit() ? bool(ActiveDigit().ShowTime) : IsOn<&AnalogWaveRecord::TimeAxisOn>();
}
bool ShowsVolts() {
    return HasAnalog() && ActiveAnalog().LineY1Unit == 1;
}
bool ShowsMillivolts() {
    return HasAnalog() && ActiveAnalog().LineY1Unit != 1;
}
bool EditsPoints() {
    return HasDigit() && ActiveDigit().PointEditOn;
}
bool Finds() {
    return HasDigit() && ActiveDigit().FindOn;
}
bool EditsOrFinds() {
    return EditsPoints() || Finds();
}
bool SpeaksEnglish() {
    return UseEnglish == 1;
}
bool SpeaksChinese() {
    return UseEnglish == 0;
}

// --- what a command does ------------------------------------------------------------------

template <void (*Routine)()>
void Run(std::int16_t) {
    Routine();
}

template <Flag AnalogWaveRecord::*Field>
void Toggle(std::int16_t) {
    AnalogWaveRecord& wave = ActiveAnalog();
    wave.*Field = !(wave.*Field);
    TheHost().RefreshCommands();
    RepaintAnalog(ActiveAnalogIndex, true);
}

void PickTool(std::int16_t tool) {
    ToggleTool(static_cast<Tool>(tool));
}
constexpr std::int16_t Of(Tool tool) {
    return static_cast<std::int16_t>(tool);
}

// What is drawn would hide the selection: a drawing tool goes off first.
void SelectAll(std::int16_t) {
    const Tool tool = ToolOf(ActiveAnalog());
    if (tool == Tool::HandDraw || tool == Tool::LineDraw) ToggleTool(tool);
    SelectAllAnalog();
}

void Save(std::int16_t) {
    SaveAnalog(ActiveAnalogIndex);
}
void SaveAs(std::int16_t) {
    SaveAnalogAs(ActiveAnalogIndex);
}
void SaveActiveDigit(std::int16_t) {
    SaveDigit(ActiveDigitIndex);
}
void SaveActiveDigitAs(std::int16_t) {
    SaveDigitAs(ActiveDigitIndex);
}
void SaveAll(std::int16_t) {
    if (SaveAllAnalog()) SaveAllDigit();
}
void Exit(std::int16_t) {
    TheHost().CloseMainWindow();
}

void EditProperty(std::int16_t) {
    PropertyEditMode = true;
    TheHost().RunDialog("PropertyFrm", 0);
}
void EditPropertyOfDigit(std::int16_t) {
    EditDigitProperty = true;
    TheHost().RunDialog("DigitPropertyFrm", 0);
    EditDigitProperty = false;
}

void TurnPage(std::int16_t on) {
    if (on != 0)
        NextPage(ActiveDigitIndex);
    else
        FrontPage(ActiveDigitIndex);
}
void WriteValue(std::int16_t operation) {
    RunValueOperation(static_cast<DigitOperation>(operation));
}
constexpr std::int16_t Of(DigitOperation operation) {
    return static_cast<std::int16_t>(operation);
}

void InsertWave(std::int16_t kind) {
    if (AnalogDocCount == 0) {
        TheHost().Ask(ResText(26), Buttons::Ok, MessageIcon::Information);
        return;
    }
    TheHost().RunDialog("StandardWaveFrm", kind);
}

constexpr std::string_view Equation = "EquationFrm", Resize = "ResizeWaveFrm",
                           WaveMath = "WaveMathFrm", WindowMath = "WindowMathFrm",
                           LowPass = "LowPassSetFrm", Smooth = "SmoothSetFrm",
                           InsertNode = "InsertNodeFrm", InstrumentSel = "InstrumentSelFrm",
                           Communicate = "CommunicateSettingFrm", Transcript = "LinkTranscriptFrm",
                           About = "AboutFrm";

template <const std::string_view& Window>
void OpenDialog(std::int16_t argument) {
    TheHost().RunDialog(Window, argument);
}

template <void (*Transform)(std::span<WaveDot>)>
void OnSelection(std::int16_t) {
    EditSelection(Transform);
}
template <void (*Window)(std::span<WaveDot>)>
void OnWholeWave(std::int16_t) {
    ApplyWindow(Window);
}

template <WindowArrangement Kind>
void Arrange(std::int16_t) {
    TheHost().ArrangeWindows(Kind);
}
void SetUpPrinter(std::int16_t) {
    TheHost().SetUpPrinter();
}
void ShowHelp(std::int16_t) {
    TheHost().ShowHelp("");
}
void ShowEditor(std::int16_t) {
    TheHost().ShowEditor();
}

void ChangeLanguage(std::int16_t english) {
    UseEnglish = english;
    TheHost().ApplyLanguage();
    ShowStatusAgain();
    SaveLanguage();
    TheHost().RefreshCommands();
}

// clang-format off
constexpr CommandRow Rows[] = {
    // File
    {"NewAnaWaveAresBtn", {"MnuFile_New_Analog", "MnuFileAnalog_New"}, "NewAnaWave", "Ctrl+N",
     Run<NewAnalogDocument>, nullptr, nullptr, nullptr},
    {"NewDigitWaveAresBtn", {"MnuFile_New_Digit"}, "NewDigitWave", "Ctrl+Shift+N",
     Run<NewDigitDocument>, nullptr, nullptr, nullptr},
    {"OpenAresBtn", {"MnuFile_Open_Analog"}, "Open", "Ctrl+O",
     Run<OpenAnalog>, nullptr, nullptr, nullptr},
    {"OpenDigitAresBtn", {"MnuFile_Open_Digit"}, "OpenDigit", "Ctrl+Shift+O",
     Run<OpenDigit>, nullptr, nullptr, nullptr},
    {"", {"MnuFile_ImportWave"}, "", "", Run<ImportWave>, nullptr, nullptr, nullptr},
    {"SaveAresBtn", {"MnuFile_Save"}, "Save", "Ctrl+S",
     Save, SaveActiveDigit, HasActiveDocument, nullptr},
    {"", {"MnuFile_SaveAs"}, "", "Ctrl+Shift+S",
     SaveAs, SaveActiveDigitAs, HasActiveDocument, nullptr},
    {"", {"MnuFile_SaveAll"}, "", "", SaveAll, nullptr, HasDocument, nullptr},
    {"", {"MnuFile_PrinterSetup"}, "", "", SetUpPrinter, nullptr, nullptr, nullptr},
    {"PrintAresBtn", {"MnuFile_PrintView"}, "Print", "Ctrl+Shift+P",
     Run<PreviewAnalog>, Run<PreviewDigit>, HasActiveDocument, nullptr},
    {"", {"MnuFile_Print"}, "", "Ctrl+P",
     Run<PrintAnalog>, Run<PrintDigit>, HasActiveDocument, nullptr},
    {"", {"MnuFile_Exit", "MnuMin_Exit"}, "", "Ctrl+Q", Exit, nullptr, nullptr, nullptr},
    // Edit
    {"UndoAresBtn", {"MnuEdit_Undo", "MnuIdle_Undo", "MnuDigitEdit_Undo",
                     "mnuDigitListPopMenu_Undo", "mnuDigitWavePicPopMenu_Undo"}, "Undo", "Ctrl+Z",
     Run<UndoAnalog>, Run<UndoDigit>, CanUndo, nullptr},
    {"ResumeAresBtn", {"MnuEdit_Resume", "MnuIdle_Resume", "MnuDigitEdit_Resume",
                       "mnuDigitListPopMenu_Resume", "mnuDigitWavePicPopMenu_Resume"}, "Resume",
     "Ctrl+Y", Run<ResumeAnalog>, Run<ResumeDigit>, CanResume, nullptr},
    {"CutAresBtn", {"MnuEdit_Cut", "MnuSelect_Cut", "MnuDigitEdit_Cut", "mnuDigitListPopMenu_Cut",
                    "mnuDigitWavePicPopMenu_Cut"}, "Cut", "Ctrl+X",
     Run<CutAnalog>, Run<CutDigit>, CanCopy, nullptr},
    {"CopyAresBtn", {"MnuEdit_Copy", "MnuSelect_Copy", "MnuDigitEdit_Copy",
                     "mnuDigitListPopMenu_Copy", "mnuDigitWavePicPopMenu_Copy"}, "Copy", "Ctrl+C",
     Run<CopyAnalog>, Run<CopyDigit>, CanCopy, nullptr},
    {"PasteAresBtn", {"MnuEdit_Paste", "MnuSelect_Paste", "MnuDraw_InsertFromClipBoard",
                      "mnuDigitWavePicPopMenu_Paste"}, "Paste", "Ctrl+V",
     Run<PasteAnalog>, Run<PasteDigit>, CanPaste, nullptr},
    {"", {"MnuDigitEdit_Repaste", "mnuDigitListPopMenu_Repaste", "mnuDigitWavePicPopMenu_Repaste"},
     "", "Ctrl+Shift+V", nullptr, Run<RepasteDigit>, CanRepaste, nullptr},
    {"DeletAresBtn", {"MnuEdit_delet", "MnuSelect_Delete", "MnuDigitEdit_Delete",
                      "mnuDigitListPopMenu_Delete", "mnuDigitWavePicPopMenu_Delete"}, "Delete",
     "Del", Run<DeleteAnalog>, Run<DeleteDigit>, CanCopy, nullptr},
    {"", {"MnuEdit_SelAll", "MnuIdle_SelAll", "mnuDigitEdit_SelectAll"}, "", "Ctrl+A",
     SelectAll, Run<SelectAllDigit>, CanSelectAll, nullptr},
    {"", {"mnuDigitListPopMenu_SelectEntire", "mnuDigitWavePicPopMenu_SelectEntire"}, "",
     "Ctrl+Shift+A",
     nullptr, Run<SelectEntireDigit>, CanSelectEntire, nullptr},
    {"SelectAresBtn", {"MnuEdit_SelectMode"}, "Select", "Ctrl+1",
     PickTool, nullptr, HasAnalog, IsOn<&AnalogWaveRecord::SelectMode>, Of(Tool::Select)},
    // Draw
    {"HandDrawAresBtn", {"MnuDraw_HandDraw", "MnuIdle_Handdraw"}, "HandDraw", "Ctrl+2",
     PickTool, nullptr, HasAnalog, IsOn<&AnalogWaveRecord::HandDrawOn>, Of(Tool::HandDraw)},
    {"LineDrawAresBtn", {"MnuDraw_LineDraw", "MnuIdle_LineDraw"}, "LineDraw", "Ctrl+3",
     PickTool, nullptr, HasAnalog, IsOn<&AnalogWaveRecord::LineDrawOn>, Of(Tool::LineDraw)},
    {"EditPointAresBtn", {"MnuDraw_PointEdit", "MnuIdle_pointEdit"}, "EditPoint", "Ctrl+4",
     PickTool, nullptr, HasAnalog, IsOn<&AnalogWaveRecord::PointEditOn>, Of(Tool::PointEdit)},
    {"", {"MnuDraw_InsertStandardWave", "MnuIdle_Insert", "MnuSelect_Insert"},
     "InsertStandardWave", "Ctrl+I", InsertWave, nullptr, CanInsert, nullptr, -1},
    {"WaveAresBtn0", {}, "Wave0", "", InsertWave, nullptr, CanPickWave, nullptr, 0},
    {"WaveAresBtn1", {}, "Wave1", "", InsertWave, nullptr, CanPickWave, nullptr, 1},
    {"WaveAresBtn2", {}, "Wave2", "", InsertWave, nullptr, CanPickWave, nullptr, 2},
    {"WaveAresBtn3", {}, "Wave3", "", InsertWave, nullptr, CanPickWave, nullptr, 3},
    {"WaveAresBtn4", {}, "Wave4", "", InsertWave, nullptr, CanPickWave, nullptr, 4},
    {"WaveAresBtn5", {}, "Wave5", "", InsertWave, nullptr, CanPickWave, nullptr, 5},
    {"WaveAresBtn6", {}, "Wave6", "", InsertWave, nullptr, CanPickWave, nullptr, 6},
    {"WaveAresBtn7", {}, "Wave7", "", InsertWave, nullptr, CanPickWave, nullptr, 7},
    {"WaveAresBtn8", {}, "Wave8", "", InsertWave, nullptr, CanPickWave, nullptr, 8},
    {"", {"MnuDraw_InsertMathWave"}, "", "", OpenDialog<Equation>, nullptr, CanAppend, nullptr, 0},
    {"", {"MnuDraw_InsertfromFile"}, "", "", Run<InsertFromFile>, nullptr, HasAnalog, nullptr},
    {"", {"MnuDraw_FunctionEdit"}, "", "", OpenDialog<Equation>, nullptr, CanInsert, nullptr, 1},
    {"MarkAresBtn", {"MNuDraw_AreaLimit"}, "Mark", "Ctrl+R",
     Run<ToggleAreaLimit>, nullptr, CanMoveLimits, IsOn<&AnalogWaveRecord::RegionLimitOn>},
    {"MarkXAresBtn", {"MnuDraw_XLimit"}, "MarkX", "",
     Run<ToggleXLimit>, nullptr, CanMoveLimits, IsOn<&AnalogWaveRecord::XLimitOn>},
    {"MarkYAresBtn", {"MnuDraw_YLimit"}, "MarkY", "",
     Run<ToggleYLimit>, nullptr, CanMoveLimits, IsOn<&AnalogWaveRecord::YLimitOn>},
    {"MarkFixAresBtn", {"MnuDraw_FixupLimit"}, "MarkFix", "",
     Run<ToggleLimitFixed>, nullptr, HasLimits, IsOn<&AnalogWaveRecord::LimitFixed>},
    // View
    {"GridAresBtn", {"MnuView_Grid"}, "Grid", "Ctrl+G", Toggle<&AnalogWaveRecord::GridOn>, nullptr,
     HasAnalog, IsOn<&AnalogWaveRecord::GridOn>},
    {"CursorTrackAresBtn", {"MnuView_CurSorTrack"}, "CursorTrack", "Ctrl+5",
     PickTool, nullptr, HasAnalog, IsOn<&AnalogWaveRecord::CursorTrackOn>, Of(Tool::CursorTrack)},
    {"", {"MnuView_DotLink"}, "DotLink", "Ctrl+L", Toggle<&AnalogWaveRecord::DotLinkOn>, nullptr,
     HasAnalog, IsOn<&AnalogWaveRecord::DotLinkOn>},
    {"", {"MnuView_SegmentMark"}, "SegmentMark", "Ctrl+M",
     Toggle<&AnalogWaveRecord::SegmentMarkOn>, nullptr, HasAnalog,
     IsOn<&AnalogWaveRecord::SegmentMarkOn>},
    {"ExpandsuitAresBtn", {"MnuView_ZoomOutFit"}, "Expandsuit", "Ctrl+E",
     Run<ToggleExpandToSuit>, nullptr, HasAnalog, IsOn<&AnalogWaveRecord::ExpandToSuit>},
    {"ZoomXAresBtn", {"MnuView_ZoomX"}, "ZoomX", "Ctrl+6",
     PickTool, nullptr, HasAnalog, IsOn<&AnalogWaveRecord::ZoomXMode>, Of(Tool::ZoomX)},
    {"ZoomYAresBtn", {"MnuView_ZoomY"}, "ZoomY", "Ctrl+7",
     PickTool, nullptr, HasAnalog, IsOn<&AnalogWaveRecord::ZoomYMode>, Of(Tool::ZoomY)},
    {"ZoomRegionAresBtn", {"MnuView_ZoomW"}, "ZoomRegion", "Ctrl+8",
     PickTool, nullptr, HasAnalog, IsOn<&AnalogWaveRecord::ZoomRegionMode>, Of(Tool::ZoomRegion)},
    {"ZoomOutCenterAresBtn", {"MnuView_ZoomOutCenter"}, "ZoomOutCenter", "Ctrl+9",
     PickTool, nullptr, HasAnalog, IsOn<&AnalogWaveRecord::ZoomCenterMode>, Of(Tool::ZoomCenter)},
    {"ZoomNotAresBtn", {"MnuView_ZoomDisable", "mnuDigitViewZoomDisable"}, "ZoomNot", "Ctrl+0",
     Run<CancelZoom>, Run<ZoomOffDigit>, CanLeaveZoom, nullptr},
    {"ZoomUndoAresBtn", {"MnuView_ZoomUndo"}, "ZoomUndo", "Ctrl+U",
     Run<UndoZoom>, nullptr, CanUndoZoom, nullptr},
    {"", {"MnuView_ShowTime", "mnuDigitView_ShowTime"}, "ShowTime", "Ctrl+T",
     Toggle<&AnalogWaveRecord::TimeAxisOn>, Run<ToggleShowTime>, HasActiveDocument, ShowsTime},
    {"", {"MnuView_SetWave"}, "", "", Run<ChooseCurveColour>, nullptr, HasNoDigital, nullptr},
    {"", {"MnuView_SetGrid"}, "", "", Run<ChooseGridColour>, nullptr, HasNoDigital, nullptr},
    // The boxes of the status strip
    {"VAresBtn", {}, "", "", SwitchEntryUnits, nullptr, HasAnalog, ShowsVolts, 1},
    {"mVAresBtn", {}, "", "", SwitchEntryUnits, nullptr, HasAnalog, ShowsMillivolts, 1000},
    {"OkAresBtn", {}, "Apply", "", Run<ApplyLineBoxes>, nullptr, HasAnalog, nullptr},
    {"AresButton1", {}, "Apply", "", Run<ApplyPointBoxes>, nullptr, HasAnalog, nullptr},
    {"ZoomAresBtn", {}, "Apply", "", Run<ApplyZoomBoxes>, nullptr, HasAnalog, nullptr},
    // Rework
    {"", {"MnuRework_property", "mnuDigitChange_Property"}, "Property", "Alt+Return",
     EditProperty, EditPropertyOfDigit, HasActiveDocument, nullptr},
    {"", {"MnuRework_Resize", "MnuSelect_Resize"}, "", "",
     OpenDialog<Resize>, nullptr, HasSelectedDots, nullptr},
    {"", {"MnuRework_Invert", "MnuSelect_Invert"}, "", "",
     OnSelection<InvertDots>, nullptr, HasSelectedDots, nullptr},
    {"", {"MnuRework_Mirror", "MnuSelect_Mirror"}, "", "",
     OnSelection<MirrorDots>, nullptr, HasSelectedDots, nullptr},
    // Math
    {"", {"MnuMath_WaveMath", "MnuSelect_Wavemath"}, "", "",
     OpenDialog<WaveMath>, nullptr, HasSelectedDots, nullptr},
    {"", {"MnuMath_WinMath"}, "", "", OpenDialog<WindowMath>, nullptr, CanCombineWindows, nullptr},
    {"", {"MnuMath_MathCut", "MnuSelect_MathCut"}, "", "",
     Run<CutSelection>, nullptr, CanCut, nullptr},
    {"", {"MnuMath_ABS", "MnuSelect_Abs"}, "", "",
     OnSelection<AbsoluteDots>, nullptr, HasSelectedDots, nullptr},
    {"", {"MnuMath_Mod"}, "", "", nullptr, nullptr, nullptr, nullptr},
    {"", {"MnuMath_Filter_LowPass"}, "", "", OpenDialog<LowPass>, nullptr, HasWave, nullptr},
    {"", {"MnuMath_Filter_Smooth", "Mnuselect_Smooth"}, "", "",
     OpenDialog<Smooth>, nullptr, HasWave, nullptr},
    {"", {"MnuMath_Win_ExtendCos"}, "", "",
     OnWholeWave<ExtendCosineDots>, nullptr, HasWave, nullptr},
    {"", {"MnuMath_Win_Raisedcos"}, "", "",
     OnWholeWave<RaisedCosineDots>, nullptr, HasWave, nullptr},
    {"", {"MnuMath_Win_Hamming"}, "", "", OnWholeWave<HammingDots>, nullptr, HasWave, nullptr},
    // Tool
    {"", {"MnuTool_InstrumenuSel"}, "", "", OpenDialog<InstrumentSel>, nullptr, nullptr, nullptr},
    {"ConnectAresBtn", {}, "Connect", "Ctrl+K",
     Run<ToggleConnection>, nullptr, nullptr, IsConnected},
    {"", {"MnuTool_Connect"}, "Connect", "",
     Run<ConnectInstrument>, nullptr, IsDisconnected, nullptr},
    {"", {"MnuTool_Disconnect"}, "", "", Run<DisconnectInstrument>, nullptr, IsConnected, nullptr},
    {"TransAresBtn", {"MnuTool_Send"}, "Trans", "Ctrl+Return",
     Run<SendAnalogWaveform>, Run<SendDigitWaveform>, nullptr, nullptr},
    {"", {"MnuTool_Load"}, "Load", "Ctrl+D",
     Run<UploadAnalogWave>, Run<UploadDigitWave>, UploadAllowed, nullptr},
    {"LoadAresBtn", {}, "Load", "", Run<UploadAnalogWave>, nullptr, UploadAllowed, nullptr},
    {"LoadDigitAresBtn", {}, "LoadDigit", "",
     Run<UploadDigitWave>, nullptr, UploadAllowed, nullptr},
    {"", {"MnuTool_Com"}, "", "", OpenDialog<Communicate>, nullptr, nullptr, nullptr},
    {"", {"MnuTool_Transcript"}, "", "", OpenDialog<Transcript>, nullptr, nullptr, nullptr},
    // Digital
    {"ValueAresBtn9", {}, "Value0", "", nullptr, RunValueTool, HasDigit, nullptr, 9},
    {"ValueAresBtn10", {}, "Value1", "", nullptr, RunValueTool, HasDigit, nullptr, 10},
    {"ValueAresBtn11", {}, "Invert", "", nullptr, RunValueTool, HasDigit, nullptr, 11},
    {"ValueAresBtn12", {}, "Clock", "", nullptr, RunValueTool, HasDigit, nullptr, 12},
    {"ValueAresBtn13", {}, "Arbitrary", "", nullptr, RunValueTool, HasDigit, nullptr, 13},
    {"ValueAresBtn14", {}, "Counting", "", nullptr, RunValueTool, HasDigit, nullptr, 14},
    {"", {"mnuDigitListPopMenu_Value_0", "mnuDigitWavePicPopMenu_Value_0"}, "Value0", "",
     nullptr, WriteValue, HasSelectedSpan, nullptr, Of(DigitOperation::Value0)},
    {"", {"mnuDigitListPopMenu_Value_1", "mnuDigitWavePicPopMenu_Value_1"}, "Value1", "",
     nullptr, WriteValue, HasSelectedSpan, nullptr, Of(DigitOperation::Value1)},
    {"", {"mnuDigitListPopMenu_Invert", "mnuDigitWavePicPopMenu_Invert"}, "Invert", "",
     nullptr, WriteValue, HasSelectedSpan, nullptr, Of(DigitOperation::Invert)},
    {"", {"mnuDigitListPopMenu_Clock", "mnuDigitWavePicPopMenu_Clock"}, "Clock", "",
     nullptr, WriteValue, HasSelectedSpan, nullptr, Of(DigitOperation::Clock)},
    {"", {"mnuDigitListPopMenu_Arbitrary", "mnuDigitWavePicPopMenu_Arbitrary"}, "Arbitrary", "",
     nullptr, WriteValue, HasSelectedSpan, nullptr, Of(DigitOperation::Arbitrary)},
    {"", {"mnuDigitListPopMenu_Counting", "mnuDigitWavePicPopMenu_Counting"}, "Counting", "",
     nullptr, WriteValue, HasSelectedSpan, nullptr, Of(DigitOperation::Counting)},
    {"InsertNodeAresBtn", {"mnuDigitDrawInsertNode", "mnuDigitListPopMenu_Insert",
                           "mnuDigitWavePicPopMenu_Insert"}, "InsertNode", "Ins",
     nullptr, OpenDialog<InsertNode>, CanInsertNode, nullptr},
    {"BranchToBusAresBtn", {"mnuDigitListPopMenu_AssembleBus"}, "BranchToBus", "Ctrl+B",
     nullptr, Run<AssembleBus>, HasSelectedSpan, nullptr},
    {"BusToBranchAresBtn", {"mnuDigitListPopMenu_SplitBus"}, "BusToBranch", "Ctrl+Shift+B",
     nullptr, Run<SplitBuses>, CanSplit, nullptr},
    {"", {"mnuDigitListPopMenu_Property"}, "", "F2",
     nullptr, Run<EditNodeOfRow>, CanSelectEntire, nullptr},
    {"", {"mnuDigitDrawPointEdit"}, "", "Ctrl+Shift+F",
     nullptr, Run<TogglePointEdit>, HasNodes, EditsPoints},
    {"FindAresBtn", {"mnuDigitDrawFind"}, "Find", "Ctrl+F",
     nullptr, Run<ToggleFind>, HasNodes, Finds},
    {"FindOkAresBtn", {}, "Apply", "", nullptr, Run<ConfirmFind>, EditsOrFinds, nullptr},
    {"SortAresBtn", {}, "Sort", "", nullptr, Run<SortNodes>, CanSort, nullptr},
    {"SortDescendAresBtn", {}, "SortDescend", "",
     nullptr, Run<SortNodesDescending>, CanSort, nullptr},
    {"ExpandAllAresBtn", {}, "ExpandAll", "", nullptr, Run<ExpandAllBuses>, HasBus, nullptr},
    {"CloseAllAresBtn", {}, "CloseAll", "", nullptr, Run<CollapseAllBuses>, HasBus, nullptr},
    {"ZoomInAresBtn", {"mnuDigitViewZoomIn"}, "ZoomIn", "Ctrl+=",
     nullptr, Run<ZoomInDigit>, CanZoomDigitIn, nullptr},
    {"ZoomOutAresBtn", {"mnuDigitViewZoomOut"}, "ZoomOut", "Ctrl+-",
     nullptr, Run<ZoomOutDigit>, CanZoomDigitOut, nullptr},
    {"", {"mnuDigitView_FrontPage"}, "", "PgUp", nullptr, TurnPage, CanTurnBack, nullptr, 0},
    {"", {"mnuDigitView_NextPage"}, "", "PgDown", nullptr, TurnPage, CanTurnOn, nullptr, 1},
    // Window, help, tray
    {"", {"Mnuwin_Cascade"}, "", "", Arrange<WindowArrangement::Cascade>, nullptr, HasDocument,
     nullptr},
    {"", {"Mnuwin_Horizon"}, "", "", Arrange<WindowArrangement::Horizontal>, nullptr, HasDocument,
     nullptr},
    {"", {"Mnuwin_Vertical"}, "", "", Arrange<WindowArrangement::Vertical>, nullptr, HasDocument,
     nullptr},
    {"", {"Mnuwin_Arrayicons"}, "", "", Arrange<WindowArrangement::Icons>, nullptr, HasDocument,
     nullptr},
    {"HelpAresBtn", {"MnuHelp_Help"}, "Help", "F1", ShowHelp, nullptr, nullptr, nullptr},
    {"", {"MnuHelp_About", "MnuMin_About"}, "", "", OpenDialog<About>, nullptr, nullptr, nullptr},
    {"", {"MnuHelp_Lang_En"}, "", "", ChangeLanguage, nullptr, nullptr, SpeaksEnglish, 1},
    {"", {"MnuHelp_Lang_Ch"}, "", "", ChangeLanguage, nullptr, nullptr, SpeaksChinese, 0},
    {"", {"MnuMin_Show", "MnuMin_ShowEditor"}, "", "", ShowEditor, nullptr, nullptr, nullptr},
};
// clang-format on

using NameIndex = std::unordered_map<std::string_view, const CommandRow*>;

NameIndex IndexNames() {
    NameIndex index;
    for (const CommandRow& row : Rows) {
        if (!row.Button.empty()) index.emplace(row.Button, &row);
        for (const std::string_view menu : row.Menus)
            if (!menu.empty()) index.emplace(menu, &row);
    }
    return index;
}

auto RoutineOf(const CommandRow& row) {
    return ActiveIsDigital && row.Digital ? row.Digital : row.Analog;
}

}  // namespace

std::span<const CommandRow> Commands() {
    return Rows;
}

const CommandRow* FindCommand(std::string_view name) {
    static const NameIndex index = IndexNames();
    const auto found = index.find(name);
    return found == index.end() ? nullptr : found->second;
}

CommandState StateOf(const CommandRow& row) {
    return {.Enabled = RoutineOf(row) != nullptr && (row.Enabled == nullptr || row.Enabled()),
            .Checked = row.Checked != nullptr && row.Checked()};
}

void RunCommand(const CommandRow& row) {
    ActiveDocumentIndex();
    RefreshDotCommands();
    if (StateOf(row).Enabled) RoutineOf(row)(row.Argument);
}

void RunCommand(std::string_view name) {
    if (const CommandRow* row = FindCommand(name)) RunCommand(*row);
}

void RefreshDotCommands() {
    const std::int32_t dots = HasAnalog() ? ActiveAnalog().Dots : 0;
    if (dots > 1) dotCommandsOn = true;
    if (dots < 1) dotCommandsOn = false;
}
