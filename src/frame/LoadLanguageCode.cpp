#include "frame/LoadLanguageCode.h"

#include "frame/WindowTextRows.h"
#include "platform/Settings.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

// Each message has two resources, the Chinese one at 100 + id and the English one 200 above it; a
// row holds both. Ids 1 to 3 exist in Chinese only, and id 50 says something else in each language.

std::int32_t UseEnglish = 1;

namespace {

struct CatalogueRow {
    std::int32_t Id;
    std::string_view English;
    std::string_view Chinese;
};

constexpr CatalogueRow Catalogue[] = {
    {1, "",
     "用户选择易失性存储器后，无须指定波形名称直接将波形保存到易失性存储器中；选择非易失性存储器后"
     "，"
     "须指定波形的存储位置以及波形名称，若存储空间已满，需要先删除一个已存储的任意波形，然后进行存"
     "储。"},
    {2, "", "存储空间已满，请先删除一个已存储的任意波形，然后进行存储。"},
    {3, "",
     "用户对永久性和内置的任意波形只能进行激活操作，对于用户编辑的任意波形可执行删除和重命名操作。"
     "此外，用户也不能对当前的可编辑任意波形进行重命名和删除操作，此种情况下，"
     "用户可先激活其他波形作为当前波形，再执行删除和重命名操作。"},
    {4, "Edit appointed value manually", "手动编辑指定点数值"},
    {5, "Enter the straight line manually", "手动输入直线"},
    {6, "Right click the mouse to exit from the drawing area", "单击鼠标右键以退出绘图区域"},
    {7, "Hand draw line mode", "手动绘线模式"},
    {8, "Select waveform data", "选择波形数据"},
    {9, "Idle work mode", "空闲工作模式"},
    {10, "Cursor track mode", "光标跟随模式"},
    {11, "Enter the start and end point of horizontal zoom manually",
     "手动输入水平缩放的起点和终点"},
    {12, "Enter the start and end point of vertical zoom manually", "手动输入垂直缩放的起点和终点"},
    {13, "Enter the start and end point of zoom ", "手动输入区域缩放的起点和终点"},
    {14, "Enter the point of center zoom manually", "手动输入中心缩放点的位置"},
    {15, "The length of waveform name is not larger 12 characters.", "波形名称最大长度12个字符"},
    {16, R"(The first character of waveform name must be "A"-"Z", or "_".)",
     R"(波形名称首字母必须是"A"-"Z"，或者"_")"},
    {17, "Can't be named the special name.", "不能命名为特殊名称"},
    {18, "The waveform to be sent must be larger than zero dot.", "传送的任意波形点数不能为0点"},
    {19, "Equipment can be stored in any form for the most points is",
     "仪器可存储的任意波形最大点数为"},
    {20, "The communication fails!", "    通讯失败!"},
    {21, "Input the name as being empty, please input again.", "输入名称为空，请重新输入"},
    {22, "The memory has been already full, please delete first and then store.",
     "存储器已满，请先删除再存储"},
    {23, "Cover the original waveform?", "是否覆盖原有波形？"},
    {24, "It can't be empty to input! ", "输入不能为空！"},
    {25, "Please connect instrument first!", "请先连接仪器！"},
    {26, "Please create a new analog waveform file", "请新建模拟波形文件"},
    {27, "This arb data will cover other of memory position,whether continue?",
     "此任意波形数据过大将覆盖其它存储位置，是否继续？"},
    {50, "Create a new file", "请新建数字波形文件"},
    {51, "Find appointed value manually", "手动查找指定点数值"},
};

// Windows that differ from another one in a few rows: the rest are that one's.
constexpr std::pair<std::string_view, std::string_view> Siblings[] = {
    {"SendDigitWaveFrm", "SendAnalogWaveFrm"}, {"DownLoadDigitWaveFrm", "DownLoadWaveFrm"}};

void AddSiblingRows(std::vector<WindowText>& rows, std::string_view window,
                    std::string_view sibling) {
    const std::vector<WindowText> own = rows;
    for (WindowText row : own) {
        const auto isOwn = [&](const WindowText& other) {
            return other.Window == window && other.Control == row.Control;
        };
        if (row.Window != sibling || std::ranges::any_of(own, isOwn)) continue;
        row.Window = window;
        rows.push_back(row);
    }
}

using TextKey = std::pair<std::string_view, std::string_view>;  // window, control

std::map<TextKey, const WindowText*> IndexRows() {
    std::map<TextKey, const WindowText*> index;
    for (const WindowText& row : WindowTexts())
        index.emplace(TextKey(row.Window, row.Control), &row);
    return index;
}

}  // namespace

std::string_view PickText(std::string_view english, std::string_view chinese) {
    return UseEnglish == 1 ? english : chinese;
}

std::string_view ResText(std::int32_t id) {
    for (const CatalogueRow& row : Catalogue)
        if (row.Id == id) return PickText(row.English, row.Chinese);
    return {};
}

std::span<const WindowText> WindowTexts() {
    static const std::vector<WindowText> rows = [] {
        std::vector<WindowText> all(MainTexts().begin(), MainTexts().end());
        all.insert(all.end(), DialogTexts().begin(), DialogTexts().end());
        for (const auto& [window, sibling] : Siblings) AddSiblingRows(all, window, sibling);
        return all;
    }();
    return rows;
}

std::string_view TextOf(std::string_view window, std::string_view control) {
    static const auto index = IndexRows();
    const auto found = index.find({window, control});
    if (found == index.end()) return {};
    return PickText(found->second->English, found->second->Chinese);
}

void SaveLanguage() {
    SaveSetting(ApplicationTitle, "Tidemark_Language", "Language", std::to_string(UseEnglish));
}
