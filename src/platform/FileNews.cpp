#include "platform/FileNews.h"

#include <cerrno>

namespace klt {

FileNow lookAtFile(const std::string& path, const KnownFile& known) {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0)
        return {errno == ENOENT || errno == ENOTDIR ? FileState::Gone : FileState::Unknown, {}};
    if (!S_ISREG(info.st_mode)) return {FileState::Gone, {}};
    const auto identity = identityOf(info);
    if (known.seen && known.seen->identity == identity) return {FileState::AsSeen, identity};
    const bool mayBeEqual = known.seen && known.told != identity && info.st_size >= 0 &&
                            static_cast<size_t>(info.st_size) == known.seen->size;
    if (!mayBeEqual) return {FileState::Changed, identity};
    const auto file = readFile(path);
    if (file.error) return {FileState::Changed, identity};
    return {known.seen->holds(file.bytes) ? FileState::AsSeen : FileState::Changed, file.identity};
}

FileNews newsOf(const FileNow& now, const std::optional<FileIdentity>& told) {
    switch (now.state) {
        case FileState::Unknown:
            return FileNews::Nothing;
        case FileState::AsSeen:
            return told ? FileNews::Over : FileNews::Nothing;
        case FileState::Changed:
            return told == now.identity ? FileNews::Nothing : FileNews::Changed;
        case FileState::Gone:
            return told == now.identity ? FileNews::Nothing : FileNews::Gone;
    }
    return FileNews::Nothing;
}

}  // namespace klt
