#include "platform/DrivePaths.h"

#include <gmock/gmock.h>

#include "support/Scratch.h"

using namespace klt;
using testing::ElementsAre;
namespace fs = std::filesystem;

namespace {

/// A prefix with the drives C: its own folder, D: a folder elsewhere, E: a folder below that, F: nowhere, Z:
/// all.
class DrivePaths : public testing::Test {
protected:
    DrivePaths() {
        for (const auto* made : {"wine/drive_c/TVM", "wine/dosdevices", "disk/inner", "other/drive_c"})
            fs::create_directories(root_ + "/" + made);
        const std::pair<const char*, std::string> drives[] = {{"c:", "../drive_c"},
                                                              {"d:", root_ + "/disk"},
                                                              {"e:", root_ + "/disk/inner"},
                                                              {"f:", root_ + "/none"},
                                                              {"z:", "/"}};
        for (const auto& [drive, folder] : drives)
            fs::create_symlink(folder, prefix_ + "/dosdevices/" + drive);
        fs::create_symlink(prefix_ + "/drive_c/TVM", root_ + "/link");
        writeBytes(prefix_ + "/drive_c/TVM/TVM.INI", "");
        fs::create_symlink(prefix_ + "/drive_c/TVM/TVM.INI", root_ + "/linked.ini");
    }
    const ScratchFolder folder_;
    const std::string root_ = fs::canonical(folder_.path()), prefix_ = root_ + "/wine";
};

}  // namespace

TEST_F(DrivePaths, AreTranslatedWhereThereIsTheDrive) {
    const std::pair<std::string, std::string> rows[] = {
        {R"(C:\TVM\a b.klt)", prefix_ + "/drive_c/TVM/a b.klt"},
        {R"(c:\..\x/y)", prefix_ + "/drive_c/../x/y"},
        {R"(D:\)", root_ + "/disk/"},
        {R"(z:\home\x)", "/home/x"},
        {R"(F:\x)", R"(F:\x)"},
        {R"(G:\x)", R"(G:\x)"},
        {"C:/x", "C:/x"},
        {R"(C:x\y)", R"(C:x\y)"},
        {R"(.:\x)", R"(.:\x)"},
        {R"(\x)", R"(\x)"},
        {"C:", "C:"},
        {"", ""},
    };
    for (const auto& [path, translated] : rows) EXPECT_EQ(fromDrivePath(path, prefix_), translated) << path;
    EXPECT_EQ(fromDrivePath(R"(C:\x)", root_ + "/none"), R"(C:\x)");
    EXPECT_THAT(fromDrivePaths({R"(/D:C:\TVM/)", R"(/d:/x:\a)", R"(Z:\b)", "", "c"}, prefix_),
                ElementsAre("/D:" + prefix_ + "/drive_c/TVM/", R"(/d:/x:\a)", "/b", "", "c"));
}

TEST_F(DrivePaths, AreFoundForAPath) {
    const std::pair<std::string, std::optional<std::string>> rows[] = {
        {root_ + "/disk/inner/bin/a b", R"(E:\bin\a b)"},
        {root_ + "/disk/innermost", R"(D:\innermost)"},
        {prefix_ + "/drive_c/x", R"(C:\x)"},
        {"/usr/bin/x", R"(Z:\usr\bin\x)"},
        {"/usr/a\\b", std::nullopt},
    };
    for (const auto& [path, found] : rows) EXPECT_EQ(toDrivePath(path, prefix_), found) << path;
    fs::remove(prefix_ + "/dosdevices/z:");
    EXPECT_EQ(toDrivePath("/usr/bin/x", prefix_), std::nullopt);
}

TEST_F(DrivePaths, PrefixIsBesideTheFirstDrive) {
    const std::pair<std::string, std::string> rows[] = {
        {prefix_ + "/drive_c/TVM/TVM.INI", prefix_},
        {prefix_ + "/dosdevices/c:/TVM/none", prefix_},
        {root_ + "/link/TVM.INI", prefix_},
        {root_ + "/linked.ini", prefix_},
        {root_ + "/other/drive_c/TVM.INI", ""},
        {prefix_ + "/drive_c", ""},
        {root_ + "/none/x", ""},
        {"x", ""},
    };
    for (const auto& [file, prefix] : rows) EXPECT_EQ(prefixOf(file), prefix) << file;

    const ScratchHome home;
    for (const auto& value : {std::optional<std::string>(), std::optional<std::string>("wine")}) {
        const ScopedVariable variable("WINEPREFIX", value);
        EXPECT_EQ(winePrefix(), home / ".wine");
    }
    const ScopedVariable variable("WINEPREFIX", prefix_);
    EXPECT_EQ(winePrefix(), prefix_);
}
