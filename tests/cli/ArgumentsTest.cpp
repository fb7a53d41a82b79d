#include "cli/Arguments.h"

#include <gtest/gtest.h>

namespace klt {
namespace {

using Words = std::vector<std::string>;
using Goal = FormatArguments::Goal;

template <typename Kind>
Kind parsed(const Words& words) {
    auto arguments = parseArguments(words);
    if (const auto* bad = std::get_if<BadArguments>(&arguments)) ADD_FAILURE() << bad->reason;
    auto* kind = std::get_if<Kind>(&arguments);
    if (kind == nullptr) ADD_FAILURE() << "another kind, number " << arguments.index();
    return kind ? std::move(*kind) : Kind{};
}

TEST(Arguments, FilesToCheck) {
    struct Row {
        Words words;
        Words files;
        std::optional<std::string> preview;
        ReportFormat format = ReportFormat::Text;
        bool quiet = false;
        ColourChoice colour = ColourChoice::Auto;
    };
    const std::vector<Row> rows = {
        {{"check", "a.klt"}, {"a.klt"}, {}},
        {{"check", "a", "b", "a"}, {"a", "b", "a"}, {}},
        {{"check", "-"}, {"-"}, {}},
        {{"check", "--", "-q", "--quiet"}, {"-q", "--quiet"}, {}},
        {{"check", "check", "format"}, {"check", "format"}, {}},
        {{"check", "[a,b]", "[]", "[c"}, {"[a,b]", "[]", "[c"}, {}},
        {{"check", "a", "--format", "json", "-q"}, {"a"}, {}, ReportFormat::Json, true},
        {{"check", "--format=sarif", "a"}, {"a"}, {}, ReportFormat::Sarif},
        {{"check", "--format", "runs", "--preview", "[ADS]", "a"}, {"a"}, "[ADS]", ReportFormat::Runs},
        {{"check", "--preview=[SKILLS]", "a"}, {"a"}, "[SKILLS]"},
        {{"check", "--preview", "", "a"}, {"a"}, ""},
        {{"--color", "never", "check", "a"}, {"a"}, {}, ReportFormat::Text, false, ColourChoice::Never},
        {{"check", "a", "--color=always"}, {"a"}, {}, ReportFormat::Text, false, ColourChoice::Always},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.words));
        const auto arguments = parsed<CheckArguments>(row.words);
        EXPECT_EQ(arguments.format, row.format);
        EXPECT_EQ(arguments.quiet, row.quiet);
        EXPECT_EQ(arguments.colour, row.colour);
        const auto* subject = std::get_if<CheckFiles>(&arguments.subject);
        ASSERT_NE(subject, nullptr);
        EXPECT_EQ(subject->files, row.files);
        EXPECT_EQ(subject->preview, row.preview);
    }
}

TEST(Arguments, OneFieldToCheck) {
    struct Row {
        Words words;
        std::string tag;
        std::string text;
        std::string section = {};
        bool passHasRun = false;
    };
    const std::vector<Row> rows = {
        {{"check", "--field", "gives(", "+1 to ST"}, "gives(", "+1 to ST"},
        {{"check", "--field", "cost(", "--", "-5"}, "cost(", "-5"},
        {{"check", "--field", "cost(", "--", "--pass-has-run"}, "cost(", "--pass-has-run"},
        {{"check", "--field", "cost(", "--", "--"}, "cost(", "--"},
        {{"check", "--field", "notes(", ""}, "notes(", ""},
        {{"check", "--field", "notes(", "[a, b]"}, "notes(", "[a, b]"},
        {{"check", "--field", "round(", "--section", "[MODS]", "--pass-has-run", "Up"},
         "round(",
         "Up",
         "[MODS]",
         true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.words));
        const auto arguments = parsed<CheckArguments>(row.words);
        const auto* subject = std::get_if<CheckOneField>(&arguments.subject);
        ASSERT_NE(subject, nullptr);
        EXPECT_EQ(subject->tag, row.tag);
        EXPECT_EQ(subject->text, row.text);
        EXPECT_EQ(subject->section, row.section);
        EXPECT_EQ(subject->passHasRun, row.passHasRun);
    }
}

TEST(Arguments, FilesToFormat) {
    struct Row {
        Words words;
        Goal goal;
        Words files;
    };
    for (const auto& row : {Row{{"format", "a", "-"}, Goal::Print, {"a", "-"}},
                            Row{{"format", "--in-place", "a"}, Goal::InPlace, {"a"}},
                            Row{{"format", "a", "-i"}, Goal::InPlace, {"a"}},
                            Row{{"format", "--check", "[a]"}, Goal::Check, {"[a]"}}}) {
        SCOPED_TRACE(testing::PrintToString(row.words));
        const auto arguments = parsed<FormatArguments>(row.words);
        EXPECT_EQ(arguments.goal, row.goal);
        EXPECT_EQ(arguments.files, row.files);
    }
}

TEST(Arguments, FilesToMerge) {
    for (const auto& words :
         {Words{"merge", "-o", "[o]", "[a,b]", "b"}, Words{"merge", "[a,b]", "b", "--output=[o]"}}) {
        const auto arguments = parsed<MergeArguments>(words);
        EXPECT_EQ(arguments.output, "[o]");
        EXPECT_EQ(arguments.files, (Words{"[a,b]", "b"}));
    }
}

TEST(Arguments, HelpAndVersionAnswerBeforeAnythingElse) {
    struct Row {
        Words words;
        std::string part;
    };
    for (const auto& row : {Row{{"--help"}, "check"}, Row{{"-h"}, "--version"}, Row{{"--version"}, "klt "},
                            Row{{"check", "--help"}, "--preview"}, Row{{"format", "--help"}, "--in-place"},
                            Row{{"merge", "-h"}, "--output"},
                            Row{{"check", "--field", "gives(", "--help"}, "--pass-has-run"}}) {
        SCOPED_TRACE(testing::PrintToString(row.words));
        EXPECT_NE(parsed<Answer>(row.words).text.find(row.part), std::string::npos);
    }
}

TEST(Arguments, WhatMakesNoSense) {
    const std::vector<Words> rows = {
        {},
        {"a.klt"},
        {"check"},
        {"format"},
        {"check", "--format", "xml", "a"},
        {"check", "--color", "yes", "a"},
        {"check", "-x", "a"},
        {"check", "--in-place", "a"},
        {"check", "--preview"},
        {"check", "--field", "gives("},
        {"check", "--field", "gives(", "a", "b"},
        {"check", "--field", "gives(", "--preview", "[ADS]", "a"},
        {"check", "--section", "[ADS]", "a"},
        {"check", "--pass-has-run", "a"},
        {"format", "--check", "--in-place", "a"},
        {"format", "--quiet", "a"},
        {"merge", "a"},
        {"merge", "-o", "a"},
    };
    for (const auto& row : rows) {
        const auto arguments = parseArguments(row);
        const auto* bad = std::get_if<BadArguments>(&arguments);
        ASSERT_NE(bad, nullptr) << testing::PrintToString(row);
        EXPECT_FALSE(bad->reason.empty()) << testing::PrintToString(row);
    }
}

}  // namespace
}  // namespace klt
