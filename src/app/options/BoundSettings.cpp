#include "app/options/BoundSettings.h"

#include <QAbstractButton>
#include <QComboBox>
#include <algorithm>

#include "app/options/SpinField.h"

namespace klt {

void BoundSettings::bind(QAbstractButton& control, const TruthSetting& setting) {
    control.setChecked(readSetting(store_, setting));
    saves_.emplace_back(
        [this, &control, &setting] { return writeSetting(store_, setting, control.isChecked()); });
}

void BoundSettings::bind(SpinField& control, const NumberSetting& setting) {
    control.setValue(readSetting(store_, setting));
    saves_.emplace_back(
        [this, &control, &setting] { return writeSetting(store_, setting, control.value()); });
}

void BoundSettings::bind(QComboBox& control, const NumberSetting& setting) {
    control.setCurrentIndex(readSetting(store_, setting));
    saves_.emplace_back(
        [this, &control, &setting] { return writeSetting(store_, setting, control.currentIndex()); });
}

bool BoundSettings::save() {
    return store_.together([this] {
        return std::all_of(saves_.begin(), saves_.end(), [](const auto& store) { return store(); });
    });
}

}  // namespace klt
