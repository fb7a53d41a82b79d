// The pass over whole texts and over previews. The first byte chooses the section that a pass before has
// left.

#include "CheckInvariants.h"
#include "checker/DocumentPass.h"

using namespace klt;

namespace {

struct Checked {
    Checked(std::string bytes, std::string_view section, Position slice) : text(std::move(bytes)) {
        state.SetCurrentSection(section);
        DocumentPass pass(text, state, nullptr, &errors);
        while (pass.advance(slice)) {
        }
    }

    StyledText text;
    CheckerState state;
    ErrorRuns errors;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    if (size == 0) return 0;
    const auto section = kSectionNames[data[0] % kSectionNames.size()];
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);

    const Checked whole(text, section, static_cast<Position>(text.size()) + 1);
    fuzz::requireSound(text, whole.text, whole.errors);
    for (const Position slice : {1, 3}) {
        const Checked sliced(text, section, slice);
        fuzz::require(sliced.text.text() == whole.text.text() &&
                          sliced.text.styles() == whole.text.styles() && sliced.errors == whole.errors &&
                          sliced.state == whole.state,
                      "whole equals sliced");
    }
    const Checked again(std::string(whole.text.text()), section, 7);
    fuzz::require(again.text.styles() == whole.text.styles(), "a second pass lays the same styles");

    StyledText preview(text);
    CheckerState state;
    state.SetCurrentSection(section);
    ErrorRuns errors;
    CheckRange(preview, state, static_cast<Position>(text.size() / 3), static_cast<Position>(text.size()),
               &errors);
    fuzz::requireSound(text, preview, errors);
    return 0;
}
