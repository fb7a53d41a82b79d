#include "checker/Scanners.h"
#include "checker/ValueWalk.h"
#include "language/CharTable.h"

namespace klt {

namespace {

enum class Act : unsigned char {
    Append,
    Open,
    Close,
    Function,
    Math,
    Quote,
    Break,
    Colon,
    Comma,
    Forbidden,
    Blank
};

constexpr CharTable<Act> kTable(Act::Append, {
                                                 {"(", Act::Open},
                                                 {")", Act::Close},
                                                 {"@", Act::Function},
                                                 {"+-*/", Act::Math},
                                                 {"\"", Act::Quote},
                                                 {"_\t\r\n", Act::Break},
                                                 {":", Act::Colon},
                                                 {",", Act::Comma},
                                                 {"<>={}[]|", Act::Forbidden},
                                                 {" ", Act::Blank},
                                             });

/// The steps that `CheckExpression` and `CheckDefault` share; `Kind` has those that differ.
template <class Kind>
class ExpressionWalk : public ValueWalk {
public:
    using ValueWalk::ValueWalk;

    Place run() {
        for (; i <= scan.length(); ++i)
            if (step()) return result;
        static_cast<Kind*>(this)->textEnds();
        return scan.length() + 1;
    }

private:
    // True if the scanner ends here.
    bool step() {
        auto& kind = static_cast<Kind&>(*this);
        switch (kTable[scan.at(i)]) {
            case Act::Append:
                append(kTable, Act::Append);
                return false;
            case Act::Open:
                ++depth;
                return false;
            case Act::Close:
                return close();
            case Act::Function:
                return function(functionErrorStart(scan, start));
            case Act::Math:
                kind.mathSign();
                return false;
            case Act::Quote:
                quote();
                return false;
            case Act::Break:
                kind.lineBreak();
                return false;
            case Act::Colon:
                return !prefixTest(scan, i, word) &&
                       failFrom(kind.prefixErrorStart(), ErrorReason::UnknownPrefix);
            case Act::Comma:
                return kind.comma();
            case Act::Forbidden:
                return fail(Kind::kForbidden);
            case Act::Blank:
                kind.blank();
                return false;
        }
        return false;
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
        if (scan.at(i) == '_' && equalIgnoringAsciiCase(word.view(), "SK")) word.append(scan.span(i, i + 1));
    }
    Position prefixErrorStart() const { return tagErrorStart(scan, start); }
    bool comma() { return fail(kForbidden); }
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
    Position prefixErrorStart() const { return functionErrorStart(scan, start); }
    bool comma() {
        endWord(scan, i, word);
        return false;
    }
    void blank() {
        if (!word.empty()) word.append(scan.span(i, i + 1));
    }
    void textEnds() {}
};

}  // namespace

Place CheckExpression(Scan& scan, Place position) {
    return Expression(scan, position).run();
}

Place CheckDefault(Scan& scan, Place position) {
    return Default(scan, position).run();
}

}  // namespace klt
