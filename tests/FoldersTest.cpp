// A folder of src/ includes only what lies below it. The build refuses the rest; this names the offender, and
// sees what the build cannot: a header reached by a relative path, Qt below the line.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>

namespace fs = std::filesystem;

namespace {

constexpr std::array kOrder = {"platform", "settings", "language", "checker", "tools",
                               "lines",    "ui",       "wizards",  "app"};
constexpr size_t kFirstWithQt = 6;
constexpr size_t kToolsAndBelow = 4;

size_t rank(const std::string& folder) {
    if (folder == "cli") return kToolsAndBelow;
    return static_cast<size_t>(std::find(kOrder.begin(), kOrder.end(), folder) - kOrder.begin());
}

bool isAllowed(const std::string& from, const std::string& include, bool quoted) {
    const bool isQt = std::regex_search(include, std::regex("^(Q[A-Z]|Qt|Qsci/|Scintilla)"));
    if (!quoted) return !isQt || (from != "cli" && rank(from) >= kFirstWithQt);
    const auto slash = include.find('/');
    if (slash == std::string::npos || include.starts_with(".")) return false;
    const auto to = include.substr(0, slash);
    if (to == from) return true;
    return to != "cli" && (rank(to) < rank(from) || (from == "cli" && rank(to) == rank(from)));
}

TEST(Folders, IncludeOnlyWhatLiesBelow) {
    const std::regex line(R"re(^\s*#\s*include\s*([<"])([^>"]+)[>"])re");
    int seen = 0;
    for (const auto& entry : fs::recursive_directory_iterator(KLT_SOURCE "/src")) {
        const auto extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp") continue;
        const auto folder = fs::relative(entry.path(), KLT_SOURCE "/src").begin()->string();
        ASSERT_TRUE(folder == "cli" || rank(folder) < kOrder.size())
            << folder << " is no folder of the house";
        std::ifstream file(entry.path());
        std::string text;
        for (int number = 1; std::getline(file, text); ++number) {
            std::smatch match;
            if (!std::regex_search(text, match, line)) continue;
            ++seen;
            EXPECT_TRUE(isAllowed(folder, match[2], match[1] == "\""))
                << entry.path().string() << ":" << number << ": src/" << folder << " may not include "
                << match[2];
        }
    }
    EXPECT_GT(seen, 0);
}

TEST(Folders, TheRuleItself) {
    struct Row {
        const char* from;
        const char* include;
        bool quoted, allowed;
    };
    for (const auto& row :
         {Row{"settings", "platform/TextArea.h", true, true},
          Row{"platform", "settings/Store.h", true, false}, Row{"lines", "ui/RichTextBox.h", true, false},
          Row{"app", "ui/RichTextBox.h", true, true}, Row{"cli", "tools/Merge.h", true, true},
          Row{"cli", "lines/Line.h", true, false}, Row{"app", "cli/Main.h", true, false},
          Row{"ui", "../platform/TextArea.h", true, false}, Row{"ui", "QWidget", false, true},
          Row{"lines", "QString", false, false}, Row{"cli", "QString", false, false},
          Row{"checker", "string", false, true}})
        EXPECT_EQ(isAllowed(row.from, row.include, row.quoted), row.allowed)
            << row.from << " " << row.include;
}

}  // namespace
