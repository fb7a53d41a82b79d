#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "wizards/Wizard.h"

namespace klt {

/// A wizard that writes into `area`.
inline std::unique_ptr<Wizard> openWizard(const WizardTable& table, TextArea& area,
                                          OpeningMode mode = OpeningMode::Insert, bool isHostOld = false) {
    return makeWizard(table, {.mode = mode, .target = [&area] { return &area; }, .isHostOld = isHostOld});
}

/// Does what stands there in words, with "; " between: "name=text" types, "name" clicks, "name#n" chooses an
/// item or sets a mark.
inline void work(Wizard& wizard, std::string_view steps) {
    constexpr std::string_view kBetween = "; ";
    while (!steps.empty()) {
        const auto step = steps.substr(0, steps.find(kBetween));
        steps.remove_prefix(std::min(step.size() + kBetween.size(), steps.size()));
        const auto sign = step.find_first_of("=#");
        const auto name = step.substr(0, sign);
        if (sign == step.npos) {
            wizard.click(name, kOn);
        } else if (step[sign] == '=') {
            wizard.state.setText(name, step.substr(sign + 1));
        } else {
            wizard.click(name, std::stoi(std::string(step.substr(sign + 1))));
        }
    }
}

}  // namespace klt
