#include "platform/Host.h"

Host& TheHost() {
    static Host host = {
        .ShowBox = [](std::string_view, Buttons, MessageIcon,
                      std::string_view) { return Answer::Cancel; },
        .ChooseFile = [](const FileChoice&) { return std::string(); },
        .ChooseColour = [](std::string_view, std::uint32_t) -> std::optional<std::uint32_t> {
            return std::nullopt;
        },
        .RunReport = [](const Report&, bool) { return true; },
        .PrinterResolution = [] { return 600; },
        .SetUpPrinter = [] {},
        .ShowHelp = [](std::string_view) {},
        .RunDialog = [](std::string_view, std::int16_t) { return false; },
        .OpenWindow = [](std::int16_t) {},
        .ActiveWindowTag = [] { return std::int16_t{-1}; },
        .ShowPlot = [](std::int16_t) {},
        .ShowTitle = [](std::int16_t) {},
        .RefreshCommands = [] {},
        .ApplyLanguage = [] {},
        .ShowStatusText = [](std::string_view, std::string_view) {},
        .ShowEntries = [](std::int16_t) {},
        .PopupMenu = [](std::string_view) {},
        .ShowProgress = [](std::int64_t, std::int64_t) {},
        .Wait = [](std::int32_t) {},
        .Pump = [] {},
        .AwaitEvent = [] {},
        .HoldInput = [](bool) {},
        .ShowLink = [] {},
        .ArrangeWindows = [](WindowArrangement) {},
        .ShowEditor = [] {},
        .CloseMainWindow = [] {},
    };
    return host;
}
