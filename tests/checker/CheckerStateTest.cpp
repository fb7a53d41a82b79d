#include "checker/CheckerState.h"

#include <gtest/gtest.h>

namespace klt {
namespace {

TEST(FunctionStack, IsNotThereBeforeThePass) {
    FunctionStack stack;
    stack.push(AtFunction::If);
    stack.pop();
    EXPECT_FALSE(stack.isAllocated());
    EXPECT_EQ(stack.top(), AtFunction::None);
}

TEST(FunctionStack, KeepsItsFloor) {
    FunctionStack stack;
    stack.reset();
    stack.push(AtFunction::If);
    stack.pop();
    EXPECT_EQ(stack.top(), AtFunction::If);
    stack.push(AtFunction::Max);
    EXPECT_EQ(stack.top(), AtFunction::Max);
    stack.pop();
    EXPECT_EQ(stack.top(), AtFunction::If);
}

TEST(CheckerState, NamesItsSection) {
    CheckerState state;
    EXPECT_EQ(state.section(), Section::Other);
    state.SetCurrentSection("[Mods]");
    EXPECT_EQ(state.section(), Section::Mods);
    EXPECT_EQ(state.CurrentSection(), "[Mods]");
    state.SetCurrentSection("[ADS] [MODS]");
    EXPECT_EQ(state.section(), Section::Other);
}

}  // namespace
}  // namespace klt
