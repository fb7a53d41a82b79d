#include "wizards/WizardState.h"

#include <algorithm>
#include <cassert>

#include "wizards/NameList.h"

namespace klt {
namespace {

template <typename Row>
size_t placeOf(std::span<const Row> rows, std::string_view name) {
    const auto found = std::ranges::find(rows, name, &Row::name);
    assert(found != rows.end());
    return static_cast<size_t>(found - rows.begin());
}

}  // namespace

WizardState::WizardState(const WizardTable& table, bool isHostOld) : table_(&table), isHostOld_(isHostOld) {
    for (const auto& row : table.controls) {
        ControlState& control = controls_.emplace_back();
        control.label = row.label;
        control.list.assign(row.items.begin(), row.items.end());
        if (isCombo(row.kind)) control.state = -1;
    }
    for (const auto& row : table.frames) frames_.push_back({std::string(row.caption)});
}

size_t WizardState::controlPlace(std::string_view name) const {
    return placeOf(table_->controls, name);
}

size_t WizardState::framePlace(std::string_view name) const {
    return placeOf(table_->frames, name);
}

void WizardState::setText(std::string_view name, std::string_view text) {
    const auto place = controlPlace(name);
    controls_[place].text = text;
    if (isCombo(table_->controls[place].kind)) controls_[place].state = -1;
}

void WizardState::setState(std::string_view name, int state) {
    const auto place = controlPlace(name);
    const ControlRow& row = table_->controls[place];
    ControlState& control = controls_[place];
    if (isCombo(row.kind)) {
        control.state = state;
        control.text = state < 0 ? std::string() : control.list[static_cast<size_t>(state)];
        return;
    }
    if (row.kind == ControlKind::Option && state == kOn) {
        for (size_t i = 0; i < controls_.size(); ++i) {
            const ControlRow& other = table_->controls[i];
            if (other.kind == ControlKind::Option && other.frame == row.frame) controls_[i].state = kOff;
        }
    }
    control.state = state;
}

bool WizardState::holds(const Condition& condition) const {
    switch (condition.asks) {
        case Condition::Asks::Nothing:
            return true;
        case Condition::Asks::StateIs:
            return control(condition.of).state == condition.state;
        case Condition::Asks::IsEnabled:
            return control(condition.of).isEnabled;
        case Condition::Asks::IsFrameShown:
            return frame(condition.of).isVisible;
        case Condition::Asks::IsCaption:
            return frame(condition.of).isVisible && frame(condition.of).caption == condition.caption;
        case Condition::Asks::IsHostOld:
            return isHostOld_;
    }
    return true;
}

void WizardState::apply(const Effect& effect) {
    forEachName(effect.on, [&](std::string_view name) {
        if (isForFrames(effect.act)) {
            applyToFrame(effect, name);
        } else {
            applyToControl(effect, name);
        }
    });
}

void WizardState::applyToFrame(const Effect& effect, std::string_view name) {
    FrameState& state = frame(name);
    if (effect.act == Act::SetCaption) {
        state.caption = effect.text;
    } else if (effect.act == Act::DisableFrame) {
        state.isEnabled = false;
    } else {
        state.isVisible = effect.act == Act::ShowFrame;
    }
}

void WizardState::applyToControl(const Effect& effect, std::string_view name) {
    ControlState& state = control(name);
    switch (effect.act) {
        case Act::Enable:
        case Act::Disable:
            state.isEnabled = effect.act == Act::Enable;
            break;
        case Act::Show:
        case Act::Hide:
            state.isVisible = effect.act == Act::Show;
            break;
        case Act::SetText:
            setText(name, effect.text);
            break;
        case Act::EmptyIf:
            if (state.text == effect.text) setText(name, "");
            break;
        case Act::TurnOn:
        case Act::TurnOff:
            setState(name, effect.act == Act::TurnOn ? kOn : kOff);
            break;
        case Act::SetLabel:
            state.label = effect.text;
            break;
        case Act::ShowFrame:
        case Act::HideFrame:
        case Act::DisableFrame:
        case Act::SetCaption:
            break;
    }
}

}  // namespace klt
