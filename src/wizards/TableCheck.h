#pragma once

#include <algorithm>

#include "language/Tags.h"
#include "wizards/NameList.h"
#include "wizards/WizardTable.h"

// What a wizard's table must keep to, asked while it is compiled.
namespace klt {

/// The place of a control among its table's rows.
struct ControlIndex {
    size_t value = 0;
};

namespace detail {

/// Nothing that a compiler can run: a table that comes here is not compiled, and the words say why.
void refuseTable(const char* why);

constexpr void require(bool isTrue, const char* why) {
    if (!isTrue) refuseTable(why);
}

class TableCheck {
public:
    constexpr explicit TableCheck(const WizardTable& table) : table_(table) {}

    constexpr void run() const {
        require(!table_.form.empty() && !table_.title.empty(), "a form has a name and a title");
        for (const FrameRow& row : table_.frames)
            require(std::ranges::count(table_.frames, row.name, &FrameRow::name) == 1, "a frame stands once");
        for (const ControlRow& row : table_.controls) checkControl(row);
        for (const Effect& row : table_.effects) checkEffect(row);
        for (const CheckRule& row : table_.rules) checkRule(row);
        for (const PlaceRow& row : table_.places) checkPlace(row);
        checkKind(table_.box, ControlKind::TextBox);
        require(table_.box.empty() == table_.tabs.empty(), "a box has the tabs that make its lines");
        for (const LineTab& row : table_.tabs) checkTab(row);
        checkShape(table_.line);
    }

private:
    constexpr const ControlRow& control(std::string_view name) const {
        const auto found = std::ranges::find(table_.controls, name, &ControlRow::name);
        require(found != table_.controls.end(), "a name is one of a control");
        return *found;
    }
    constexpr void checkControls(Names names) const {
        forEachName(names, [this](std::string_view name) { control(name); });
    }
    constexpr void checkFrame(std::string_view name) const {
        require(std::ranges::count(table_.frames, name, &FrameRow::name) == 1, "a name is one of a frame");
    }
    constexpr void checkKind(std::string_view name, ControlKind kind) const {
        if (!name.empty()) require(control(name).kind == kind, "a name is one of a control of its kind");
    }

    constexpr void checkControl(const ControlRow& row) const {
        require(std::ranges::count(table_.controls, row.name, &ControlRow::name) == 1,
                "a control stands once");
        if (!row.frame.empty()) checkFrame(row.frame);
        const bool isKnownTag = row.tag == "name(" || tagOf(row.tag) != Tag::None ||
                                std::ranges::count(kFieldOnlyTags, row.tag) == 1;
        require(row.tag.empty() || isKnownTag, "a field is checked as a tag that there is");
        const bool isAid = row.use == ButtonUse::SyntaxAid || row.use == ButtonUse::GivesWizard;
        require(isAid == !row.field.empty(), "an aid has the field that it fills");
        checkKind(row.field, ControlKind::TextField);
        for (const auto section : row.sections)
            require(sectionOf(section) != Section::Other, "a line is coloured as one of a section");
        require((row.sections.size() > 1) == !row.sectionChosenBy.empty(), "a list chooses among sections");
        checkKind(row.sectionChosenBy, ControlKind::List);
        require((row.use == ButtonUse::SyntaxAid) == !row.menu.empty(), "Syntax Aid has its menu");
    }

    constexpr void checkEffect(const Effect& row) const {
        forEachName(row.of, [this](std::string_view name) {
            if (name != kAtLoad && name != kAfterDone) control(name);
        });
        require(!row.of.empty() && !row.on.empty(), "an effect has its cause and its end");
        if (isForFrames(row.act)) {
            forEachName(row.on, [this](std::string_view name) { checkFrame(name); });
        } else {
            checkControls(row.on);
        }
        checkCondition(row.when);
    }

    constexpr void checkCondition(const Condition& condition) const {
        using Asks = Condition::Asks;
        if (condition.asks == Asks::Nothing || condition.asks == Asks::IsHostOld) return;
        if (condition.asks == Asks::IsFrameShown || condition.asks == Asks::IsCaption)
            return checkFrame(condition.of);
        control(condition.of);
    }

    constexpr void checkRule(const CheckRule& row) const {
        require(!row.control.empty() && !row.message.empty(), "a rule has its field and what it tells");
        const bool isGroup = row.control.find(' ') != row.control.npos;
        forEachName(row.control, [&](std::string_view name) {
            require(!isGroup || control(name).kind == ControlKind::Option, "a group is one of options");
            control(name);
        });
        checkControls(row.focus);
        checkButtons(row.of);
        checkCondition(row.when);
    }

    constexpr void checkButtons(Names names) const {
        forEachName(names, [this](std::string_view name) {
            const ControlRow& row = control(name);
            require(row.kind == ControlKind::Button && row.use == ButtonUse::Own,
                    "a name is one of a button");
        });
    }

    constexpr void checkTab(const LineTab& row) const {
        require(!row.add.empty(), "a tab has the button that adds its line");
        checkButtons(row.add);
        checkButtons(row.compose);
        for (const Names names :
             {row.composedFocus, row.source, row.full, row.emptied, row.turnedOff, row.focus})
            checkControls(names);
        require(row.source.empty() || (!row.full.empty() && !row.none.empty()),
                "what is composed at each change stands somewhere, and a line that is none is told");
    }

    constexpr void checkPlace(const PlaceRow& row) const {
        require(sectionOf(row.section) != Section::Other, "a place is a section of the language");
        require(table_.places.size() == 1 || !row.option.empty(), "an option tells several places apart");
        checkKind(row.option, ControlKind::Option);
        checkKind(row.combo, ControlKind::CategoryCombo);
        require((row.step == ItemStep::SingleLine) == row.box.empty(), "what is no single line has its box");
        checkKind(row.box, ControlKind::TextBox);
    }

    constexpr void checkShape(const ItemShape& shape) const {
        checkControls(shape.heads);
        for (const auto rows : {shape.written, shape.loaded})
            for (const TagRow& row : rows) checkTag(row);
        for (const auto name : {shape.nameField, shape.secondField})
            if (!name.empty()) control(name);
        require(shape.heads.empty() == shape.nameField.empty(), "what is written can be loaded");
    }

    constexpr void checkTag(const TagRow& row) const {
        require(tagOf(row.tag) != Tag::None, "a tag of a line is a tag word");
        require(row.control.empty() == !row.choices.empty(), "a tag has its control or its choices");
        if (!row.control.empty()) control(row.control);
        for (const Choice& choice : row.choices) control(choice.control);
    }

    const WizardTable& table_;
};

}  // namespace detail

/// The table as it is. One that names what it does not hold, or lacks what belongs to a row, is not compiled.
consteval WizardTable checked(const WizardTable& table) {
    detail::TableCheck(table).run();
    return table;
}

/// The control of that name. A name that no row has is not compiled.
consteval ControlIndex controlIndex(std::span<const ControlRow> controls, std::string_view name) {
    const auto found = std::ranges::find(controls, name, &ControlRow::name);
    detail::require(found != controls.end(), "a name is one of a control");
    return {static_cast<size_t>(found - controls.begin())};
}

}  // namespace klt
