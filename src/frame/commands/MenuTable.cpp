#include "frame/commands/CommandTable.h"

// The order of entries in menus and of buttons in tool bars.

namespace {

using Names = std::string_view;

constexpr Names FileMenu[] = {
    ">MnuFile_New",         ">MnuFile_Open",     "MnuFile_ImportWave", "-",
    "MnuFile_Save",         "MnuFile_SaveAs",    "MnuFile_SaveAll",    "-",
    "MnuFile_PrinterSetup", "MnuFile_PrintView", "MnuFile_Print",      "-",
    "MnuFile_Exit"};
constexpr Names EditMenu[] = {
    "MnuEdit_Undo",  "MnuEdit_Resume", "-", "MnuEdit_Cut",    "MnuEdit_Copy",
    "MnuEdit_Paste", "MnuEdit_delet",  "-", "MnuEdit_SelAll", "MnuEdit_SelectMode"};
constexpr Names DrawMenu[] = {"MnuDraw_HandDraw",
                              "MnuDraw_LineDraw",
                              "MnuDraw_PointEdit",
                              "-",
                              "MnuDraw_InsertStandardWave",
                              "MnuDraw_InsertMathWave",
                              "MnuDraw_InsertfromFile",
                              "MnuDraw_InsertFromClipBoard",
                              "MnuDraw_FunctionEdit",
                              "-",
                              "MNuDraw_AreaLimit",
                              "MnuDraw_XLimit",
                              "MnuDraw_YLimit",
                              "MnuDraw_FixupLimit"};
constexpr Names ViewMenu[] = {"MnuView_Grid",
                              "MnuView_CurSorTrack",
                              "MnuView_DotLink",
                              "MnuView_SegmentMark",
                              "-",
                              "MnuView_ZoomOutFit",
                              "MnuView_ZoomX",
                              "MnuView_ZoomY",
                              "MnuView_ZoomW",
                              "MnuView_ZoomOutCenter",
                              "MnuView_ZoomUndo",
                              "MnuView_ZoomDisable",
                              "-",
                              "MnuView_ShowTime",
                              "MnuView_SetWave",
                              "MnuView_SetGrid"};
constexpr Names ReworkMenu[] = {"MnuRework_property", "MnuRework_Resize", "-", "MnuRework_Invert",
                                "MnuRework_Mirror"};
constexpr Names MathMenu[] = {"MnuMath_WaveMath", "MnuMath_WinMath", "-", "MnuMath_MathCut",
                              "MnuMath_ABS",      "MnuMath_Mod",     "-", ">MnuMath_Filter",
                              ">MnuMath_Win"};
constexpr Names ToolMenu[] = {
    "MnuTool_InstrumenuSel", "-", "MnuTool_Connect", "MnuTool_Disconnect", "-", "MnuTool_Send",
    "MnuTool_Load",          "-", "MnuTool_Com",     "MnuTool_Transcript"};
constexpr Names WindowMenu[] = {"Mnuwin_Cascade", "Mnuwin_Horizon", "Mnuwin_Vertical",
                                "Mnuwin_Arrayicons"};
constexpr Names HelpMenu[] = {"MnuHelp_Help", "MnuHelp_About", "-", "MnuHelp_Lang_En",
                              "MnuHelp_Lang_Ch"};

constexpr Names NewMenu[] = {"MnuFile_New_Analog", "MnuFile_New_Digit"};
constexpr Names OpenMenu[] = {"MnuFile_Open_Analog", "MnuFile_Open_Digit"};
constexpr Names FilterMenu[] = {"MnuMath_Filter_LowPass", "MnuMath_Filter_Smooth"};
constexpr Names WinMenu[] = {"MnuMath_Win_ExtendCos", "MnuMath_Win_Raisedcos",
                             "MnuMath_Win_Hamming"};
constexpr Names IdleMenu[] = {"MnuIdle_Undo",     "MnuIdle_Resume",    "-", "MnuIdle_Handdraw",
                              "MnuIdle_LineDraw", "MnuIdle_pointEdit", "-", "MnuIdle_Insert",
                              "MnuIdle_SelAll"};
constexpr Names SelectMenu[] = {"MnuSelect_Cut",
                                "MnuSelect_Copy",
                                "MnuSelect_Paste",
                                "MnuSelect_Delete",
                                "-",
                                "MnuSelect_Insert",
                                "MnuSelect_Wavemath",
                                "MnuSelect_MathCut",
                                "MnuSelect_Abs",
                                "Mnuselect_Smooth",
                                "MnuSelect_Resize",
                                "MnuSelect_Invert",
                                "MnuSelect_Mirror"};
constexpr Names TrayMenu[] = {"MnuMin_ShowEditor", "MnuMin_About", "-", "MnuMin_Exit"};

constexpr Names FirstBar[] = {"NewAnaWaveAresBtn",
                              "NewDigitWaveAresBtn",
                              "OpenAresBtn",
                              "OpenDigitAresBtn",
                              "SaveAresBtn",
                              "PrintAresBtn",
                              "-",
                              "UndoAresBtn",
                              "ResumeAresBtn",
                              "-",
                              "CutAresBtn",
                              "CopyAresBtn",
                              "PasteAresBtn",
                              "DeletAresBtn",
                              "-",
                              "WaveAresBtn0",
                              "WaveAresBtn1",
                              "WaveAresBtn2",
                              "WaveAresBtn3",
                              "WaveAresBtn4",
                              "WaveAresBtn5",
                              "WaveAresBtn6",
                              "WaveAresBtn7",
                              "WaveAresBtn8",
                              "-",
                              "ConnectAresBtn",
                              "TransAresBtn",
                              "LoadAresBtn",
                              "LoadDigitAresBtn",
                              "-",
                              "HelpAresBtn"};
constexpr Names SecondBar[] = {"SelectAresBtn",        "HandDrawAresBtn",
                               "LineDrawAresBtn",      "EditPointAresBtn",
                               "CursorTrackAresBtn",   "-",
                               "GridAresBtn",          "MarkAresBtn",
                               "MarkXAresBtn",         "MarkYAresBtn",
                               "MarkFixAresBtn",       "-",
                               "ExpandsuitAresBtn",    "ZoomXAresBtn",
                               "ZoomYAresBtn",         "ZoomRegionAresBtn",
                               "ZoomOutCenterAresBtn", "ZoomNotAresBtn",
                               "ZoomUndoAresBtn",      "-",
                               "ZoomInAresBtn",        "ZoomOutAresBtn",
                               "FindAresBtn",          "InsertNodeAresBtn",
                               "SortAresBtn",          "SortDescendAresBtn",
                               "ExpandAllAresBtn",     "CloseAllAresBtn",
                               "BranchToBusAresBtn",   "BusToBranchAresBtn"};

constexpr Names LineButtons[] = {"VAresBtn", "mVAresBtn", "OkAresBtn"};
constexpr Names PointButtons[] = {"VAresBtn", "mVAresBtn", "AresButton1"};
constexpr Names BandButtons[] = {"ZoomAresBtn"};
constexpr Names ValueBandButtons[] = {"VAresBtn", "mVAresBtn", "ZoomAresBtn"};

constexpr MenuRow Strip[] = {
    {"MnuFile", FileMenu}, {"MnuEdit", EditMenu},     {"MnuDraw", DrawMenu},
    {"MnuView", ViewMenu}, {"MnuRework", ReworkMenu}, {"MnuMath", MathMenu},
    {"MnuTool", ToolMenu}, {"MnuWindow", WindowMenu}, {"MnuHelp", HelpMenu}};
constexpr MenuRow Popups[] = {
    {"MnuFile_New", NewMenu}, {"MnuFile_Open", OpenMenu}, {"MnuMath_Filter", FilterMenu},
    {"MnuMath_Win", WinMenu}, {"MnuIdle", IdleMenu},      {"MnuSelect", SelectMenu},
    {"MnuMin", TrayMenu}};
constexpr MenuRow Panels[] = {{"picLineDraw", LineButtons},  {"picEditDot", PointButtons},
                              {"picZoomH", BandButtons},     {"picZoomV", ValueBandButtons},
                              {"PicZoom", ValueBandButtons}, {"picZoomCenter", BandButtons}};
constexpr MenuRow Bars[] = {{"ToolBar1", FirstBar}, {"ToolBar2", SecondBar}};

}  // namespace

std::span<const MenuRow> MenuStrip() {
    return Strip;
}
std::span<const MenuRow> PopupMenus() {
    return Popups;
}
std::span<const MenuRow> ToolBars() {
    return Bars;
}
std::span<const MenuRow> StatusPanels() {
    return Panels;
}
