#include "cli/Arguments.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

namespace klt {
namespace {

using Words = std::vector<std::string>;

std::string joined(const Words& words) {
    std::string all;
    for (const auto& word : words) all += "|" + word;
    return all;
}

std::string shown(const CheckFiles& asked) {
    return joined(asked.files) + (asked.preview ? " as " + *asked.preview : "");
}
std::string shown(const CheckOneField& asked) {
    return asked.tag + asked.text + "|" + asked.section + (asked.passHasRun ? " after a pass" : "");
}
std::string shown(const CheckArguments& asked) {
    return std::visit([](const auto& subject) { return shown(subject); }, asked.subject);
}
std::string shown(const FormatArguments& asked) {
    return joined(asked.files);
}
std::string shown(const MergeArguments& asked) {
    return joined(asked.files) + " to " + asked.output;
}
std::string shown(const Answer& answer) {
    return answer.text;
}
std::string shown(const BadArguments& bad) {
    return "bad" + std::string(bad.reason.empty() ? " without a reason" : "");
}
std::string parsed(const Words& words) {
    return std::visit([](const auto& asked) { return shown(asked); }, parseArguments(words));
}

TEST(Arguments, WhatIsAskedFor) {
    const std::pair<Words, const char*> rows[] = {
        {{"check", "a.klt"}, "|a.klt"},
        {{"check", "a", "b", "a"}, "|a|b|a"},
        {{"check", "--", "-q", "--quiet"}, "|-q|--quiet"},
        {{"check", "check", "format"}, "|check|format"},
        {{"check", "[a,b]", "[]", "[c"}, "|[a,b]|[]|[c"},
        {{"check", "--format", "runs", "--preview", "[ADS]", "a"}, "|a as [ADS]"},
        {{"check", "--preview=[SKILLS]", "a"}, "|a as [SKILLS]"},
        {{"check", "--preview", "", "a"}, "|a as "},
        {{"check", "--field", "cost(", "--", "--pass-has-run"}, "cost(--pass-has-run|"},
        {{"check", "--field", "cost(", "--", "--"}, "cost(--|"},
        {{"check", "--field", "notes(", ""}, "notes(|"},
        {{"check", "--field", "notes(", "[a, b]"}, "notes([a, b]|"},
        {{"check", "--field", "step(", "--section", "[MODS]", "--pass-has-run", "1"},
         "step(1|[MODS] after a pass"},
        {{"format", "--check", "[a]", "-"}, "|[a]|-"},
        {{"merge", "[a,b]", "b", "--output=[o]"}, "|[a,b]|b to [o]"},
    };
    for (const auto& [words, wanted] : rows) EXPECT_EQ(parsed(words), wanted) << joined(words);
}

TEST(Arguments, HelpAndVersionAnswerBeforeAnythingElse) {
    const std::pair<Words, const char*> rows[] = {
        {{"--help"}, "check"},
        {{"-h"}, "--version"},
        {{"check", "--help"}, "--preview"},
        {{"format", "--help"}, "--in-place"},
        {{"merge", "-h"}, "--output"},
        {{"check", "--field", "gives(", "--help"}, "--pass-has-run"},
    };
    for (const auto& [words, part] : rows)
        EXPECT_NE(parsed(words).find(part), std::string::npos) << joined(words);
}

TEST(Arguments, WhatMakesNoSense) {
    for (const char* line :
         {"", "a.klt", "check", "format", "check --format xml a", "check --color yes a", "check -x a",
          "check --in-place a", "check --preview", "check --field gives(", "check --field gives( a b",
          "check --field gives( --preview [ADS] a", "check --section [ADS] a", "check --pass-has-run a",
          "format --check --in-place a", "format --quiet a", "merge a", "merge -o a"}) {
        std::istringstream words(line);
        EXPECT_EQ(parsed({std::istream_iterator<std::string>(words), {}}), "bad") << line;
    }
}

}  // namespace
}  // namespace klt
