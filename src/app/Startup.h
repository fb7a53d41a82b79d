#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace klt {

class Editor;
class Instances;

/// The one entry of the program; what it returns is the process's exit status.
int Main(int argc, char** argv);

/// What `--help` or `--version` among the arguments is answered with; nothing without them.
std::optional<std::string> answerTo(const std::vector<std::string>& arguments);

/// Hands the command line to an earlier instance, where there is one. True if that has opened the files, so
/// that this process ends.
bool handOverToEarlierInstance(Instances& instances, const std::string& commandLine);

/// From the first step that an only instance takes to the end of start-up: opens the command line's files,
/// or one new document where it is empty.
void startUp(Editor& editor, const std::string& commandLine);

/// Runs a step of the start-up. An error in it is shown in a message, and the start goes on.
void reportingErrors(const std::function<void()>& step);

}  // namespace klt
