#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace klt {

/// How a file's bytes stand for text. `Any` is ASCII alone, or a new document: nothing is decided yet.
enum class Encoding { Any, Windows1252, Utf8, Utf8Bom, Utf16LE, Utf16BE, Utf32LE, Utf32BE };

/// Its name for a person; ASCII alone, which every encoding could be, is "ASCII".
std::string_view encodingName(Encoding encoding);
/// What a person is told where it is not what it was.
std::string encodingChange(Encoding before, Encoding now);

/// The largest file, and the longest text, in bytes: text boxes count in int.
inline constexpr size_t kLargestFile = (size_t{1} << 31) - 1;

struct Decoded {
    std::string text;
    Encoding encoding = Encoding::Any;
    /// The bytes of a file that it is written to: more than it was read from where line ends were mended.
    size_t fileSize = 0;
};

/// The text of a file's bytes: UTF-8, with CR LF for every line end. A byte order mark (of UTF-8, UTF-16 or
/// UTF-32) decides where the bytes behind it bear it out, else valid UTF-8 is UTF-8, else it is Windows-1252,
/// whose five undefined bytes become the C1 characters of the same number. Bytes that are already such text
/// come back without a copy.
Decoded decode(std::string bytes);

/// The same with the line ends that the bytes have.
Decoded decodeAsIs(std::string bytes);

/// A file's bytes. Where they are those of the text itself they are not copied: then the text must live on.
class Encoded {
public:
    Encoded(std::string_view text, Encoding encoding) : shared_(text), encoding_(encoding) {}
    Encoded(std::string bytes, Encoding encoding)
        : owned_(std::move(bytes)), isOwned_(true), encoding_(encoding) {}

    std::string_view bytes() const { return isOwned_ ? std::string_view(owned_) : shared_; }
    /// The encoding that was used: not the one asked for where that could not hold the text.
    Encoding encoding() const { return encoding_; }

private:
    std::string_view shared_;
    std::string owned_;
    bool isOwned_ = false;
    Encoding encoding_;
};

/// The bytes of a text with CR LF line ends, such that `decode` gives the text back. `Any` is written as
/// Windows-1252 where that can hold the text. What `encoding` can't hold, or what would be read back as
/// another text, is written as UTF-8. A `text` that is no valid UTF-8 is written as it stands.
Encoded encode(std::string_view text, Encoding encoding);

/// The same for any line ends, which stay as they are; `decodeAsIs` gives such a text back.
Encoded encodeAsIs(std::string_view text, Encoding encoding);

}  // namespace klt
