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

constexpr Names DigitEditMenu[] = {"MnuDigitEdit_Undo",
                                   "MnuDigitEdit_Resume",
                                   "-",
                                   "MnuDigitEdit_Cut",
                                   "MnuDigitEdit_Copy",
                                   "MnuDigitEdit_Repaste",
                                   "MnuDigitEdit_Delete",
                                   "-",
                                   "mnuDigitEdit_SelectAll"};
constexpr Names DigitDrawMenu[] = {"mnuDigitDrawInsertNode", "-", "mnuDigitDrawPointEdit",
                                   "mnuDigitDrawFind"};
constexpr Names DigitViewMenu[] = {"mnuDigitViewZoomIn",
                                   "mnuDigitViewZoomOut",
                                   "mnuDigitViewZoomDisable",
                                   "-",
                                   "mnuDigitView_FrontPage",
                                   "mnuDigitView_NextPage",
                                   "-",
                                   "mnuDigitView_ShowTime"};
constexpr Names DigitChangeMenu[] = {"mnuDigitChange_Property"};
constexpr Names DigitListMenu[] = {"mnuDigitListPopMenu_Value_0",
                                   "mnuDigitListPopMenu_Value_1",
                                   "mnuDigitListPopMenu_Invert",
                                   "mnuDigitListPopMenu_Clock",
                                   "mnuDigitListPopMenu_Arbitrary",
                                   "mnuDigitListPopMenu_Counting",
                                   "-",
                                   "mnuDigitListPopMenu_Insert",
                                   "mnuDigitListPopMenu_AssembleBus",
                                   "mnuDigitListPopMenu_SplitBus",
                                   "mnuDigitListPopMenu_Property",
                                   "-",
                                   "mnuDigitListPopMenu_Undo",
                                   "mnuDigitListPopMenu_Resume",
                                   "-",
                                   "mnuDigitListPopMenu_Cut",
                                   "mnuDigitListPopMenu_Copy",
                                   "mnuDigitListPopMenu_Repaste",
                                   "mnuDigitListPopMenu_Delete",
                                   "-",
                                   "mnuDigitListPopMenu_SelectEntire"};
constexpr Names DigitPictureMenu[] = {"mnuDigitWavePicPopMenu_Value_0",
                                      "mnuDigitWavePicPopMenu_Value_1",
                                      "mnuDigitWavePicPopMenu_Invert",
                                      "mnuDigitWavePicPopMenu_Clock",
                                      "mnuDigitWavePicPopMenu_Arbitrary",
                                      "mnuDigitWavePicPopMenu_Counting",
                                      "-",
                                      "mnuDigitWavePicPopMenu_Insert",
                                      "-",
                                      "mnuDigitWavePicPopMenu_Undo",
                                      "mnuDigitWavePicPopMenu_Resume",
                                      "-",
                                      "mnuDigitWavePicPopMenu_Cut",
                                      "mnuDigitWavePicPopMenu_Copy",
                                      "mnuDigitWavePicPopMenu_Paste",
                                      "mnuDigitWavePicPopMenu_Repaste",
                                      "mnuDigitWavePicPopMenu_Delete",
                                      "-",
                                      "mnuDigitWavePicPopMenu_SelectEntire"};

constexpr Names FileBar[] = {"NewAnaWaveAresBtn",
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
                             "-"};
constexpr Names WaveBar[] = {
    "WaveAresBtn0", "WaveAresBtn1", "WaveAresBtn2", "WaveAresBtn3", "WaveAresBtn4",
    "WaveAresBtn5", "WaveAresBtn6", "WaveAresBtn7", "WaveAresBtn8", "-"};
constexpr Names ValueBar[] = {"ValueAresBtn9",
                              "ValueAresBtn10",
                              "ValueAresBtn11",
                              "ValueAresBtn12",
                              "ValueAresBtn13",
                              "ValueAresBtn14",
                              "-"};
