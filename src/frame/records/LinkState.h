#pragma once
// The link to the instrument: settings, transport and connection. One record, `Link`.
#include "frame/Flag.h"

#include <array>
#include <cstdint>
#include <string>

inline constexpr std::int16_t MaxUsbResources = 11;
inline constexpr std::uint8_t UsbLink = 0, GpibLink = 1, SerialLink = 2;  // IOType

struct LinkState {
    // Settings, saved by the OK of the communication dialog
    std::uint8_t IOType = 0;           // UsbLink and so on; any other value means USB
    std::string PrimaryAddress = "1";  // GPIB
    std::string Port = "COM1";         // RS232: the last character is the number
    std::int32_t BaudRate = 9600;      // RS232, bits per second
    std::uint8_t ParityDataBits = 0;   // list index; the line always has no parity, 8 bits
    std::string Hand_Shake = "None";   // kept; the line always has no handshake

    // USB resources of the last scan
    std::array<std::string, MaxUsbResources> UsbResourceList;
    std::int16_t UsbResourceIndex = 0;  // 0..10

    // Transport
    Flag CommError = false;      // the last exchange failed; every flow tests it between its steps
    Flag RS232Ready = false;     // the port could be opened
    Flag ReadPending = false;    // RS232: a reply line is awaited
    Flag ParseFinished = false;  // RS232: the instrument has taken a data or store command in
    std::string ReadBuffer;      // RS232: the line so far
    std::int16_t ReadTicks = 0;  // tenths of a second since the last input, 0..32767

    // Connection
    Flag IsConnected = false;
    std::uint8_t ConnectedModel = 0;  // 0 KT1100, 1 KT2200, 2 KT3300
    Flag OldFirmwareKT1100 = false;   // at or below the family's threshold
    Flag OldFirmwareKT2200 = false;
    Flag OldFirmwareKT3300 = false;
    std::uint8_t StoreLocationCount = 4;  // 4, or 10 with ModelVariant

    // Choices that outlive the send dialogs
    std::uint8_t StoreTarget = 1;       // 1 non-volatile, 0 volatile
    std::uint8_t DigitStoreTarget = 1;  // the same for digital waves
    Flag BigWaveAccepted = false;       // the user has let a wave above 131072 dots pass once

    // Work under way, see LinkWork
    std::int16_t WorkDepth = 0;  // flows inside one another; 0: the link is idle
    Flag Cancelled = false;      // the user has ended the work: each further step fails
    Flag SendBusy = false;       // a transfer runs: the dialog stays open, buttons do nothing
    Flag ProgressShown = false;
    std::int16_t ProgressValue = 0;  // 0..100
    std::string Awaited;             // what the work waits for, for the user
};
