#include "checker/Scanners.h"
#include "checker/ValueWalk.h"

namespace klt {

namespace {

using Act = ValueAct;

constexpr CharTable<Act> kTable(Act::Append, {
                                                 {"(", Act::Open},
                                                 {")", Act::Close},
                                                 {"@", Act::Function},
                                                 {"+-*/", Act::Math},
                                                 {"\"", Act::Quote},
                                                 {"_\t\r\n", Act::Break},
                                                 {":", Act::Prefix},
                                                 {",", Act::Comma},
                                                 {"<>={}[]|", Act::Forbidden},
                                                 {" ", Act::Blank},
                                             });

/// The steps that `CheckExpression` and `CheckDefault` share; `Kind` has those that differ.
template <class Kind>
class ExpressionWalk : public ValueWalk {
public:
    using ValueWalk::ValueWalk;

    ScanPosition run() {
        for (; scan.isInside(i); ++i)
            if (kindStep(kTable[scan.at(i)])) return result;
        static_cast<Kind*>(this)->textEnds();
        return scan.end();
    }

private:
    // True if the scanner ends here.
    bool kindStep(Act act) {
        auto& kind = static_cast<Kind&>(*this);
        switch (act) {
            case Act::Function:
                return function(functionErrorStart(scan, start));
            case Act::Math:
                kind.mathSign();
                return false;
            case Act::Break:
                kind.lineBreak();
                return false;
            case Act::Prefix: {
                const ScanRange prefix{i - word.size(), i + 1};
                return !prefixTest(scan, i, word) &&
                       failFrom(kind.prefixErrorStart(), ErrorReason::UnknownPrefix, prefix);
            }
            case Act::Comma:
                return kind.comma();
            case Act::Forbidden:
                return failAtCharacter(Kind::kForbidden);
            case Act::Blank:
                kind.blank();
                return false;
            default:
                return step<kTable>(act);
        }
    }
};

class Expression : public ExpressionWalk<Expression> {
public:
    using ExpressionWalk::ExpressionWalk;
    static constexpr auto kForbidden = ErrorReason::ExpressionCharacter;

    void mathSign() {
        if (inQuote)
            ColourWord(scan, i, word);
        else
            math();
    }
    // So that "SK_RL:" can form.
    void lineBreak() {
        if (scan.at(i) == '_' && equalIgnoringAsciiCase(word.view(), "SK")) word.append(scan.stretch(i, 1));
    }
    ScanPosition prefixErrorStart() const { return tagErrorStart(scan, start); }
    bool comma() { return failAtCharacter(kForbidden); }
    void blank() {
        if (!inQuote) ColourWord(scan, i, word);
        word.clear();
    }
    void textEnds() { ColourWord(scan, i, word); }
};

class Default : public ExpressionWalk<Default> {
public:
    using ExpressionWalk::ExpressionWalk;
    static constexpr auto kForbidden = ErrorReason::DefaultCharacter;

    void mathSign() {
        if (inQuote) return;
        scan.colourAt(i, StyleCategory::MathCharacters);
        word.clear();
    }
    void lineBreak() {}
    ScanPosition prefixErrorStart() const { return functionErrorStart(scan, start); }
    bool comma() {
        endWord(scan, i, word);
        return false;
    }
    void blank() {
        if (!word.empty()) word.append(scan.stretch(i, 1));
    }
    void textEnds() {}
};

}  // namespace

ScanPosition CheckExpression(Scan& scan, ScanPosition position) {
    return Expression(scan, position).run();
}

ScanPosition CheckDefault(Scan& scan, ScanPosition position) {
    return Default(scan, position).run();
}

}  // namespace klt