constexpr Names LinkBar[] = {
    "ConnectAresBtn", "TransAresBtn", "LoadAresBtn", "LoadDigitAresBtn", "-", "HelpAresBtn"};
constexpr Names ToolBar[] = {"SelectAresBtn",     "HandDrawAresBtn",      "LineDrawAresBtn",
                             "EditPointAresBtn",  "CursorTrackAresBtn",   "-",
                             "GridAresBtn",       "MarkAresBtn",          "MarkXAresBtn",
                             "MarkYAresBtn",      "MarkFixAresBtn",       "-",
                             "ExpandsuitAresBtn", "ZoomXAresBtn",         "ZoomYAresBtn",
                             "ZoomRegionAresBtn", "ZoomOutCenterAresBtn", "ZoomNotAresBtn",
                             "ZoomUndoAresBtn"};
constexpr Names DigitBar[] = {"InsertNodeAresBtn",
                              "BranchToBusAresBtn",
                              "BusToBranchAresBtn",
                              "-",
                              "ExpandAllAresBtn",
                              "CloseAllAresBtn",
                              "SortAresBtn",
                              "SortDescendAresBtn",
                              "-",
                              "FindAresBtn",
                              "-",
                              "ZoomInAresBtn",
                              "ZoomOutAresBtn"};

constexpr Names LineButtons[] = {"VAresBtn", "mVAresBtn", "OkAresBtn"};
constexpr Names PointButtons[] = {"VAresBtn", "mVAresBtn", "AresButton1"};
constexpr Names BandButtons[] = {"ZoomAresBtn"};
constexpr Names FindButtons[] = {"FindOkAresBtn"};
constexpr Names ValueBandButtons[] = {"VAresBtn", "mVAresBtn", "ZoomAresBtn"};

constexpr MenuRow Strip[] = {{"MnuFile", FileMenu},
                             {"MnuEdit", EditMenu, ShownFor::Analog},
                             {"MnuDraw", DrawMenu, ShownFor::Analog},
                             {"MnuView", ViewMenu, ShownFor::Analog},
                             {"MnuRework", ReworkMenu, ShownFor::Analog},
                             {"MnuMath", MathMenu, ShownFor::Analog},
                             {"MnuDigitEdit", DigitEditMenu, ShownFor::Digital},
                             {"MnuDigitDraw", DigitDrawMenu, ShownFor::Digital},
                             {"MnuDigitView", DigitViewMenu, ShownFor::Digital},
                             {"MnuDigitChange", DigitChangeMenu, ShownFor::Digital},
                             {"MnuTool", ToolMenu},
                             {"MnuWindow", WindowMenu},
                             {"MnuHelp", HelpMenu}};
constexpr MenuRow Popups[] = {{"MnuFile_New", NewMenu},
                              {"MnuFile_Open", OpenMenu},
                              {"MnuMath_Filter", FilterMenu},
                              {"MnuMath_Win", WinMenu},
                              {"MnuIdle", IdleMenu},
                              {"MnuSelect", SelectMenu},
                              {"mnuDigitListPopMenu", DigitListMenu},
                              {"mnuDigitWavePicPopMenu", DigitPictureMenu},
                              {"MnuMin", TrayMenu}};
constexpr MenuRow Panels[] = {{"picLineDraw", LineButtons},      {"picEditDot", PointButtons},
                              {"picZoomH", BandButtons},         {"picZoomV", ValueBandButtons},
                              {"PicZoom", ValueBandButtons},     {"picZoomCenter", BandButtons},
                              {"picDigitFind_Edit", FindButtons}};
constexpr MenuRow Bars[] = {
    {"FileBar", FileBar, ShownFor::Both, true},   {"WaveBar", WaveBar, ShownFor::Analog},
    {"ValueBar", ValueBar, ShownFor::Digital},    {"LinkBar", LinkBar},
    {"ToolBar", ToolBar, ShownFor::Analog, true}, {"DigitBar", DigitBar, ShownFor::Digital}};

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
