#include "platform/SimulatorVisa.h"

#include "platform/SimulatorLink.h"
#include "platform/SimulatorPlace.h"
#include "platform/VisaNames.h"

#include <array>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace {

// Instrument libraries count their sessions from below.
constexpr ViSession FirstNumber = 0x7F000000;

struct OpenSimulator {
    ViSession Manager = 0;
    SimulatorLink Link;
};

struct MixedSessions {
    VisaApi Base;
    ViSession Last = FirstNumber;
    std::map<ViSession, FoundNames> Lists;
    std::map<ViSession, OpenSimulator> Simulators;
};

// A manager of our own stands for a base that has none.
bool IsOwn(ViSession session) {
    return session > FirstNumber;
}

ViStatus OpenManager(MixedSessions& sessions, ViSession* manager) {
    const ViStatus status = sessions.Base.viOpenDefaultRM(manager);
    if (status >= 0 || SimulatorResources().empty()) return status;
    *manager = ++sessions.Last;
    return VisaSuccess;
}

// Every name of the base; a negative status means none.
ViStatus CollectNames(const VisaApi& base, ViSession manager, const char* expression,
                      std::vector<std::string>& names) {
    if (IsOwn(manager)) return VisaNotFound;
    ViSession list = 0;
    std::uint32_t count = 0;
    std::array<char, VisaNameLength> name{};
    const ViStatus status = base.viFindRsrc(manager, expression, &list, &count, name.data());
    if (status < 0) return status;
    for (std::uint32_t i = 0; i < count; ++i) {
        if (i > 0 && base.viFindNext(list, name.data()) < 0) break;
        name.back() = '\0';
        names.emplace_back(name.data());
    }
    base.viClose(list);
    return status;
}

ViStatus FindNext(MixedSessions& sessions, ViSession list, char* name) {
    const auto found = sessions.Lists.find(list);
    if (found == sessions.Lists.end()) return sessions.Base.viFindNext(list, name);
    return NextName(found->second, name);
}

ViStatus FindFirst(MixedSessions& sessions, ViSession manager, const char* expression,
                   ViSession* list, std::uint32_t* count, char* name) {
    FoundNames found{manager, {}, 0};  // the base's names first
    const ViStatus status = CollectNames(sessions.Base, manager, expression, found.Names);
    for (std::string& one : SimulatorResources()) {
        if (MatchesExpression(expression, one)) found.Names.push_back(std::move(one));
    }
    if (count != nullptr) *count = static_cast<std::uint32_t>(found.Names.size());
    if (found.Names.empty()) return status < 0 ? status : VisaNotFound;
    const ViSession number = ++sessions.Last;
    sessions.Lists[number] = std::move(found);
    if (list != nullptr) *list = number;
    return FindNext(sessions, number, name);
}

ViStatus OpenByName(MixedSessions& sessions, ViSession manager, const char* name,
                    std::uint32_t mode, std::uint32_t timeOut, ViSession* instrument) {
    const std::string socket = SimulatorSocket(name);
    if (socket.empty() && !IsOwn(manager)) {
        return sessions.Base.viOpen(manager, name, mode, timeOut, instrument);
    }
    *instrument = 0;
    OpenSimulator opened{manager, {socket}};
    opened.Link.Connection = socket.empty() ? -1 : ConnectSimulator(socket);
    if (opened.Link.Connection < 0) return VisaNotFound;
    *instrument = ++sessions.Last;
    sessions.Simulators[*instrument] = std::move(opened);
    return VisaSuccess;
}

ViStatus SetAttribute(MixedSessions& sessions, ViSession session, std::uint32_t attribute,
                      std::uint64_t value) {
    const auto found = sessions.Simulators.find(session);
    if (found == sessions.Simulators.end()) {
        return sessions.Base.viSetAttribute(session, attribute, value);
    }
    if (attribute != VisaTimeOutValue) return VisaNotSupported;
    found->second.Link.TimeOut = static_cast<std::uint32_t>(value);
    return VisaSuccess;
}

// `own` on a simulator's link, with a count that may be missing, or else the entry of the base.
template <typename Base, typename Own, typename Byte>
ViStatus Transfer(MixedSessions& sessions, ViSession session, Byte* bytes, std::uint32_t count,
                  std::uint32_t* moved, Base base, Own own) {
    const auto found = sessions.Simulators.find(session);
    if (found == sessions.Simulators.end()) return base(session, bytes, count, moved);
    std::uint32_t unasked = 0;
    return own(found->second.Link, {bytes, count}, moved != nullptr ? *moved : unasked);
}

ViStatus Close(MixedSessions& sessions, ViSession session) {
    if (sessions.Lists.erase(session) != 0) return VisaSuccess;
    if (auto found = sessions.Simulators.extract(session)) {
        LeaveSimulator(found.mapped().Link);
        return VisaSuccess;
    }
    const auto isOfManager = [=](const auto& row) { return row.second.Manager == session; };
    for (auto& row : sessions.Simulators) {
        if (isOfManager(row)) LeaveSimulator(row.second.Link);
    }
    std::erase_if(sessions.Simulators, isOfManager);
    std::erase_if(sessions.Lists, isOfManager);
    return IsOwn(session) ? VisaSuccess : sessions.Base.viClose(session);
}

}  // namespace

VisaApi AddSimulators(VisaApi base) {
    const auto sessions = std::make_shared<MixedSessions>();
    sessions->Base = std::move(base);
    VisaApi api;
    api.viOpenDefaultRM = [=](ViSession* manager) { return OpenManager(*sessions, manager); };
    api.viFindRsrc = [=](ViSession manager, const char* expression, ViSession* list,
                         std::uint32_t* count, char* name) {
        return FindFirst(*sessions, manager, expression, list, count, name);
    };
    api.viFindNext = [=](ViSession list, char* name) { return FindNext(*sessions, list, name); };
    api.viOpen = [=](ViSession manager, const char* name, std::uint32_t mode, std::uint32_t timeOut,
                     ViSession* instrument) {
        return OpenByName(*sessions, manager, name, mode, timeOut, instrument);
    };
    api.viSetAttribute = [=](ViSession session, std::uint32_t attribute, std::uint64_t value) {
        return SetAttribute(*sessions, session, attribute, value);
    };
    api.viWrite = [=](ViSession session, const std::uint8_t* bytes, std::uint32_t count,
                      std::uint32_t* written) {
        return Transfer(*sessions, session, bytes, count, written, sessions->Base.viWrite,
                        TellSimulator);
    };
    api.viRead = [=](ViSession session, std::uint8_t* bytes, std::uint32_t count,
                     std::uint32_t* read) {
        return Transfer(*sessions, session, bytes, count, read, sessions->Base.viRead,
                        AskSimulator);
    };
    api.viClose = [=](ViSession session) { return Close(*sessions, session); };
    return api;
}
