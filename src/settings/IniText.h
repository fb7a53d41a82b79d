#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Failure.h"
#include "text/Encoding.h"

namespace klt {

/// A line of a section: what stands before and behind its first "=", without blanks and tabs around.
struct IniRow {
    std::string key;
    std::string value;
    bool operator==(const IniRow&) const = default;
};

/// The most characters of a value that are read.
inline constexpr size_t kLongestIniValue = 255;

/// The bytes of an INI file; what is not the changed entry stays byte for byte. They are text as `decode`
/// tells, ASCII alone being Windows-1252. Lines end with CR LF, LF or CR. A line with "=" is a row, unless it
/// begins with
/// ";". Sections and keys are compared without regard to case, and the first of several counts. Names and
/// values are given and taken as UTF-8.
class IniText {
public:
    explicit IniText(std::string bytes);

    /// Why the bytes can't be read and written so: UTF-32, a NUL, or what is not valid in its encoding.
    const Failure& fault() const { return fault_; }
    const std::string& bytes() const { return bytes_; }

    /// All rows of a section; a key that comes again has the value of its first row. None without the
    /// section, or where there is a fault. Of a value here and below no more than `kLongestIniValue`
    /// characters.
    std::vector<IniRow> rows(std::string_view section) const;
    std::optional<std::string> value(std::string_view section, std::string_view key) const;

    /// Sets the value of a key. A new key comes behind the section's last row, a new section to the end, both
    /// with the line ends of what stands in front of them, else CR LF. An error, with nothing changed, where
    /// there is a fault, where the encoding lacks a character, or where the entry would not be read back as
    /// it is.
    [[nodiscard]] Failure put(std::string_view section, std::string_view key, std::string_view value);

private:
    std::optional<std::string_view> wholeValue(std::string_view section, std::string_view key) const;
    std::string textWith(std::string_view section, std::string_view key, std::string_view value) const;

    std::string bytes_;
    std::string text_;
    Encoding encoding_ = Encoding::Windows1252;
    Failure fault_;
};

}  // namespace klt
