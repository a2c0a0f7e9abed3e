#include "frame/WindowTextRows.h"

// A button's row is its tool tip, a menu entry's row its caption, a label's row its text. Mnemonics
// are unique within a menu, and each menu uses the same letters in both languages. Three dots say
// that a dialog follows.

namespace {

constexpr WindowText Rows[] = {
    {"Mainfrm", "", "TideMark", "TideMark"},
    {"Mainfrm", "DocumentArea", "Create a waveform with Ctrl+N or open a file with Ctrl+O",
     "按 Ctrl+N 新建波形，或按 Ctrl+O 打开文件"},

    // Caption buttons
    {"Mainfrm", "MinimizeAbtn", "Minimize", "最小化"},
    {"Mainfrm", "MaxAbtn", "Maximize or restore", "最大化或还原"},
    {"Mainfrm", "ExitAbtn", "Exit", "退出"},

    // Files and printer
    {"Mainfrm", "NewAnaWaveAresBtn", "New analog waveform", "新建模拟波形"},
    {"Mainfrm", "NewDigitWaveAresBtn", "New digital waveform", "新建数字波形"},
    {"Mainfrm", "OpenAresBtn", "Open an analog waveform file", "打开模拟波形文件"},
    {"Mainfrm", "OpenDigitAresBtn", "Open a digital waveform file", "打开数字波形文件"},
    {"Mainfrm", "SaveAresBtn", "Save", "保存"},
    {"Mainfrm", "PrintAresBtn", "Print preview", "打印预览"},

    // Editing
    {"Mainfrm", "CutAresBtn", "Cut the selection", "剪切所选内容"},
    {"Mainfrm", "CopyAresBtn", "Copy the selection", "复制所选内容"},
    {"Mainfrm", "PasteAresBtn", "Paste", "粘贴"},
    {"Mainfrm", "DeletAresBtn", "Delete the selection", "删除所选内容"},
    {"Mainfrm", "UndoAresBtn", "Undo the last change", "撤消上一次更改"},
    {"Mainfrm", "ResumeAresBtn", "Resume the undone change", "恢复已撤消的更改"},

    // Tools
    {"Mainfrm", "HandDrawAresBtn", "Draw freehand", "手动绘线"},
    {"Mainfrm", "LineDrawAresBtn", "Draw straight lines", "绘制直线"},
    {"Mainfrm", "EditPointAresBtn", "Edit single points", "编辑单个点"},
    {"Mainfrm", "SelectAresBtn", "Select waveform data", "选择波形数据"},
    {"Mainfrm", "CursorTrackAresBtn", "Track the waveform with the cursor", "光标跟随波形"},

    // Display and limits
    {"Mainfrm", "GridAresBtn", "Show or hide the grid", "显示或隐藏网格"},
    {"Mainfrm", "MarkAresBtn", "Limit drawing to a region", "限制绘图区域"},
    {"Mainfrm", "MarkXAresBtn", "Limit drawing horizontally", "限制水平绘图范围"},
    {"Mainfrm", "MarkYAresBtn", "Limit drawing vertically", "限制垂直绘图范围"},
    {"Mainfrm", "MarkFixAresBtn", "Fix the limit lines in place", "固定限制线"},

    // Zoom
    {"Mainfrm", "ExpandsuitAresBtn", "Expand the waveform to fit", "扩展波形至适合大小"},
    {"Mainfrm", "ZoomXAresBtn", "Zoom horizontally", "水平缩放"},
    {"Mainfrm", "ZoomYAresBtn", "Zoom vertically", "垂直缩放"},
    {"Mainfrm", "ZoomRegionAresBtn", "Zoom to a region", "区域缩放"},
    {"Mainfrm", "ZoomOutCenterAresBtn", "Zoom around a point", "以某点为中心缩放"},
    {"Mainfrm", "ZoomNotAresBtn", "Show the whole view again", "恢复完整视图"},
    {"Mainfrm", "ZoomUndoAresBtn", "Undo the last zoom", "撤消上一次缩放"},

    // Standard waveforms
    {"Mainfrm", "WaveAresBtn0", "Insert a sine", "插入正弦波"},
    {"Mainfrm", "WaveAresBtn1", "Insert a square wave", "插入方波"},
    {"Mainfrm", "WaveAresBtn2", "Insert a ramp", "插入锯齿波"},
    {"Mainfrm", "WaveAresBtn3", "Insert a pulse", "插入脉冲波"},
    {"Mainfrm", "WaveAresBtn4", "Insert an exponential rise", "插入指数上升波形"},
    {"Mainfrm", "WaveAresBtn5", "Insert an exponential fall", "插入指数下降波形"},
    {"Mainfrm", "WaveAresBtn6", "Insert noise", "插入噪声"},
    {"Mainfrm", "WaveAresBtn7", "Insert a sinc pulse", "插入 Sinc 波形"},
    {"Mainfrm", "WaveAresBtn8", "Insert a DC level", "插入直流电平"},

    // Digital waveforms
    {"Mainfrm", "ZoomInAresBtn", "Zoom in", "放大"},
    {"Mainfrm", "ZoomOutAresBtn", "Zoom out", "缩小"},
    {"Mainfrm", "FindAresBtn", "Find a value", "查找数值"},
    {"Mainfrm", "InsertNodeAresBtn", "Insert a node or bus", "插入节点或总线"},
    {"Mainfrm", "SortAresBtn", "Sort by name, ascending", "按名称升序排列"},
    {"Mainfrm", "SortDescendAresBtn", "Sort by name, descending", "按名称降序排列"},
    {"Mainfrm", "ExpandAllAresBtn", "Expand all", "全部展开"},
    {"Mainfrm", "CloseAllAresBtn", "Close all", "全部关闭"},
    {"Mainfrm", "BranchToBusAresBtn", "Assemble nodes into a bus", "将节点合并为总线"},
    {"Mainfrm", "BusToBranchAresBtn", "Split a bus into nodes", "将总线拆分为节点"},

    // Instrument and help
    {"Mainfrm", "ConnectAresBtn", "Connect to instrument", "连接到仪器"},
    {"Mainfrm", "ConnectAresBtnOn", "Disconnect", "断开连接"},
    {"Mainfrm", "TransAresBtn", "Send Waveform", "发送波形"},
    {"Mainfrm", "LoadAresBtn", "Upload Analog waveform", "上传模拟波形"},
    {"Mainfrm", "LoadDigitAresBtn", "Upload Digital waveform", "上传数字波形"},
    {"Mainfrm", "HelpAresBtn", "Help", "帮助"},

    // Status strip: labels beside the boxes
    {"Mainfrm", "StartLab", "Start", "起点"},
    {"Mainfrm", "EndLab", "End", "终点"},
    {"Mainfrm", "SelectDotLab", "Dots", "点数"},
    {"Mainfrm", "lblXLab", "X", "X"},
    {"Mainfrm", "lblYLab", "Y", "Y"},
    {"Mainfrm", "txtValueXLab", "X", "X"},
    {"Mainfrm", "txtValueYLab", "Y", "Y"},
    {"Mainfrm", "txtLineX1Lab", "X1", "X1"},
    {"Mainfrm", "txtLineY1Lab", "Y1", "Y1"},
    {"Mainfrm", "txtLineX2Lab", "X2", "X2"},
    {"Mainfrm", "txtLineY2Lab", "Y2", "Y2"},
    {"Mainfrm", "ZoomHX1Lab", "X1", "X1"},
    {"Mainfrm", "ZoomHX2Lab", "X2", "X2"},
    {"Mainfrm", "ZoomVY1Lab", "Y1", "Y1"},
    {"Mainfrm", "ZoomVY2Lab", "Y2", "Y2"},
    {"Mainfrm", "ZoomX1Lab", "X1", "X1"},
    {"Mainfrm", "ZoomX2Lab", "X2", "X2"},
    {"Mainfrm", "ZoomY1Lab", "Y1", "Y1"},
    {"Mainfrm", "ZoomY2Lab", "Y2", "Y2"},
    {"Mainfrm", "ZoomCenterXLab", "X", "X"},
    {"Mainfrm", "VLab", "V", "V"},
    {"Mainfrm", "mVLab", "mV", "mV"},

    // Status strip: buttons
    {"Mainfrm", "VAresBtn", "Values in volts", "以伏特为单位"},
    {"Mainfrm", "mVAresBtn", "Values in millivolts", "以毫伏为单位"},
    {"Mainfrm", "OkAresBtn", "Draw the line", "绘制直线"},
    {"Mainfrm", "AresButton1", "Set the point", "设定该点"},
    {"Mainfrm", "ZoomAresBtn", "Zoom to these values", "按输入值缩放"},

    // Status strip: the link
    {"Mainfrm", "lblLink", "Not connected", "未连接"},
    {"Mainfrm", "lblLinkOn", "%1 connected", "%1 已连接"},
    {"Mainfrm", "CancelWaitBtn", "Cancel", "取消"},
    {"Mainfrm", "CancelWaitTip", "Stop waiting (Esc)", "停止等待 (Esc)"},

    {"Mnufrm", "MnuFile", "&File", "文件(&F)"},
    {"Mnufrm", "MnuFile_New", "&New", "新建(&N)"},
    {"Mnufrm", "MnuFile_Open", "&Open", "打开(&O)"},
    {"Mnufrm", "MnuFile_ImportWave", "&Import Scope Waveform...", "导入示波器波形(&I)..."},
    {"Mnufrm", "MnuFile_Save", "&Save", "保存(&S)"},
    {"Mnufrm", "MnuFile_SaveAs", "Save &As...", "另存为(&A)..."},
    {"Mnufrm", "MnuFile_SaveAll", "Save A&ll", "全部保存(&L)"},
    {"Mnufrm", "MnuFile_PrinterSetup", "Printer Set&up...", "打印设置(&U)..."},
    {"Mnufrm", "MnuFile_PrintView", "Print Pre&view", "打印预览(&V)"},
    {"Mnufrm", "MnuFile_Print", "&Print", "打印(&P)"},
    {"Mnufrm", "MnuFile_Exit", "E&xit", "退出(&X)"},
    {"Mnufrm", "MnuFile_New_Analog", "&Analog Waveform...", "模拟波形(&A)..."},
    {"Mnufrm", "MnuFile_New_Digit", "&Digital Waveform...", "数字波形(&D)..."},
    {"Mnufrm", "MnuFileAnalog_New", "&New Analog Waveform...", "新建模拟波形(&N)..."},
    {"Mnufrm", "MnuFile_Open_Analog", "&Analog Waveform...", "模拟波形(&A)..."},
    {"Mnufrm", "MnuFile_Open_Digit", "&Digital Waveform...", "数字波形(&D)..."},

    {"Mnufrm", "MnuEdit", "&Edit", "编辑(&E)"},
    {"Mnufrm", "MnuEdit_Undo", "&Undo", "撤消(&U)"},
    {"Mnufrm", "MnuEdit_Resume", "&Resume", "恢复(&R)"},
    {"Mnufrm", "MnuEdit_Cut", "Cu&t", "剪切(&T)"},
    {"Mnufrm", "MnuEdit_Copy", "&Copy", "复制(&C)"},
    {"Mnufrm", "MnuEdit_Paste", "&Paste", "粘贴(&P)"},
    {"Mnufrm", "MnuEdit_delet", "&Delete", "删除(&D)"},
    {"Mnufrm", "MnuEdit_SelAll", "Select &All", "全选(&A)"},
    {"Mnufrm", "MnuEdit_SelectMode", "&Select Mode", "选择模式(&S)"},

    {"Mnufrm", "MnuDraw", "&Draw", "绘图(&D)"},
    {"Mnufrm", "MnuDraw_HandDraw", "&Hand Draw", "手动绘线(&H)"},
    {"Mnufrm", "MnuDraw_LineDraw", "&Line Draw", "直线绘图(&L)"},
    {"Mnufrm", "MnuDraw_PointEdit", "&Point Edit", "点编辑(&P)"},
    {"Mnufrm", "MnuDraw_InsertStandardWave", "Insert &Standard Waveform...", "插入标准波形(&S)..."},
    {"Mnufrm", "MnuDraw_InsertMathWave", "Insert &Math Waveform...", "插入数学波形(&M)..."},
    {"Mnufrm", "MnuDraw_InsertfromFile", "Insert from &File...", "从文件插入(&F)..."},
    {"Mnufrm", "MnuDraw_InsertFromClipBoard", "Insert from &Clipboard", "从剪贴板插入(&C)"},
    {"Mnufrm", "MnuDraw_FunctionEdit", "F&unction Edit...", "函数编辑(&U)..."},
    {"Mnufrm", "MNuDraw_AreaLimit", "&Area Limit", "区域限制(&A)"},
    {"Mnufrm", "MnuDraw_XLimit", "&X Limit", "X 轴限制(&X)"},
    {"Mnufrm", "MnuDraw_YLimit", "&Y Limit", "Y 轴限制(&Y)"},
    {"Mnufrm", "MnuDraw_FixupLimit", "Fix Limi&ts", "固定限制线(&T)"},

    {"Mnufrm", "MnuView", "&View", "视图(&V)"},
    {"Mnufrm", "MnuView_Grid", "&Grid", "网格(&G)"},
    {"Mnufrm", "MnuView_CurSorTrack", "Cursor &Track", "光标跟随(&T)"},
    {"Mnufrm", "MnuView_DotLink", "&Link Dots", "连接各点(&L)"},
    {"Mnufrm", "MnuView_SegmentMark", "Segment &Marks", "波形段标记(&M)"},
    {"Mnufrm", "MnuView_ZoomOutFit", "Expand to &Fit", "扩展至适合大小(&F)"},
    {"Mnufrm", "MnuView_ZoomX", "Zoom &Horizontally", "水平缩放(&H)"},
    {"Mnufrm", "MnuView_ZoomY", "Zoom &Vertically", "垂直缩放(&V)"},
    {"Mnufrm", "MnuView_ZoomW", "Zoom to &Area", "区域缩放(&A)"},
    {"Mnufrm", "MnuView_ZoomOutCenter", "Zoom Around &Point", "中心缩放(&P)"},
    {"Mnufrm", "MnuView_ZoomUndo", "&Undo Zoom", "撤消缩放(&U)"},
    {"Mnufrm", "MnuView_ZoomDisable", "Zoom &Off", "取消缩放(&O)"},
    {"Mnufrm", "MnuView_ShowTime", "Show T&ime", "显示时间(&I)"},
    {"Mnufrm", "MnuView_SetWave", "&Waveform Colour...", "波形颜色(&W)..."},
    {"Mnufrm", "MnuView_SetGrid", "Grid Colou&r...", "网格颜色(&R)..."},

    {"Mnufrm", "MnuRework", "&Rework", "修改(&R)"},
    {"Mnufrm", "MnuRework_property", "&Property...", "属性(&P)..."},
    {"Mnufrm", "MnuRework_Resize", "&Resize...", "调整大小(&R)..."},
    {"Mnufrm", "MnuRework_Invert", "&Invert", "反相(&I)"},
    {"Mnufrm", "MnuRework_Mirror", "&Mirror", "镜像(&M)"},

    {"Mnufrm", "MnuMath", "&Math", "数学(&M)"},
    {"Mnufrm", "MnuMath_WaveMath", "&Waveform Math...", "波形运算(&W)..."},
    {"Mnufrm", "MnuMath_WinMath", "Wi&ndow Math...", "窗口运算(&N)..."},
    {"Mnufrm", "MnuMath_MathCut", "Math &Cut", "数学剪切(&C)"},
    {"Mnufrm", "MnuMath_ABS", "&Absolute Value", "绝对值(&A)"},
    {"Mnufrm", "MnuMath_Mod", "Mo&dulus", "取模(&D)"},
    {"Mnufrm", "MnuMath_Filter", "&Filter", "滤波(&F)"},
    {"Mnufrm", "MnuMath_Filter_LowPass", "&Low Pass...", "低通(&L)..."},
    {"Mnufrm", "MnuMath_Filter_Smooth", "&Smooth...", "平滑(&S)..."},
    {"Mnufrm", "MnuMath_Win", "Window F&unction", "窗函数(&U)"},
    {"Mnufrm", "MnuMath_Win_ExtendCos", "&Extend Cosine", "扩展余弦窗(&E)"},
    {"Mnufrm", "MnuMath_Win_Raisedcos", "&Raised Cosine", "升余弦窗(&R)"},
    {"Mnufrm", "MnuMath_Win_Hamming", "&Hamming", "汉明窗(&H)"},

    {"Mnufrm", "MnuTool", "&Tool", "工具(&T)"},
    {"Mnufrm", "MnuTool_InstrumenuSel", "&Instrument Selection...", "仪器选择(&I)..."},
    {"Mnufrm", "MnuTool_Connect", "&Connect", "连接(&C)"},
    {"Mnufrm", "MnuTool_Disconnect", "&Disconnect", "断开连接(&D)"},
    {"Mnufrm", "MnuTool_Send", "&Send Wave...", "发送波形(&S)..."},
    {"Mnufrm", "MnuTool_Load", "&Upload Wave...", "上传波形(&U)..."},
    {"Mnufrm", "MnuTool_Com", "Co&mmunication Settings...", "通讯设置(&M)..."},
    {"Mnufrm", "MnuTool_Transcript", "Link &Transcript...", "通讯记录(&T)..."},

    // The entries of the open windows stand in front of the documents' names.
    {"Mnufrm", "MnuWindow", "&Window", "窗口(&W)"},
    {"Mnufrm", "Mnuwin_Cascade", "&Cascade", "层叠(&C)"},
    {"Mnufrm", "Mnuwin_Horizon", "Tile &Horizontally", "水平平铺(&H)"},
    {"Mnufrm", "Mnuwin_Vertical", "Tile &Vertically", "垂直平铺(&V)"},
    {"Mnufrm", "Mnuwin_Arrayicons", "&Arrange Icons", "排列图标(&A)"},
    {"Mnufrm", "Mnuwin_W1", "&1", "&1"},
    {"Mnufrm", "Mnuwin_W2", "&2", "&2"},
    {"Mnufrm", "Mnuwin_W3", "&3", "&3"},
    {"Mnufrm", "Mnuwin_W4", "&4", "&4"},
    {"Mnufrm", "Mnuwin_W5", "&5", "&5"},
    {"Mnufrm", "Mnuwin_W6", "&6", "&6"},
    {"Mnufrm", "Mnuwin_W7", "&7", "&7"},
    {"Mnufrm", "Mnuwin_W8", "&8", "&8"},
    {"Mnufrm", "Mnuwin_W9", "&9", "&9"},
    {"Mnufrm", "Mnuwin_W10", "1&0", "1&0"},

    // Each language is named in itself, so that a reader of the other one finds the way back.
    {"Mnufrm", "MnuHelp", "&Help", "帮助(&H)"},
    {"Mnufrm", "MnuHelp_Help", "&Help Topics", "帮助主题(&H)"},
    {"Mnufrm", "MnuHelp_About", "&About TideMark...", "关于 TideMark(&A)..."},
    {"Mnufrm", "MnuHelp_Lang_En", "&English", "&English"},
    {"Mnufrm", "MnuHelp_Lang_Ch", "中文(&C)", "中文(&C)"},

    {"Mnufrm", "MnuMin_Show", "&Show", "显示(&S)"},
    {"Mnufrm", "MnuMin_ShowEditor", "Show &Editor", "显示编辑器(&E)"},
    {"Mnufrm", "MnuMin_About", "&About TideMark...", "关于 TideMark(&A)..."},
    {"Mnufrm", "MnuMin_Exit", "E&xit", "退出(&X)"},

    {"Mnufrm", "MnuIdle_Undo", "&Undo", "撤消(&U)"},
    {"Mnufrm", "MnuIdle_Resume", "&Resume", "恢复(&R)"},
    {"Mnufrm", "MnuIdle_Handdraw", "&Hand Draw", "手动绘线(&H)"},
    {"Mnufrm", "MnuIdle_LineDraw", "&Line Draw", "直线绘图(&L)"},
    {"Mnufrm", "MnuIdle_pointEdit", "&Point Edit", "点编辑(&P)"},
    {"Mnufrm", "MnuIdle_Insert", "&Insert Standard Waveform...", "插入标准波形(&I)..."},
    {"Mnufrm", "MnuIdle_SelAll", "Select &All", "全选(&A)"},

    {"Mnufrm", "MnuSelect_Cut", "Cu&t", "剪切(&T)"},
    {"Mnufrm", "MnuSelect_Copy", "&Copy", "复制(&C)"},
    {"Mnufrm", "MnuSelect_Paste", "&Paste", "粘贴(&P)"},
    {"Mnufrm", "MnuSelect_Delete", "&Delete", "删除(&D)"},
    {"Mnufrm", "MnuSelect_Insert", "&Insert Standard Waveform...", "插入标准波形(&I)..."},
    {"Mnufrm", "MnuSelect_Wavemath", "&Waveform Math...", "波形运算(&W)..."},
    {"Mnufrm", "MnuSelect_MathCut", "Math C&ut", "数学剪切(&U)"},
    {"Mnufrm", "MnuSelect_Abs", "&Absolute Value", "绝对值(&A)"},
    {"Mnufrm", "Mnuselect_Smooth", "&Smooth...", "平滑(&S)..."},
    {"Mnufrm", "MnuSelect_Resize", "&Resize...", "调整大小(&R)..."},
    {"Mnufrm", "MnuSelect_Invert", "In&vert", "反相(&V)"},
    {"Mnufrm", "MnuSelect_Mirror", "&Mirror", "镜像(&M)"},

    {"WaveFrm", "MinBtn", "Minimize", "最小化"},
    {"WaveFrm", "MaxBtn", "Maximize or restore", "最大化或还原"},
    {"WaveFrm", "ExtBtn", "Close", "关闭"},
    {"WaveFrm", "hint", "Draw, insert a standard wave, or open a file",
     "请绘制波形、插入标准波形或打开文件"},
};

}  // namespace

std::span<const WindowText> MainTexts() {
    return Rows;
}
