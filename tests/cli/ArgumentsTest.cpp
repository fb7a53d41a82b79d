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

struct Shown {
    std::string operator()(const CheckFiles& asked) const {
        return joined(asked.files) + (asked.preview ? " as " + *asked.preview : "");
    }
    std::string operator()(const CheckOneField& asked) const {
        return asked.tag + asked.text + "|" + asked.section + (asked.passHasRun ? " after a pass" : "");
    }
    std::string operator()(const CheckArguments& asked) const { return std::visit(*this, asked.subject); }
    std::string operator()(const FormatArguments& asked) const { return joined(asked.files); }
    std::string operator()(const MergeArguments& asked) const {
        return joined(asked.files) + " to " + asked.output;
    }
    std::string operator()(const Answer& answer) const { return answer.text; }
    std::string operator()(const BadArguments& bad) const { return bad.reason.empty() ? "" : "bad"; }
};

std::string parsed(const Words& words) {
    return std::visit(Shown(), parseArguments(words));
}

TEST(Arguments, WhatIsAskedFor) {
    const std::pair<Words, const char*> rows[] = {
        {{"check", "a.klt"}, "|a.klt"},
        {{"check", "a", "b", "a"}, "|a|b|a"},
        {{"check", "--", "-q", "--quiet"}, "|-q|--quiet"},
        {{"check", "check", "format"}, "|check|format"},
        {{"check", "[a,b]", "[]", "[c"}, "|[a,b]|[]|[c"},
        {{"check", "--format", "runs", "--preview", "[ADS]", "a"}, "|a as [ADS]"},
        {{"check", "--format=full", "a"}, "|a"},
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

TEST(Arguments, WhatIsUnknownIsNamed) {
    const std::pair<Words, const char*> rows[] = {
        {{"chek", "a.klt"}, "No such command: chek"},
        {{"[chek"}, "No such command: [chek"},
        {{"-"}, "No such command: -"},
        {{"--foo"}, "No such option: --foo"},
        {{"check", "--forma", "xml", "a"}, "No such option: --forma"},
        {{"check", "--forma=xml"}, "No such option: --forma"},
        {{"check", "a", "-x"}, "No such option: -x"},
        {{"format", "--chek", "a"}, "No such option: --chek"},
        {{"merge", "-z", "a"}, "No such option: -z"},
    };
    for (const auto& [words, wanted] : rows) {
        const auto bad = parseArguments(words);
        ASSERT_TRUE(std::holds_alternative<BadArguments>(bad)) << joined(words);
        EXPECT_EQ(std::get<BadArguments>(bad).reason, wanted) << joined(words);
    }
}

TEST(Arguments, OptionsForTestingStandApart) {
    const auto help = parsed({"check", "--help"});
    const auto apart = help.find("\nFor testing:\n");
    ASSERT_NE(apart, std::string::npos) << help;
    for (const char* option : {"--preview", "--field", "--section", "--pass-has-run"})
        EXPECT_GT(help.find(std::string("\n  ") + option), apart) << option << help;
    for (const char* option : {"--format", "-q,--quiet"})
        EXPECT_LT(help.find(std::string("\n  ") + option), apart) << option << help;
}

}  // namespace
}  // namespace klt
