// One field. The first byte chooses its tag, the second the section and whether a pass has run.

#include "CheckInvariants.h"
#include "checker/DocumentPass.h"
#include "language/Tags.h"

using namespace klt;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    if (size < 2) return 0;
    const auto tag = static_cast<Tag>(data[0] % (static_cast<unsigned char>(Tag::Value) + 1));
    const std::string text(reinterpret_cast<const char*>(data) + 2, size - 2);

    CheckerState before;
    before.SetCurrentSection(kSectionNames[data[1] / 2 % kSectionNames.size()]);
    if (data[1] % 2 == 0) before.functionStack.reset();

    auto state = before;
    StyledText field(text);
    ErrorRuns errors;
    CheckField(field, state, tagWord(tag), &errors);
    fuzz::requireSound(text, field, errors);

    state = before;
    StyledText again{std::string(field.text())};
    CheckField(again, state, tagWord(tag));
    fuzz::require(again.styles() == field.styles(), "a second check lays the same styles");
    return 0;
}
