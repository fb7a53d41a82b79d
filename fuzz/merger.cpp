// Merging: the bytes of several files, with a NUL between them.

#include <sstream>

#include "CheckInvariants.h"
#include "support/MergeFault.h"
#include "text/Encoding.h"
#include "tools/MergeFiles.h"

using namespace klt;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    std::istringstream bytes(std::string(reinterpret_cast<const char*>(data), size));
    std::vector<std::string> texts;
    for (std::string file; std::getline(bytes, file, '\0');) texts.push_back(decode(file).text);
    const auto merged = MergeTexts(texts);
    const auto fault = mergeFault(texts, merged);
    fuzz::require(fault.empty(), fault.c_str());
    fuzz::require(MergeTexts({merged}) == merged, "a merged text alone stays as it is");
    return 0;
}
