#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "language/Section.h"
#include "language/Tags.h"
#include "language/Vocabulary.h"

namespace klt {

/// Something that may be written.
struct Completion {
    std::string text = {};
    /// Where the caret goes, an offset in `text`.
    size_t caret = 0;
    /// As a list shows it.
    std::string shown = {};
    /// How many bytes behind the caret are its rest already, and are written over.
    size_t taken = 0;
};

/// The shortest line of a section that holds a prefixed name where it is wanted, with that left out.
struct NameTrial {
    Section section = Section::Other;
    std::string front = {};
    std::string behind = {};
};

/// What may stand at a caret.
struct CompletionPlace {
    /// Of the vocabulary, whatever is typed.
    std::vector<Completion> words = {};
    /// Where the word begins that is typed there.
    size_t wordStart = 0;
    /// The prefix tag behind which a name is typed; null without one.
    const PrefixRow* prefix = nullptr;
    size_t nameStart = 0;
    NameTrial trial = {};
};

/// At a caret in a document, one in a box of lines of one section, and one in a field that holds the value of
/// a tag. A caret behind the text's end counts as at it.
CompletionPlace placeInDocument(std::string_view text, size_t caret);
CompletionPlace placeInLines(std::string_view text, size_t caret, Section section);
CompletionPlace placeInField(std::string_view text, size_t caret, Tag tag);

struct Completions {
    /// Where what is typed begins that a choice takes the place of.
    size_t start = 0;
    std::vector<Completion> choices = {};
};

/// No more are offered at once.
inline constexpr size_t kMostCompletions = 1000;

/// What begins as what is typed in front of `caret`, in any case: names of that kind in `documents`, in the
/// order of letters, each once; where none does, words. A name that the checker would refuse there is none.
/// `place` must be that of the same text and caret.
Completions completionsAt(std::string_view text, size_t caret, const CompletionPlace& place,
                          std::span<const std::string_view> documents);

}  // namespace klt
