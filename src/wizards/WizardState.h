#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "wizards/TableCheck.h"
#include "wizards/WizardTable.h"

namespace klt {

/// What a control shows. A form copies it to its widgets and back.
struct ControlState {
    std::string text;
    /// The chosen item of a combo from 0, or -1; 1 or 0 of an option or check that is on or off.
    int state = 0;
    /// The items of a combo.
    std::vector<std::string> list = {};
    std::string label = {};
    bool isEnabled = true;
    bool isVisible = true;

    bool operator==(const ControlState&) const = default;
};

struct FrameState {
    std::string caption;
    bool isVisible = true;
    /// Whether what stands in it can be used, as far as it is enabled itself.
    bool isEnabled = true;

    bool operator==(const FrameState&) const = default;
};

/// The fields of a wizard without their window. Names must stand in the table.
class WizardState {
public:
    /// All fields empty, enabled and shown; no item chosen, nothing on. `isHostOld` is what the condition of
    /// that name asks.
    explicit WizardState(const WizardTable& table, bool isHostOld = false);

    /// In the order of the table's rows.
    const std::vector<ControlState>& controls() const { return controls_; }
    const std::vector<FrameState>& frames() const { return frames_; }

    const ControlState& control(std::string_view name) const { return controls_[controlPlace(name)]; }
    ControlState& control(std::string_view name) { return controls_[controlPlace(name)]; }
    const ControlState& control(ControlIndex index) const { return controls_[index.value]; }
    ControlState& control(ControlIndex index) { return controls_[index.value]; }
    const FrameState& frame(std::string_view name) const { return frames_[framePlace(name)]; }
    FrameState& frame(std::string_view name) { return frames_[framePlace(name)]; }

    const std::string& text(std::string_view name) const { return control(name).text; }
    const std::string& text(ControlIndex index) const { return control(index).text; }
    /// Whether an option or check is on.
    bool isOn(ControlIndex index) const { return control(index).state == kOn; }
    /// Sets a text as if it were typed: in a combo no item is chosen then.
    void setText(std::string_view control, std::string_view text);
    /// Chooses an item of a combo, whose text it becomes (-1: none, and an empty text), or turns an option or
    /// check on or off; an option that comes on turns the others of its frame off.
    void setState(std::string_view control, int state);

    bool holds(const Condition& condition) const;
    /// Lays an effect on each of its controls or frames, whatever brought it on.
    void apply(const Effect& effect);

private:
    size_t controlPlace(std::string_view name) const;
    size_t framePlace(std::string_view name) const;
    void applyToFrame(const Effect& effect, std::string_view name);
    void applyToControl(const Effect& effect, std::string_view name);

    const WizardTable* table_;
    bool isHostOld_;
    std::vector<ControlState> controls_;
    std::vector<FrameState> frames_;
};

}  // namespace klt
