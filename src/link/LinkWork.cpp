#include "link/LinkWork.h"

#include "platform/Host.h"

#include <algorithm>

LinkState Link;

LinkWork::LinkWork(std::string_view awaited) {
    if (Link.WorkDepth++ == 0) {
        Link.Cancelled = Link.CommError = false;
        TheHost().HoldInput(true);
    }
    ShowAwaited(awaited);
}

LinkWork::~LinkWork() {
    if (--Link.WorkDepth > 0) return;
    Link.Cancelled = false;
    Link.Awaited.clear();
    TheHost().HoldInput(false);
    TheHost().ShowLink();
}

void CancelLinkWork() {
    if (Link.WorkDepth == 0) return;
    Link.Cancelled = Link.CommError = true;
}

void ShowAwaited(std::string_view text) {
    Link.Awaited = text;
    TheHost().ShowLink();
}

void ShowTransfer(std::int64_t percent) {
    Link.ProgressShown = true;
    Link.ProgressValue = static_cast<std::int16_t>(std::clamp<std::int64_t>(percent, 0, 100));
    TheHost().ShowLink();
}

void EndTransfer() {
    Link.ProgressShown = Link.SendBusy = false;
    TheHost().ShowLink();
}

void Sleep(std::int32_t milliseconds) {
    if (!Link.Cancelled) TheHost().Wait(milliseconds);
}

void Pump() {
    TheHost().Pump();
}

void AwaitParseFinished() {
    while (!Link.ParseFinished && !Link.Cancelled) TheHost().AwaitEvent();
    Link.ParseFinished = false;
}

bool BeginExchange() {
    Link.CommError = Link.Cancelled;
    return !Link.CommError;
}

void DropConnection() {
    if (!Link.IsConnected) return;
    Link.IsConnected = false;
    TheHost().ShowLink();
    TheHost().RefreshCommands();
}
