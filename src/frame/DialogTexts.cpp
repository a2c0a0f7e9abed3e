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

    {"FlashFrm", "NameLab", "TideMark", "TideMark"},
    {"FlashFrm", "LineLab", "Arbitrary waveforms, drawn by hand or formula",
     "任意波形：手绘或按公式生成"},
    {"FlashFrm", "VersionLab", "Version %1", "版本 %1"},
};

}  // namespace

std::span<const WindowText> DialogTexts() {
    return Rows;
}
