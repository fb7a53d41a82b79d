#include "platform/MountPoints.h"

#include <algorithm>
#include <array>
#include <set>

#include "platform/FileReader.h"

namespace klt {

namespace {

/// What the kernel puts behind a mount point that was removed.
constexpr std::string_view kDeleted = "//deleted";
constexpr char kTable[] = "/proc/self/mountinfo";

/// What the kernel and its servants make up, what lives in memory alone, and layers of other mounts. Sorted.
constexpr std::array<std::string_view, 38> kWithoutFiles = {"autofs",
                                                            "binder",
                                                            "binfmt_misc",
                                                            "bpf",
                                                            "cgroup",
                                                            "cgroup2",
                                                            "configfs",
                                                            "debugfs",
                                                            "devfs",
                                                            "devpts",
                                                            "devtmpfs",
                                                            "efivarfs",
                                                            "fuse.gvfsd-fuse",
                                                            "fuse.lxcfs",
                                                            "fuse.portal",
                                                            "fuse.snapfuse",
                                                            "fuse.vmware-vmblock",
                                                            "fusectl",
                                                            "hugetlbfs",
                                                            "mqueue",
                                                            "nfsd",
                                                            "none",
                                                            "nsfs",
                                                            "overlay",
                                                            "proc",
                                                            "pstore",
                                                            "ramfs",
                                                            "resctrl",
                                                            "rootfs",
                                                            "rpc_pipefs",
                                                            "securityfs",
                                                            "selinuxfs",
                                                            "smackfs",
                                                            "squashfs",
                                                            "sysfs",
                                                            "tmpfs",
                                                            "tracefs",
                                                            "xenfs"};
static_assert(std::ranges::is_sorted(kWithoutFiles));

std::string_view takeField(std::string_view& line, char end = ' ') {
    const size_t length = std::min(line.find(end), line.size());
    const auto field = line.substr(0, length);
    line.remove_prefix(std::min(length + 1, line.size()));
    return field;
}

bool isOctal(std::string_view digits) {
    return digits.size() == 3 && digits[0] <= '3' &&
           std::ranges::all_of(digits, [](char digit) { return digit >= '0' && digit <= '7'; });
}

/// Blanks, tabs, line ends and "\" stand there as "\" and three octal digits.
std::string withoutEscapes(std::string_view field) {
    std::string result;
    while (!field.empty()) {
        const auto digits = field.substr(1, 3);
        if (field[0] == '\\' && isOctal(digits)) {
            result.push_back(
                static_cast<char>((digits[0] - '0') * 64 + (digits[1] - '0') * 8 + digits[2] - '0'));
            field.remove_prefix(1 + digits.size());
        } else {
            result.push_back(field[0]);
            field.remove_prefix(1);
        }
    }
    return result;
}

struct Mount {
    std::string point;
    std::string_view type;
};

/// Number, parent, device, root, mount point, options, any further fields, "-", type.
Mount mountOf(std::string_view line) {
    constexpr int kBefore = 4;
    for (int field = 0; field < kBefore; ++field) takeField(line);
    auto point = withoutEscapes(takeField(line));
    while (!line.empty() && takeField(line) != "-") {
    }
    return {std::move(point), takeField(line)};
}

}  // namespace

std::vector<std::string> mountPoints(std::string_view table) {
    std::set<std::string> found;
    while (!table.empty()) {
        auto mount = mountOf(takeField(table, '\n'));
        if (!mount.point.starts_with('/') || mount.point == "/" || mount.type.empty()) continue;
        if (mount.point.ends_with(kDeleted)) continue;
        if (std::ranges::binary_search(kWithoutFiles, mount.type)) {
            found.erase(mount.point);
        } else {
            found.insert(std::move(mount.point));
        }
    }
    std::vector<std::string> points = {"/"};
    points.insert(points.end(), found.begin(), found.end());
    return points;
}

std::vector<std::string> mountPoints() {
    return mountPoints(readFile(kTable).bytes);
}

std::string mountPointOf(std::string_view path, const std::vector<std::string>& points) {
    std::string_view closest = points.front();
    for (const std::string_view point : points) {
        const bool isIn =
            path.starts_with(point) && (path.size() == point.size() || path[point.size()] == '/');
        if (isIn && point.size() > closest.size()) closest = point;
    }
    return std::string(closest);
}

}  // namespace klt
