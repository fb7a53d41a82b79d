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
        while (pass.advance(slice)) laid.append(newlySettled(pass));
        laid.append(newlySettled(pass));
    }

    std::string_view newlySettled(const DocumentPass& pass) const {
        return text.styles().substr(laid.size(), static_cast<size_t>(pass.settledEnd()) - laid.size());
    }

    StyledText text;
    CheckerState state;
    ErrorRuns errors;
    /// The styles, each as it was when the pass said for the first time that it is settled.
    std::string laid;
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
        fuzz::require(sliced.laid == whole.text.styles(), "what is settled stays as it is");
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
