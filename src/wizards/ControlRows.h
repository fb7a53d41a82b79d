#pragma once

#include "wizards/WizardTable.h"

// The rows of which most wizards are made up.
namespace klt {

constexpr ControlRow field(std::string_view frame, std::string_view name, std::string_view label,
                           std::string_view tag = {}) {
    return {.frame = frame, .name = name, .label = label, .tag = tag};
}

/// A field between its tag and a ")".
constexpr ControlRow tagField(std::string_view frame, std::string_view name, std::string_view tag) {
    return field(frame, name, tag, tag);
}

constexpr ControlRow option(std::string_view frame, std::string_view name, std::string_view label) {
    return {.frame = frame, .name = name, .kind = ControlKind::Option, .label = label};
}

constexpr ControlRow check(std::string_view frame, std::string_view name, std::string_view label) {
    return {.frame = frame, .name = name, .kind = ControlKind::Check, .label = label};
}

constexpr ControlRow combo(std::string_view frame, std::string_view name, ControlKind kind,
                           std::string_view label, std::span<const std::string_view> items) {
    return {.frame = frame, .name = name, .kind = kind, .label = label, .items = items};
}

/// A combo to which a typed "(" brings its ")".
constexpr ControlRow pairing(ControlRow row) {
    row.pairsParentheses = true;
    return row;
}

constexpr ControlRow categoryCombo(std::string_view frame, std::string_view name) {
    return {.frame = frame, .name = name, .kind = ControlKind::CategoryCombo};
}

constexpr ControlRow aidButton(std::string_view frame, std::string_view name, std::string_view menu,
                               std::string_view field) {
    return {.frame = frame,
            .name = name,
            .kind = ControlKind::Button,
            .label = "Syntax Aid",
            .use = ButtonUse::SyntaxAid,
            .menu = menu,
            .field = field};
}

constexpr ControlRow givesButton(std::string_view frame, std::string_view name, std::string_view field) {
    return {.frame = frame,
            .name = name,
            .kind = ControlKind::Button,
            .label = "Wizard",
            .use = ButtonUse::GivesWizard,
            .field = field};
}

/// One of the form's own buttons.
constexpr ControlRow formButton(std::string_view name, std::string_view label, ButtonUse use) {
    return {.name = name, .kind = ControlKind::Button, .label = label, .use = use};
}

}  // namespace klt
