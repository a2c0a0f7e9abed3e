#include "platform/UsbTmcVisa.h"

#include "platform/UsbTmcDevices.h"
#include "platform/VisaNames.h"

#include <libusb.h>
#include <map>
#include <memory>

namespace {

struct OpenInstrument {
    ViSession Manager = 0;
    UsbTmcLink Link;
};

// One numbering for all three kinds, since viClose has to tell them apart.
struct UsbSessions {
    ViSession Last = 0;
    std::map<ViSession, libusb_context*> Managers;
    std::map<ViSession, FoundNames> Lists;
    std::map<ViSession, OpenInstrument> Instruments;
};

ViStatus OpenManager(UsbSessions& sessions, ViSession* manager) {
    *manager = 0;
    libusb_context* context = nullptr;
    if (libusb_init(&context) != 0) return VisaSystemError;
    *manager = ++sessions.Last;
    sessions.Managers[*manager] = context;
    return VisaSuccess;
}

ViStatus FindNext(UsbSessions& sessions, ViSession list, char* name) {
    const auto found = sessions.Lists.find(list);
    if (found == sessions.Lists.end()) return VisaNoSession;
    return NextName(found->second, name);
}

ViStatus FindFirst(UsbSessions& sessions, ViSession manager, const char* expression,
                   ViSession* list, std::uint32_t* count, char* name) {
    const auto found = sessions.Managers.find(manager);
    if (found == sessions.Managers.end()) return VisaNoSession;
    FoundNames names{manager, ListUsbTmc(found->second), 0};
    std::erase_if(names.Names,
                  [&](const std::string& one) { return !MatchesExpression(expression, one); });
    if (count != nullptr) *count = static_cast<std::uint32_t>(names.Names.size());
    if (names.Names.empty()) return VisaNotFound;
    const ViSession number = ++sessions.Last;
    sessions.Lists[number] = std::move(names);
    const ViStatus status = FindNext(sessions, number, name);
    if (list != nullptr) *list = number;
    return status;
}

ViStatus OpenByName(UsbSessions& sessions, ViSession manager, const char* name,
                    ViSession* instrument) {
    *instrument = 0;
    const auto found = sessions.Managers.find(manager);
    if (found == sessions.Managers.end()) return VisaNoSession;
    OpenInstrument opened{manager, {}};
    const ViStatus status = OpenUsbTmc(found->second, name, opened.Link);
    if (status < 0) return status;
    *instrument = ++sessions.Last;
    sessions.Instruments[*instrument] = opened;
    return status;
}

ViStatus SetAttribute(UsbSessions& sessions, ViSession instrument, std::uint32_t attribute,
                      std::uint64_t value) {
    const auto found = sessions.Instruments.find(instrument);
    if (found == sessions.Instruments.end()) return VisaNoSession;
    if (attribute != VisaTimeOutValue) return VisaNotSupported;
    found->second.Link.TimeOut = static_cast<std::uint32_t>(value);
    return VisaSuccess;
}

ViStatus Close(UsbSessions& sessions, ViSession session) {
    if (sessions.Lists.erase(session) != 0) return VisaSuccess;
    if (auto found = sessions.Instruments.extract(session)) {
        CloseUsbTmc(found.mapped().Link);
        return VisaSuccess;
    }
    const auto manager = sessions.Managers.extract(session);
    if (!manager) return VisaNoSession;
    const auto isOfManager = [=](const auto& row) { return row.second.Manager == session; };
    for (auto& row : sessions.Instruments) {
        if (isOfManager(row)) CloseUsbTmc(row.second.Link);
    }
    std::erase_if(sessions.Instruments, isOfManager);
    std::erase_if(sessions.Lists, isOfManager);
    libusb_exit(manager.mapped());
    return VisaSuccess;
}

// Runs `act` on the link of an open instrument, with a count that may be missing.
template <typename Act>
ViStatus Transfer(UsbSessions& sessions, ViSession instrument, std::uint32_t* count, Act act) {
    std::uint32_t unasked = 0;
    std::uint32_t& moved = count != nullptr ? *count : unasked;
    moved = 0;
    const auto found = sessions.Instruments.find(instrument);
    return found == sessions.Instruments.end() ? VisaNoSession : act(found->second.Link, moved);
}

}  // namespace

VisaApi UsbTmcVisa() {
    const auto sessions = std::make_shared<UsbSessions>();
    VisaApi api;
    api.viOpenDefaultRM = [=](ViSession* manager) { return OpenManager(*sessions, manager); };
    api.viFindRsrc = [=](ViSession manager, const char* expression, ViSession* list,
                         std::uint32_t* count, char* name) {
        return FindFirst(*sessions, manager, expression, list, count, name);
    };
    api.viFindNext = [=](ViSession list, char* name) { return FindNext(*sessions, list, name); };
    api.viOpen = [=](ViSession manager, const char* name, std::uint32_t, std::uint32_t,
                     ViSession* instrument) {
        return OpenByName(*sessions, manager, name, instrument);
    };
    api.viSetAttribute = [=](ViSession instrument, std::uint32_t attribute, std::uint64_t value) {
        return SetAttribute(*sessions, instrument, attribute, value);
    };
    api.viWrite = [=](ViSession instrument, const std::uint8_t* bytes, std::uint32_t count,
                      std::uint32_t* written) {
        return Transfer(*sessions, instrument, written,
                        [=](const UsbTmcLink& link, std::uint32_t& moved) {
                            return WriteMessage(link, {bytes, count}, moved);
                        });
    };
    api.viRead = [=](ViSession instrument, std::uint8_t* bytes, std::uint32_t count,
                     std::uint32_t* read) {
        return Transfer(*sessions, instrument, read,
                        [=](const UsbTmcLink& link, std::uint32_t& moved) {
                            return ReadMessage(link, {bytes, count}, moved);
                        });
    };
    api.viClose = [=](ViSession session) { return Close(*sessions, session); };
    return api;
}
