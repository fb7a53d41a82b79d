// One line at a time under each section.

#include <gtest/gtest.h>

#include "Marked.h"

namespace klt::test {
namespace {

constexpr const char* kSection = nullptr;

// Each line and what it is marked as, below the section that they stand in. One line for each plain fault is
// in the golden of errors.
const std::pair<const char*, const char*> kRows[] = {
    {"[ads]", kSection},
    {"Fast Reflexes, 10, gives(+1 to ST), page(B21)",
     "Fast Reflexes, 10, «t gives(»«m +»1 «k To←to» ST«t )», «t page(»B21«t )»"},
    {"Name, gives(1 A), needs(B)", "Name, «t gives(»1 A«t )», «t needs(»B«t )»"},
    {"Name, 5, gives(A), page(B)", "Name, 5, «! gives(A)», «t page(»B«t )»"},
    {"Name, x5, page(a)", "Name, x5, «t page(»a«t )»"},
    {"Name, é5, page(a)", "Name, é5, «t page(»a«t )»"},
    {"Name (a, b), 5", "Name (a, b), 5"},
    {"Name, 5, gi ves(+1 to X), PA GE(y)", "Name, 5, «t gi ves(»«m +»1 «k To←to» X«t )», «t PA GE(»y«t )»"},
    {"Name, 5,\n\tgives(+1 to ST),\n  PAGE(x)",
     "Name, 5,«t \n\tgives(»«m +»1 «k To←to» ST«t )»,\n«t   page(←  PAGE(»x«t )»"},
    {"Name, 5, page(a)x, needs(b)", "Name, 5, «t page(»a«t )»x, «t needs(»b«t )»"},
    {"Name, 5, page(a)é, needs(b)", "Name, 5, «t page(»a«t )»é, «t needs(»b«t )»"},
    {"Name, 5, page(a) // page(", "Name, 5, «t page(»a«t )» «* // page(»"},
    {"Name, 5, (x)", "«! Name, 5, (x)»"},
    {"Name,\n\nNext, 5x", "Name,\n\nNext,«!  5x»"},
    // The @function runs off the text; its tag goes on at the start of the line, and the second time ends it.
    {"Name, 5, page(a)), page(b)), upto(@INT(1",
     "«! Name, 5, page(a))», «t page(»b«t )»), «t upto(»«f @INT(»1"},
    {"[SKILLS]", kSection},
    {"Knife, p/e, default(DX-4)", "Knife, «k P/E←p/e», «t default(»DX«m -»4«t )»"},
    {"Knife, P/E , page(a)", "Knife, P«! /E ,» «t page(»a«t )»"},
    {"Knife, type(P/E)", "Knife, «t type(»«k P/E»«t )»"},
    {"Knife, P/A, type(x), page(y)", "Knife, «k P/A», «! type(x)», «t page(»y«t )»"},
    {"Knife", "Knife"},
    // A byte that belongs to no character.
    {"Knife,\x80, page(a)", "Knife«! ,\x80,» «t page(»a«t )»"},
    {"[SPELLS]", kSection},
    {"Fireball, type(M/H), duration(Instant)", "Fireball, «t type(»«k M/H»«t )», «t duration(»Instant«t )»"},
    {"Fireball, 5", "Fireball, 5"},
    {"[STATS]", kSection},
    {"ST, basevalue(10), step(1), up(10 / 5), down(-10)",
     "ST, «t basevalue(»10«t )», «t step(»1«t )», «t up(»10 / 5«t )», «t down(»-10«t )»"},
    {"ST, maxscore((1+2)*3), minscore(a,b), step()",
     "ST, «t maxscore(»(1«m +»2)«m *»3«t )», «! minscore(a,b)», «! step()»"},
    {"ST, round(), display((x)y), symbol(z)", "ST, «t round()», «! display((x)y)», «t symbol(»z«t )»"},
    {"[MODS]", kSection},
    {"Mod, -10%, round(up)", "Mod, -10%, «t round(»«k Up←up»«t )»"},
    {"[BONUS]", kSection},
    {"-5 SK:Knife", "«m -»5 «p SK:»Knife"},
    {"x+1 y", "«! x»«m +»«! 1 y»"},
    {"a+b+c SK:x", "«! a+b+c »«p SK:»«! x»"},
    {"-2 Strength", "«m -»2 Strength"},
    {"+1 sk:A:B", "«m +»1 «p SK:←sk:»«! A:»B"},
    {"+1 a)(", "«! +1 a)(»"},
    {"[GROUPS]", kSection},
    {"sk:Knife", "«p SK:←sk:»Knife"},
    {"SK:Foo:Bar", "«p SK:»Foo:Bar"},
    {"ST:x", "«! ST:»x"},
    {"[AUTHOR]", kSection},
    {"a, b, c", "a, b, c"},
    {"a, _b, c", "a, _b, c"},
    {"a, b", "a, b"},
    {"a(x), b, c", "«! a(x), b, c»"},
    {"a, b(c)", "«! a, b(c)»"},
    {"", kSection},
    {"a, 5, page(x)", "a, 5, page(x)"},
    {"a, page(x)", "«! a, page(x)»"},
    {"[PACKAGES]", kSection},
    {"{head", "«h {head»"},
    {" {head", "«!  {head»"},
    {"{head _\n\tand // more", "«h {head _\n\tand // more»"},
    {"message=(a) %level", "«t MESSAGE=←message=»(a) %level"},
    {"emessage=a .with. b ~p ~p c ~P",
     "«t EMESSAGE=←emessage=»a «t .WITH.←.with.» b «k ~P←~p» «k ~P←~p» c ~P"},
    {"[PACKAGES]", kSection},
    {"ADD=AD:Fast .AT. 5PTS", "«t ADD=»«p AD:»Fast «t .AT.» «- 5pts←5PTS»"},
    {"ADD=AD:Fast .at. 12345", "«t ADD=»«p AD:»Fast «t .AT.←.at.» 12345"},
    {"ADD=AD:Fast .AT. .5", "«t ADD=»«p AD:»Fast «t .AT.» .5"},
    {"ADD=AD:Fast .AT. pts", "«! ADD=AD:Fast .AT. pts»"},
    {"ADD=AD:Fast .AT. 1éäü", "«t ADD=»«p AD:»Fast «t .AT.» 1éäü"},
    {"add=race .at. Elf", "«t ADD=←add=»«- Race←race» «t .AT.←.at.» Elf"},
    {"add=htadj .at. +1 -2", "«t ADD=←add=»«- HTAdj←htadj» «t .AT.←.at.» «m +»1 «m -»2"},
    {"ADD=stx .AT. 1", "«! ADD=STx .AT. 1←ADD=stx .AT. 1»"},
    {"ADD=SK_RL:x", "«! ADD=SK_RL:x»"},
    {"ADD=pa:a (b, c), d", "«t ADD=»«p PA:←pa:»a (b, c), d"},
    {"ADD=AD:A .AT. 1 .WITH. x), (y", "«t ADD=»«p AD:»A «t .AT.» 1 «t .WITH.» x), (y"},
    {"ADD=AD:A .WITH. m, 5 .AND. n, 5x .AT. 3",
     "«t ADD=»«p AD:»A «t .WITH.» m, 5 «t .AND.» n, «! 5x» «t .AT.» 3"},
    {"ADD=AD:A .WITH. m, 5 .AT. 3 .AND. n, 5 .AT. 2",
     "«t ADD=»«p AD:»A «t .WITH.» m, «! 5 .AT. 3» «t .AND.» n, 5 «t .AT.» 2"},
    {"ADD=AD:A .WITH. m, 5 .AT. 3 .AND. n, 5", "«! ADD=AD:A .WITH. m, 5 .AT. 3 .AND. n, 5»"},
    {"[PACKAGES]", kSection},
    {"CREATE=AD:New, 10, page(x) .AT. 2 .WITH. Mod, ten",
     "«t CREATE=»«p AD:»New, 10, «t page(»x«t )» «t .AT.» 2 «t .WITH.» Mod, ten"},
    {"create=ad:New, 10 .with. Mod, -10%, Round(up) .and. Other, 5x .at. 3",
     "«t CREATE=←create=»«p AD:←ad:»New, 10 «t .WITH.←.with.» Mod, -10%, «t round(←Round(»«k "
     "Up←up»«t )» "
     "«t .AND.←.and.» Other, «! 5x» «t .AT.←.at.» 3"},
    {"CREATE=Foo", "«t CREATE=»Foo"},
    {"CREATE=foo, basevalue(1)", "«t CREATE=»foo, «t basevalue(»1«t )»"},
    {"CREATE=SP:x, type(m/h) .with. a .AT. 2",
     "«t CREATE=»«p SP:»x, «t type(»«k M/H←m/h»«t )» .with. a «t .AT.» 2"},
    {"CREATE=AD:(x, 5 .AT. 2)", "«! CREATE=AD:(x, 5 .AT. 2)»"},
};

TEST(Lines, UnderEachSection) {
    const char* section = "";
    for (const auto& [line, wanted] : kRows) {
        if (wanted == kSection) section = line;
        if (wanted == kSection) continue;
        CheckerState state;
        state.SetCurrentSection(section);
        EXPECT_EQ(checkedDocument(line, state), wanted) << section << " " << line;
    }
}

TEST(Lines, AddedPartsHaveTheirSection) {
    CheckerState state;
    state.SetCurrentSection("[packages]");
    checkedDocument("ADD=AD:A .WITH. m, 5", state);
    EXPECT_EQ(state.section(), Section::Packages);
}

}  // namespace
}  // namespace klt::test
