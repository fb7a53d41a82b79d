#pragma once

#include <array>
#include <string_view>

#include "language/WordList.h"

namespace klt {

/// The @functions, in the order of their list, behind `None`.
enum class AtFunction : unsigned char { None, Fac, Fix, If, Int, Log, Max, Min, NLog, Power, Sqr };

enum class Arity : unsigned char { None, One, Two, Conditional };

struct FunctionRow {
    AtFunction function;
    /// With the parenthesis that counts as part of the name.
    std::string_view word;
    Arity arity;
};
inline constexpr auto kFunctions = std::to_array<FunctionRow>({
    {AtFunction::Fac, "@FAC(", Arity::One},
    {AtFunction::Fix, "@FIX(", Arity::One},
    {AtFunction::If, "@IF(", Arity::Conditional},
    {AtFunction::Int, "@INT(", Arity::One},
    {AtFunction::Log, "@LOG(", Arity::Two},
    {AtFunction::Max, "@MAX(", Arity::Two},
    {AtFunction::Min, "@MIN(", Arity::Two},
    {AtFunction::NLog, "@NLOG(", Arity::One},
    {AtFunction::Power, "@POWER(", Arity::Two},
    {AtFunction::Sqr, "@SQR(", Arity::One},
});
inline constexpr WordList kFunctionNames(wordsOf(kFunctions));

/// The row of an @function that is not `None`.
constexpr const FunctionRow& rowOf(AtFunction function) {
    return kFunctions[static_cast<size_t>(function) - 1];
}
static_assert(
    [] {
        for (const auto& row : kFunctions)
            if (&rowOf(row.function) != &row) return false;
        return true;
    }(),
    "the rows are in the order of `AtFunction`");

constexpr Arity arityOf(AtFunction function) {
    return function == AtFunction::None ? Arity::None : rowOf(function).arity;
}

/// The name, parenthesis included; empty for `None`.
constexpr std::string_view functionName(AtFunction function) {
    return function == AtFunction::None ? std::string_view() : rowOf(function).word;
}

/// The @function of that name, in any case; `None` if there is no such one.
constexpr AtFunction functionOf(std::string_view name) {
    return static_cast<AtFunction>(kFunctionNames.find(name) + 1);
}

}  // namespace klt
