// Each data file of tests/data/golden beside the same text with its styles and rewrites marked inside. Where
// the two differ, the text that came out is written as a .new file into the working folder; read it, and if
// it is right, put it in the golden's place.

#include <algorithm>
#include <map>
#include <set>

#include "Marked.h"
#include "language/Functions.h"
#include "language/Tags.h"
#include "language/Vocabulary.h"
#include "support/Scratch.h"

namespace fs = std::filesystem;

namespace klt::test {
namespace {

std::vector<fs::path> goldens() {
    std::vector<fs::path> paths;
    for (const auto& entry : fs::directory_iterator(KLT_TEST_DATA "/golden"))
        if (entry.path().extension() == ".klt") paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    return paths;
}

class Golden : public testing::TestWithParam<fs::path> {
protected:
    const std::string lines = readBytes(GetParam());
};

TEST_P(Golden, LooksAsItShould) {
    CheckerState state;
    const auto found = checkedDocument(lines, state);
    const auto wanted = readBytes(fs::path(GetParam()).replace_extension(".marked"));
    if (found == wanted) return;
    const auto path = GetParam().stem().string() + ".marked.new";
    writeBytes(path, found);
    const auto differs = std::mismatch(found.begin(), found.end(), wanted.begin(), wanted.end()).first;
    FAIL() << GetParam().string() << ":" << std::count(found.begin(), differs, '\n') + 1
           << ": not as in the golden; see " << fs::absolute(path);
}

TEST_P(Golden, IsTheSameInSlicesAndInASecondPass) {
    const auto text = withCrLf(lines);
    StyledText whole(text);
    CheckerState wholeState;
    ErrorRuns wholeErrors;
    CheckDocument(whole, wholeState, nullptr, &wholeErrors);
    const auto count = std::count(text.begin(), text.end(), '\n') + 1;
    for (Position size = 1; size <= count; ++size) {
        SCOPED_TRACE("slices of " + std::to_string(size));
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
        EXPECT_GE(pass.linesDone(), count);
        ASSERT_EQ(sliced.text(), whole.text());
        ASSERT_EQ(sliced.styles(), whole.styles());
        ASSERT_EQ(errors, wholeErrors);
        ASSERT_EQ(state, wholeState);
    }
    StyledText again{std::string(whole.text())};
    CheckerState state;
    CheckDocument(again, state);
    EXPECT_EQ(again.styles(), whole.styles());
    EXPECT_EQ(again.text(), whole.text());
}

INSTANTIATE_TEST_SUITE_P(All, Golden, testing::ValuesIn(goldens()),
                         [](const auto& row) { return row.param.stem().string(); });

/// All runs of each style that the goldens show, in canonical spelling.
std::map<StyleCategory, std::set<std::string>> runsOfGoldens() {
    std::map<StyleCategory, std::set<std::string>> runs;
    for (const auto& path : goldens()) {
        StyledText styled(withCrLf(readBytes(path)));
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

TEST(GoldenCoverage, ShowsEveryStyleAndWord) {
    const auto runs = runsOfGoldens();
    EXPECT_EQ(runs.size(), kStyleCategoryNames.size());
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
