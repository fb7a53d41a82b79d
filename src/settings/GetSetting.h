#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "settings/Conversions.h"
#include "settings/Store.h"

namespace klt {

/// A default at a call, as the text that it stands for: a number in decimal form, true as "True".
class SettingDefault {
public:
    SettingDefault() = default;
    SettingDefault(std::string_view text) : text_(text) {}
    SettingDefault(const std::string& text) : text_(text) {}
    SettingDefault(const char* text) : text_(text) {}
    SettingDefault(std::same_as<bool> auto truth) : text_(truthText(truth)) {}
    SettingDefault(std::integral auto number) requires(!std::same_as<decltype(number), bool> &&
                                                       !std::same_as<decltype(number), char>)
        : text_(std::to_string(number)) {}

    const std::string& text() const& { return text_; }
    std::string text() && { return std::move(text_); }

private:
    std::string text_;
};

/// The plain settings road: texts under an application, a section and a key, compared without regard to case.
///
/// The stored text (a number written on another road as decimal text), or the default where section or key is
/// absent or the store can't be read. A text of length 0 is a text.
std::string GetSetting(Store& store, std::string_view application, std::string_view section,
                       std::string_view key, SettingDefault fallback = {});
/// Whether anything is stored under the key.
bool HasSetting(Store& store, std::string_view application, std::string_view section, std::string_view key);
/// True if the text is stored, on the disk.
bool SaveSetting(Store& store, std::string_view application, std::string_view section, std::string_view key,
                 std::string_view text);
/// Removes a whole application, a section with all below it, or one key. True if it was there.
bool DeleteSetting(Store& store, std::string_view application);
bool DeleteSetting(Store& store, std::string_view application, std::string_view section);
bool DeleteSetting(Store& store, std::string_view application, std::string_view section,
                   std::string_view key);

/// All pairs of key and value of a section, in the order of their making; empty when the section is absent.
std::vector<std::pair<std::string, std::string>> GetAllSettings(Store& store, std::string_view application,
                                                                std::string_view section);

}  // namespace klt
