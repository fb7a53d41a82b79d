#include "wizards/LineBreaker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "support/BrokenLaws.h"

namespace klt {
namespace {

// Stands for CR LF and a tab.
std::string shown(std::string text) {
    for (size_t i; (i = text.find("\r\n\t")) != std::string::npos;) text.replace(i, 3, "~");
    return text;
}

TEST(LineBreaker, ChoosesTheBreak) {
    using Row = std::tuple<Section, int, int, const char*, const char*>;
    const auto ads = Section::Ads, skills = Section::Skills, packages = Section::Packages;
    for (const auto& [section, maximum, tolerance, line, broken] : {
             // The length is that of the piece, with its tab and its mark, in characters.
             Row{ads, 0, 10, "Name, 5, page(1), cat(2)", "Name, 5, page(1), cat(2)"},
             Row{ads, -3, 10, "Name, 5, page(1), cat(2)", "Name, 5, page(1), cat(2)"},
             Row{ads, 24, 0, "Name, 5, page(1), cat(2)", "Name, 5, page(1), cat(2)"},
             Row{ads, 23, 0, "Name, 5, page(1), cat(2)", "Name, 5, page(1),~cat(2)"},
             Row{ads, 17, 0, "Name, 5, page(1), cat(2)", "Name, 5, page(1),~cat(2)"},
             Row{ads, 16, 0, "Name, 5, page(1), cat(2)", "Name, 5,~page(1), cat(2)"},
             Row{ads, 15, 0, "Name, 5, page(1), cat(2)", "Name, 5,~page(1),~cat(2)"},
             Row{ads, 20, 20, "Name, 5, page(1), cat(2)", "Name, 5, page(1),~cat(2)"},
             Row{ads, 8, 0, "N\xC3\xA4me, 5, page(1)", "N\xC3\xA4me, 5,~page(1)"},
             Row{ads, 6, 0, "\xC3\x84 b c d", "\xC3\x84 b _~c d"},
             Row{ads, 4, 0, "\xC3\x84 b c d", "\xC3\x84 _~b _~c d"},
             // Between tags before inside a value before at a blank, as far as the tolerance goes.
             Row{ads, 32, 19, "Name, 5, notes(ab, cd ef), page(1) ", "Name, 5, notes(ab, cd ef),~page(1) "},
             Row{ads, 25, 19, "Name, 5, notes(ab, cd ef), page(1)", "Name, 5,~notes(ab, cd ef),~page(1)"},
             Row{ads, 25, 10, "Name, 5, notes(ab, cd ef), page(1)", "Name, 5, notes(ab,~cd ef), page(1)"},
             Row{ads, 25, 5, "Name, 5, notes(ab, cd ef), page(1)", "Name, 5, notes(ab, cd _~ef), page(1)"},
             Row{ads, 21, 1, "Name, 5, notes(ab, cd ef), page(1)", "Name, 5, notes(ab,~cd ef), page(1)"},
             Row{ads, 5, 0, "Name, 5, cat(a)", "Name,~5,~cat(a)"},
             Row{ads, 1, 20, "Abcde fg, 5, cat(a)", "Abcde _~fg,~5,~cat(a)"},
             // Blanks that do not stand alone, and quotes.
             Row{ads, 4, 0, "a  b,  c \td, 5,x", "a  b,  c \td,~5,x"},
             Row{ads, 4, 0, "a \"b, c\" d, 5, cat(x)", "a _~\"b, c\" d,~5,~cat(x)"},
             Row{ads, 4, 0, "a, 5, cat(1 *2 <3 [4 {5 6)", "a,~5,~cat(1 *2 <3 [4 {5 _~6)"},
             Row{ads, 4, 0, "a, 5, cat(x) // b, c", "a, 5, cat(x) // b, c"},
             Row{ads, 4, 0, " * a, 5, cat(x)", " * a, 5, cat(x)"},
             Row{ads, 4, 0, "a,\r\nb, 5, cat(x)", "a,\r\nb, 5, cat(x)"},
             // Fields that are looked at whole.
             Row{ads, 4, 0, "Name, 5", "Name, 5"},
             Row{ads, 4, 0, "Na me, 5 / 10, cat(x)", "Na _~me,~5 / 10,~cat(x)"},
             Row{skills, 4, 0, "Name, M/A", "Name, M/A"},
             Row{skills, 4, 0, "Name, type(M/A B), default(DX-5, IQ-6)",
                 "Name,~type(M/A B),~default(DX-5,~IQ-6)"},
             Row{Section::Stats, 4, 0, "X, up(1 /2), display(Not so), minscore(1 +2), round(No or)",
                 "X,~up(1 /2),~display(Not so),~minscore(1 +2),~round(No or)"},
             Row{ads, 4, 0, "N, 5, gives(+1 pts to SK:A B upto 3, -2 to ST, @MAX(1, 2) to DX)",
                 "N,~5,~gives(+1 pts to _~SK:A _~B upto _~3,~-2 to _~ST, @MAX(1, 2) to _~DX)"},
             Row{ads, 4, 0, "N, 5, needs(SK:A=1 | 2 AD:B, Other)", "N,~5,~needs(SK:A=1 _~|~2 _~AD:B,~Other)"},
             // What the checker would see otherwise.
             Row{ads, 4, 0, "N, 5, needs(SK:A = B + 2 AD:C)", "N,~5,~needs(SK:A _~= B + _~2 _~AD:C)"},
             // Lines of packages.
             Row{packages, 4, 0, "ADD=SK:A B .AT. 5 pts .WITH. C, 5, page(1) .AND. D, 6",
                 "ADD=SK:A _~B .AT. 5 pts .WITH. _~C,~5,~page(1) .AND. _~D, 6"},
             Row{packages, 4, 0, "CREATE=AD:A, 5, cat(x) .WITH. C, 5%, page(1) .AND. D, 6%",
                 "CREATE=AD:A,~5,~cat(x) .WITH. _~C,~5%,~page(1) .AND. _~D, 6%"},
             Row{packages, 4, 0, "MESSAGE=a, b c", "MESSAGE=a, b c"},
             Row{packages, 4, 0, "EMESSAGE=a .WITH. b c", "EMESSAGE=a .WITH. b c"},
             Row{packages, 4, 0, "Add=Race .AT. b, c", "Add=Race .AT. b, c"},
             Row{Section::Groups, 4, 0, "SK:a b c", "SK:a b c"},
         })
        EXPECT_EQ(shown(BreakLongLine(line, section, {maximum, tolerance})), broken)
            << line << " at " << maximum << " less " << tolerance;
}

// Lines made of what the language has, whole or with a few characters wrong.
class Lines {
public:
    std::string next(Section section) {
        std::string line;
        if (section == Section::Packages) {
            line = pick("ADD=SK:~ADD=AD:~CREATE=SK:~CREATE=AD:~CREATE=ST:~create=sp:~ADD=ST");
            line += line.starts_with("ADD") ? pick(kNames) : item();
            for (size_t i = random(4); i > 0; --i)
                line += pick(" .AT. 5~ .AT. 7 pts~ .WITH. ~ .AND. ~ .WITH. ") + modifier();
        } else {
            line = item();
        }
        for (size_t wrong = random(3) == 0 ? random(6) : 0; wrong > 0; --wrong)
            line.replace(random(line.size()), random(2), pick(kSigns));
        return line;
    }

