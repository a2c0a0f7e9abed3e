#include "frame/HelpPages.h"

#include "frame/LoadLanguageCode.h"
#include "platform/ProgramFolder.h"

namespace {

constexpr HelpPage Pages[] = {
    {"index", "TideMark", "TideMark"},
    {"road", "From nothing to the instrument", "从零到仪器"},
    {"analog", "Analog waveforms", "模拟波形"},
    {"standard", "Standard waveforms", "标准波形", true},
    {"drawing", "Drawing", "绘制", true},
    {"equation", "Expressions", "表达式", true},
    {"editing", "Selecting and editing", "选择与编辑", true},
    {"zoom", "Zoom", "缩放", true},
    {"limits", "Limit lines", "限制线", true},
    {"property", "Property", "属性", true},
    {"resize", "Resize and transforms", "缩放点数与变换", true},
    {"math", "Waveform and window math", "波形运算与窗口运算", true},
    {"filters", "Filters and windows", "滤波与窗函数", true},
    {"digital", "Digital waveforms", "数字波形"},
    {"values", "Writing values", "写入数值", true},
    {"buses", "Channels and buses", "通道与总线", true},
    {"find", "Find and point edit", "查找与编辑点", true},
    {"files", "Files", "文件"},
    {"scope", "Waveforms of an oscilloscope", "示波器波形", true},
    {"printing", "Printing", "打印", true},
    {"recovery", "After a crash", "意外退出之后", true},
    {"instrument", "The instrument", "仪器"},
    {"connection", "Connecting", "连接", true},
    {"sending", "Sending", "发送", true},
    {"upload", "Reading back", "读回", true},
    {"troubleshooting", "When the link fails", "连接故障排除", true},
    {"simulator", "The simulated instrument", "模拟仪器", true},
    {"keys", "Keyboard", "键盘"},
};

struct WindowRow {
    std::string_view Window, Page;
};
constexpr WindowRow Windows[] = {
    {"WaveFrm", "analog"},
    {"DigitWaveFrm", "digital"},
    {"PropertyFrm", "property"},
    {"StandardWaveFrm", "standard"},
    {"EquationFrm", "equation"},
    {"ResizeWaveFrm", "resize"},
    {"WaveMathFrm", "math"},
    {"WindowMathFrm", "math"},
    {"LowPassSetFrm", "filters"},
    {"SmoothSetFrm", "filters"},
    {"DigitPropertyFrm", "digital"},
    {"InsertNodeFrm", "buses"},
    {"ArbitraryValueFrm", "values"},
    {"CountFrm", "values"},
    {"EvaluateFrm", "values"},
    {"FileDialog", "files"},
    {"PrintPreviewFrm", "printing"},
    {"PrinterSetup", "printing"},
    {"InstrumentSelFrm", "connection"},
    {"CommunicateSettingFrm", "connection"},
    {"SendAnalogWaveFrm", "sending"},
    {"SendDigitWaveFrm", "sending"},
    {"DownLoadWaveFrm", "upload"},
    {"DownLoadDigitWaveFrm", "upload"},
    {"LinkTranscriptFrm", "troubleshooting"},
};

}  // namespace

std::span<const HelpPage> HelpPages() {
    return Pages;
}

std::string_view HelpPageOf(std::string_view window) {
    for (const WindowRow& row : Windows)
        if (row.Window == window) return row.Page;
    return Pages[0].Name;
}

std::string HelpFile() {
    return HelpFolder() + (UseEnglish == 1 ? "/TideMark_EN" : "/TideMark_CN");
}
