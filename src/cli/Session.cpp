#include "cli/Session.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <utility>

#include "cli/StandardInput.h"
#include "platform/DrivePaths.h"
#include "platform/Paths.h"

namespace klt {

namespace {

std::string pathOnDisk(const std::string& spelled) {
    if (spelled == kStandardInput) return spelled;
    const auto path = fromDrivePath(spelled, winePrefix());
    return findPathIgnoringCase(path).value_or(path);
}

Failure attempt(const Session::FileWork& work, const std::string& path) {
    try {
        return work(path);
    } catch (const std::bad_alloc&) {
        return systemFailure(ENOMEM);
    }
}

}  // namespace

void Session::forEachFile(const std::vector<std::string>& paths, const FileWork& work) {
    for (const auto& spelled : paths) {
        const auto path = pathOnDisk(spelled);
        if (const auto failure = attempt(work, path)) {
            complain(shownName(path), *failure);
            note(ExitStatus::Failed);
        }
        if (out_.error() != 0) return;
    }
}

FileBytes Session::read(const std::string& path) {
    if (path != kStandardInput) return readFile(path);
    if (std::exchange(isInputRead_, true)) return {{}, "It can be read only once"};
    return readToEnd(in_);
}

void Session::complain(std::string_view subject, std::string_view reason) {
    complain(std::string(subject).append(": ").append(reason));
}

void Session::complain(std::string_view reason) {
    out_.flush();
    err_.write(std::string("klt: ").append(reason).append("\n"));
    err_.flush();
}

void Session::note(ExitStatus status) {
    status_ = std::max(status_, status);
}

ExitStatus Session::end() {
    out_.flush();
    if (out_.error() == 0) return status_;
    if (out_.error() != EPIPE) complain("standard output", systemFailure(out_.error()).value_or(""));
    return ExitStatus::Failed;
}

std::string_view shownName(std::string_view path) {
    return path == kStandardInput ? "<stdin>" : path;
}

}  // namespace klt
