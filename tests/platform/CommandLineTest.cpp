#include "platform/CommandLine.h"

#include <gmock/gmock.h>

using namespace klt;
using testing::ElementsAreArray;

TEST(CommandLine, IsBuiltFromTheArguments) {
    const std::tuple<const char*, std::vector<std::string>, const char*> rows[] = {
        {"no arguments", {}, ""},
        {"relative", {"a.klt"}, R"("/home/me/a.klt")"},
        {"absolute, with a blank", {"/x y/a.klt", "b"}, R"("/x y/a.klt" "/home/me/b")"},
        {"backslash first is absolute", {"\\x\\a.klt"}, R"("\x\a.klt")"},
        {"empty: a new document", {"a", "", "/b"}, R"("/home/me/a" "" "/b")"},
        {"one directory, then files in it",
         {"/d:/files/", "/d:/a.klt", "/d:/b.klt"},
         R"(/d:/files/ "/d:/a.klt" "/d:/b.klt")"},
        {"any case", {"/D:/files/", "/D:/a.klt"}, R"(/D:/files/ "/D:/a.klt")"},
        {"only the first stands bare", {"/d:/files/", "/d:/more/"}, R"(/d:/files/ "/d:/more/")"},
        {"the first has no slash at its end", {"/d:/files", "/d:/more/"}, R"("/d:/files" "/d:/more/")"},
        {"the switch alone", {"/d:"}, R"("/d:")"},
        {"bare behind a path", {"a", "/d:/x/", "/d:/b"}, R"("/home/me/a" /d:/x/ "/d:/b")"},
        {"not at the start: a path", {"x/d:/a"}, R"("/home/me/x/d:/a")"},
        {"dash is a path", {"-d:"}, R"("/home/me/-d:")"},
    };
    for (const auto& [name, arguments, line] : rows)
        EXPECT_EQ(buildCommandLine(arguments, "/home/me"), line) << name;
    EXPECT_EQ(buildCommandLine({"a"}, "/"), R"("/a")");
}

TEST(CommandLine, IsSplitIntoPaths) {
    const std::tuple<const char*, const char*, std::vector<std::string>> rows[] = {
        {"unquoted, blanks kept", "/x y/a.klt", {"/x y/a.klt"}},
        {"one quoted", R"("/x y/a.klt")", {"/x y/a.klt"}},
        {"several", R"("/a" "/b" "/c")", {"/a", "/b", "/c"}},
        {"blanks around", R"(  "/a" "/b"  )", {"/a", "/b"}},
        {"two blanks do not split", R"("/a"  "/b")", {R"(/a"  "/b)"}},
        {"unquoted ones do not split", "/a /b", {"/a /b"}},
        {"empty ones are new documents", R"("/a" "" "/b")", {"/a", "", "/b"}},
        {"nothing at all", "", {""}},
        {"directory keeps its slash", R"(/d:/files/ "/d:/a" "/d:/b")", {"/files/a", "/files/b"}},
        {"any case, in both places", R"(/D:/files/ "/D:/a" "/d:/b")", {"/files/a", "/files/b"}},
        {"inside a path a folder", R"(/d:/f/ "/d:/a/d:/b" "/x /d:/c")", {"/f/a/d:/b", "/x /d:/c"}},
        {"so without a directory", "/x/d:/a", {"/x/d:/a"}},
        {"so in quotes", R"("/x/d:/a" "/x/ /D:/b" "/d:/c")", {"/x/d:/a", "/x/ /D:/b", "/d:/c"}},
        {"so behind a quote of its name", R"("/x"y /d:/ z" "/w")", {R"(/x"y /d:/ z)", "/w"}},
        {"every file, though not split", "/d:/f/ /d:/a /d:/b", {"/f/a /f/b"}},
        {"quoted behind an unquoted one", R"(/d:/f/ /d:/a" "x /d:/b)", {"/f/a", "x /d:/b"}},
        {"other paths stay", R"(/d:/f/ "/x/a" "/d:/b")", {"/x/a", "/f/b"}},
        {"directory of one slash", "/d:/ /d:/a", {"/a"}},
        {"backslashes and dots made usable", R"(/d:\x\.\\y/ "/d:/a")", {"/x/y/a"}},
        {"a blank in the directory", R"(/d:/my files/ "/d:/a")", {"/my files/a"}},
        {"ends at the first slash and blank", R"(/d:/my / files/ "/d:/a")", {R"(files/ "/my /a")"}},
        {"behind the switch, not before it", R"(x/ /d:/f/ "/d:/a")", {R"(/f/ "/a)"}},
        {"quoted whole", R"("/d:/f/ "/d:/a" "/d:/b"")", {"/f/a", "/f/b"}},
        {"beyond ASCII, and what is no UTF-8", "/d:/\u00E4\xE4\xA4/ /d:/a", {"/\u00E4\xE4\xA4/a"}},
        {"counted from the line's start in characters", "\u00E4 /d:/f/ /d:/a", {"/f/ /a"}},
        {"behind a quoted path", R"("/a" /d:/f/ "/d:/b")", {R"("/f/ "/db)"}},
    };
    for (const auto& [name, line, paths] : rows) {
        const auto split = splitCommandLine(line);
        EXPECT_EQ(split.error, CommandLineError::none) << name;
        EXPECT_THAT(split.paths, ElementsAreArray(paths)) << name;
    }
}

TEST(CommandLine, DirectoryWithoutEndIsAnError) {
    for (const char* line :
         {"/d:", R"("/d:")", "/D:/x/", R"(/d:/x "/d:/a")", R"("/d:/a" "/d:/b")", "x/ /d:/y/"}) {
        const auto split = splitCommandLine(line);
        EXPECT_EQ(split.error, CommandLineError::unendedDirectory) << line;
        EXPECT_TRUE(split.paths.empty()) << line;
    }
}

TEST(CommandLine, DoesNotGrowBeyondMeasure) {
    const auto split = [](size_t files) {
        std::string line = "/d:/" + std::string(500'000, 'x') + "/ \"";
        while (files-- > 0) line += "/d:/\" \"";
        return splitCommandLine(line + "\"").error;
    };
    EXPECT_EQ(split(100), CommandLineError::none);
    EXPECT_EQ(split(100'000), CommandLineError::tooLong);
}

TEST(CommandLine, ComesBackAsItWasBuilt) {
    const std::vector<std::string> paths = {"/a b/c", "/", "/\u00E4\xFF", "/x\"", "/\"y", "/tab\there "};
    EXPECT_THAT(splitCommandLine(buildCommandLine(paths, "/home/me")).paths, ElementsAreArray(paths));
}
