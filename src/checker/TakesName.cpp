#include "checker/TakesName.h"

#include "checker/DocumentPass.h"

namespace klt {

bool takesName(const NameTrial& trial, const PrefixRow& prefix, std::string_view name) {
    StyledText line(std::string(trial.front).append(prefix.word).append(name).append(trial.behind));
    CheckerState state;
    state.functionStack.reset();
    state.SetCurrentSection(sectionName(trial.section));
    ErrorRuns errors;
    CheckRange(line, state, 0, line.size(), &errors);
    return errors.empty();
}

bool takesPrefix(const NameTrial& trial, const PrefixRow& prefix) {
    return !prefix.isInPackagesAlone && takesName(trial, prefix, "A");
}

}  // namespace klt
