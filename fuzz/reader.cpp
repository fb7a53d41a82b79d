// Any bytes are read as text, and no text is lost by writing it.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string>

#include "text/Encoding.h"
#include "text/LineEnds.h"
#include "text/Unicode.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace klt;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto read = decode(bytes);
    require(isValidUtf8(read.text) && hasOnlyCrLf(read.text));

    const auto written = encode(read.text, read.encoding);
    const bool isSame = written.encoding() == read.encoding;
    // The bytes are bytes of the same file, apart from line ends, which a second round no longer changes.
    const auto again = decode(std::string(written.bytes()));
    require(again.text == read.text);
    require(encode(again.text, again.encoding).bytes() == written.bytes());
    const bool hadCrLf = hasOnlyCrLf(bytes);
    constexpr Encoding kWide[] = {Encoding::Utf16LE, Encoding::Utf16BE, Encoding::Utf32LE, Encoding::Utf32BE};
    const bool isWide = std::find(std::begin(kWide), std::end(kWide), read.encoding) != std::end(kWide);
    if (hadCrLf && !isWide) require(isSame && written.bytes() == bytes);

    for (const auto encoding : {Encoding::Any, Encoding::Windows1252, Encoding::Utf8, Encoding::Utf8Bom,
                                Encoding::Utf16LE, Encoding::Utf16BE, Encoding::Utf32LE, Encoding::Utf32BE})
        require(decode(std::string(encode(read.text, encoding).bytes())).text == read.text);
    return 0;
}
