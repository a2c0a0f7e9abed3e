// vm_client UDC: the editor's own USBTMC client against the kernel's USB stack. The instrument is
// gadget.cpp, on a host controller that the kernel plays; the file UDC plugs it in. Prints a line
// for each check; exit status 1 if one failed. As in the editor every exchange has a session of its
// own, and the kernel's driver takes the interface back in between.
#include "Pattern.h"
#include "platform/UsbTmcVisa.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* Name = "USB0::0x1209::0x000A::VM0001::INSTR";
constexpr const char* Node = "/dev/usbtmc0";  // there while the kernel's driver has the interface
constexpr const char* Identity = "TideMark,VM,VM0001,1.0\n";
constexpr std::uint32_t Megabyte = 1048576;

const VisaApi visa = UsbTmcVisa();
std::uint64_t patience = 5000;  // milliseconds
int failures = 0;

struct Reply {
    ViStatus Status = VisaSystemError;
    std::string Bytes;
};

void Check(bool good, const std::string& what, const std::string& found = "") {
    failures += good ? 0 : 1;
    std::printf("%s %s%s%s\n", good ? "ok    " : "FAILED", what.c_str(), good ? "" : ": ",
                good ? "" : found.c_str());
}

std::string Told(const Reply& reply) {
    char text[64];
    std::snprintf(text, sizeof text, "status %08X, %zu bytes ", static_cast<unsigned>(reply.Status),
                  reply.Bytes.size());
    return text + reply.Bytes.substr(0, 60);
}

/// Opens the instrument, runs `exchange` on it and closes. The status of what failed first.
template <typename Exchange>
ViStatus InSession(Exchange exchange) {
    ViSession manager = 0, instrument = 0;
    ViStatus status = visa.viOpenDefaultRM(&manager);
    if (status < 0) return status;
    status = visa.viOpen(manager, Name, 0, 0, &instrument);
    if (status >= 0) {
        visa.viSetAttribute(instrument, VisaTimeOutValue, patience);
        status = exchange(instrument);
        visa.viClose(instrument);
    }
    visa.viClose(manager);
    return status;
}

ViStatus Write(const std::string& text) {
    return InSession([&](ViSession instrument) {
        std::uint32_t written = 0;
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
        const auto count = static_cast<std::uint32_t>(text.size());
        const ViStatus status = visa.viWrite(instrument, bytes, count, &written);
        return status >= 0 && written != count ? VisaSystemError : status;
    });
}

Reply Read() {
    Reply reply;
    reply.Status = InSession([&](ViSession instrument) {
        std::uint32_t count = 0;
        visa.viWrite(instrument, nullptr, 0, &count);  // the editor writes nothing before it reads
        reply.Bytes.resize(Megabyte);
        auto* bytes = reinterpret_cast<std::uint8_t*>(reply.Bytes.data());
        const ViStatus status = visa.viRead(instrument, bytes, Megabyte, &count);
        reply.Bytes.resize(std::min(count, Megabyte));
        return status;
    });
    return reply;
}

Reply Query(const std::string& text) {
    const ViStatus status = Write(text);
    return status < 0 ? Reply{status, ""} : Read();
}

void CheckAnswer(const std::string& text, const std::string& wanted) {
    const Reply reply = Query(text);
    Check(reply.Status == VisaSuccess && reply.Bytes == wanted, text, Told(reply));
}

std::string FindAll() {
    ViSession manager = 0, list = 0;
    std::uint32_t count = 0;
    char name[VisaNameLength] = "";
    visa.viOpenDefaultRM(&manager);
    const ViStatus status = visa.viFindRsrc(manager, "?*", &list, &count, name);
    visa.viClose(manager);
    return status == VisaNotFound ? "nothing" : std::to_string(count) + " " + name;
}

void WaitFor(bool there, const char* what) {
    for (int i = 0; i < 100 && std::filesystem::exists(Node) != there; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    Check(std::filesystem::exists(Node) == there, what);
}

void CheckDriver() {
    WaitFor(true, "the kernel's driver has the instrument");
    Check(FindAll() == "1 " + std::string(Name), "find", FindAll());
    bool there = true;
    const ViStatus status = InSession([&](ViSession) {
        there = std::filesystem::exists(Node);
        return VisaSuccess;
    });
    Check(status >= 0 && !there, "open takes it from the kernel's driver");
    WaitFor(true, "close gives it back");
}

void CheckWrites() {
    // With the header of 12 bytes: one packet less four bytes, full, one more; what a wave takes.
    for (const std::size_t size : {1, 496, 500, 501, 1012, 65530, 1048576}) {
        const std::string text = std::to_string(size);
        Check(Write(Pattern(size)) == VisaSuccess, "write " + text);
        CheckAnswer("GOT?", text);
    }
}

void CheckReads() {
    for (const std::size_t size : {1, 499, 500, 501, 1012, 65524, 65536, 1048564, 1048576})
        CheckAnswer("BLOCK " + std::to_string(size), Pattern(size));
}

/// No answer, and one that breaks off; the instrument serves as before afterwards.
void CheckTimeOuts() {
    patience = 500;
    for (const std::string text : {"no question", "HALF 3000"}) {
        const auto start = Clock::now();
        const Reply reply = Query(text);
        const auto took = Clock::now() - start;
        Check(reply.Status == VisaTimeOut && took > std::chrono::milliseconds(400) &&
                  took < std::chrono::seconds(4),
              "time-out of " + text, Told(reply));
        CheckAnswer("*IDN?", Identity);
    }
    patience = 5000;
    CheckAnswer("ABORTS?", "2");
}

/// Pulls the plug while a read waits, and puts it in again.
void CheckPlug(const std::string& plug) {
    std::string controller;
    std::getline(std::ifstream(plug) >> std::ws, controller);
    Write("no question");
    std::thread puller([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        std::ofstream(plug) << "\n";
    });
    const auto start = Clock::now();
    const Reply lost = Read();
    const auto took = Clock::now() - start;
    puller.join();
    Check(lost.Status == VisaConnectionLost && took < std::chrono::seconds(3),
          "unplugged while reading", Told(lost));
    WaitFor(false, "the instrument is gone");
    Check(Write("*IDN?") < 0, "open without an instrument is an error");
    Check(FindAll() == "nothing", "nothing is found", FindAll());
    std::ofstream(plug) << controller << "\n";
    WaitFor(true, "plugged in again");
    CheckAnswer("*IDN?", Identity);
}

}  // namespace

int main(int count, char** arguments) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const std::string plug = count > 1 ? arguments[1] : "";
    CheckDriver();
    CheckAnswer("*IDN?", Identity);
    CheckWrites();
    CheckReads();
    CheckTimeOuts();
    CheckPlug(plug);
    std::printf("vm: %d checks failed\n", failures);
    return failures ? 1 : 0;
}
