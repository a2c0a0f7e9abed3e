#pragma once
// The one place where the link waits. A flow stands inside a LinkWork: until its end input reaches
// only the button that cancels it. After a cancel no pause lasts and each exchange fails, so that
// the flow runs to its end by its own tests of CommError.
#include "frame/records/LinkState.h"

#include <string_view>

extern LinkState Link;

inline constexpr std::string_view LinkApplication = "KT3300Arb";  // its settings in the store

class LinkWork {
public:
    /// Begins a flow, or joins the one under way. `awaited` tells the user what goes on.
    explicit LinkWork(std::string_view awaited);
    ~LinkWork();
    LinkWork(const LinkWork&) = delete;
    LinkWork& operator=(const LinkWork&) = delete;
};

/// Ends the waits of the work under way and sets CommError. Nothing happens while the link is idle.
void CancelLinkWork();

/// Tells the user what the work waits for.
void ShowAwaited(std::string_view text);

/// Shows a transfer's share of 0..100, held to that range.
void ShowTransfer(std::int64_t percent);
/// Hides the bar and ends SendBusy.
void EndTransfer();

/// Pauses, with windows repainted; not at all after a cancel.
void Sleep(std::int32_t milliseconds);
/// Lets pending events run.
void Pump();
/// Waits until the instrument has taken a data or store command in, and clears ParseFinished. There
/// is no time-out: the user can cancel.
void AwaitParseFinished();

/// Clears CommError for the next exchange; false, with CommError set, after a cancel.
bool BeginExchange();

/// The connection is lost: clears IsConnected and shows that. Sends nothing.
void DropConnection();
