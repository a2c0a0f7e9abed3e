#pragma once
// The USBTMC instruments that are plugged into this machine.
#include "platform/UsbTmcLink.h"

#include <string>
#include <string_view>
#include <vector>

struct libusb_context;

/// The resource name of each, also of those that the user may not open.
std::vector<std::string> ListUsbTmc(libusb_context* context);

/// Opens an instrument by its name and takes its interface from the kernel's own driver, if that
/// holds it. VisaNotFound, VisaNoPermission, VisaBusy (another program has it) or VisaIoError.
ViStatus OpenUsbTmc(libusb_context* context, std::string_view name, UsbTmcLink& link);

/// Gives the interface back, to the kernel's driver too, and closes.
void CloseUsbTmc(UsbTmcLink& link);
