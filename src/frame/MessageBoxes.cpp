#include "frame/MessageBoxes.h"

#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "platform/SafeFile.h"

#include <filesystem>

void Complain(std::string_view text, std::string_view reason) {
    TheHost().Ask(std::string(text).append(reason), Buttons::Ok, MessageIcon::Exclamation);
}

bool MayOpenAnother(std::int16_t open) {
    if (open + 1 <= MaxDocuments) return true;
    Complain(PickText("Exceed maximum file numbers limit", "波形文件数目达到上限"));
    return false;
}

void TellSaveFault(int error) {
    Complain(PickText("The file could not be saved: ", "文件无法保存："), FileErrorText(error));
}

bool MayReplaceFile(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error)) return true;
    return TheHost().Ask(PickText("This file is existed,overwrite?", "该文件已存在，是否覆盖？"),
                         Buttons::YesNo, MessageIcon::Question) == Answer::Yes;
}

bool MayClose(const std::string& title, std::int16_t index, bool (*save)(std::int16_t index)) {
    const std::string question =
        UseEnglish == 1 ? "Save changes to " + title + " ?" : "是否保存对 " + title + " 的更改？";
    switch (TheHost().Ask(question, Buttons::YesNoCancel, MessageIcon::Question)) {
        case Answer::Yes:
            return save(index);
        case Answer::No:
            return true;
        default:
            return false;
    }
}
