#include "platform/BackgroundWriter.h"

#include "platform/SafeFile.h"

#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <deque>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

namespace {

struct Job {
    std::string Path;
    std::function<std::string()> Content;  // none: the file goes
};

struct Writer {
    std::mutex Guard;  // of the next three
    std::deque<Job> Jobs;
    bool Running = false;  // the thread looks at the jobs once more before it ends
    int Fault = 0;
    std::jthread Thread;  // the caller's. It stands last, to be joined before the others go
};

Writer& TheWriter() {
    static Writer writer;
    return writer;
}

int RunJob(const Job& job) {
    if (!job.Content) {
        unlink(job.Path.c_str());
        return 0;
    }
    try {
        return WriteFileSafely(job.Path, job.Content());
    } catch (const std::bad_alloc&) {
        return ENOMEM;
    }
}

void NoteFault(Writer& writer, int error) {
    const std::lock_guard lock(writer.Guard);
    if (writer.Fault == 0) writer.Fault = error;
}

bool TakeJob(Writer& writer, Job& job) {
    const std::lock_guard lock(writer.Guard);
    writer.Running = !writer.Jobs.empty();
    if (!writer.Running) return false;
    job = std::move(writer.Jobs.front());
    writer.Jobs.pop_front();
    return true;
}

void RunJobs(Writer& writer) {
    for (Job job; TakeJob(writer, job); job = {})
        if (const int error = RunJob(job)) NoteFault(writer, error);
}

// True where a thread must be started for it.
bool AddJob(Writer& writer, Job job) {
    const std::lock_guard lock(writer.Guard);
    const auto waiting = std::ranges::find(writer.Jobs, job.Path, &Job::Path);
    if (waiting == writer.Jobs.end())
        writer.Jobs.push_back(std::move(job));
    else
        *waiting = std::move(job);
    return !std::exchange(writer.Running, true);
}

void Start(Writer& writer) {
    AwaitWrites();  // of a thread that has seen no job and is at its end
    try {
        writer.Thread = std::jthread([&writer] { RunJobs(writer); });
    } catch (const std::system_error& error) {
        NoteFault(writer, error.code().value());
        const std::lock_guard lock(writer.Guard);
        writer.Jobs.clear();
        writer.Running = false;
    }
}

}  // namespace

void WriteSoon(const std::string& path, std::function<std::string()> content) {
    Writer& writer = TheWriter();
    if (AddJob(writer, {path, std::move(content)})) Start(writer);
}

void RemoveSoon(const std::string& path) {
    WriteSoon(path, nullptr);
}

void AwaitWrites() {
    std::jthread& thread = TheWriter().Thread;
    if (thread.joinable()) thread.join();
}

int WriteFault() {
    Writer& writer = TheWriter();
    const std::lock_guard lock(writer.Guard);
    return std::exchange(writer.Fault, 0);
}
