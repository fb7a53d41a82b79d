#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "text/TextOperations.h"
#include "wizards/Wizards.h"

namespace klt {

/// A wizard that writes into `area`.
inline std::unique_ptr<Wizard> openWizard(const WizardTable& table, TextArea& area,
                                          OpeningMode mode = OpeningMode::Insert, bool isHostOld = false) {
    return makeWizard(table, {.mode = mode, .target = [&area] { return &area; }, .isHostOld = isHostOld});
}

/// Does what stands there in words, with "; " between: "name=text" types, "name#n" chooses an item or sets a
/// mark, "name" alone presses a button or turns a mark on. Gives what the last press came to.
inline PressResult work(Wizard& wizard, std::string_view steps) {
    PressResult result;
    for (const auto& step : SplitText(steps, "; ")) {
        if (step.empty()) continue;
        const auto sign = step.find_first_of("=#");
        const auto name = step.substr(0, sign);
        if (sign == step.npos) {
            const auto& row = *std::ranges::find(wizard.table().controls, name, &ControlRow::name);
            if (row.kind != ControlKind::Button) wizard.click(name, kOn);
            if (row.kind == ControlKind::Button) result = wizard.press(name, {.maximum = 40, .tolerance = 5});
        } else if (step[sign] == '=') {
            wizard.state.setText(name, step.substr(sign + 1));
            wizard.changed(name);
        } else {
            wizard.click(name, std::stoi(std::string(step.substr(sign + 1))));
        }
    }
    return result;
}

/// The wizard that Edit Line opens at `place`; null where none edits what stands there.
inline std::unique_ptr<Wizard> edited(MemoryTextArea& document, Position place) {
    document.SetSelStart(place);
    const auto found = EditLine(document);
    return wizardOfItem(
        document, [&document] { return &document; }, found);
}

}  // namespace klt
