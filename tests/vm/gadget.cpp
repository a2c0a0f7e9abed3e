// A USBTMC instrument on FunctionFS: vm_gadget FOLDER, where FOLDER is the mounted file system.
// Every bulk transfer opens with twelve bytes (USBTMC 1.0, tables 1 to 9):
//
//   0 MsgID   1 bTag   2 ~bTag   3 zero   4-7 size, least byte first   8 attributes (1: last)
//
// Messages:
//
//   *IDN?     who it is                        BLOCK n   n bytes of the pattern
//   GOT?      size of the data, and if right   HALF n    the same, silent after two packets
//   ABORTS?   answers that were aborted
//
// All else is data, which should be the pattern and has no answer. Two threads: control requests,
// and messages with their answers.
#include "Pattern.h"

#include <fcntl.h>
#include <linux/usb/functionfs.h>
#include <unistd.h>
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace {

constexpr std::size_t Packet = 512;   // Bulk packet at high speed, bytes
constexpr std::size_t Header = 12;    // bytes
constexpr std::size_t Piece = 65536;  // handed to an endpoint at once, whole packets
constexpr int AbortBulkIn = 3;        // class request, USBTMC 1.0, table 15
constexpr char Success = 0x01, NotInProgress = '\x81';

std::atomic<int> requestTag = 0;  // of the answer that the host waits for, 0 if none
std::atomic<int> aborts = 0;
std::string taken;

int control = -1, bulkOut = -1, bulkIn = -1;

struct __attribute__((packed)) Descriptors {
    usb_functionfs_descs_head_v2 Head;
    std::uint32_t Count;
    usb_interface_descriptor Interface;
    usb_endpoint_descriptor_no_audio Out, In;
};

bool Describe() {
    constexpr auto size = USB_DT_ENDPOINT_SIZE, type = USB_DT_ENDPOINT;
    constexpr auto bulk = USB_ENDPOINT_XFER_BULK;
    const Descriptors all{
        {FUNCTIONFS_DESCRIPTORS_MAGIC_V2, sizeof(Descriptors), FUNCTIONFS_HAS_HS_DESC},
        3,
        {USB_DT_INTERFACE_SIZE, USB_DT_INTERFACE, 0, 0, 2, USB_CLASS_APP_SPEC, 3, 1, 0},
        {size, type, 1 | USB_DIR_OUT, bulk, Packet, 0},
        {size, type, 2 | USB_DIR_IN, bulk, Packet, 0}};
    const usb_functionfs_strings_head texts{FUNCTIONFS_STRINGS_MAGIC, sizeof texts, 0, 0};
    return write(control, &all, sizeof all) > 0 && write(control, &texts, sizeof texts) > 0;
}

std::string AnswerTo(const std::string& message) {
    if (message == "*IDN?") return "TideMark,VM,VM0001,1.0\n";
    if (message == "ABORTS?") return std::to_string(aborts);
    if (message == "GOT?")
        return std::to_string(taken.size()) + (taken == Pattern(taken.size()) ? "" : " wrong");
    if (message.starts_with("BLOCK ") || message.starts_with("HALF "))
        return Pattern(std::stoul(message.substr(message.find(' '))));
    taken = message;
    return {};
}

/// Reads until `transfer` has `size` bytes; false if the host is gone before.
bool Receive(std::string& transfer, std::size_t size) {
    std::string part;
    while (transfer.size() < size) {
        // Whole packets, or the endpoint drops what does not fit.
        part.resize(std::min((size - transfer.size() + Packet - 1) / Packet * Packet, Piece));
        const ssize_t got = read(bulkOut, part.data(), part.size());
        if (got <= 0) return false;
        transfer.append(part, 0, static_cast<std::size_t>(got));
    }
    return true;
}

bool Send(const char* bytes, std::size_t count) {
    return write(bulkIn, bytes, count) >= 0;
}

/// A transfer ends with a short packet, an empty one behind a full one.
void SendAnswer(char tag, const std::string& answer, bool half) {
    const auto size = static_cast<std::uint32_t>(answer.size());
    std::string transfer{'\2', tag, static_cast<char>(~tag), '\0'};
    transfer.append(reinterpret_cast<const char*>(&size), sizeof size);
    transfer += std::string{'\1', '\0', '\0', '\0'} + answer;
    if (half) transfer.resize(2 * Packet);
    for (std::size_t at = 0; at < transfer.size(); at += Piece)
        if (!Send(transfer.data() + at, std::min(Piece, transfer.size() - at))) return;
    if (half) return;
    if (transfer.size() % Packet == 0) Send("", 0);
    requestTag = 0;
}

void ServeMessages() {
    bool half = false;
    for (std::string answer;;) {
        std::string transfer;
        if (!Receive(transfer, Header)) continue;
        std::uint32_t size = 0;
        std::memcpy(&size, transfer.data() + 4, sizeof size);
        if (transfer[0] == 2) {
            requestTag = static_cast<std::uint8_t>(transfer[1]);
            if (!answer.empty()) SendAnswer(transfer[1], answer.substr(0, size), half);
            answer.clear();
        } else if (Receive(transfer, (Header + size + 3) / 4 * 4)) {  // padded to four bytes
            const std::string message = transfer.substr(Header, size);
            half = message.starts_with("HALF ");
            answer = AnswerTo(message);
        }
    }
}

/// Every class request but the abort is answered by success and zeros.
void ServeControl() {
    usb_functionfs_event event{};
    while (read(control, &event, sizeof event) == static_cast<ssize_t>(sizeof event)) {
        if (event.type != FUNCTIONFS_SETUP) continue;
        const auto& [type, request, value, index, length] = event.u.setup;
        std::string reply(std::max<std::size_t>(length, 2), '\0');
        reply[0] = Success;
        if (request == AbortBulkIn) {
            // FunctionFS counts the endpoints in the order of their descriptors, from 1.
            const int tag = value & 0xFF;
            const bool underWay = index == 2 && tag != 0 && requestTag.exchange(0) == tag;
            reply = {underWay ? Success : NotInProgress, static_cast<char>(tag)};
            aborts += underWay ? 1 : 0;
            // The short packet up to which the host reads. It does so behind this request.
            if (underWay) std::thread([] { Send("", 0); }).detach();
        }
        if (write(control, reply.data(), std::min<std::size_t>(reply.size(), length)) < 0)
            std::perror("vm_gadget: answer to a control request");
    }
}

}  // namespace

int main(int count, char** arguments) {
    const std::string folder = count > 1 ? arguments[1] : ".";
    control = open((folder + "/ep0").c_str(), O_RDWR);
    const bool described = Describe();
    bulkOut = open((folder + "/ep1").c_str(), O_RDWR);
    bulkIn = open((folder + "/ep2").c_str(), O_RDWR);
    if (!described || bulkOut < 0 || bulkIn < 0) {
        std::perror("vm_gadget: endpoints");
        return 1;
    }
    std::thread(ServeMessages).detach();
    ServeControl();
    std::_Exit(1);
}
