#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace klt {

enum class ReportFormat { Text, Full, Json, Sarif, Runs };
enum class ColourChoice { Auto, Always, Never };

/// `klt check`: files, each as a whole document or, with `preview`, as the text of a preview box in that
/// section.
struct CheckFiles {
    std::vector<std::string> files;
    std::optional<std::string> preview;
};

/// `klt check --field`: the text of one wizard field.
struct CheckOneField {
    std::string text;
    std::string tag;
    std::string section;
    bool passHasRun = false;
};

struct CheckArguments {
    /// Where none is asked for: `Full` on a terminal, else `Text`.
    std::optional<ReportFormat> format;
    ColourChoice colour = ColourChoice::Auto;
    bool quiet = false;
    std::variant<CheckFiles, CheckOneField> subject;
};

struct FormatArguments {
    enum class Goal { Print, Check, InPlace };
    Goal goal = Goal::Print;
    std::vector<std::string> files;
};

/// `klt merge`.
struct MergeArguments {
    std::string output;
    std::vector<std::string> files;
};

/// Help or version, asked for.
struct Answer {
    std::string text;
};

/// The arguments make no sense.
struct BadArguments {
    std::string reason;
};

using Arguments = std::variant<CheckArguments, FormatArguments, MergeArguments, Answer, BadArguments>;

/// Reads the arguments behind the program's name.
Arguments parseArguments(const std::vector<std::string>& arguments);

}  // namespace klt
