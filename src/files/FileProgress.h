#pragma once
// Progress of a long save or open, taken off the screen at the end however the work ends.
#include "platform/Host.h"

#include <cstdint>

// False in a thread that works in the background: the screen is none of its business.
inline thread_local bool ShowsProgress = true;

struct FileProgress {
    static constexpr std::int32_t Step = 65536;  // dots between two reports
    std::int32_t Total = 0;                      // dots; up to one step nothing is reported

    explicit FileProgress(std::int32_t total) : Total(ShowsProgress ? total : 0) {}
    FileProgress(const FileProgress&) = delete;
    FileProgress& operator=(const FileProgress&) = delete;
    ~FileProgress() {
        if (Total > Step) TheHost().ShowProgress(0, 0);
    }
};

/// To be called for every dot, before the work on it.
inline void ReportDot(const FileProgress& progress, std::int32_t dot) {
    if (dot % FileProgress::Step != 0 || dot == 0 || progress.Total == 0) return;
    TheHost().ShowProgress(dot, progress.Total);
}
