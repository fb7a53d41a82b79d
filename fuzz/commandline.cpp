// A command line from anywhere: over the socket and back as it was, and taken apart.

#include <cstdint>
#include <cstdlib>

#include "platform/CommandLine.h"
#include "platform/HandOverMessage.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto message = klt::encodeMessage(bytes);
    if (klt::decodeMessageText(std::string_view(message).substr(4)) != bytes) std::abort();

    klt::MessageReader reader;
    for (size_t at = 0; at < size && reader.wanted() > 0; ++at) reader.take({bytes.data() + at, 1});
    for (const auto& line : {bytes, reader.commandLine(), klt::buildCommandLine({bytes, bytes}, "/")}) {
        const auto split = klt::splitCommandLine(line);
        if (split.paths.empty() == (split.error == klt::CommandLineError::none)) std::abort();
    }
    // A full path comes back as it was, whatever is in it but the quotes that part it from the next.
    const auto path = "/." + bytes;
    const std::vector<std::string> paths = {path, path};
    if (bytes.find('"') == bytes.npos &&
        klt::splitCommandLine(klt::buildCommandLine(paths, "/")).paths != paths)
        std::abort();
    return 0;
}
