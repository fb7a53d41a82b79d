#include "platform/Paths.h"

#include <gtest/gtest.h>

#include "support/Scratch.h"
#include "text/Unicode.h"

using namespace klt;
namespace fs = std::filesystem;

TEST(Paths, PathExists) {
    const ScratchFolder folder;
    writeBytes(folder / "a", "");
    fs::create_symlink("nowhere", folder / "dangling");
    for (const auto& path : {folder / "a", folder.path()}) EXPECT_TRUE(PathExists(path)) << path;
    for (const auto& path :
         {folder / "A", folder / "dangling", (folder / "a") + std::string("\0b", 2), std::string()})
        EXPECT_FALSE(PathExists(path)) << path;
}

TEST(Paths, CanonicalPath) {
    const ScratchFolder folder;
    fs::create_directories(folder / "real/inner");
    fs::create_directory_symlink(folder / "real/inner", folder / "link");
    const auto here = fs::current_path().string();
    const auto root = folder.path();
    const std::pair<std::string, std::string> rows[] = {
        {root + "/x.klt", root + "/x.klt"},
        {root + "\\real\\x.klt", root + "/real/x.klt"},
        {root + "//real/./x.klt", root + "/real/x.klt"},
        {root + "/real/../x.klt", root + "/x.klt"},
        {root + "/link/../x.klt", root + "/link/../x.klt"},
        {root + "/none/../x.klt", root + "/none/../x.klt"},
        {root + "/real/", root + "/real/"},
        {"/../..", "/"},
        {"/", "/"},
        {"x.klt", here + "/x.klt"},
        {"./a b.klt", here + "/a b.klt"},
        {"../x", fs::path(here).parent_path() / "x"},
        {"", ""},
        {"  ", "  "},
    };
    for (const auto& [path, full] : rows) EXPECT_EQ(CanonicalPath(path), full) << path;
}

TEST(Paths, FullFileNameKeepsABackslash) {
    EXPECT_EQ(FullFileName("/a\\b/c.klt"), "/a\\b/c.klt");
    EXPECT_EQ(FullFileName("c.klt"), fs::current_path().string() + "/c.klt");
}

TEST(Paths, FileNameAndExtension) {
    const std::array<const char*, 3> rows[] = {{"/a/b.klt", "b.klt", "klt"},
                                               {"C:\\x\\y.KLT", "y.KLT", "KLT"},
                                               {"/a.b/c", "c", ""},
                                               {"a.b\\c", "c", ""},
                                               {"KLT4", "KLT4", ""},
                                               {"x.", "x.", ""},
                                               {".klt", ".klt", "klt"},
                                               {"a.tar.gz", "a.tar.gz", "gz"},
                                               {"/a/", "", ""},
                                               {"", "", ""}};
    for (const auto& [path, name, extension] : rows) {
        EXPECT_EQ(FileName(path), name);
        EXPECT_EQ(FileExtension(path), extension) << path;
    }
}

TEST(Paths, FoundInAnyCase) {
    const ScratchFolder folder;
    for (const auto* made : {"Häfen/Süd", "häfen", "Häfen/folder.klt"}) fs::create_directories(folder / made);
    for (const auto* made : {"Häfen/Süd/Harbor.klt", "Häfen/one", "häfen/One"}) writeBytes(folder / made, "");
    const std::pair<std::string, std::optional<std::string>> rows[] = {
        {folder / "Häfen/Süd/Harbor.klt", folder / "Häfen/Süd/Harbor.klt"},
        {folder / "HÄFEN/SÜD/HARBOR.KLT", folder / "Häfen/Süd/Harbor.klt"},
        {upperCase(folder / "häfen/süd/harbor.klt"), folder / "Häfen/Süd/Harbor.klt"},
        {folder / "häfen/Süd/Harbor.klt", folder / "Häfen/Süd/Harbor.klt"},
        {folder / "häfen/One", folder / "häfen/One"},
        {folder / "HÄFEN/ONE", std::nullopt},
        {folder / "HÄFEN/FOLDER.KLT", std::nullopt},
        {folder / "HÄFEN/HARBOR.KLT", std::nullopt},
        {folder / "HÄFEN/NONE/HARBOR.KLT", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [path, found] : rows) EXPECT_EQ(findPathIgnoringCase(path), found) << path;
}

TEST(Paths, UserFoldersAreMadeForTheUserAlone) {
    const ScratchFolder folder;
    const ScopedVariable home("HOME", folder.path());
    const ScopedVariable config("XDG_CONFIG_HOME", std::nullopt);
    const ScopedVariable state("XDG_STATE_HOME", "relative/state");
    EXPECT_EQ(configFolder(), folder / ".config/klt-editor");
    EXPECT_EQ(stateFolder(), folder / ".local/state/klt-editor");
    for (const auto* made : {".config", ".config/klt-editor", ".local/state", ".local/state/klt-editor"})
        EXPECT_EQ(modeOf(folder / made), 0700U) << made;

    const ScopedVariable given("XDG_CONFIG_HOME", folder / "given");
    EXPECT_EQ(configFolder(), folder / "given/klt-editor");
    writeBytes(folder / "file", "");
    const ScopedVariable impossible("XDG_CONFIG_HOME", folder / "file");
    EXPECT_EQ(configFolder(), folder / "file/klt-editor");
    EXPECT_FALSE(makePrivateFolder(folder / "file/klt-editor"));
}

TEST(Paths, RuntimeFolderIsOursAloneOrNone) {
    const ScratchFolder folder;
    const ScopedVariable runtime("XDG_RUNTIME_DIR", folder.path());
    const auto ours = folder / "klt-editor";
    EXPECT_EQ(runtimeFolder(), ours);
    EXPECT_EQ(modeOf(ours), 0700U);

    fs::permissions(ours, fs::perms::all);
    EXPECT_EQ(runtimeFolder(), "") << "open to others";
    fs::remove(ours);
    fs::create_directory(folder / "elsewhere");
    fs::create_directory_symlink(folder / "elsewhere", ours);
    EXPECT_EQ(runtimeFolder(), "") << "a link";
    fs::remove(ours);
    fs::permissions(folder.path(), fs::perms::all);
    EXPECT_EQ(runtimeFolder(), "") << "others may put another in its place";
    fs::permissions(folder.path(), fs::perms::owner_all);

    for (const auto& value : {std::optional<std::string>(), std::optional<std::string>("relative")}) {
        const ScopedVariable none("XDG_RUNTIME_DIR", value);
        EXPECT_EQ(runtimeFolder(), "");
    }
}
