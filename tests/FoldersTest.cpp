// A folder of src/ includes only what lies below it. The build refuses the rest; this names the offender, and
// sees what the build cannot: a header reached by a relative path, Qt below the line.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

namespace fs = std::filesystem;

namespace {

constexpr std::array kOrder = {"text",  "platform", "settings", "language", "checker",
                               "tools", "wizards",  "ui",       "forms",    "app"};
constexpr size_t kFirstWithQt = 7;
constexpr size_t kToolsAndBelow = 5;

size_t rank(const std::string& folder) {
    if (folder == "cli") return kToolsAndBelow;
    return static_cast<size_t>(std::find(kOrder.begin(), kOrder.end(), folder) - kOrder.begin());
}

struct Include {
    std::string name;
    bool quoted = false;
};

/// What a line includes; nothing where it is no `#include`.
std::optional<Include> includeOf(std::string_view line) {
    const auto skip = [&line](std::string_view word) {
        const auto start = line.find_first_not_of(" \t");
        if (start == line.npos || !line.substr(start).starts_with(word)) return false;
        line.remove_prefix(start + word.size());
        return true;
    };
    if (!skip("#") || !skip("include")) return std::nullopt;
    const bool quoted = skip("\"");
    if (!quoted && !skip("<")) return std::nullopt;
    return Include{std::string(line.substr(0, line.find(quoted ? '"' : '>'))), quoted};
}

bool isOfQt(std::string_view include) {
    if (include.starts_with("Qt") || include.starts_with("Qsci/") || include.starts_with("Scintilla"))
        return true;
    return include.size() > 1 && include[0] == 'Q' && include[1] >= 'A' && include[1] <= 'Z';
}

bool isAllowed(const std::string& from, const std::string& include, bool quoted) {
    if (!quoted) return !isOfQt(include) || (from != "cli" && rank(from) >= kFirstWithQt);
    const auto slash = include.find('/');
    if (slash == std::string::npos || include.starts_with(".")) return false;
    const auto to = include.substr(0, slash);
    if (to == from) return true;
    return to != "cli" && (rank(to) < rank(from) || (from == "cli" && rank(to) == rank(from)));
}

TEST(Folders, IncludeOnlyWhatLiesBelow) {
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
            const auto include = includeOf(text);
            if (!include) continue;
            ++seen;
            EXPECT_TRUE(isAllowed(folder, include->name, include->quoted))
                << entry.path().string() << ":" << number << ": src/" << folder << " may not include "
                << include->name;
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
         {Row{"settings", "text/TextArea.h", true, true}, Row{"platform", "settings/Store.h", true, false},
          Row{"wizards", "ui/RichTextBox.h", true, false}, Row{"app", "ui/RichTextBox.h", true, true},
          Row{"cli", "tools/Merge.h", true, true}, Row{"cli", "wizards/Wizard.h", true, false},
          Row{"app", "cli/Main.h", true, false}, Row{"ui", "../text/TextArea.h", true, false},
          Row{"ui", "QWidget", false, true}, Row{"wizards", "QString", false, false},
          Row{"cli", "QString", false, false}, Row{"checker", "string", false, true}})
        EXPECT_EQ(isAllowed(row.from, row.include, row.quoted), row.allowed)
            << row.from << " " << row.include;
}

}  // namespace
