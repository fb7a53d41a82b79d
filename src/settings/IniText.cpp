#include "settings/IniText.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "text/Ascii.h"
#include "text/Unicode.h"

namespace klt {

namespace {

constexpr std::string_view kLineEnds = "\r\n";

struct Line {
    std::string_view text;  ///< without the blanks in front, and without its line end
    size_t next = 0;        ///< the offset behind the line end
};

// Both are parts of the text that they were read from.
struct Row {
    std::string_view key;
    std::string_view value;
};

std::string_view withoutIndent(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanksAndTabs), text.size()));
    return text;
}

Line lineAt(std::string_view text, size_t start) {
    // `find_first_of` makes a call for each byte.
    size_t end = start;
    while (end < text.size() && text[end] != '\r' && text[end] != '\n') ++end;
    const auto next = end + (text.substr(end).starts_with(kLineEnds) ? 2 : 1);
    return {withoutIndent(text.substr(start, end - start)), std::min(next, text.size())};
}

std::optional<std::string_view> headerOf(std::string_view line) {
    const auto end = line.find(']');
    if (!line.starts_with('[') || end == line.npos) return std::nullopt;
    return line.substr(1, end - 1);
}

std::optional<Row> rowOf(std::string_view line) {
    const auto equals = line.find('=');
    if (line.starts_with(';') || equals == line.npos) return std::nullopt;
    return Row{trimBlanksAndTabs(line.substr(0, equals)), trimBlanksAndTabs(line.substr(equals + 1))};
}

// The offset behind the section's header line.
std::optional<size_t> sectionStart(std::string_view text, std::string_view section) {
    for (size_t at = 0; at < text.size();) {
        const auto line = lineAt(text, at);
        const auto header = headerOf(line.text);
        if (header && equalIgnoringCase(*header, section)) return line.next;
        at = line.next;
    }
    return std::nullopt;
}

// Calls `visit` with each row from `at` to the next header, and the offset behind its line, until it gives
// false.
template <typename Visit>
void eachRow(std::string_view text, size_t at, const Visit& visit) {
    while (at < text.size()) {
        const auto line = lineAt(text, at);
        at = line.next;
        if (headerOf(line.text)) return;
        const auto row = rowOf(line.text);
        if (row && !visit(*row, at)) return;
    }
}

// The last line end in front of `before`; CR LF without one.
std::string_view lastLineEnd(std::string_view text, size_t before) {
    const auto last = text.substr(0, before).find_last_of(kLineEnds);
    if (last == text.npos) return kLineEnds;
    if (text[last] == '\r') return kLineEnds.substr(0, 1);
    return last > 0 && text[last - 1] == '\r' ? kLineEnds : kLineEnds.substr(1);
}

// `at` is a line's start, or the text's end, where the last line may lack its line end: so does then the new
// one.
void insertLine(std::string& text, size_t at, const std::string& line) {
    const std::string lineEnd(lastLineEnd(text, at));
    const bool isBehindLineEnd = at == 0 || kLineEnds.find(text[at - 1]) != kLineEnds.npos;
    text.insert(at, isBehindLineEnd ? line + lineEnd : lineEnd + line);
}

std::string folded(std::string_view text) {
    std::string result;
    for (size_t at = 0; at < text.size();) {
        const auto character = characterAt(text, at);
        appendCharacter(result, foldCase(character.code));
        at += character.length;
    }
    return result;
}

std::string readable(std::string_view value) {
    return std::string(firstCharacters(value, kLongestIniValue));
}

Failure faultIn(const Decoded& decoded, std::string_view bytes) {
    const bool isWide = decoded.encoding == Encoding::Utf32LE || decoded.encoding == Encoding::Utf32BE;
    const bool isText = !isWide && decoded.text.find('\0') == decoded.text.npos;
    if (isText && encodeAsIs(decoded.text, decoded.encoding).bytes() == bytes) return std::nullopt;
    return "The file's encoding is unknown or faulty";
}

}  // namespace

IniText::IniText(std::string bytes) : bytes_(std::move(bytes)) {
    auto decoded = decodeAsIs(bytes_);
    fault_ = faultIn(decoded, bytes_);
    if (fault_) return;
    text_ = std::move(decoded.text);
    if (decoded.encoding != Encoding::Any) encoding_ = decoded.encoding;
}

std::vector<IniRow> IniText::rows(std::string_view section) const {
    std::vector<IniRow> rows;
    const auto start = sectionStart(text_, section);
    if (!start) return rows;
    std::unordered_map<std::string, std::string_view> first;
    eachRow(text_, *start, [&](const Row& row, size_t) {
        const auto value = first.try_emplace(folded(row.key), row.value).first->second;
        rows.push_back({std::string(row.key), readable(value)});
        return true;
    });
    return rows;
}

std::optional<std::string> IniText::value(std::string_view section, std::string_view key) const {
    const auto value = wholeValue(section, key);
    if (!value) return std::nullopt;
    return readable(*value);
}

Failure IniText::put(std::string_view section, std::string_view key, std::string_view value) {
    if (fault_) return fault_;
    const auto text = textWith(section, key, value);
    const auto encoded = encodeAsIs(text, encoding_);
    if (encoded.encoding() != encoding_ || !isValidUtf8(text))
        return "The file's encoding lacks a character of the entry";
    IniText changed{std::string(encoded.bytes())};
    if (changed.wholeValue(section, key) != value) return "The entry can't stand in such a file";
    // The one character that decided the encoding may have gone: the next entry is to be written like this
    // one.
    changed.encoding_ = encoding_;
    *this = std::move(changed);
    return std::nullopt;
}

std::optional<std::string_view> IniText::wholeValue(std::string_view section, std::string_view key) const {
    std::optional<std::string_view> value;
    const auto start = sectionStart(text_, section);
    if (!start) return value;
    eachRow(text_, *start, [&](const Row& row, size_t) {
        if (equalIgnoringCase(row.key, key)) value = row.value;
        return !value;
    });
    return value;
}

std::string IniText::textWith(std::string_view section, std::string_view key, std::string_view value) const {
    auto text = text_;
    const auto entry = std::string(key).append("=").append(value);
    const auto start = sectionStart(text_, section);
    if (!start) {
        insertLine(text, text.size(), std::string("[").append(section).append("]"));
        insertLine(text, text.size(), entry);
        return text;
    }
    size_t end = *start;
    std::optional<std::string_view> old;
    eachRow(text_, *start, [&](const Row& row, size_t next) {
        if (equalIgnoringCase(row.key, key)) old = row.value;
        end = next;
        return !old;
    });
    if (old)
        text.replace(static_cast<size_t>(old->data() - text_.data()), old->size(), value);
    else
        insertLine(text, end, entry);
    return text;
}

}  // namespace klt
