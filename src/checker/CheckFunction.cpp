#include "checker/CheckFunction.h"

namespace klt {

namespace {

enum class Act : unsigned char { Append, Open, Close, Function, Comma, Math, Blank, PassOver };

constexpr CharTable<Act> kTable(Act::Append, {
                                                 {"(", Act::Open},
                                                 {")", Act::Close},
                                                 {"@", Act::Function},
                                                 {",", Act::Comma},
                                                 {"+-*/", Act::Math},
                                                 {" ", Act::Blank},
                                                 {"_\t\r\n", Act::PassOver},
                                             });

/// The body of an @function. Those nested in it wait on a stack of frames, so that they nest as deep as the
/// text does.
class FunctionWalk {
public:
    explicit FunctionWalk(Scan& scan) : scan_(scan) {}

    FunctionEnd run(ScanPosition at, ScanPosition errorStart);

private:
    AtFunction top() const { return scan_.state.functionStack.top(); }
    bool open(ScanPosition at);
    /// Up to what closes the function, or to where its error ends, which is then `end_`. False if the text
    /// ends before.
    bool walkBody();
    // Each is true where the body has come to its end.
    bool step();
    bool close();
    bool comma();
    bool nested();
    bool fail(ErrorReason reason, ScanRange word = {}) {
        return ends(MarkErrorRun(scan_, i_, functionErrorStart(scan_, now_.start), ')', reason, word));
    }
    bool failNamed(ErrorReason reason) {
        return fail(reason, {now_.at, now_.at + functionName(top()).size()});
    }
    /// What stands for the name of an @function at `at`.
    ScanRange nameAt(ScanPosition at) const;
    bool ends(ScanPosition at) {
        end_ = at;
        return true;
    }
    void blank();
    bool noteRunOff();
    void hold();
    void resume(ScanPosition start);

    Scan& scan_;
    FunctionFrame now_;
    WordBuffer word_;
    ScanPosition i_;
    ScanPosition end_;
};

bool FunctionWalk::open(ScanPosition at) {
    constexpr auto kLongestName = kFunctionNames.longest();
    auto name = scan_.stretch(at, kLongestName);
    name = name.substr(0, name.find('(') + 1);
    const auto function = functionOf(name);
    if (function == AtFunction::None) return false;
    scan_.state.functionStack.push(function);
    const auto start = at + name.size();
    scan_.recognise(start, name, functionName(function), StyleCategory::Functions);
    now_ = {};
    now_.at = at;
    now_.start = start;
    word_.clear();
    i_ = start - 1;
    return true;
}

ScanRange FunctionWalk::nameAt(ScanPosition at) const {
    const auto end = scan_.text.find_first_of("(),+-*/ _\t\r\n", at.offset() + 1);
    if (end == std::string_view::npos) return {at, scan_.end()};
    return {at, ScanPosition(end) + (scan_.text[end] == '(' ? 1 : 0)};
}

bool FunctionWalk::close() {
    const auto arity = arityOf(top());
    if (arity == Arity::Conditional && now_.ifStage == 0) return fail(ErrorReason::IfWithoutThen);
    if (arity == Arity::Two && now_.commas == 0) return failNamed(ErrorReason::FunctionTakesTwo);
    endWord(scan_, i_, word_);
    if (now_.depth > 0) {
        --now_.depth;
        return false;
    }
    scan_.colourAt(i_, StyleCategory::Functions);
    scan_.state.functionStack.pop();
    return ends(i_);
}

bool FunctionWalk::comma() {
    switch (arityOf(top())) {
        case Arity::One:
            return failNamed(ErrorReason::FunctionTakesOne);
        case Arity::Conditional:
            return fail(ErrorReason::IfComma);
        case Arity::Two:
            if (now_.commas > 0) return failNamed(ErrorReason::FunctionTakesTwo);
            ++now_.commas;
            break;
        case Arity::None:
            break;
    }
    endWord(scan_, i_, word_);
    return false;
}

void FunctionWalk::blank() {
    ColourWord(scan_, i_, word_);
    if (top() == AtFunction::If) {
        if (now_.ifStage == 0 && equalIgnoringAsciiCase(word_.view(), "THEN"))
            now_.ifStage = 1;
        else if (now_.ifStage == 1 && equalIgnoringAsciiCase(word_.view(), "ELSE"))
            now_.ifStage = 2;
        else if (now_.ifStage == 2)
            now_.ifStage = 3;
    }
    word_.clear();
}

// At the `@` of another function: goes on inside it, unless it has no known name.
bool FunctionWalk::nested() {
    hold();
    if (open(i_)) return false;
    resume(now_.start);
    return fail(ErrorReason::UnknownFunction, nameAt(i_));
}

bool FunctionWalk::step() {
    switch (kTable[scan_.at(i_)]) {
        case Act::Append:
            scan_.collect(kTable, i_, word_);
            break;
        case Act::Open:
            ++now_.depth;
            break;
        case Act::Close:
            return close();
        case Act::Function:
            return nested();
        case Act::Comma:
            return comma();
        case Act::Math:
            endWord(scan_, i_, word_);
            scan_.colourAt(i_, StyleCategory::MathCharacters);
            break;
        case Act::Blank:
            blank();
            break;
        case Act::PassOver:
            break;
    }
    return false;
}

bool FunctionWalk::walkBody() {
    for (++i_; scan_.isInside(i_); ++i_)
        if (step()) return true;
    return false;
}

void FunctionWalk::hold() {
    auto& line = scan_.line;
    now_.heldWord = 0;
    if (!word_.empty()) {
        line.heldWords.push_back(word_);
        now_.heldWord = static_cast<unsigned>(line.heldWords.size());
    }
    line.frames.push(now_);
}

void FunctionWalk::resume(ScanPosition start) {
    auto& line = scan_.line;
    now_ = line.frames.top();
    line.frames.pop();
    word_.clear();
    if (now_.heldWord != 0) {
        word_ = line.heldWords.back();
        line.heldWords.pop_back();
    }
    now_.start = start;
}

bool FunctionWalk::noteRunOff() {
    auto& ranOff = scan_.line.ranOff;
    const auto at = scan_.inDocument(now_.at);
    if (std::find(ranOff.begin(), ranOff.end(), at) != ranOff.end()) return false;
    ranOff.push_back(at);
    return true;
}

FunctionEnd FunctionWalk::run(ScanPosition at, ScanPosition errorStart) {
    if (!open(at))
        return {MarkErrorRun(scan_, at, errorStart, ')', ErrorReason::UnknownFunction, nameAt(at)), true};
    for (;;) {
        if (!walkBody()) {
            if (!noteRunOff()) {
                scan_.line.hasEnded = true;
                return {scan_.end(), true};
            }
            end_ = kInFront;
        }
        if (scan_.line.frames.empty()) return {end_, false};
        resume(end_);
        i_ = end_;
    }
}

}  // namespace

FunctionEnd EnterFunction(Scan& scan, ScanPosition at, ScanPosition errorStart) {
    return FunctionWalk(scan).run(at, errorStart);
}

}  // namespace klt