    size_t random(size_t below) { return engine_() % below; }

private:
    // With "~" between.
    static constexpr auto kNames =
        "Sword~Long Sword~Of (the, old) Sea~\"A, b\" c~\xC3\x84xte~a  b~Rope _ Work~12\" Blade";
    static constexpr auto kSeconds = "5~10/20~M/A~+10%~5 / 10~no";
    static constexpr auto kSigns = "~,~, ~ ~|~_~\"~(~)~*~<~[~@~\t~:~+";
    static constexpr auto kTags =
        "gives(+1 to ST)~gives(+1 pts to SK:Long Sword upto 3, -2 to DX, =%level + 1 To IQ)~"
        "gives(@MAX(ST, 3) + 2 to SK:A B, @IF(ST > 3 THEN 1 ELSE 2) To SK:C)~gives(+1 ST, to)~"
        "needs(2 SK:Knife Work, SK:Axe >= 12 | AD:Long Sight, Spells = 3)~needs({a}, @FOO(1, 2))~"
        "needs(SK:\"A, b\" >= @INT(SK:C / 2) | ST > 3 + 1, DI:X Y)~page(B 12), stat(DX)~"
        "default(DX - 5, SK:Other Skill - 2, @MIN(IQ, ST) + 1)~type(M/A)~other(a, b)~"
        "upto(@IF(DX > 3 THEN ST - 1 ELSE LowPrereq))~notes(a b, c (d, e) | f \"g, h\" i)~"
        "mods(Loud, Very Quiet), cat(Body, Mind)~basevalue(ST * 2 + @SQR(DX))~step(1 2), up(10 / 20)~"
        "minscore(1 + 2), display(yes)~round(up), time(1 hour)";

