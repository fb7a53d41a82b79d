#include "platform/FileAttributes.h"

#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <vector>

namespace klt {

namespace {

constexpr const char* kAccessList = "system.posix_acl_access";

bool isUnsupported() {
    return errno == EOPNOTSUPP || errno == ENOSYS;
}

bool copyAttribute(int from, int to, const char* name) {
    const auto size = fgetxattr(from, name, nullptr, 0);
    if (size < 0) return false;
    std::vector<char> value(static_cast<size_t>(size));
    const auto got = fgetxattr(from, name, value.data(), value.size());
    return got >= 0 && fsetxattr(to, name, value.data(), static_cast<size_t>(got), 0) == 0;
}

// The new file may have inherited a list from its folder that the old one lacks.
bool copyAccessList(int from, int to) {
    if (fgetxattr(from, kAccessList, nullptr, 0) >= 0) return copyAttribute(from, to, kAccessList);
    if (isUnsupported()) return true;
    return errno == ENODATA && (fremovexattr(to, kAccessList) == 0 || errno == ENODATA || isUnsupported());
}

bool copyUserAttributes(int from, int to) {
    const auto size = flistxattr(from, nullptr, 0);
    if (size <= 0) return size == 0 || isUnsupported();
    std::string names(static_cast<size_t>(size), '\0');
    const auto got = flistxattr(from, names.data(), names.size());
    if (got < 0) return false;
    names.resize(static_cast<size_t>(got));
    for (size_t start = 0; start < names.size(); start = names.find('\0', start) + 1) {
        const char* name = names.c_str() + start;
        // The system gives the others itself.
        if (std::string_view(name).starts_with("user.") && !copyAttribute(from, to, name)) return false;
    }
    return true;
}

}  // namespace

bool copyAttributes(int from, const struct stat& info, int to) {
    struct stat fresh {};
    if (fstat(to, &fresh) != 0) return false;
    const bool isSameOwner = fresh.st_uid == info.st_uid && fresh.st_gid == info.st_gid;
    if (!isSameOwner && fchown(to, info.st_uid, info.st_gid) != 0) return false;
    return copyAccessList(from, to) && copyUserAttributes(from, to);
}

}  // namespace klt
