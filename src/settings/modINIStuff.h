#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/IniText.h"

namespace klt {

/// What a call gives as its error that comes before `RegisterIni`; no other error reads so.
inline constexpr std::string_view kIniNotRegistered = "[Section] and FileName Not Registered in Private.Ini!";

/// One section of an INI file at a time. The file is read at the first call that needs it, and a file that is
/// not there is empty. Paths in errors: none, the caller knows the file.
class modINIStuff {
public:
    struct Section {
        std::vector<IniRow> rows;
        Failure error;
    };
    struct Value {
        std::string text;
        Failure error;
    };

    /// The section and the file that the other calls go by, without the blanks around. What was put and not
    /// flushed is dropped.
    void RegisterIni(std::string_view section, std::string_view file);
    /// The section's rows as `IniText` tells; their count is the count of keys.
    Section IniGetSection();
    /// The value of the key, or the default, no more than `kLongestIniValue` characters of either.
    Value IniGetValue(std::string_view key, std::string_view fallback);
    /// Sets a value, which the next `IniFlush` writes.
    [[nodiscard]] Failure IniPutValue(std::string_view key, std::string_view value);
    /// Ends a series of writes: all that was put comes into the file at once, as `writeFile` tells, or
    /// nothing. A folder that is missing is not made. Where nothing has changed, nothing is written.
    [[nodiscard]] Failure IniFlush();

private:
    Failure load();

    std::string section_;
    std::string file_;
    bool isRegistered_ = false;
    std::string before_;
    std::optional<IniText> text_;
};

}  // namespace klt
