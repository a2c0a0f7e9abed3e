#include "digital/DialogAnswers.h"

#include "frame/LoadLanguageCode.h"
#include "frame/Narrow.h"
#include "frame/StringFunc.h"
#include "platform/Host.h"

DialogEnd AskAgain(std::string_view text) {
    const Answer answer = TheHost().Ask(text, Buttons::OkCancel, MessageIcon::Information,
                                        PickText("Information", "信息"));
    return answer == Answer::Ok ? DialogEnd::Stay : DialogEnd::Close;
}

DialogEnd RefuseEmpty() {
    return AskAgain(PickText("You have input the empty value , Please input again!",
                             "输入不能为空，请重新输入！"));
}

std::int32_t WholeNumber(std::string_view digits) {
    // Digits that are no number are too many of them.
    return RoundToInt(TextToNumber(digits).value_or(1e10));
}

std::string HoldDigits(std::string_view typed, std::int32_t largest) {
    return WholeNumber(typed) > largest ? std::to_string(largest) : std::string(typed);
}
