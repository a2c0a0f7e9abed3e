#include "link/CommunicateFunBox.h"

#include "link/GPIBFuncBox.h"
#include "link/RS232FuncBox.h"
#include "link/USB_FuncBox.h"

namespace {

struct Transport {
    void (*SendText)(std::string_view);
    void (*SendBlock)(std::span<const std::uint8_t>);
    std::string (*QueryText)(std::string_view);
};

void SendNoBlock(std::span<const std::uint8_t>) {}

// By IOType.
constexpr Transport Transports[] = {
    {UsbSendText, UsbSendBlock, UsbQueryText},
    {GPIBSendText, GPIBSendBlock, GPIBQueryText},
    {RS232SendText, SendNoBlock, RS232QueryText},
};

const Transport& ChosenTransport() {
    return Transports[Link.IOType < std::size(Transports) ? Link.IOType : 0];
}

}  // namespace

void SendText(std::string_view text) {
    ChosenTransport().SendText(text);
}

void SendBlock(std::span<const std::uint8_t> bytes) {
    ChosenTransport().SendBlock(bytes);
}

std::string QueryText(std::string_view text) {
    return ChosenTransport().QueryText(text);
}

std::string WithArgument(std::string_view command, std::string_view argument) {
    return std::string(command).append(" ").append(argument);
}

bool IsEmptyReply(std::string_view reply) {
    return reply.find_first_not_of('\0') == std::string_view::npos;
}

std::vector<std::string> QuotedNames(std::string_view reply, std::size_t most) {
    std::vector<std::string> names;
    while (names.size() < most) {
        const std::size_t open = reply.find('"');
        if (open == std::string_view::npos) break;
        const std::size_t close = reply.find('"', open + 1);
        if (close == std::string_view::npos) break;
        if (close > open + 1) names.emplace_back(reply.substr(open + 1, close - open - 1));
        reply.remove_prefix(close + 1);
    }
    return names;
}
