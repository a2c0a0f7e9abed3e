// A USBTMC instrument on FunctionFS: vm_gadget FOLDER, where FOLDER is the mounted file system.
// Every bulk transfer opens with twelve bytes (USBTMC 1.0, tables 1 to 9):
//
//   0 MsgID   1 bTag   2 ~bTag   3 zero   4-7 size, least byte first   8 attributes (1: last)
//
// What the host does against the rules of the class is noted. Messages:
//
//   *IDN?     who it is                        BLOCK n   n bytes of the pattern
//   GOT?      size of the data, and if right   HALF n    the same, silent after two packets
//   COUNTS?   aborts out and in, clears, and   SILENT?   no answer
//             what was wrong                   DEAF?     no answer, and no abort: wants a clear
//                                              STALL?    halts Bulk-IN
//
// All else is data, which should be the pattern. Data that begins with STUCK is not taken beyond
// its first packet until the host aborts. Three threads: control requests, Bulk-OUT, Bulk-IN.
#include "Pattern.h"

#include <fcntl.h>
#include <linux/usb/functionfs.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

namespace {

constexpr std::size_t Packet = 512;   // Bulk packet at high speed, bytes
constexpr std::size_t Header = 12;    // bytes
constexpr std::size_t Piece = 65536;  // handed to an endpoint at once, whole packets
constexpr char Success = 0x01, Pending = 0x02, Failed = '\x80', NotInProgress = '\x81';

std::mutex guard;  // of all that follows up to the files
std::condition_variable changed;
std::string answer, taken, faults;
std::string kind;                // first word of the last message
std::deque<std::string> outbox;  // transfers for Bulk-IN
int requestTag = 0;              // of the answer that the host waits for, 0 if none
int stuckTag = 0;                // of the Bulk-OUT transfer that is not taken further
int outAborts = 0, inAborts = 0, clears = 0;

int control = -1, bulkOut = -1, bulkIn = -1;
pthread_t sender{};  // the thread of Bulk-IN

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

void Expect(bool good, const char* what) {
    if (!good) faults.append(", ").append(what);
}

std::uint32_t SizeOf(const std::string& head) {
    std::uint32_t size = 0;
    for (std::size_t i = 7; i >= 4; --i) {
        size = size << 8 | static_cast<std::uint8_t>(head[i]);
    }
    return size;
}

/// I/O against an endpoint's direction halts it; so is a control request refused.
void Halt(int endpoint) {
    char byte = 0;
    const ssize_t done = endpoint == bulkOut ? write(endpoint, &byte, 1) : read(endpoint, &byte, 1);
    Expect(done < 0 && (errno == EBADMSG || errno == EL2HLT), "endpoint could not be halted");
}

void TakeMessage(const std::string& message) {
    kind = message.substr(0, message.find(' '));
    if (kind == "BLOCK" || kind == "HALF") {
        answer = Pattern(std::strtoul(message.c_str() + kind.size(), nullptr, 10));
    } else if (kind == "*IDN?") {
        answer = "TideMark,VM,VM0001,1.0\n";
    } else if (kind == "GOT?") {
        answer = std::to_string(taken.size()) + (taken == Pattern(taken.size()) ? "" : " wrong");
    } else if (kind == "COUNTS?") {
        answer = std::to_string(outAborts) + " " + std::to_string(inAborts) + " " +
                 std::to_string(clears) + faults;
    } else {
        answer.clear();
        taken = message;
    }
}

void AnswerRequest(int tag, std::size_t wanted) {
    if (kind == "STALL?") {
        Halt(bulkIn);
        kind.clear();
        return;
    }
    requestTag = tag;
    if (answer.empty()) return;
    const std::size_t size = std::min(wanted, answer.size());
    std::string transfer{'\2', static_cast<char>(tag), static_cast<char>(~tag), '\0'};
    for (int shift = 0; shift < 32; shift += 8) {
        transfer += static_cast<char>(size >> shift);
    }
    transfer += std::string{size == answer.size() ? '\1' : '\0', '\0', '\0', '\0'};
    outbox.push_back(transfer + answer.substr(0, size));
    answer.erase(0, size);
    changed.notify_all();
}

bool CheckHeader(const std::string& head, int lastTag) {
    if (head.size() < Header || (head[0] != 1 && head[0] != 2)) {
        Expect(false, "no header");
        return false;
    }
    const int tag = static_cast<std::uint8_t>(head[1]);
    Expect(tag != 0 && static_cast<std::uint8_t>(head[2]) == 255 - tag, "tag and its inverse");
    Expect(tag != lastTag, "tag used twice");
    Expect(SizeOf(head) != 0, "size of zero");
    Expect(head[3] == 0 && (head[8] & ~(head[0] & 1)) == 0 && head[10] == 0, "reserved bytes");
    Expect(head[0] == 1 || head.size() == Header, "request with data");
    return true;
}

/// Reads until `transfer` has `size` bytes; false if it ends before or runs over.
bool ReadRest(std::string& transfer, std::size_t size) {
    std::string part;
    for (bool more = true; more && transfer.size() < size;) {
        // Whole packets, or the endpoint drops what does not fit.
        part.resize(std::min((size - transfer.size() + Packet - 1) / Packet * Packet, Piece));
        const ssize_t got = read(bulkOut, part.data(), part.size());
        transfer.append(part, 0, static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        more = got == static_cast<ssize_t>(part.size());
    }
    return transfer.size() == size;
}

/// One message, whose first packet is `transfer`.
void TakeTransfer(std::unique_lock<std::mutex>& lock, std::string transfer) {
    if (transfer.compare(Header, 5, "STUCK") == 0) {
        stuckTag = static_cast<std::uint8_t>(transfer[1]);
        changed.wait(lock, [] { return stuckTag < 0; });
        Halt(bulkOut);  // as after every abort, until the host clears it
        stuckTag = 0;
        return;
    }
    lock.unlock();
    const std::size_t size = SizeOf(transfer);
    const bool whole = ReadRest(transfer, (Header + size + 3) / 4 * 4);  // padded to four bytes
    lock.lock();
    Expect(whole, "length of a transfer");
    Expect((transfer[8] & 1) != 0, "end of message");
    TakeMessage(transfer.substr(Header, size));
}

void ServeBulkOut() {
    std::string first;
    for (int lastTag = 0;;) {
        first.resize(Packet);
        const ssize_t got = read(bulkOut, first.data(), Packet);
        if (got <= 0) {  // unplugged, or an empty packet
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            continue;
        }
        first.resize(static_cast<std::size_t>(got));
        std::unique_lock lock(guard);
        if (!CheckHeader(first, lastTag)) continue;
        lastTag = static_cast<std::uint8_t>(first[1]);
        if (first[0] == 2) {
            AnswerRequest(lastTag, SizeOf(first));
        } else {
            TakeTransfer(lock, first);
        }
    }
}

/// A transfer ends with a short packet, an empty one behind a full one.
bool SendTransfer(const std::string& transfer, bool open) {
    for (std::size_t at = 0; at < transfer.size(); at += Piece) {
        if (write(bulkIn, transfer.data() + at, std::min(Piece, transfer.size() - at)) < 0)
            return false;
    }
    return open || transfer.size() % Packet != 0 || write(bulkIn, "", 0) == 0;
}

void ServeBulkIn() {
    for (std::unique_lock lock(guard);;) {
        changed.wait(lock, [] { return !outbox.empty(); });
        const std::string transfer = std::move(outbox.front());
        outbox.pop_front();
        const int tag = requestTag;
        const bool half = kind == "HALF";
        lock.unlock();
        const bool whole =
            SendTransfer(half ? transfer.substr(0, 2 * Packet) : transfer, half) && !half;
        lock.lock();
        requestTag = whole && requestTag == tag ? 0 : requestTag;
    }
}

void DropAnswer() {
    answer.clear();
    kind.clear();
    outbox.clear();
    requestTag = 0;
    pthread_kill(sender, SIGUSR1);  // ends a write that the host does not fetch
}

/// USBTMC 1.0, 4.2.1.2 and 4.2.1.4.
std::string AbortAnswer(int tag, int underWay) {
    const char status = underWay == 0 ? Failed : tag == underWay ? Success : NotInProgress;
    Expect(status != NotInProgress, "abort of another transfer");
    return {status, static_cast<char>(tag)};
}

/// The answer to a class request (USBTMC 1.0, table 15); empty to refuse it.
std::string AnswerControl(int request, int tag) {
    std::string reply;
    const char state = stuckTag < 0 ? Pending : Success;
    switch (request) {
        case 1:
            reply = AbortAnswer(tag, stuckTag);
            if (reply[0] != Success) return reply;
            ++outAborts;
            stuckTag = -1;
            return reply;
        case 3:
            if (kind == "DEAF?") return {};
            reply = AbortAnswer(tag, requestTag);
            if (reply[0] != Success) return reply;
            ++inAborts;
            DropAnswer();
            outbox.emplace_back();  // the short packet up to which the host reads
            return reply;
        case 2:
        case 4:
            return state + std::string(7, '\0');
        case 5:
            ++clears;
            stuckTag = stuckTag != 0 ? -1 : 0;
            DropAnswer();
            return {Success};
        case 6:
            return {state, '\0'};
        case 7:
            return std::string{Success, '\0', '\0', '\1'} + std::string(20, '\0');
        default:
            return {};
    }
}

void ServeControl() {
    usb_functionfs_event event{};
    while (read(control, &event, sizeof event) == static_cast<ssize_t>(sizeof event)) {
        if (event.type != FUNCTIONFS_SETUP) continue;
        const auto& [type, request, value, index, length] = event.u.setup;
        const std::lock_guard lock(guard);
        // FunctionFS counts the endpoints in the order of their descriptors, from 1.
        Expect(request > 4 || index == (request + 1) / 2, "abort on the other endpoint");
        const std::string reply = AnswerControl(request, value & 0xFF);
        changed.notify_all();
        if (reply.empty()) {
            Halt(control);
        } else if (write(control, reply.data(), std::min<std::size_t>(reply.size(), length)) < 0) {
            std::perror("vm_gadget: answer to a control request");
        }
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
    struct sigaction interrupt {};
    interrupt.sa_handler = [](int) {};
    sigaction(SIGUSR1, &interrupt, nullptr);
    std::thread receiving(ServeBulkOut), sending(ServeBulkIn);
    sender = sending.native_handle();
    ServeControl();
    std::_Exit(1);
}
