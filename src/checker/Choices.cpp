#include "checker/Choices.h"

namespace klt {
namespace {

std::string argumentsOf(Arity arity) {
    constexpr std::string_view kValue = "value";
    std::string arguments(kValue);
    if (arity == Arity::Two) arguments.append(", ").append(kValue);
    if (arity != Arity::Conditional) return arguments;
    arguments = "condition";
    for (const auto keyword : kIfKeywords.words())
        arguments.append(" ").append(keyword).append(" ").append(kValue);
    return arguments;
}

}  // namespace

Completion wordChoice(std::string_view word) {
    return {std::string(word), word.size(), std::string(word)};
}

Completion closedChoice(std::string_view opening, std::string shown) {
    return {std::string(opening) + ')', opening.size(), std::move(shown)};
}

Completion tagChoice(Tag tag) {
    return closedChoice(tagWord(tag), std::string(tagWord(tag)) + ')');
}

Completion functionChoice(const FunctionRow& function) {
    return closedChoice(function.word, std::string(function.word) + argumentsOf(function.arity) + ')');
}

}  // namespace klt
