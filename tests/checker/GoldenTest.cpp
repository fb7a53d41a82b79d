// Each data file of tests/data/golden beside the same text with its styles and rewrites marked inside. Where
// the two differ, the text that came out is written as a .new file into the working folder; read it, and if
// it is right, put it in the golden's place.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <vector>

#include "Marked.h"
#include "checker/DocumentPass.h"
#include "language/Functions.h"
#include "language/Tags.h"
#include "language/Vocabulary.h"

namespace fs = std::filesystem;

namespace klt::test {
namespace {

std::string read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream all;
    all << file.rdbuf();
    return all.str();
}

std::vector<fs::path> goldens() {
    std::vector<fs::path> paths;
    for (const auto& entry : fs::directory_iterator(KLT_TEST_DATA "/golden"))
        if (entry.path().extension() == ".klt") paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::string withoutReturns(std::string text) {
    std::erase(text, '\r');
    return text;
}

/// The first line in which two texts differ, from 1; 0 if they do not.
size_t differingLine(const std::string& one, const std::string& other) {
    if (one == other) return 0;
    const auto at = std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first;
    return static_cast<size_t>(std::count(one.begin(), at, '\n')) + 1;
}

class Golden : public testing::TestWithParam<fs::path> {
protected:
    const std::string text = withLineEnds(read(GetParam()));
};

TEST_P(Golden, LooksAsItShould) {
    StyledText styled(text);
    CheckerState state;
    CheckDocument(styled, state);
    const auto found = withoutReturns(marked(text, styled));
    const auto wanted = read(fs::path(GetParam()).replace_extension(".marked"));
    const auto line = differingLine(found, wanted);
    if (line == 0) return;
    const auto path = GetParam().stem().string() + ".marked.new";
    std::ofstream(path, std::ios::binary) << found;
    FAIL() << GetParam().string() << ":" << line << ": not as in the golden; see " << fs::absolute(path);
}

TEST_P(Golden, IsTheSameInSlices) {
    StyledText whole(text);
    CheckerState wholeState;
    ErrorRuns wholeErrors;
    CheckDocument(whole, wholeState, nullptr, &wholeErrors);
    const auto lines = std::count(text.begin(), text.end(), '\n') + 1;
    for (Position size = 1; size <= lines; ++size) {
        StyledText sliced(text);
        CheckerState state;
        ErrorRuns errors;
        DocumentPass pass(sliced, state, nullptr, &errors);
        while (pass.advance(size)) {
            EXPECT_LE(pass.position(), sliced.size());
            const auto settled = static_cast<size_t>(pass.settledEnd());
            ASSERT_EQ(sliced.styles().substr(0, settled), whole.styles().substr(0, settled));
        }
        EXPECT_EQ(pass.settledEnd(), sliced.size());
        EXPECT_GE(pass.linesDone(), lines);
        ASSERT_EQ(sliced.text(), whole.text()) << "slices of " << size;
        ASSERT_EQ(sliced.styles(), whole.styles()) << "slices of " << size;
        ASSERT_EQ(errors, wholeErrors) << "slices of " << size;
        ASSERT_EQ(state, wholeState) << "slices of " << size;
    }
}

TEST_P(Golden, SecondPassLaysTheSame) {
    StyledText styled(text);
    CheckDocument(styled, *std::make_unique<CheckerState>());
    const std::string first(styled.styles());
    const std::string firstText(styled.text());
    CheckDocument(styled, *std::make_unique<CheckerState>());
    EXPECT_EQ(styled.styles(), first);
    EXPECT_EQ(styled.text(), firstText);
}

INSTANTIATE_TEST_SUITE_P(All, Golden, testing::ValuesIn(goldens()),
                         [](const auto& row) { return row.param.stem().string(); });

/// All runs of each style that the goldens show, in canonical spelling.
std::map<StyleCategory, std::set<std::string>> runsOfGoldens() {
    std::map<StyleCategory, std::set<std::string>> runs;
    for (const auto& path : goldens()) {
        StyledText styled(withLineEnds(read(path)));
        CheckerState state;
        CheckDocument(styled, state);
        const auto styles = styled.styles();
        for (size_t i = 0, j = 0; i < styles.size(); i = j) {
            while (j < styles.size() && styles[j] == styles[i]) ++j;
            runs[static_cast<StyleCategory>(styles[i])].emplace(trimBlanks(styled.text().substr(i, j - i)));
        }
    }
    return runs;
}

TEST(GoldenCoverage, ShowsEveryStyle) {
    const auto runs = runsOfGoldens();
    for (size_t i = 0; i < kStyleCategoryNames.size(); ++i)
        EXPECT_TRUE(runs.contains(static_cast<StyleCategory>(i)))
            << "no golden shows " << kStyleCategoryNames[i];
}

TEST(GoldenCoverage, ShowsEveryWord) {
    const auto runs = runsOfGoldens();
    const auto expect = [&](const auto& words, StyleCategory style) {
        for (const auto word : words)
            EXPECT_TRUE(runs.at(style).contains(std::string(word)))
                << "no golden shows " << word << " in " << styleCategoryName(style);
    };
    expect(kGivesKeywords.words(), StyleCategory::SpecialKeywords);
    expect(kNeedsKeywords.words(), StyleCategory::SpecialKeywords);
    expect(kUptoKeywords.words(), StyleCategory::SpecialKeywords);
    expect(kIfKeywords.words(), StyleCategory::Keywords);
    expect(kBonusKeywords.words(), StyleCategory::Keywords);
    expect(kSkillTypes.words(), StyleCategory::Keywords);
    expect(kYesNo.words(), StyleCategory::Keywords);
    expect(kRoundings, StyleCategory::Keywords);
    expect(kPrefixTags.words(), StyleCategory::PrefixTags);
    expect(kTagWords.words(), StyleCategory::PackageItemsAndItemTags);
    expect(kPackageWords.words(), StyleCategory::PackageItemsAndItemTags);
    expect(kFunctionNames.words(), StyleCategory::Functions);
    expect(std::vector(kSectionNames.begin() + 1, kSectionNames.end()), StyleCategory::Sections);
}

}  // namespace
}  // namespace klt::test
