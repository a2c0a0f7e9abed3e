#pragma once
// The instrument library as a table of the eight published operations that the USB transport needs.
// The types have the widths of the published C interface; only a negative status is a failure.
#include <cstdint>
#include <functional>

using ViStatus = std::int32_t;
using ViSession = std::uint32_t;  // resource manager, instrument or find list; 0 is none

inline constexpr ViStatus VisaSuccess = 0;
inline constexpr ViStatus VisaEndBySize = 0x3FFF0006;  // the buffer is full, the message goes on
inline constexpr auto VisaSystemError = static_cast<ViStatus>(0xBFFF0000U);
inline constexpr auto VisaNoSession = static_cast<ViStatus>(0xBFFF000EU);  // not a valid session
inline constexpr auto VisaNotFound = static_cast<ViStatus>(0xBFFF0011U);   // no such resource
inline constexpr auto VisaTimeOut = static_cast<ViStatus>(0xBFFF0015U);
inline constexpr auto VisaBusy = static_cast<ViStatus>(0xBFFF0072U);  // another program has it
inline constexpr auto VisaNotSupported = static_cast<ViStatus>(0xBFFF0067U);
inline constexpr auto VisaIoError = static_cast<ViStatus>(0xBFFF003EU);
inline constexpr auto VisaConnectionLost = static_cast<ViStatus>(0xBFFF00A6U);
inline constexpr auto VisaNoPermission =
    static_cast<ViStatus>(0xBFFF00A8U);  // the user has no rights

inline constexpr std::uint32_t VisaTimeOutValue = 0x3FFF001AU;  // attribute, milliseconds
inline constexpr std::uint32_t VisaForever = 0xFFFFFFFF;        // a time-out without end
inline constexpr std::size_t VisaNameLength = 256;              // of a resource, closing zero too

struct VisaApi {
    std::function<ViStatus(ViSession* manager)> viOpenDefaultRM;
    /// The first resource into `name` (VisaNameLength bytes), their number into `count`.
    std::function<ViStatus(ViSession manager, const char* expression, ViSession* list,
                           std::uint32_t* count, char* name)>
        viFindRsrc;
    std::function<ViStatus(ViSession list, char* name)> viFindNext;
    std::function<ViStatus(ViSession manager, const char* name, std::uint32_t mode,
                           std::uint32_t timeOut, ViSession* instrument)>
        viOpen;
    std::function<ViStatus(ViSession instrument, std::uint32_t attribute, std::uint64_t value)>
        viSetAttribute;
    std::function<ViStatus(ViSession instrument, const std::uint8_t* bytes, std::uint32_t count,
                           std::uint32_t* written)>
        viWrite;
    std::function<ViStatus(ViSession instrument, std::uint8_t* bytes, std::uint32_t count,
                           std::uint32_t* read)>
        viRead;
    /// Closing a resource manager closes all that was opened through it.
    std::function<ViStatus(ViSession session)> viClose;
};

/// The installed table; until start-up or a test sets it every entry fails with VisaSystemError.
VisaApi& TheVisa();
