#include "checker/ValuePlace.h"

#include <algorithm>

#include "checker/Choices.h"
#include "checker/OpenValue.h"
#include "checker/TakesName.h"
#include "language/NameReference.h"
#include "text/Ascii.h"

namespace klt {
namespace {

/// The text with what the scanners pass over as blanks.
std::string withBlanks(std::string_view text) {
    std::string blanks(text);
    std::ranges::replace_if(
        blanks, [](char c) { return c == '_' || c == '\t' || c == '\r' || c == '\n'; }, ' ');
    return blanks;
}

/// What stands behind a word that has blanks around it; npos without one.
size_t behindWord(std::string_view text, std::string_view word) {
    const auto found = findIgnoringAsciiCase(text, ' ' + std::string(word) + ' ');
    return found == text.npos ? found : found + word.size() + 2;
}

bool hasWord(std::string_view text, std::string_view word) {
    return behindWord(text, word) != text.npos;
}

bool isNumberOrNothing(std::string_view text) {
    return trimBlanks(text).empty() || isNumber(text);
}

/// The values that scanners read as operands, names and @functions.
class Expression {
public:
    Expression(std::string_view value, Tag tag) : value_(value), tag_(tag) {
        for (const auto& open : openIn(value)) {
            if (open.function == AtFunction::None) continue;
            function_ = open.function;
            part_ = open.inside;
        }
        part_ += partStart(value.substr(part_), isInFunction() ? "," : separators());
        wordStart_ = std::max(lastWordStart(value), part_);
        before_ = withBlanks(value.substr(part_, wordStart_ - part_));
    }

    CompletionPlace place() const {
        CompletionPlace found{.wordStart = wordStart_};
        const auto name = referenceAt(value_.substr(part_), value_.size() - part_);
        if (name) {
            if (name->prefix->isInPackagesAlone) return found;
            found.prefix = name->prefix;
            found.nameStart = value_.size() - name->behind.size();
            found.trial = trial();
        }
        // What stands right behind a prefix tag is a name.
        if (!name || wordStart_ > found.nameStart) addWordsTo(found.words);
        return found;
    }

private:
    bool isInFunction() const { return function_ != AtFunction::None; }
    std::string_view separators() const { return tag_ == Tag::Needs ? ",|" : ","; }
    /// Behind the sign of a comparison.
    bool isCompared() const { return before_.find_first_of("<>=") != before_.npos; }
    bool isBonusTarget() const { return hasWord(before_, kBonusKeywords[0]); }

    void addWordsTo(std::vector<Completion>& words) const {
        if (isInFunction())
            addIfKeywords(words);
        else if (tag_ == Tag::Gives)
            addBonusKeywords(words);
        const bool isLeftSide = tag_ == Tag::Needs && !isInFunction() && !isCompared();
        if (!isLeftSide || isNumberOrNothing(before_))
            addPrefixes(words, [at = trial()](const PrefixRow& row) { return takesPrefix(at, row); });
        addKeywords(words);
        if (isLeftSide) return;
        for (const auto& row : kFunctions) words.push_back(functionChoice(row));
    }

    void addKeywords(std::vector<Completion>& words) const {
        if (tag_ == Tag::Gives) addWords(words, kGivesKeywords.words());
        if (tag_ == Tag::Needs) addWords(words, kNeedsKeywords.words());
        if (tag_ == Tag::Upto) addWords(words, kUptoKeywords.words());
    }

    /// "THEN" behind a condition, "ELSE" behind "THEN" and a value.
    void addIfKeywords(std::vector<Completion>& words) const {
        if (function_ != AtFunction::If) return;
        addNextOf(kIfKeywords[0], kIfKeywords[1], words);
    }

    /// "pts" behind a number, "To" behind a value, "Upto" behind "To" and a target.
    void addBonusKeywords(std::vector<Completion>& words) const {
        if (before_.ends_with(' ') && isNumber(before_)) words.push_back(wordChoice(kPointsWord));
        addNextOf(kBonusKeywords[0], kBonusKeywords[1], words);
    }

    void addNextOf(std::string_view first, std::string_view second, std::vector<Completion>& words) const {
        const std::string_view before = before_;
        const auto behindFirst = behindWord(before, first);
        if (behindFirst == before.npos) {
            if (!trimBlanks(before).empty()) words.push_back(wordChoice(first));
        } else if (!trimBlanks(before.substr(behindFirst)).empty() && !hasWord(before, second)) {
            words.push_back(wordChoice(second));
        }
    }

    NameTrial trial() const {
        const auto inLine = [this](std::string_view front, std::string_view behind) {
            const bool isOfSkills = IsTagValid(tag_, Section::Skills);
            return NameTrial{isOfSkills ? Section::Skills : Section::Stats,
                             std::string(isOfSkills ? "A, P/E, " : "A, ").append(tagWord(tag_)).append(front),
                             std::string(behind) + ')'};
        };
        if (isInFunction() && tag_ == Tag::Needs) return inLine("ST>@INT(", ")");
        if (isInFunction()) return inLine("@INT(", tag_ == Tag::Gives ? ") To ST" : ")");
        if (tag_ == Tag::Needs) return inLine(isCompared() ? "ST>" : "", "");
        if (tag_ != Tag::Gives) return inLine("", "");
        return isBonusTarget() ? inLine("+1 To ", "") : inLine("", " To ST");
    }

    const std::string_view value_;
    const Tag tag_;
    AtFunction function_ = AtFunction::None;
    /// Where the argument, clause, bonus or alternative begins, and the word.
    size_t part_ = 0;
    size_t wordStart_ = 0;
    std::string before_;
};

}  // namespace

CompletionPlace placeInValue(std::string_view value, Tag tag, Section section) {
    CompletionPlace whole;
    switch (tag) {
        case Tag::Gives:
        case Tag::Needs:
        case Tag::Upto:
        case Tag::BaseValue:
        case Tag::Default:
            return Expression(value, tag).place();
        case Tag::Type:
            addWords(whole.words, kSkillTypes.words());
            return whole;
        case Tag::Display:
        case Tag::DoubleInPlay:
            addWords(whole.words, kYesNo.words());
            return whole;
        case Tag::Round:
            addWords(whole.words, kRoundings);
            if (section == Section::Stats) whole.words.push_back(wordChoice(kYesNo[1]));
            return whole;
        default:
            return whole;
    }
}

CompletionPlace movedBy(size_t offset, CompletionPlace place) {
    place.wordStart += offset;
    place.nameStart += offset;
    return place;
}

}  // namespace klt
