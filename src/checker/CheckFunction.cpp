#include "checker/CheckFunction.h"

#include "language/CharTable.h"

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

    FunctionEnd run(Place at, Position errorStart);

private:
    AtFunction top() const { return scan_.state.functionStack.top(); }
    bool open(Place at);
    Place walkBody();
    Place close();
    Place comma();
    void blank();
    Place fail(ErrorReason reason) {
        return MarkErrorRun(scan_, i_, functionErrorStart(scan_, now_.start), ')', reason);
    }
    bool noteRunOff();
    void hold();
    void resume(Place result);

    Scan& scan_;
    FunctionFrame now_;
    WordBuffer word_;
    Place i_ = 0;
};

bool FunctionWalk::open(Place at) {
    constexpr Place kLongestName = 7;
    auto name = scan_.span(at, at + kLongestName);
    name = name.substr(0, name.find('(') + 1);
    const auto function = functionOf(name);
    if (function == AtFunction::None) return false;
    scan_.state.functionStack.push(function);
    const auto start = at + static_cast<Place>(name.size());
    scan_.recognise(scan_.lineStart + start - 1, name, functionName(function), StyleCategory::Functions);
    now_ = {.at = at, .start = start};
    word_.clear();
    i_ = start - 1;
    return true;
}

Place FunctionWalk::close() {
    const auto arity = arityOf(top());
    if (arity == Arity::Conditional && now_.ifStage == 0) return fail(ErrorReason::IfWithoutThen);
    if (arity == Arity::Two && now_.commas == 0) return fail(ErrorReason::FunctionTakesTwo);
    endWord(scan_, i_, word_);
    if (now_.depth > 0) {
        --now_.depth;
        return 0;
    }
    scan_.colourAt(i_, StyleCategory::Functions);
    scan_.state.functionStack.pop();
    return i_;
}

Place FunctionWalk::comma() {
    switch (arityOf(top())) {
        case Arity::One:
            return fail(ErrorReason::FunctionTakesOne);
        case Arity::Conditional:
            return fail(ErrorReason::IfComma);
        case Arity::Two:
            if (now_.commas > 0) return fail(ErrorReason::FunctionTakesTwo);
            ++now_.commas;
            break;
        case Arity::None:
            break;
    }
    endWord(scan_, i_, word_);
    return 0;
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

// The place that closes the function, or that its error ends at; 0 at the end of the text.
Place FunctionWalk::walkBody() {
    const auto length = scan_.length();
    for (++i_; i_ <= length; ++i_) {
        const auto k = static_cast<size_t>(i_ - 1);
        Place result = 0;
        switch (kTable[scan_.text[k]]) {
            case Act::Append: {
                const auto end = kTable.skip(scan_.text, k, Act::Append);
                word_.append(scan_.text.substr(k, end - k));
                i_ = static_cast<Place>(end);
                break;
            }
            case Act::Open:
                ++now_.depth;
                break;
            case Act::Close:
                result = close();
                break;
            case Act::Function: {
                hold();
                if (open(i_)) break;
                resume(now_.start);
                result = fail(ErrorReason::UnknownFunction);
                break;
            }
            case Act::Comma:
                result = comma();
                break;
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
        if (result != 0) return result;
    }
    return 0;
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

void FunctionWalk::resume(Place result) {
    auto& line = scan_.line;
    now_ = line.frames.top();
    line.frames.pop();
    word_.clear();
    if (now_.heldWord != 0) {
        word_ = line.heldWords.back();
        line.heldWords.pop_back();
    }
    now_.start = result;
}

bool FunctionWalk::noteRunOff() {
    auto& ranOff = scan_.line.ranOff;
    const auto at = scan_.lineStart + now_.at;
    if (std::find(ranOff.begin(), ranOff.end(), at) != ranOff.end()) return false;
    ranOff.push_back(at);
    return true;
}

FunctionEnd FunctionWalk::run(Place at, Position errorStart) {
    if (!open(at)) return {MarkErrorRun(scan_, at, errorStart, ')', ErrorReason::UnknownFunction), true};
    for (;;) {
        const auto result = walkBody();
        if (result == 0 && !noteRunOff()) {
            scan_.line.hasEnded = true;
            return {scan_.length() + 1, true};
        }
        if (scan_.line.frames.empty()) return {result, false};
        resume(result);
        i_ = result;
    }
}

}  // namespace

FunctionEnd EnterFunction(Scan& scan, Place at, Position errorStart) {
    return FunctionWalk(scan).run(at, errorStart);
}

}  // namespace klt
