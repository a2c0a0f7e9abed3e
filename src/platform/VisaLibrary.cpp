#include "platform/VisaLibrary.h"

#include "platform/SimulatorVisa.h"
#include "platform/UsbTmcVisa.h"

#include <dlfcn.h>
#include <array>
#include <optional>

// The published interface is plain C. Its attribute values are as wide as an address; everything
// else has the widths of the table.

namespace {

// The first is what an installed library registers with the loader, the second what its package
// for developers adds, the others are names of no maker's own. LD_LIBRARY_PATH puts another library
// before the system's.
constexpr std::array LibraryNames = {"libvisa.so.0", "libvisa.so", "libvisa64.so",
                                     "libivivisa.so.0", "libivivisa.so"};

template <typename... Arguments>
bool Bind(void* library, const char* name, std::function<ViStatus(Arguments...)>& entry) {
    void* symbol = dlsym(library, name);
    if (symbol == nullptr) return false;
    entry = reinterpret_cast<ViStatus (*)(Arguments...)>(symbol);
    return true;
}

bool BindAll(void* library, VisaApi& api) {
    std::function<ViStatus(ViSession, std::uint32_t, std::uintptr_t)> setAttribute;
    const bool all =
        Bind(library, "viOpenDefaultRM", api.viOpenDefaultRM) &&
        Bind(library, "viFindRsrc", api.viFindRsrc) &&
        Bind(library, "viFindNext", api.viFindNext) && Bind(library, "viOpen", api.viOpen) &&
        Bind(library, "viSetAttribute", setAttribute) && Bind(library, "viWrite", api.viWrite) &&
        Bind(library, "viRead", api.viRead) && Bind(library, "viClose", api.viClose);
    api.viSetAttribute = [=](ViSession session, std::uint32_t attribute, std::uint64_t value) {
        return setAttribute(session, attribute, static_cast<std::uintptr_t>(value));
    };
    return all;
}

// The library that is taken stays loaded: it may have threads of its own.
std::optional<VisaApi> SystemVisa() {
    for (const char* name : LibraryNames) {
        void* library = dlopen(name, RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr) continue;
        VisaApi api;
        if (BindAll(library, api)) return api;
        dlclose(library);
    }
    return std::nullopt;
}

}  // namespace

VisaApi LoadVisa() {
    const auto system = SystemVisa();
    return AddSimulators(system ? *system : UsbTmcVisa());
}
