#pragma once

#include <array>
#include <string_view>

#include "language/WordList.h"

namespace klt {

/// The @functions, in the order of their list, behind `None`.
enum class AtFunction : unsigned char { None, Fac, Fix, If, Int, Log, Max, Min, NLog, Power, Sqr };

/// The names with the parenthesis that counts as part of them.
inline constexpr WordList kFunctionNames(std::to_array<std::string_view>({
    "@FAC(",
    "@FIX(",
    "@IF(",
    "@INT(",
    "@LOG(",
    "@MAX(",
    "@MIN(",
    "@NLOG(",
    "@POWER(",
    "@SQR(",
}));

enum class Arity : unsigned char { None, One, Two, Conditional };

/// In the order of `AtFunction`.
inline constexpr std::array<Arity, 11> kArities = {
    Arity::None,
    Arity::One,          // @FAC(
    Arity::One,          // @FIX(
    Arity::Conditional,  // @IF(
    Arity::One,          // @INT(
    Arity::Two,          // @LOG(
    Arity::Two,          // @MAX(
    Arity::Two,          // @MIN(
    Arity::One,          // @NLOG(
    Arity::Two,          // @POWER(
    Arity::One,          // @SQR(
};

constexpr Arity arityOf(AtFunction function) {
    return kArities[static_cast<unsigned char>(function)];
}

/// The name, parenthesis included; empty for `None`.
constexpr std::string_view functionName(AtFunction function) {
    return function == AtFunction::None ? std::string_view() : kFunctionNames[static_cast<int>(function) - 1];
}

/// The @function of that name, in any case; `None` if there is no such one.
constexpr AtFunction functionOf(std::string_view name) {
    return static_cast<AtFunction>(kFunctionNames.find(name) + 1);
}

}  // namespace klt
