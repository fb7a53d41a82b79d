#include "wizards/CollectingWizard.h"

#include <algorithm>

#include "language/LogicalLine.h"
#include "text/TextAreaGuards.h"

namespace klt {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

void CollectingWizard::load() {
    state.setText(table().box, opening().item.block);
    noteLoaded();
}

PressResult CollectingWizard::press(std::string_view button, const LineBreakLimits& limits) {
    for (const LineTab& tab : table().tabs) {
        if (button == tab.add) return add(tab, limits);
        if (button != tab.compose) continue;
        if (const auto complaint = composeLine(tab)) return {{*complaint}};
        return {.focus = tab.composedFocus};
    }
    return {};
}

ChangeResult CollectingWizard::changed(std::string_view control) {
    const auto tab = std::ranges::find(table().tabs, control, &LineTab::source);
    if (control.empty() || tab == table().tabs.end()) return {};
    state.setText(tab->full, std::string(tab->beginning) + state.text(control));
    return {.isFollowed = true};
}

std::optional<Complaint> CollectingWizard::composeLine(const LineTab& tab) {
    if (!tab.source.empty()) return std::nullopt;
    const auto complaint = firstFailing(tab.compose.empty() ? tab.add : tab.compose);
    if (!complaint && !tab.full.empty()) state.setText(tab.full, compose(tab));
    return complaint;
}

PressResult CollectingWizard::add(const LineTab& tab, const LineBreakLimits& limits) {
    if (const auto complaint = composeLine(tab)) return {{*complaint}};
    const std::string line = tab.full.empty() ? compose(tab) : state.text(tab.full);
    if (line == tab.beginning) return {{{tab.none, tab.source}}};
    return append(tab, tab.isBroken ? BreakLongLine(line, sectionOf(place()->section), limits) : line);
}

PressResult CollectingWizard::append(const LineTab& tab, std::string_view line) {
    const auto& lines = state.text(table().box);
    const bool endsLine = lines.empty() || lines.ends_with(kLineEnd);
    box().SetSelStart(box().Length());
    box().SetSelText(std::string(endsLine ? std::string_view() : kLineEnd).append(line));
    box().SetSelStart(0);
    boxChanged();
    emptyTab(tab);
    return {.focus = tab.focus};
}

void CollectingWizard::emptyTab(const LineTab& tab) {
    empty(tab.emptied);
    turnOff(tab.turnedOff);
    if (!tab.full.empty()) state.setText(tab.full, tab.beginning);
}

EditedLine CollectingWizard::lineAt(Position start) const {
    const auto text = box().Text();
    const auto end = lineEnd(text, static_cast<size_t>(start));
    const auto behind = std::min(text.size(), end + kLineEnd.size());
    return {std::string(text.substr(static_cast<size_t>(start), end - static_cast<size_t>(start))),
            {start, static_cast<Position>(behind)}};
}

const LineTab* CollectingWizard::takeBack() {
    const Position start = box().LineIndex(box().GetLineFromChar(box().SelStart()));
    const EditedLine line = lineAt(start);
    const LineTab* const tab = loadLine(line.text);
    if (tab == nullptr) return nullptr;
    box().Select(start, line.range.end - start);
    box().SetSelText("");
    boxChanged();
    return tab;
}

void CollectingWizard::boxChanged() {
    state.setText(table().box, box().Text());
}

FinishedText CollectingWizard::finished(const LineBreakLimits&) const {
    const auto head = heading();
    std::string styles(head.size(), '\0');
    for (Position place = 0; place < box().Length(); ++place)
        styles += static_cast<char>(box().StyleAt(place));
    return {head + text(), std::move(styles)};
}

}  // namespace klt
