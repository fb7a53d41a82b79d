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

/// A field whose text is no part of the language.
constexpr ControlRow plainField(std::string_view frame, std::string_view name, std::string_view label) {
    return {.frame = frame, .name = name, .kind = ControlKind::PlainField, .label = label};
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

constexpr ControlRow list(std::string_view frame, std::string_view name, std::string_view label,
                          std::span<const std::string_view> items) {
    return combo(frame, name, ControlKind::List, label, items);
}

/// A field that holds a line of a section.
constexpr ControlRow lineField(std::string_view frame, std::string_view name,
                               std::span<const std::string_view> sections) {
    return {.frame = frame, .name = name, .sections = sections};
}

/// A box of such lines.
constexpr ControlRow lineBox(std::string_view frame, std::string_view name,
                             std::span<const std::string_view> sections) {
    return {.frame = frame, .name = name, .kind = ControlKind::TextBox, .sections = sections};
}

/// A box that is coloured when it gets the focus.
constexpr ControlRow atFocus(ControlRow row) {
    row.isColouredAtFocus = true;
    return row;
}

/// One whose section is chosen by a list.
constexpr ControlRow chosenBy(std::string_view list, ControlRow row) {
    row.sectionChosenBy = list;
    return row;
}

constexpr ControlRow labelled(std::string_view label, ControlRow row) {
    row.label = label;
    return row;
}

constexpr ControlRow readOnly(ControlRow row) {
    row.isReadOnly = true;
    return row;
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

/// A button in a frame whose press the wizard itself answers.
constexpr ControlRow ownButton(std::string_view frame, std::string_view name, std::string_view label) {
    return {.frame = frame, .name = name, .kind = ControlKind::Button, .label = label};
}

/// One of the buttons below all.
constexpr ControlRow formButton(std::string_view name, std::string_view label, ButtonUse use) {
    return {.name = name, .kind = ControlKind::Button, .label = label, .use = use};
}

}  // namespace klt