    std::string pick(std::string_view texts) {
        for (auto left = random(static_cast<size_t>(std::ranges::count(texts, '~')) + 1); left > 0; --left)
            texts.remove_prefix(texts.find('~') + 1);
        return std::string(texts.substr(0, texts.find('~')));
    }
    std::string separator() { return random(8) == 0 ? pick(",~,  ~ | ~ ~,\t") : ", "; }
    std::string item() {
        auto text = pick(kNames);
        if (random(4) > 0) text += separator() + pick(kSeconds);
        for (size_t tags = random(6); tags > 0; --tags) text += separator() + pick(kTags);
        return text;
    }
    std::string modifier() {
        return pick(kNames) + separator() + pick(kSeconds) + separator() + "page(1, 2)";
    }

    std::mt19937 engine_{20};
};

TEST(LineBreaker, KeepsItsLaws) {
    Lines lines;
    size_t broken = 0;
    for (int round = 0; round < 700; ++round)
        for (const auto section :
             {Section::Ads, Section::Disads, Section::Quirks, Section::Powers, Section::Skills,
              Section::Spells, Section::Stats, Section::Mods, Section::Packages}) {
            const auto line = lines.next(section);
            const LineBreakLimits limits{static_cast<int>(1 + lines.random(90)),
                                         static_cast<int>(lines.random(21))};
            for (const auto& each : {limits, LineBreakLimits{1, 0}}) {
                const auto* law = brokenLaw(line, section, each);
                EXPECT_EQ(law, nullptr) << sectionName(section) << "\n" << line << "\n" << each.maximum;
                broken += BreakLongLine(line, section, each) != line ? 1 : 0;
            }
        }
    EXPECT_GT(broken, 9'000);
}

// The checker likes hardly a break in these.
TEST(LineBreaker, EndsWithHugeLines) {
    for (const std::string part : {"SK:A = B + 2 AD:C | ", "a = @IF(b THEN c, "}) {
        std::string line = "A, 5, needs(";
        while (line.size() < 100'000) line += part;
        line += "ST" + std::string(static_cast<size_t>(std::count(line.begin(), line.end(), '(')), ')');
        const auto broken = BreakLongLine(line, Section::Ads, {1, 0});
        EXPECT_NE(broken, line);
        EXPECT_EQ(joinItemLine(GetLogicalLine(broken, 0).text), line);
        EXPECT_EQ(errorsOf(broken, Section::Ads), errorsOf(line, Section::Ads));
    }
}

}  // namespace
}  // namespace klt
