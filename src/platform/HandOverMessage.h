#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace klt {

/// The longest text that a receiver takes, in bytes of UTF-16.
inline constexpr size_t kLongestMessage = 1024 * 1024;

/// The receiver's two answers, one byte each: the message is taken, all its files are open.
inline constexpr char kAcknowledged = 0x06;
inline constexpr char kFilesAreOpen = 0x04;

/// A command line as it goes over the socket: the length in bytes (32 bits, low byte first), then UTF-16LE.
/// Bytes that are no UTF-8, which file names may hold, travel as lone low surrogates and come back as they
/// were.
std::string encodeMessage(std::string_view commandLine);

/// The text of UTF-16LE bytes as UTF-8: the way back. A lone surrogate that stands for no byte becomes
/// U+FFFD.
std::string decodeMessageText(std::string_view utf16);

/// Gathers one message from pieces of any size, and never more than it.
class MessageReader {
public:
    enum class State { unfinished, complete, refused };

    /// How many bytes may be handed to `take` next; 0 when nothing more is wanted.
    size_t wanted() const;
    /// Takes bytes, at most `wanted()`. A length that is odd or above `kLongestMessage` is refused at once.
    State take(std::string_view bytes);
    State state() const { return state_; }
    /// The command line of a complete message, as UTF-8.
    std::string commandLine() const { return decodeMessageText(text_); }

private:
    State state_ = State::unfinished;
    std::string header_, text_;
    size_t length_ = 0;
};

}  // namespace klt
