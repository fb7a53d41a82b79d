#include "cli/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace klt {

namespace {

template <typename Value, size_t count>
using Choices = std::array<std::pair<std::string_view, Value>, count>;

constexpr Choices<ReportFormat, 5> kFormats = {{
    {"full", ReportFormat::Full},
    {"text", ReportFormat::Text},
    {"json", ReportFormat::Json},
    {"sarif", ReportFormat::Sarif},
    {"runs", ReportFormat::Runs},
}};
constexpr Choices<ColourChoice, 3> kColours = {{
    {"auto", ColourChoice::Auto},
    {"always", ColourChoice::Always},
    {"never", ColourChoice::Never},
}};

template <typename Value, size_t count, typename Chosen>
void addChoice(CLI::App& app, const char* name, const char* help, const Choices<Value, count>& choices,
               Chosen& chosen) {
    std::vector<std::string> names;
    for (const auto& choice : choices) names.emplace_back(choice.first);
    const auto choose = [&choices, &chosen](const std::string& text) {
        for (const auto& choice : choices)
            if (choice.first == text) chosen = choice.second;
    };
    app.add_option_function<std::string>(name, choose, help)->check(CLI::IsMember(names))->type_name("WHAT");
}

// The library takes a value "[a,b]" for a list of two. With a NUL in front it is none; no argument of the
// system's holds a NUL.
constexpr char kGuard = '\0';

std::string guarded(const std::string& argument) {
    return argument.starts_with('[') ? kGuard + argument : argument;
}

std::string unguarded(std::string argument) {
    if (argument.starts_with(kGuard)) argument.erase(0, 1);
    return argument;
}

std::vector<std::string> unguarded(std::vector<std::string> arguments) {
    for (auto& argument : arguments) argument = unguarded(std::move(argument));
    return arguments;
}

class Parser {
public:
    Parser() {
        app_.require_subcommand(1);
        app_.set_version_flag("--version", "klt " KLT_VERSION, "Say the version and exit");
        app_.set_help_flag("-h,--help", "Say this and exit");
        addChoice(app_, "--color",
                  "Colour the findings: auto (on a terminal, unless NO_COLOR is set), always, never",
                  kColours, checkArguments_.colour);
        app_.footer(
            "Exit status: 0 clean, 1 errors found (or a text that would change), 2 something could not "
            "be done.\n\"-\" as FILE is standard input. See klt(1).");
        describeCheck();
        describeFormat();
        describeMerge();
    }

    Arguments parse(const std::vector<std::string>& arguments) {
        std::vector<std::string> reversed;
        std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(reversed), guarded);
        try {
            app_.parse(std::move(reversed));
        } catch (const CLI::CallForHelp&) {
            return Answer{app_.help()};
        } catch (const CLI::CallForVersion& version) {
            return Answer{std::string(version.what()) + "\n"};
        } catch (const CLI::ParseError& error) {
            return BadArguments{unknownArgument().value_or(error.what())};
        }
        if (format_->parsed()) return formatArguments();
        if (merge_->parsed())
            return MergeArguments{unguarded(std::move(output_)), unguarded(std::move(files_))};
        return checkArguments();
    }

private:
    // The library complains first of what lacks, which a mistyped word may have caused.
    std::optional<std::string> unknownArgument() const {
        const auto left = app_.remaining(true);
        if (left.empty()) return std::nullopt;
        const auto first = unguarded(left.front());
        if (first.size() > 1 && first.starts_with('-'))
            return "No such option: " + first.substr(0, first.find('='));
        return "No such command: " + first;
    }

    void describeCheck() {
        check_ = app_.add_subcommand("check", "Find the errors in data files");
        check_->fallthrough();
        addChoice(*check_, "--format",
                  "What to write: full (with the lines; on a terminal the default), text (else the default), "
                  "json, sarif, runs",
                  kFormats, checkArguments_.format);
        check_->add_flag("-q,--quiet", checkArguments_.quiet, "Write no findings, only give the exit status");
        describeTesting();
        check_->add_option("FILE", files_, "Data files; with --field the one TEXT")
            ->type_name("")
            ->required();
    }

    void describeTesting() {
        constexpr const char* kGroup = "For testing";
        auto* preview = check_->add_option("--preview", preview_, "Check each FILE as a preview box does")
                            ->type_name("SECTION")
                            ->group(kGroup);
        field_ = check_->add_option("--field", tag_, "Check TEXT as the value of TAG, as a field does")
                     ->type_name("TAG")
                     ->excludes(preview)
                     ->group(kGroup);
        check_->add_option("--section", section_, "The section that the field belongs to")
            ->type_name("SECTION")
            ->needs(field_)
            ->group(kGroup);
        check_->add_flag("--pass-has-run", passHasRun_, "Check the field as after a pass over a document")
            ->needs(field_)
            ->group(kGroup);
    }

    void describeFormat() {
        format_ = app_.add_subcommand("format", "Put the case of words and the line ends right");
        format_->fallthrough();
        auto* inPlace = format_->add_flag("-i,--in-place", inPlace_, "Write each FILE that changes");
        format_->add_flag("--check", checkOnly_, "Write nothing; exit with 1 if something would change")
            ->excludes(inPlace);
        format_->add_option("FILE", files_, "Data files")->type_name("")->required();
    }

    void describeMerge() {
        merge_ = app_.add_subcommand("merge", "Write what several data files hold as one");
        merge_->fallthrough();
        merge_->add_option("-o,--output", output_, "The file to write")->type_name("OUT")->required();
        merge_->add_option("FILE", files_, "Data files, in the order in which they come")
            ->type_name("")
            ->required();
    }

    Arguments checkArguments() {
        auto files = unguarded(std::move(files_));
        if (field_->count() == 0) {
            std::optional<std::string> section;
            if (preview_) section = unguarded(std::move(*preview_));
            checkArguments_.subject = CheckFiles{std::move(files), std::move(section)};
        } else if (files.size() == 1) {
            checkArguments_.subject = CheckOneField{std::move(files.front()), unguarded(std::move(tag_)),
                                                    unguarded(std::move(section_)), passHasRun_};
        } else {
            return BadArguments{"--field takes one TEXT"};
        }
        return std::move(checkArguments_);
    }

    Arguments formatArguments() {
        using Goal = FormatArguments::Goal;
        return FormatArguments{checkOnly_ ? Goal::Check
                               : inPlace_ ? Goal::InPlace
                                          : Goal::Print,
                               unguarded(std::move(files_))};
    }

    CLI::App app_{"Checks, formats and merges .klt data files.", "klt"};
    CLI::App* check_ = nullptr;
    CLI::App* format_ = nullptr;
    CLI::App* merge_ = nullptr;
    CLI::Option* field_ = nullptr;

    CheckArguments checkArguments_;
    std::optional<std::string> preview_;
    std::string tag_;
    std::string section_;
    bool passHasRun_ = false;
    bool inPlace_ = false;
    bool checkOnly_ = false;
    std::string output_;
    std::vector<std::string> files_;
};

}  // namespace

Arguments parseArguments(const std::vector<std::string>& arguments) {
    return Parser().parse(arguments);
}

}  // namespace klt
