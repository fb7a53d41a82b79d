#include "settings/HostProgram.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "settings/HostFolder.h"
#include "support/Scratch.h"

using namespace klt;
namespace fs = std::filesystem;

namespace {

void makeProgram(const std::string& path) {
    fs::create_directories(fs::path(path).parent_path());
    writeBytes(path, "");
    fs::permissions(path, fs::perms::owner_all);
}

}  // namespace

TEST(HostProgram, IsSpelledForTheHost) {
    const ScratchFolder folder;
    const std::string root = fs::canonical(folder.path());
    for (const auto* made : {"bin/ed", "my bin/ed", "other/ed"}) makeProgram(root + "/" + made);
    fs::create_directories(root + "/links");
    fs::create_symlink(root + "/my bin/ed", root + "/links/ed");
    fs::create_directories(root + "/wine/drive_c");
    fs::create_directories(root + "/wine/dosdevices");
    fs::create_symlink(root, root + "/wine/dosdevices/y:");

    const auto native = root + "/TVM.INI", windows = root + "/wine/drive_c/TVM.INI";
    const auto plain = root + "/bin/ed", blank = root + "/my bin/ed", quoted = "\"" + blank + "\"";
    const auto found = root + "/none:relative::" + root + "/links:" + root + "/other";
    const auto hidden = root + "/other:" + root + "/my bin";
    const std::tuple<std::string, std::string, std::string, std::string, std::string> rows[] = {
        {plain, native, root + "/bin", plain, plain + ".bmp"},
        {blank, native, found, "ed", "ed.bmp"},
        {blank, native, hidden, quoted, "\"" + blank + ".bmp\""},
        {blank, native, "", quoted, "\"" + blank + ".bmp\""},
        {plain, windows, found, R"(Y:\bin\ed)", R"(Y:\bin\ed.bmp)"},
        {blank, windows, found, R"("Y:\my bin\ed")", R"("Y:\my bin\ed.bmp")"},
        {"/usr/bin/ed", windows, found, "/usr/bin/ed", "/usr/bin/ed.bmp"},
    };
    for (const auto& [program, file, searchPath, command, bitmap] : rows) {
        const auto shown = hostProgram(program, file, searchPath);
        EXPECT_EQ(shown.name, "ed");
        EXPECT_EQ(shown.command, command + " %filelistquoted%") << program << " " << searchPath;
        EXPECT_EQ(shown.bitmap, bitmap) << program << " " << searchPath;
    }
    EXPECT_TRUE(runningProgram().ends_with("/HostProgramTest"));
    EXPECT_EQ(access(runningProgram().c_str(), X_OK), 0);
}

TEST(HostFolder, IsTheFirstThatHasTheFile) {
    const ScratchHome home;
    const auto root = home.folder().path();
    EXPECT_EQ(findHostFolder(), root);
    // From the last to the first.
    for (const auto* made : {".wine/drive_c/Program Files (x86)/TVM", ".wine/drive_c/Program Files/tvm",
                             ".wine/drive_c/TVM", ".tvm", ".local/share/tvm", "config/tvm"}) {
        const auto before = findHostFolder();
        fs::create_directories((home / made) + "/tvm.ini");
        EXPECT_EQ(findHostFolder(), before) << "a folder is no file";
        writeBytes((home / made) + "/Tvm.Ini", "");
        EXPECT_EQ(findHostFolder(), home / made);
        EXPECT_EQ(hostFileIn(home / made), (home / made) + "/Tvm.Ini");
    }
    EXPECT_EQ(hostFileIn(root + "/"), root + "/TVM.INI");
    EXPECT_EQ(hostFileIn("/"), "/TVM.INI");
    EXPECT_EQ(hostFileIn(R"(/a\b)"), R"(/a\b/TVM.INI)");
    for (const auto* made : {"tvm.ini", "TVM.ini", "TVM.INI"}) {
        writeBytes(home / made, "");
        EXPECT_EQ(hostFileIn(root), home / made);
    }
}
