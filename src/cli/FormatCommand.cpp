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

void tellIfRecoded(Session& session, const std::string& path, Encoding before, Encoding now) {
    if (before == Encoding::Any || before == now) return;
    session.complain(shownName(path), encodingChange(before, now));
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
        tellIfRecoded(session, path, decoded.encoding, encoded.encoding());
        return {};
    }
    if (encoded.bytes() == before) return {};
    if (goal == Goal::InPlace) {
        auto failure = writeFile(path, encoded.bytes());
        if (!failure) tellIfRecoded(session, path, decoded.encoding, encoded.encoding());
        return failure;
    }
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
