#include "cli/FormatCommand.h"

#include <string>

#include "checker/DocumentPass.h"
#include "platform/FileWriter.h"
#include "text/Encoding.h"

namespace klt {

namespace {

using Goal = FormatArguments::Goal;

std::string formatted(std::string text) {
    StyledText styled(std::move(text));
    CheckerState state;
    CheckDocument(styled, state);
    return styled.takeText();
}

Failure formatFile(Session& session, const std::string& path, Goal goal) {
    if (goal == Goal::InPlace && path == kStandardInput) return "It can't be written in place";
    auto file = session.read(path);
    if (file.error) return file.error;

    const auto before = goal == Goal::Print ? std::string() : file.bytes;
    auto decoded = decode(std::move(file.bytes));
    const auto text = formatted(std::move(decoded.text));
    const auto encoded = encode(text, decoded.encoding);
    if (goal == Goal::Print) {
        session.out().write(encoded.bytes());
        return {};
    }
    if (encoded.bytes() == before) return {};
    if (goal == Goal::InPlace) return writeFile(path, encoded.bytes());
    session.complain(shownName(path), "would be changed");
    session.note(ExitStatus::Found);
    return {};
}

}  // namespace

void runFormat(Session& session, const FormatArguments& arguments) {
    session.forEachFile(arguments.files,
                        [&](const std::string& path) { return formatFile(session, path, arguments.goal); });
}

}  // namespace klt
