#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "checker/DocumentPass.h"
#include "language/LogicalLine.h"
#include "language/NewDocument.h"
#include "text/Ascii.h"
#include "text/Unicode.h"

namespace klt {

/// What texts hold, told apart by walking over their lines: to hold merged texts against their inputs.
class MergeContent {
public:
    /// A logical line, a package or an author's block, with its colours.
    struct Item {
        std::string text;
        std::string styles;
        bool mayRepeat = false;
        bool operator==(const Item& other) const { return text == other.text && styles == other.styles; }
    };
    /// By section and subsection, in upper case.
    std::map<std::string, std::vector<Item>> items;
    std::map<std::string, std::multiset<std::string>> comments;
    std::multiset<std::string> sections;

    /// `once`: an item that may not repeat is taken once only.
    explicit MergeContent(bool once) : once_(once) {}
    void read(std::string_view text) {
        section_ = subsection_ = "";
        for (size_t start = 0; start < text.size();) start = step(text, start);
        endBlock();
    }
    /// All blocks of authors as one, as which they are read back.
    void joinAuthors() {
        const auto found = items.find("[AUTHOR]\n");
        if (found == items.end()) return;
        Item all;
        for (const auto& block : found->second) {
            all.text += block.text;
            all.styles += block.styles;
        }
        found->second = {all};
    }

private:
    size_t step(std::string_view text, size_t start) {
        const auto kind = classifyLine(text.substr(start, lineEnd(text, start) - start), sectionOf(section_));
        auto taken = itemLine(text, start, EmptyTest::NextLine);
        if (kind == LineKind::PackageHeader) taken = packageHeader(text, start);
        if (kind != LineKind::Item && kind != LineKind::PackageHeader) {
            taken.end = taken.commentEnd = lineEnd(text, start);
            taken.next = taken.end + 2;
        }
        std::string line(text.substr(start, taken.commentEnd - start));
        if (line.ends_with("\r\n")) line.resize(line.size() - 2);
        add(kind, line);
        return taken.next;
    }

    void add(LineKind kind, const std::string& line) {
        const auto name = upperCase(trimBlanks(line));
        if (kind == LineKind::Version || line == kNewDocumentComment) return;
        if (kind == LineKind::SectionHeader && isSectionHeader(name)) {
            endBlock();
            subsection_.clear();
            sections.insert(section_ = name);
            if (section_ == "[AUTHOR]") isOpen_ = true;
        } else if (section_ == "[AUTHOR]") {
            extend(kind, line);
        } else if (kind == LineKind::SubsectionHeader && name.ends_with('>')) {
            endBlock();
            subsection_ = name;
            items[place("")];
        } else if (kind == LineKind::Blank || kind == LineKind::Comment) {
            waiting_.push_back(line);
        } else {
            if (kind == LineKind::PackageHeader) endBlock();
            if (kind == LineKind::PackageHeader || isOpen_) return extend(kind, line);
            endBlock();
            const auto zone = section_ == "[PACKAGES]" ? "\nfront" : "";
            take(place(zone), {ended(kind, line), styles(line), kind != LineKind::Item});
        }
    }

    void extend(LineKind kind, const std::string& line) {
        isOpen_ = true;
        for (const auto& waiting : waiting_) block_.text += waiting + "\r\n";
        waiting_.clear();
        block_.text += ended(kind, line);
        block_.styles += styles(line);
    }

    void take(const std::string& place, const Item& item) {
        auto& all = items[place];
        if (!once_ || item.mayRepeat || std::find(all.begin(), all.end(), item) == all.end())
            all.push_back(item);
    }

    void endBlock() {
        if (!block_.text.empty()) take(place(""), block_);
        block_ = {};
        isOpen_ = false;
        for (const auto& line : waiting_) comments[section_].insert(line);
        waiting_.clear();
    }

    // With the empty line that keeps the next one out.
    static std::string ended(LineKind kind, const std::string& line) {
        const auto text = line + "\r\n";
        const bool goesOn =
            (kind == LineKind::Item && itemLine(text, 0, EmptyTest::NextLine).next > text.size()) ||
            (kind == LineKind::PackageHeader && packageHeader(text, 0).next > text.size());
        return goesOn ? text + "\r\n" : text;
    }

    std::string styles(const std::string& line) const {
        StyledText styled(line);
        CheckerState state;
        state.SetCurrentSection(section_);
        CheckDocument(styled, state);
        return std::string(styled.styles());
    }

    std::string place(const char* zone) const { return section_ + "\n" + subsection_ + zone; }

    bool once_;
    std::string section_, subsection_;
    std::vector<std::string> waiting_;
    Item block_;
    bool isOpen_ = false;
};

/// What is wrong with a merged text; empty where nothing is.
inline std::string mergeFault(const std::vector<std::string>& inputs, std::string_view output) {
    if (!output.starts_with(std::string(kNewDocumentText) + "\r\n")) return "the head";
    MergeContent wanted(true), merged(false);
    for (const auto& input : inputs) wanted.read(input);
    merged.read(output);
    wanted.joinAuthors();
    if (merged.items != wanted.items) return "the items";
    const auto distinct = [](const auto& lines) { return std::set(lines.begin(), lines.end()); };
    if (!std::ranges::equal(merged.sections, distinct(wanted.sections))) return "the sections";
    for (const auto& [section, lines] : wanted.comments) {
        const auto& found = merged.comments[section];
        if (!std::includes(lines.begin(), lines.end(), found.begin(), found.end()))
            return "a comment is made up";
        if (distinct(lines) != distinct(found)) return "a comment is lost";
    }
    return {};
}

}  // namespace klt
