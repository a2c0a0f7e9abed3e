#pragma once
// The operations of the link, whatever the transport; blocks are read over USB only (USB_FuncBox).
// A failure sets Link.CommError, after the transport's own message.
#include "link/LinkWork.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Sends a command.
void SendText(std::string_view text);
/// Sends a binary block; USB only, nothing happens on the others.
void SendBlock(std::span<const std::uint8_t> bytes);
/// Sends a query and returns the reply: on USB always 200 characters with zero bytes behind, on
/// RS232 the line, on GPIB and after a failure an empty text.
std::string QueryText(std::string_view text);
/// A command, a blank and its argument.
std::string WithArgument(std::string_view command, std::string_view argument);
/// True for a reply that holds nothing but zero bytes.
bool IsEmptyReply(std::string_view reply);

/// The names of a quoted list, in order, `most` at the most; empty ones and one without its closing
/// quote are left out.
std::vector<std::string> QuotedNames(std::string_view reply, std::size_t most);
