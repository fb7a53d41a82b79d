#include "wizards/Wizard.h"

#include <algorithm>

#include "text/Unicode.h"
#include "wizards/Categories.h"
#include "wizards/ItemLine.h"
#include "wizards/LineLoss.h"
#include "wizards/NameList.h"

namespace klt {

Wizard::Wizard(const WizardTable& table, Opening opening)
    : state(table, opening.isHostOld), table_(table), opening_(std::move(opening)) {
    applyEffects(kAtLoad);
}

void Wizard::fillCombos(std::string_view document) {
    for (const PlaceRow& row : table_.places) {
        if (!row.combo.empty()) state.control(row.combo).list = FillCategories(document, row.section);
    }
}

void Wizard::SelectSubsection(const PlaceRow& place, std::string_view subsection) {
    if (!place.option.empty()) click(place.option, kOn);
    if (place.combo.empty()) return;
    const auto& list = state.control(place.combo).list;
    const auto last = std::find_if(list.rbegin(), list.rend(), [subsection](const std::string& each) {
        return equalIgnoringCase(each, subsection);
    });
    if (last != list.rend()) state.setState(place.combo, static_cast<int>(list.rend() - last) - 1);
}

void Wizard::click(std::string_view control, int newState) {
    state.setState(control, newState);
    applyEffects(control, newState);
}

void Wizard::applyEffects(Names of, int newState) {
    for (const Effect& effect : table_.effects) {
        const bool isMeant = holdsName(effect.of, of) && effect.states.hold(newState) &&
                             isCalledFor(effect.modes) && state.holds(effect.when);
        if (isMeant) state.apply(effect);
    }
}

PressResult Wizard::press(std::string_view, const LineBreakLimits&) {
    return {};
}

ChangeResult Wizard::changed(std::string_view) {
    return {};
}

void Wizard::attach(TextArea& box) {
    box_ = &box;
    box.SetText(state.text(table_.box));
}

void Wizard::empty(Names controls) {
    forEachName(controls, [this](std::string_view name) { state.setText(name, ""); });
}

void Wizard::turnOff(Names controls) {
    forEachName(controls, [this](std::string_view name) { state.setState(name, kOff); });
}

bool Wizard::canShow(std::string_view frame) const {
    return state.frame(frame).isVisible || std::ranges::any_of(table_.effects, [&](const Effect& effect) {
               return effect.act == Act::ShowFrame && isCalledFor(effect.modes) &&
                      holdsName(effect.on, frame);
           });
}

const PlaceRow* Wizard::place() const {
    const auto found = std::ranges::find_if(table_.places, [this](const PlaceRow& row) {
        return row.option.empty() || state.control(row.option).state == kOn;
    });
    return found == table_.places.end() ? nullptr : &*found;
}

std::optional<Complaint> Wizard::check() const {
    return firstFailing({});
}

std::optional<Complaint> Wizard::firstFailing(std::string_view button) const {
    for (const CheckRule& rule : table_.rules) {
        const bool isMeant = button.empty() ? rule.of.empty() : holdsName(rule.of, button);
        if (!isMeant || !isCalledFor(rule.modes) || !state.holds(rule.when)) continue;
        const bool isGroup = rule.control.find(' ') != rule.control.npos;
        const bool isMet = anyName(rule.control, [&](std::string_view name) {
            const ControlState& control = state.control(name);
            return isGroup ? control.state == kOn : !control.text.empty();
        });
        if (!isMet)
            return Complaint{rule.message, isGroup || !rule.focus.empty() ? rule.focus : rule.control};
    }
    return std::nullopt;
}

std::string Wizard::text() const {
    return itemText(table_.line, state);
}

void Wizard::load(std::string_view line) {
    LoadLineIntoWizard(table_.line, line, state);
    loss_ = lineLoss(table_.line, line, text());
}

std::unique_ptr<LineTarget> Wizard::target() const {
    if (opening_.mode == OpeningMode::Edit)
        return std::make_unique<ReplacedLine>(opening_.target, opening_.item);
    if (opening_.mode == OpeningMode::Package) return std::make_unique<LineBox>(opening_.target);
    const PlaceRow& row = *place();
    if (row.combo.empty()) return std::make_unique<PlacedLine>(opening_.target, row.section);
    const ControlState& combo = state.control(row.combo);
    return std::make_unique<PlacedLine>(opening_.target, row.section, '<' + combo.text + '>', combo.list,
                                        combo.state);
}

FinishedText Wizard::finished(const LineBreakLimits& limits) const {
    auto whole = text() + opening_.item.comment;
    if (!table_.line.isBroken || opening_.mode == OpeningMode::Package) return {std::move(whole)};
    const PlaceRow* const row = place();
    return {BreakLongLine(whole, row == nullptr ? Section::Other : sectionOf(row->section), limits)};
}

DoneResult Wizard::finish(const LineBreakLimits& limits) {
    if (const auto complaint = check()) return {DoneResult::Kind::Refused, *complaint};
    const auto line = finished(limits);
    if (!target()->write({line.text, line.styles})) return {DoneResult::Kind::Refused, {kTextHasChanged}};
    if (table_.closesAfterDone || opening_.mode != OpeningMode::Insert) return {DoneResult::Kind::Closes};
    applyEffects(kAfterDone);
    return {DoneResult::Kind::StaysOpen, {}, firstEmptied()};
}

std::string_view Wizard::firstEmptied() const {
    const auto emptied = std::ranges::find_if(table_.controls, [this](const ControlRow& row) {
        return std::ranges::any_of(table_.effects, [&](const Effect& effect) {
            return effect.of == kAfterDone && effect.act == Act::SetText && effect.text.empty() &&
                   holdsName(effect.on, row.name) && isCalledFor(effect.modes) && state.holds(effect.when);
        });
    });
    return emptied == table_.controls.end() ? std::string_view() : emptied->name;
}

std::unique_ptr<Wizard> makeWizard(const WizardTable& table, Opening opening) {
    return (table.make != nullptr ? table.make : makeAs<Wizard>)(table, std::move(opening));
}

}  // namespace klt
