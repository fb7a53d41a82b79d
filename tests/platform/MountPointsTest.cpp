#include "platform/MountPoints.h"

#include <gmock/gmock.h>

using namespace klt;
using testing::ElementsAre;

TEST(MountPoints, AreThoseThatHoldFiles) {
    using Points = std::vector<std::string>;
    const std::tuple<const char*, std::string_view, Points> rows[] = {
        {"no table", "", {"/"}},
        {"no rows", "\n\nwhat is this?\n1 2 3 4\n1 2 0:1 / /mnt", {"/"}},
        {"the root, whatever it is", "1 0 0:1 / / rw - overlay overlay rw\n", {"/"}},
        {"disks and the network",
         "30 1 0:9 / /net/home rw shared:1 master:2 - nfs4 server:/home rw\n"
         "22 1 8:1 / / rw - ext4 /dev/sda1 rw\n"
         "31 22 8:2 /sub /media/me/stick ro,nosuid - vfat /dev/sdb1 rw",
         {"/", "/media/me/stick", "/net/home"}},
        {"none that the kernel makes up",
         "2 1 0:2 / /proc rw - proc proc rw\n3 1 0:3 / /sys rw - sysfs sysfs rw\n"
         "4 1 0:4 / /run rw shared:3 - tmpfs tmpfs rw\n5 1 0:5 / /net rw - autofs systemd-1 rw\n"
         "6 1 0:6 / /run/user/1/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw\n"
         "7 1 0:7 / /far rw - fuse.sshfs me@far rw\n",
         {"/", "/far"}},
        {"signs that are written as numbers",
         "2 1 8:1 / /a\\040b rw - ext4 x rw\n3 1 8:2 / /c\\134d\\011\\012 rw - ext4 x rw\n"
         "4 1 8:3 / /e\\08\\ rw - ext4 x rw\n5 1 8:4 / /\\303\\244 rw - ext4 x rw\n",
         {"/", "/a b", "/c\\d\t\n", "/e\\08\\", "/ä"}},
        {"once each, by what covers it last",
         "2 1 8:1 / /a rw - ext4 x rw\n3 1 8:1 / /b rw - ext4 x rw\n4 1 0:5 / /a rw - tmpfs x rw\n"
         "5 1 0:6 / /c rw - autofs x rw\n6 5 0:7 / /c rw - nfs x rw\n7 6 0:7 / /c rw - nfs x rw\n",
         {"/", "/b", "/c"}},
    };
    for (const auto& [name, table, points] : rows) EXPECT_EQ(mountPoints(table), points) << name;
    EXPECT_EQ(mountPoints().front(), "/");
}

TEST(MountPoints, TheClosestHasThePath) {
    const std::vector<std::string> points = {"/", "/home", "/home/me/disk", "/mnt/a b"};
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"/", "/"},
        {"/homes", "/"},
        {"/home", "/home"},
        {"/home/you", "/home"},
        {"/home/me/disk", "/home/me/disk"},
        {"/home/me/disk/x", "/home/me/disk"},
        {"/mnt/a b/c", "/mnt/a b"},
        {"", "/"},
    };
    for (const auto& [path, point] : rows) EXPECT_EQ(mountPointOf(path, points), point) << path;
}
