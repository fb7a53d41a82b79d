#include "checker/Completion.h"

#include <algorithm>

#include "checker/Choices.h"
#include "checker/NamesInDocuments.h"
#include "checker/OpenValue.h"
#include "checker/TakesName.h"
#include "text/Ascii.h"

namespace klt {
namespace {

/// Where the rest of a choice, or the sign that it ends in, stands behind the caret already, it is not
/// written twice.
void joinRest(Completion& choice, size_t typed, std::string_view behind) {
    const std::string_view word = std::string_view(choice.text).substr(0, choice.caret);
    auto rest = word.substr(std::min(typed, word.size()));
    if (rest.empty()) return;
    const bool endsInSign = !isOfWord(rest.back());
    if (endsInSign && behind.starts_with(rest.back())) rest = rest.substr(rest.size() - 1);
    if (!equalIgnoringAsciiCase(behind.substr(0, rest.size()), rest)) return;
    const bool isOnlyBeginning = behind.size() > rest.size() && isOfWord(behind[rest.size()]);
    if (!endsInSign && isOnlyBeginning) return;
    choice.taken = rest.size();
    choice.text.resize(choice.caret);
}

}  // namespace

Completions completionsAt(std::string_view text, size_t caret, const CompletionPlace& place,
                          std::span<const std::string_view> documents) {
    caret = std::min(caret, text.size());
    const auto behind = text.substr(caret);
    if (place.prefix != nullptr) {
        Completions names{.start = place.nameStart};
        const auto typed = text.substr(place.nameStart, caret - place.nameStart);
        for (const auto name : namesInDocuments(documents, *place.prefix, typed, kMostCompletions)) {
            if (!takesName(place.trial, *place.prefix, name)) continue;
            names.choices.push_back(wordChoice(name));
            joinRest(names.choices.back(), typed.size(), behind);
        }
        if (!names.choices.empty()) return names;
    }
    Completions words{.start = place.wordStart};
    const auto typed = text.substr(place.wordStart, caret - place.wordStart);
    for (const auto& word : place.words) {
        if (!equalIgnoringAsciiCase(word.text.substr(0, typed.size()), typed)) continue;
        words.choices.push_back(word);
        joinRest(words.choices.back(), typed.size(), behind);
    }
    return words;
}

}  // namespace klt
