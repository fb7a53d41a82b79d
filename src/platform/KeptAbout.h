#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/FileIdentity.h"
#include "text/Encoding.h"
#include "text/TextArea.h"

namespace klt {

/// What is known of a kept text beside its bytes.
struct KeptAbout {
    /// The path of its document, or what a document without a file is called.
    std::string name;
    bool hasFile = false;
    Encoding encoding = Encoding::Any;
    Position caret = 0;
    /// The version of the file that the text came from, if it came from one. Its hash holds for one build of
    /// the program: a file that was touched is told as changed by another one.
    std::optional<FileVersion> seen = std::nullopt;
    /// The text lacks something that the file holds, which a save is to keep.
    bool isFileWanted = false;

    bool operator==(const KeptAbout&) const = default;
};

/// As it stands on the disk, with the name of the one who keeps the text.
std::string writeAbout(const KeptAbout& about, std::string_view owner);

struct OwnedAbout {
    KeptAbout about;
    std::string owner;
};

/// Nothing where the bytes are not whole, or of a kind that is not known.
std::optional<OwnedAbout> readAbout(std::string_view bytes);

}  // namespace klt
