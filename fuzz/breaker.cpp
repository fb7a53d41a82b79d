// One line broken and read back. The first byte chooses its section, the second and third the maximum and the
// tolerance.

#include "CheckInvariants.h"
#include "support/BrokenLaws.h"

using namespace klt;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    if (size < 3) return 0;
    std::string line(reinterpret_cast<const char*>(data) + 3, size - 3);
    std::erase_if(line, [](char c) { return c == '\r' || c == '\n'; });
    const auto section = sectionOf(kSectionNames[data[0] % kSectionNames.size()]);
    const auto* law = brokenLaw(line, section, {.maximum = data[1], .tolerance = data[2]});
    fuzz::require(law == nullptr, law);
    return 0;
}
