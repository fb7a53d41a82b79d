#include "settings/modINIStuff.h"

#include <cerrno>
#include <utility>

#include "platform/FileReader.h"
#include "platform/FileWriter.h"
#include "text/Ascii.h"
#include "text/Unicode.h"

namespace klt {

void modINIStuff::RegisterIni(std::string_view section, std::string_view file) {
    section_ = trimBlanks(section);
    file_ = trimBlanks(file);
    isRegistered_ = true;
    text_.reset();
}

modINIStuff::Section modINIStuff::IniGetSection() {
    if (auto error = load()) return {{}, std::move(error)};
    return {text_->rows(section_), std::nullopt};
}

modINIStuff::Value modINIStuff::IniGetValue(std::string_view key, std::string_view fallback) {
    if (auto error = load()) return {{}, std::move(error)};
    auto value = text_->value(section_, key);
    if (!value) value = firstCharacters(fallback, kLongestIniValue);
    return {std::move(*value), std::nullopt};
}

Failure modINIStuff::IniPutValue(std::string_view key, std::string_view value) {
    if (auto error = load()) return error;
    return text_->put(section_, key, value);
}

Failure modINIStuff::IniFlush() {
    if (auto error = load()) return error;
    if (text_->bytes() == before_) return std::nullopt;
    if (auto error = writeFile(file_, text_->bytes())) return error;
    before_ = text_->bytes();
    return std::nullopt;
}

Failure modINIStuff::load() {
    if (!isRegistered_) return std::string(kIniNotRegistered);
    if (text_) return std::nullopt;
    auto file = readFile(file_);
    if (file.error && file.error != systemFailure(ENOENT)) return file.error;
    IniText text(std::move(file.bytes));
    if (text.fault()) return text.fault();
    before_ = text.bytes();
    text_ = std::move(text);
    return std::nullopt;
}

}  // namespace klt
