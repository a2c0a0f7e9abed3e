#include "frame/WindowTextRows.h"

// A label's row is its text, a button's its caption or, on a spin button, its tool tip; the row of
// a unit list is its name for screen readers. Mnemonics are unique within a window and the same in
// both languages.

namespace {

constexpr WindowText Rows[] = {
    {"PropertyFrm", "", "Waveform Property", "波形属性"},
    {"PropertyFrm", "DotnumLab", "&Dots", "点数(&D)"},
    {"PropertyFrm", "DotNumUp", "More dots", "增加点数"},
    {"PropertyFrm", "DotNumDn", "Fewer dots", "减少点数"},
    {"PropertyFrm", "amplLab", "&Amplitude (Vpp)", "幅度 Vpp(&A)"},
    {"PropertyFrm", "amplunitCmb", "Amplitude unit", "幅度单位"},
    {"PropertyFrm", "OptLab", "Set by", "设定方式"},
    {"PropertyFrm", "OptFreq", "&Frequency", "频率(&F)"},
    {"PropertyFrm", "OptPer", "&Period", "周期(&P)"},
    {"PropertyFrm", "FreqLab", "F&requency", "频率(&R)"},
    {"PropertyFrm", "FrequnitCmb", "Frequency unit", "频率单位"},
    {"PropertyFrm", "PeriodLab", "P&eriod", "周期(&E)"},
    {"PropertyFrm", "PeriodunitCmb", "Period unit", "周期单位"},
    {"PropertyFrm", "QuantLab", "&Quantify (bits)", "量化位数(&Q)"},
    {"PropertyFrm", "QuantUp", "More bits", "增加位数"},
    {"PropertyFrm", "QuantDn", "Fewer bits", "减少位数"},
    {"PropertyFrm", "OkAresBtn", "OK", "确定"},
    {"PropertyFrm", "CancelAresBtn", "Cancel", "取消"},

    {"StandardWaveFrm", "", "Standard Waveform", "标准波形"},
    {"StandardWaveFrm", "WaveTypeLab", "&Type", "类型(&T)"},
    {"StandardWaveFrm", "WaveTypeCmb0", "Sine", "正弦波"},
    {"StandardWaveFrm", "WaveTypeCmb1", "Square", "方波"},
    {"StandardWaveFrm", "WaveTypeCmb2", "Ramp", "锯齿波"},
    {"StandardWaveFrm", "WaveTypeCmb3", "Pulse", "脉冲波"},
    {"StandardWaveFrm", "WaveTypeCmb4", "ExpRise", "指数上升"},
    {"StandardWaveFrm", "WaveTypeCmb5", "ExpFall", "指数下降"},
    {"StandardWaveFrm", "WaveTypeCmb6", "Noise", "噪声"},
    {"StandardWaveFrm", "WaveTypeCmb7", "Sinc", "Sinc"},
    {"StandardWaveFrm", "WaveTypeCmb8", "DC", "直流"},
    {"StandardWaveFrm", "WaveTypeCmb9", "None", "无"},
    {"StandardWaveFrm", "DotnumLab", "&Dots", "点数(&D)"},
    {"StandardWaveFrm", "DotNumUp", "More dots", "增加点数"},
    {"StandardWaveFrm", "DotNumDn", "Fewer dots", "减少点数"},
    {"StandardWaveFrm", "CyclesLab", "&Cycles", "周期数(&C)"},
    {"StandardWaveFrm", "CyclesUp", "More cycles", "增加周期数"},
    {"StandardWaveFrm", "CyclesDn", "Fewer cycles", "减少周期数"},
    {"StandardWaveFrm", "phaseLab", "&Phase (°)", "相位 °(&P)"},
    {"StandardWaveFrm", "PhaseUp", "Increase the phase", "增大相位"},
    {"StandardWaveFrm", "PhaseDn", "Decrease the phase", "减小相位"},
    {"StandardWaveFrm", "amplLab", "&Amplitude", "幅度(&A)"},
    {"StandardWaveFrm", "amplunitCmb", "Amplitude unit", "幅度单位"},
    {"StandardWaveFrm", "offsetLab", "O&ffset", "偏移(&F)"},
    {"StandardWaveFrm", "offsetunitCmb", "Offset unit", "偏移单位"},
    {"StandardWaveFrm", "para1LabSquare", "D&uty", "占空比(&U)"},
    {"StandardWaveFrm", "para1UnitLabSquare", "%", "%"},
    {"StandardWaveFrm", "para1LabRamp", "&Symmetry", "对称性(&S)"},
    {"StandardWaveFrm", "para1UnitLabRamp", "%", "%"},
    {"StandardWaveFrm", "para1LabPulse", "Pulse &width", "脉宽(&W)"},
    {"StandardWaveFrm", "para1UnitLabPulse", "%", "%"},
    {"StandardWaveFrm", "para2LabPulse", "S&lope", "边沿(&L)"},
    {"StandardWaveFrm", "para2UnitLabPulse", "%", "%"},
    {"StandardWaveFrm", "para1LabExpRise", "Dampin&g", "衰减系数(&G)"},
    {"StandardWaveFrm", "para1LabExpFall", "Dampin&g", "衰减系数(&G)"},
    {"StandardWaveFrm", "para1LabSinc", "&Zero crossings", "过零数(&Z)"},
    {"StandardWaveFrm", "PicPreview", "Preview", "预览"},
    {"StandardWaveFrm", "OkAresBtn", "OK", "确定"},
    {"StandardWaveFrm", "CancelAresBtn", "Cancel", "取消"},

    {"EquationFrm", "", "Equation", "公式"},
    {"EquationFrm", "ExpressionLab", "&Volts =", "电压(&V) ="},
    {"EquationFrm", "ExpressionTxt", "Expression in volts", "以伏特为单位的表达式"},
    {"EquationFrm", "ExampleLab", "E&xamples", "示例(&X)"},
    {"EquationFrm", "ExampleCmb", "Examples", "示例"},
    {"EquationFrm", "ExampleHint", "Choose...", "请选择..."},
    {"EquationFrm", "ExampleCmb0", "Damped sine", "衰减正弦"},
    {"EquationFrm", "ExampleCmb1", "Amplitude modulation", "调幅 (AM)"},
    {"EquationFrm", "ExampleCmb2", "Frequency modulation", "调频 (FM)"},
    {"EquationFrm", "ExampleCmb3", "Chirp", "线性调频"},
    {"EquationFrm", "ExampleCmb4", "Sinc", "Sinc"},
    {"EquationFrm", "ExampleCmb5", "Gaussian pulse", "高斯脉冲"},
    {"EquationFrm", "ExampleCmb6", "Charge and discharge", "指数充放电"},
    {"EquationFrm", "ExampleCmb7", "Staircase", "阶梯波"},
    {"EquationFrm", "ExampleCmb8", "Pulse-width modulation", "脉宽调制 (PWM)"},
    {"EquationFrm", "ExampleCmb9", "Sine with noise", "含噪声的正弦"},
    {"EquationFrm", "ExampleCmb10", "Heartbeat", "心电波形"},
    {"EquationFrm", "ExampleCmb11", "Odd harmonics", "奇次谐波"},
    {"EquationFrm", "ExampleCmb12", "Burst", "脉冲串"},
    {"EquationFrm", "ExampleCmb13", "200 kHz by time", "按时间的 200 kHz"},
    {"EquationFrm", "HistoryLab", "&History", "历史记录(&H)"},
    {"EquationFrm", "HistoryCmb", "History", "历史记录"},
    {"EquationFrm", "HistoryHint", "Choose...", "请选择..."},
    {"EquationFrm", "DotnumLab", "&Dots", "点数(&D)"},
    {"EquationFrm", "DotNumUp", "More dots", "增加点数"},
    {"EquationFrm", "DotNumDn", "Fewer dots", "减少点数"},
    {"EquationFrm", "PlaceLab", "Place", "位置"},
    {"EquationFrm", "PicPreview", "Preview", "预览"},
    {"EquationFrm", "LegendInfo",
     "<table cellspacing='0' cellpadding='0'>"
     "<tr><td width='40' valign='middle'><b>t</b></td><td>time of the dot in the document, "
     "seconds</td></tr>"
     "<tr><td width='40' valign='middle'><b>x</b></td><td>0 to 1 over the new dots</td></tr>"
     "<tr><td width='40' valign='middle'><b>n</b></td><td>number of the new dot, from 0</td></tr>"
     "<tr><td width='40' valign='middle'><b>A</b></td><td>Vpp / 2, volts</td></tr>"
     "<tr><td width='40' valign='middle'><b>2.2k</b></td><td>suffixes f p n u µ m k M G, behind a "
     "number;</td></tr>"
     "<tr><td width='40' valign='middle'><b></b></td><td>2n is 2e-9, but 2*n is twice n</td></tr>"
     "</table>"
     "<p>pi e + - * / ^ ( ) comparisons, a ? b : c<br/>"
     "sin cos tan asin acos atan atan2 sinh cosh tanh<br/>"
     "exp ln log (= ln) log2 log10 sqrt abs sign<br/>"
     "floor ceil rint mod min max avg sum<br/>"
     "square saw tri (period 2*pi), noise() in -1..1<br/>"
     "step: 1 from 0 on; rect: 1 within -0.5..0.5<br/>"
     "sinc(v) = sin(pi*v)/(pi*v)<br/>"
     "gauss(v) = exp(-v^2/2)</p>",
     "<table cellspacing='0' cellpadding='0'>"
     "<tr><td width='40' valign='middle'><b>t</b></td><td>该点在文档中的时间，秒</td></tr>"
     "<tr><td width='40' valign='middle'><b>x</b></td><td>在新点范围内从 0 到 1</td></tr>"
     "<tr><td width='40' valign='middle'><b>n</b></td><td>新点的序号，从 0 起</td></tr>"
     "<tr><td width='40' valign='middle'><b>A</b></td><td>Vpp / 2，伏</td></tr>"
     "<tr><td width='40' valign='middle'><b>2.2k</b></td><td>数字后缀 f p n u µ m k M G；</td></tr>"
     "<tr><td width='40' valign='middle'><b></b></td><td>2n 是 2e-9，而 2*n 是 n 的两倍</td></tr>"
     "</table>"
     "<p>pi e + - * / ^ ( ) 比较运算，a ? b : c<br/>"
     "sin cos tan asin acos atan atan2 sinh cosh tanh<br/>"
     "exp ln log (= ln) log2 log10 sqrt abs sign<br/>"
     "floor ceil rint mod min max avg sum<br/>"
     "square saw tri（周期 2*pi），noise() 在 -1..1<br/>"
     "step：从 0 起为 1；rect：-0.5..0.5 内为 1<br/>"
     "sinc(v) = sin(pi*v)/(pi*v)<br/>"
     "gauss(v) = exp(-v^2/2)</p>"},
    {"EquationFrm", "OkAresBtn", "OK", "确定"},
    {"EquationFrm", "CancelAresBtn", "Cancel", "取消"},

    {"ResizeWaveFrm", "", "Resize", "调整大小"},
    {"ResizeWaveFrm", "dotLab", "Reset &Dot", "重设点数(&D)"},
    {"ResizeWaveFrm", "dotUp", "More dots", "增加点数"},
    {"ResizeWaveFrm", "dotDn", "Fewer dots", "减少点数"},
    {"ResizeWaveFrm", "amplLab", "Reset &Ampl (%)", "重设幅度 %(&A)"},
    {"ResizeWaveFrm", "amplUp", "Increase the amplitude", "增大幅度"},
    {"ResizeWaveFrm", "amplDn", "Decrease the amplitude", "减小幅度"},
    {"ResizeWaveFrm", "PicPreview", "Preview", "预览"},
    {"ResizeWaveFrm", "PicPreviewInfo", "Resized", "调整后"},
    {"ResizeWaveFrm", "PicPreviewUnderInfo", "Before", "调整前"},
    {"ResizeWaveFrm", "OkAresBtn", "OK", "确定"},
    {"ResizeWaveFrm", "CancelAresBtn", "Cancel", "取消"},

    {"WaveMathFrm", "", "Waveform Math", "波形运算"},
    {"WaveMathFrm", "SourceLab", "&Source", "来源(&S)"},
    {"WaveMathFrm", "SourceCmb", "Source", "来源"},
    {"WaveMathFrm", "SourceCmb0", "ClipBoard", "剪贴板"},
    {"WaveMathFrm", "SourceCmb1", "Standard Wave", "标准波形"},
    {"WaveMathFrm", "MathLab", "&Operation", "运算(&O)"},
    {"WaveMathFrm", "MathCmb", "Operation", "运算"},
    {"WaveMathFrm", "MathCmb0", "Non", "无"},
    {"WaveMathFrm", "MathCmb1", "+", "+"},
    {"WaveMathFrm", "MathCmb2", "-", "-"},
    {"WaveMathFrm", "MathCmb3", "*", "*"},
    {"WaveMathFrm", "ResumeAresBtn", "&Resume", "恢复(&R)"},
    {"WaveMathFrm", "PicSource", "Source", "来源"},
    {"WaveMathFrm", "PicSourceInfo", "Source", "来源"},
    {"WaveMathFrm", "PicSourceUnderInfo", "Selection", "选区"},
    {"WaveMathFrm", "PicResult", "Result", "结果"},
    {"WaveMathFrm", "PicResultInfo", "Result", "结果"},
    {"WaveMathFrm", "PicResultUnderInfo", "Selection", "选区"},
    {"WaveMathFrm", "OkAresBtn", "OK", "确定"},
    {"WaveMathFrm", "CancelAresBtn", "Cancel", "取消"},

    {"WindowMathFrm", "", "Window Math", "窗口运算"},
    {"WindowMathFrm", "SourceLab", "&Source Window", "源窗口(&S)"},
    {"WindowMathFrm", "SourceCmb", "Source Window", "源窗口"},
    {"WindowMathFrm", "MathLab", "&Math Window", "运算窗口(&M)"},
    {"WindowMathFrm", "MathCmb", "Math Window", "运算窗口"},
    {"WindowMathFrm", "OperateLab", "&Operation", "运算(&O)"},
    {"WindowMathFrm", "OperateCmb", "Operation", "运算"},
    {"WindowMathFrm", "OperateCmb0", "None", "无"},
    {"WindowMathFrm", "OperateCmb1", "+", "+"},
    {"WindowMathFrm", "OperateCmb2", "-", "-"},
    {"WindowMathFrm", "OperateCmb3", "*", "*"},
    {"WindowMathFrm", "ResumeAresBtn", "&Resume", "恢复(&R)"},
    {"WindowMathFrm", "PicPreview", "Preview", "预览"},
    {"WindowMathFrm", "PicPreviewInfo", "Result", "结果"},
    {"WindowMathFrm", "PicPreviewUnderInfo", "Source window", "源窗口"},
    {"WindowMathFrm", "OkAresBtn", "OK", "确定"},
    {"WindowMathFrm", "CancelAresBtn", "Cancel", "取消"},

    {"LowPassSetFrm", "", "Low Pass", "低通滤波"},
    {"LowPassSetFrm", "CutOffLab", "&Cut-off (cycles)", "截止周期数(&C)"},
    {"LowPassSetFrm", "CutOffUp", "Raise the cut-off", "提高截止频率"},
    {"LowPassSetFrm", "CutOffDn", "Lower the cut-off", "降低截止频率"},
    {"LowPassSetFrm", "PicPreview", "Preview", "预览"},
    {"LowPassSetFrm", "PicPreviewInfo", "Filtered", "滤波后"},
    {"LowPassSetFrm", "PicPreviewUnderInfo", "Before", "滤波前"},
    {"LowPassSetFrm", "MessageLab", "Waiting...", "请稍候..."},
    {"LowPassSetFrm", "OkAresBtn", "OK", "确定"},
    {"LowPassSetFrm", "CancelAresBtn", "Cancel", "取消"},

    {"SmoothSetFrm", "", "Smooth", "平滑"},
    {"SmoothSetFrm", "smoothdotLab", "&Smooth dots", "平滑点数(&S)"},
    {"SmoothSetFrm", "smoothdotUp", "More dots", "增加点数"},
    {"SmoothSetFrm", "smoothdotDn", "Fewer dots", "减少点数"},
    {"SmoothSetFrm", "PicPreview", "Preview", "预览"},
    {"SmoothSetFrm", "PicPreviewInfo", "Smoothed", "平滑后"},
    {"SmoothSetFrm", "PicPreviewUnderInfo", "Before", "平滑前"},
    {"SmoothSetFrm", "OkAresBtn", "OK", "确定"},
    {"SmoothSetFrm", "CancelAresBtn", "Cancel", "取消"},

    {"CommunicateSettingFrm", "", "Communication Settings", "通讯设置"},
    {"CommunicateSettingFrm", "USBOption", "&USB", "USB(&U)"},
    {"CommunicateSettingFrm", "DeviceLab", "&Device", "设备(&D)"},
    {"CommunicateSettingFrm", "cmbDevice", "Device", "设备"},
    {"CommunicateSettingFrm", "GPIBOption", "&GPIB", "GPIB(&G)"},
    {"CommunicateSettingFrm", "AddressLab", "Primary &address", "主地址(&A)"},
    {"CommunicateSettingFrm", "GPIBInfo", "GPIB is not available: OK chooses USB.",
     "GPIB 不可用：按“确定”后使用 USB。"},
    {"CommunicateSettingFrm", "RS232Option", "&RS232", "RS232(&R)"},
    {"CommunicateSettingFrm", "PortLab", "&Port", "端口(&P)"},
    {"CommunicateSettingFrm", "PortCmb", "Port", "端口"},
    {"CommunicateSettingFrm", "SerialDeviceLab", "Port de&vice", "端口设备(&V)"},
    {"CommunicateSettingFrm", "SerialDeviceCmb", "Port device", "端口设备"},
    {"CommunicateSettingFrm", "BaudLab", "&Baud rate", "波特率(&B)"},
    {"CommunicateSettingFrm", "BaudCmb", "Baud rate", "波特率"},
    {"CommunicateSettingFrm", "HandshakeLab", "&Handshake", "握手(&H)"},
    {"CommunicateSettingFrm", "HandshakeCmb", "Handshake", "握手"},
    {"CommunicateSettingFrm", "ParityLab", "Parit&y / data bits", "校验/数据位(&Y)"},
    {"CommunicateSettingFrm", "ParityCmb", "Parity and data bits", "校验和数据位"},
    {"CommunicateSettingFrm", "ParityCmb0", "None/8Bits", "无校验/8数据位"},
    {"CommunicateSettingFrm", "ParityCmb1", "Odd/7Bits", "奇校验/7数据位"},
    {"CommunicateSettingFrm", "ParityCmb2", "Even/7Bits", "偶校验/7数据位"},
    {"CommunicateSettingFrm", "LineInfo", "The line always has no handshake, no parity, 8 bits.",
     "串口始终为无握手、无校验、8 数据位。"},
    {"CommunicateSettingFrm", "RescanAresBtn", "Re&scan", "扫描(&S)"},
    {"CommunicateSettingFrm", "OkAresBtn", "OK", "确定"},
    {"CommunicateSettingFrm", "CancelAresBtn", "Cancel", "取消"},

    {"InstrumentSelFrm", "", "Instrument Selection", "仪器选择"},
    {"InstrumentSelFrm", "InstrumentLab", "&Instrument", "仪器(&I)"},
    {"InstrumentSelFrm", "ComboInstrumentType", "Instrument", "仪器"},
    {"InstrumentSelFrm", "OkAresBtn", "OK", "确定"},
    {"InstrumentSelFrm", "CancelAresBtn", "Cancel", "取消"},

    {"LinkTranscriptFrm", "", "Link Transcript", "通讯记录"},
    {"LinkTranscriptFrm", "RecordChk", "&Record", "记录(&R)"},
    {"LinkTranscriptFrm", "TranscriptTxt", "Lines of the transcript", "通讯记录的内容"},
    {"LinkTranscriptFrm", "HintOff",
     "Tick \"Record\" to note every command and reply of the instrument with its time.\n"
     "Saved as a file, the lines help to find out why an instrument does not answer.",
     "勾选“记录”后，与仪器之间的每条命令和应答都会连同时间记录在此。\n"
     "保存为文件后，可用于查找仪器无应答的原因。"},
    {"LinkTranscriptFrm", "HintOn",
     "Recording. Commands and replies appear here as soon as something goes over the link.",
     "正在记录。一旦有通讯，命令和应答就会显示在此。"},
    {"LinkTranscriptFrm", "CopyAresBtn", "&Copy", "复制(&C)"},
    {"LinkTranscriptFrm", "ClearAresBtn", "C&lear", "清除(&L)"},
    {"LinkTranscriptFrm", "SaveAresBtn", "&Save...", "保存(&S)..."},

    {"SendAnalogWaveFrm", "", "Send Waveform", "发送波形"},
    {"SendAnalogWaveFrm", "SummaryInfo", "%1 dots · %2 Vpp · %3", "%1 点 · %2 Vpp · %3"},
    {"SendAnalogWaveFrm", "StoreHead", "Send and store", "发送与存储"},
    {"SendAnalogWaveFrm", "OptionSaveLab", "Memory", "存储器"},
    {"SendAnalogWaveFrm", "OptionSave0", "&Non-volatile", "非易失性(&N)"},
    {"SendAnalogWaveFrm", "OptionSave1", "&Volatile", "易失性(&V)"},
    {"SendAnalogWaveFrm", "cmbUserWaveLab", "&Location", "存储位置(&L)"},
    {"SendAnalogWaveFrm", "cmbUserWave", "Location", "存储位置"},
    {"SendAnalogWaveFrm", "lblLocation", "In use", "占用情况"},
    {"SendAnalogWaveFrm", "lblLocationMul", "In use", "占用情况"},
    {"SendAnalogWaveFrm", "UsedInfo", "%1 of %2", "%1 / %2"},
    {"SendAnalogWaveFrm", "txtUserWaveNameLab", "Na&me", "波形名称(&M)"},
    {"SendAnalogWaveFrm", "SaveAresBtn", "&Send", "发送(&S)"},
    {"SendAnalogWaveFrm", "StoreHelp",
     "Volatile memory needs no name and is empty after switching off. When all locations are in "
     "use, delete a waveform first.",
     "易失性存储器无须指定波形名称，关机后不保留。存储空间已满时，请先删除一个已存储的任意波形。"},
    {"SendAnalogWaveFrm", "ManageHead", "Waveforms in the instrument", "仪器中的波形"},
    {"SendAnalogWaveFrm", "cmbAllWaveLab", "&Waveform", "波形(&W)"},
    {"SendAnalogWaveFrm", "cmbAllWave", "Waveform", "波形"},
    {"SendAnalogWaveFrm", "txtAllWaveNameLab", "Nam&e", "波形名称(&E)"},
    {"SendAnalogWaveFrm", "OkAresBtn", "OK", "确定"},
    {"SendAnalogWaveFrm", "CancelAresBtn", "Cancel", "取消"},
    {"SendAnalogWaveFrm", "ButActivate", "&Activate", "激活(&A)"},
    {"SendAnalogWaveFrm", "ButRename", "&Rename", "重命名(&R)"},
    {"SendAnalogWaveFrm", "ButDel", "&Delete", "删除(&D)"},
    {"SendAnalogWaveFrm", "ManageHelp",
     "Built-in waveforms can only be activated. Your own can be renamed and deleted as well, but "
     "not "
     "while one is active.",
     "内置波形只能激活；用户存储的波形还可以重命名和删除，但当前波形除外，请先激活其他波形。"},
    {"SendAnalogWaveFrm", "ProgressBar", "Progress", "进度"},
    {"SendAnalogWaveFrm", "CancelWaitBtn", "Cancel", "取消"},
    {"SendAnalogWaveFrm", "CancelWaitTip", "Stop waiting (Esc)", "停止等待 (Esc)"},
    {"SendAnalogWaveFrm", "ExitAresBtn", "&Close", "关闭(&C)"},

    {"DownLoadWaveFrm", "", "Upload Waveform", "上传波形"},
    {"DownLoadWaveFrm", "cmbAllWaveLab", "&Waveform", "波形(&W)"},
    {"DownLoadWaveFrm", "cmbAllWave", "Waveform", "波形"},
    {"DownLoadWaveFrm", "BuiltInInfo", "Built-in waveforms cannot be uploaded.",
     "内置波形不能上传。"},
    {"DownLoadWaveFrm", "ProgressBar", "Progress", "进度"},
    {"DownLoadWaveFrm", "CancelWaitBtn", "Cancel", "取消"},
    {"DownLoadWaveFrm", "CancelWaitTip", "Stop waiting (Esc)", "停止等待 (Esc)"},
    {"DownLoadWaveFrm", "LoadAresBtn", "&Upload", "上传(&U)"},
    {"DownLoadWaveFrm", "CancelAresBtn", "Close", "关闭"},

    {"FlashFrm", "NameLab", "TideMark", "TideMark"},
    {"FlashFrm", "LineLab", "Arbitrary waveforms, drawn by hand or formula",
     "任意波形：手绘或按公式生成"},
    {"FlashFrm", "VersionLab", "Version %1", "版本 %1"},
};

}  // namespace

std::span<const WindowText> DialogTexts() {
    return Rows;
}
