#pragma once

#include <string>
#include <string_view>

namespace klt {

/// A stream of bytes to an open descriptor, through a buffer. What is left in the buffer when it is destroyed
/// is lost: flush it. After the first failure everything more is dropped.
class Output {
public:
    explicit Output(int descriptor) : descriptor_(descriptor) {}

    void write(std::string_view bytes);
    void flush();

    /// The error number of the first write that failed; 0 where all went well.
    int error() const { return error_; }
    bool isTerminal() const;
    /// The width of the terminal; 0 where it is none, or does not know.
    size_t columns() const;

private:
    void send(std::string_view bytes);

    int descriptor_;
    int error_ = 0;
    std::string buffer_;
};

}  // namespace klt
