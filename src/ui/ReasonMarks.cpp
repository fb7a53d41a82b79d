#include "ui/ReasonMarks.h"

#include <algorithm>

#include "language/StyleCategory.h"
#include "platform/MemoryRoom.h"
#include "text/Unicode.h"
#include "ui/RichTextBox.h"

namespace klt {
namespace {

using Base = QsciScintillaBase;

constexpr Position kMark = RichTextBox::kReasonMark;
constexpr Position kWordMark = RichTextBox::kReasonWordMark;
// Of a run with very many parts the first ones are looked at.
constexpr int kMost = 100;
// 0 is what no mark lies on.
constexpr Position kFirstValue = 1;
constexpr auto kChangedValue = kFirstValue + static_cast<Position>(kErrorReasonCount);

}  // namespace

ReasonMarks::ReasonMarks(const RichTextBox& box) : box_(box) {
    for (const Position mark : {kMark, kWordMark}) ask(mark, Base::SCI_INDICSETSTYLE, Base::INDIC_HIDDEN);
}

Position ReasonMarks::ask(Position mark, unsigned message, Position place) const {
    return box_.SendScintilla(message, static_cast<unsigned long>(mark), static_cast<long>(place));
}

// The reason of a value, with the word in the run that it speaks of.
std::string ReasonMarks::textOf(Position value, TextRange run) const {
    if (value < kFirstValue || value >= kChangedValue) return std::string(kChanged);
    const auto reason = kErrorReasons[static_cast<size_t>(value - kFirstValue)].reason;
    Position at = run.start;
    for (int seen = 0; at < run.end && seen < kMost; ++seen) {
        const Position end = ask(kWordMark, Base::SCI_INDICATOREND, at);
        if (end <= at) break;
        if (ask(kWordMark, Base::SCI_INDICATORVALUEAT, at) == value)
            return reasonText(reason, std::string(box_.Slice(at, std::min(end, run.end))));
        at = end;
    }
    return reasonText(reason, {});
}

Position ReasonMarks::valueAt(Position place) const {
    return place < 0 || place >= box_.Length() ? 0 : ask(kMark, Base::SCI_INDICATORVALUEAT, place);
}

TextRange ReasonMarks::runAt(Position place) const {
    return {ask(kMark, Base::SCI_INDICATORSTART, place), ask(kMark, Base::SCI_INDICATOREND, place)};
}

bool ReasonMarks::isInError(Position place) const {
    return place >= 0 && place < box_.Length() &&
           box_.StyleAt(place) == static_cast<StyleByte>(StyleCategory::SyntaxError);
}

void ReasonMarks::fill(Position mark, TextRange range, Position value) {
    box_.SendScintilla(Base::SCI_SETINDICATORCURRENT, static_cast<unsigned long>(mark));
    box_.SendScintilla(Base::SCI_SETINDICATORVALUE, static_cast<unsigned long>(value));
    box_.SendScintilla(Base::SCI_INDICATORFILLRANGE, static_cast<unsigned long>(range.start),
                       static_cast<long>(range.end - range.start));
}

void ReasonMarks::change(TextRange run) {
    fill(kMark, run, kChangedValue);
}

void ReasonMarks::forget(TextRange range) {
    if (range.start >= range.end) return;
    if (range.start == 0 && range.end == box_.Length()) runs_ = 0;
    for (const Position mark : {kMark, kWordMark}) {
        box_.SendScintilla(Base::SCI_SETINDICATORCURRENT, static_cast<unsigned long>(mark));
        box_.SendScintilla(Base::SCI_INDICATORCLEARRANGE, static_cast<unsigned long>(range.start),
                           static_cast<long>(range.end - range.start));
    }
}

void ReasonMarks::lay(const ErrorRuns& runs) {
    if (runs.empty() || !roomFor(kBytesOfRun * (runs_ + runs.size()))) return;
    runs_ += runs.size();
    const auto goesOn = [this](Position at) {
        const std::string_view byte = box_.Slice(at, at + 1);
        return !byte.empty() && isContinuation(byte.front());
    };
    for (const ErrorRun& run : runs) {
        TextRange range{std::max<Position>(run.start, 0), std::min(run.end, box_.Length())};
        // A style begins in front of a character.
        for (int back = 0; back < 3 && range.start > 0 && goesOn(range.start); ++back) --range.start;
        const Position value = kFirstValue + static_cast<Position>(run.reason);
        if (range.start < range.end) fill(kMark, range, value);
        const TextRange word{run.word.start, std::min(run.word.end, box_.Length())};
        if (word.start < word.end) fill(kWordMark, word, value);
    }
}

bool ReasonMarks::splitsRun(Position place) const {
    // What comes in right behind a run belongs to it only where the next one, or the text's end, follows.
    return valueAt(place - 1) != 0 && (valueAt(place) != 0 || place == box_.Length());
}

ReasonMarks::Runs ReasonMarks::lostBy(TextRange range) const {
    Runs lost;
    if (runs_ == 0) return lost;
    if (range.start == range.end) {
        const Position before = range.start - 1;
        if (splitsRun(range.start)) lost.push_back({kMark, runAt(before), valueAt(before)});
        return lost;
    }
    for (const Position mark : {kMark, kWordMark}) addRuns(mark, range, lost);
    return lost;
}

void ReasonMarks::addRuns(Position mark, TextRange range, Runs& runs) const {
    for (Position at = range.start; at < range.end;) {
        const TextRange run{ask(mark, Base::SCI_INDICATORSTART, at), ask(mark, Base::SCI_INDICATOREND, at)};
        if (run.end <= at) break;  // no marks at all
        if (const Position value = ask(mark, Base::SCI_INDICATORVALUEAT, at))
            runs.push_back({mark, run, value});
        at = run.end;
    }
}

void ReasonMarks::bringBack(const Runs& runs, TextRange text) {
    if (text.start < text.end && runs_ > 0) forget(text);
    if (text.start < text.end) runs_ += runs.size();
    for (const auto& [mark, range, value] : runs) {
        const TextRange inside{std::max(range.start, text.start), std::min(range.end, text.end)};
        if (inside.start < inside.end) fill(mark, inside, value);
        // A word that was cut is still marked where it stayed.
        if (mark == kWordMark) continue;
        fillChanged({range.start, std::min(range.end, text.start)}, value);
        fillChanged({std::max(range.start, text.end), range.end}, value);
    }
}

void ReasonMarks::fillChanged(TextRange range, Position value) {
    range.end = std::min(range.end, box_.Length());
    for (Position at = range.start; at < range.end;) {
        const Position end = std::min(runAt(at).end, range.end);
        if (end <= at) break;
        if (valueAt(at) == kChangedValue) fill(kMark, {at, end}, value);
        at = end;
    }
}

void ReasonMarks::textInserted(Position place) {
    if (splitsRun(place)) change(runAt(place - 1));
}

void ReasonMarks::textDeleted(Position place, Position length) {
    const TextRange gone{place, place + length};
    for (const Position edge : {gone.start, gone.end - 1}) {
        if (valueAt(edge) == 0) continue;
        const TextRange run = runAt(edge);
        if (run.start < gone.start || run.end > gone.end) change(run);
    }
}

std::string ReasonMarks::at(Position place) const {
    if (!isInError(place)) return {};
    const Position value = valueAt(place);
    if (value == 0) return std::string(kChanged);
    const TextRange run = runAt(place);
    if (lacksReason(run.start - 1) || lacksReason(run.end)) return std::string(kChanged);
    return textOf(value, run);
}

std::vector<std::string> ReasonMarks::of(TextRange run) const {
    std::vector<std::string> reasons;
    int seen = 0;
    for (Position place = run.start; place < run.end && seen < kMost; ++seen) {
        const std::string reason = at(place);
        if (reason == kChanged) return {reason};
        if (reason.empty()) break;
        if (std::ranges::find(reasons, reason) == reasons.end()) reasons.push_back(reason);
        place = runAt(place).end;
    }
    return reasons;
}

}  // namespace klt
