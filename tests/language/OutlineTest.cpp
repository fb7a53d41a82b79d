#include "language/Outline.h"

#include <gtest/gtest.h>

#include "language/NameReference.h"
#include "language/OutlineFilter.h"

namespace klt {
namespace {

constexpr std::string_view kText =
    "Version=2\r\n"
    "* comment, [ADS]\r\n"
    "Early Bird, 5\r\n"
    "[Author]\r\n"
    "Mara, who wrote it\r\n"
    " <none>\r\n"
    "[ads]\r\n"
    "  <Sea >\r\n"
    "\tContacts (Customs, Guild), 10, gives(+1 To SK:Rowing,\r\n"
    "\t+2 To ST)\r\n"
    "Half, 5\r\n"
    "Half-Moon // rare, cold\r\n"
    ", 5\r\n"
    "[Unknown]\r\n"
    "\u00C4hre, 3\r\n"
    "[SKILLS]\r\n"
    "<Boats>\r\n"
    "Rowing, P/E\r\n"
    "[SPELLS]\r\n"
    "<Tide>\r\n"
    "Rowing\r\n"
    "[GROUPS]\r\n"
    "<Rope Work\r\n"
    "SK:Knots // dock\r\n"
    "[PACKAGES]\r\n"
    "{Ferry Guild=Sworn, and _\r\n"
    "bound}\r\n"
    "ADD=SK:Rowing .AT. 2, 3";

std::string join(const auto& entries) {
    std::string all;
    for (size_t i = 0; i < entries.size(); ++i) all += std::string(entries[i].shown) + '|';
    return all;
}

TEST(Outline, ListsHeadersAndItemsAsTheyAreRead) {
    const auto entries = outlineOf(kText);
    EXPECT_EQ(join(entries),
              "Early Bird|[Author]|[ads]|<Sea >|Contacts (Customs, Guild)|Half|Half-Moon|[Unknown]|\u00C4hre|"
              "[SKILLS]|<Boats>|Rowing|[SPELLS]|<Tide>|Rowing|[GROUPS]|<Rope Work|SK:Knots|[PACKAGES]|"
              "{Ferry Guild=Sworn, and|ADD=SK:Rowing .AT. 2|");
    std::string names;
    for (const auto& entry : entries)
        names += std::string(entry.name()) + std::string(sectionName(entry.section)) + '|';
    EXPECT_EQ(names,
              "Early Bird|Author[AUTHOR]|ads[ADS]|Sea[ADS]|Contacts (Customs, Guild)[ADS]|Half[ADS]|"
              "Half-Moon[ADS]|Unknown[ADS]|\u00C4hre[ADS]|SKILLS[SKILLS]|Boats[SKILLS]|Rowing[SKILLS]|"
              "SPELLS[SPELLS]|Tide[SPELLS]|Rowing[SPELLS]|GROUPS[GROUPS]|Rope Work[GROUPS]|SK:Knots[GROUPS]|"
              "PACKAGES[PACKAGES]|Ferry Guild[PACKAGES]|ADD=SK:Rowing .AT. 2[PACKAGES]|");
}

TEST(OutlineFilter, KeepsWhatHoldsEachWord) {
    OutlineFilter filter(kText);
    const auto whole = filter.size();
    // In this order: what is typed on narrows, all else begins anew.
    const std::pair<const char*, const char*> rows[] = {
        {"Ro", "Rowing|Rowing|[GROUPS]|<Rope Work|ADD=SK:Rowing .AT. 2|"},
        {"Ro  add", "ADD=SK:Rowing .AT. 2|"},
        {"ow", "[Unknown]|Rowing|Rowing|ADD=SK:Rowing .AT. 2|"},
        {"[s", "[SKILLS]|[SPELLS]|"},
        {"\u00E4", "\u00C4hre|"},
        {"HRE", "\u00C4hre|"},
        {"\u212Anots", "SK:Knots|"},
        {"xyz", ""},
    };
    for (const auto& [typed, kept] : rows) {
        filter.filter(typed);
        EXPECT_EQ(join(filter), kept) << typed;
    }
    filter.filter(" ");
    ASSERT_EQ(filter.size(), whole);
    for (size_t row = 0; row < whole; ++row) {
        const auto place = filter.placeOf(row);
        EXPECT_EQ(kText.substr(static_cast<size_t>(place.start), filter[row].shown.size()),
                  filter[row].shown);
        EXPECT_EQ(filter.rowAt(place.start), row);
        EXPECT_EQ(filter.rowAt(place.end), row);
    }
    EXPECT_EQ(filter.rowAt(0), std::nullopt);
}

TEST(OutlineFilter, ANumberIsALine) {
    EXPECT_EQ(typedLine(" 12 "), 12);
    EXPECT_GT(typedLine("99999999999999999999").value_or(0), 1'000'000'000);
    for (const auto* typed : {"", " ", "1 2", "-1", "12a"})
        EXPECT_EQ(typedLine(typed), std::nullopt) << typed;
}

TEST(NameReference, FindsTheNameBehindThePrefixTag) {
    // "!" is the caret; the line that is referred to, or nothing.
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"needs(!SK:Rowing>=12)", "Rowing[SKILLS]"},
        {"needs(SK:Row!ing-2)", "Rowing[SKILLS]"},
        {"needs(sk:rowing! | AD:Half)", "Rowing[SKILLS]"},
        {"needs(SK:Rowing |! AD:Half)", ""},
        {"needs(SK:Rowing | A!D:Half)", "Half[ADS]"},
        {"needs(AD:!Half-Moon)", "Half-Moon[ADS]"},
        {"needs(AD:Half! - 2)", "Half[ADS]"},
        {"needs(AD:Half!way)", ""},
        {"AD:H!alf Way", ""},
        {"gives(+1 To SK_RL:Rowi!ng Upto 14)", "Rowing[SKILLS]"},
        {"gives(+1 To \"AD:Contacts! (Customs, Guild)\")", "Contacts (Customs, Guild)[ADS]"},
        {"AD:Contacts! (Guild)", ""},
        {"ADD=SP:!Rowing .AT. 2pts", "Rowing[SPELLS]"},
        {"ADD=PA:Ferry Guild!", "Ferry Guild[PACKAGES]"},
        {"needs(2 CL:Boa!ts, 3 CO:Tide)", "Boats[SKILLS]"},
        {"needs(2 CL:Boats, 3 CO:T!ide)", "Tide[SPELLS]"},
        {"<GR:Rope Wo!rk>", "Rope Work[GROUPS]"},
        {"ADS:\u00E4hr!e", "\u00C4hre[ADS]"},
        {"XX:Row!ing", ""},
        {"Row!ing", ""},
    };
    for (const auto& [marked, name] : rows) {
        const auto caret = marked.find('!');
        const auto line = std::string(marked).erase(caret, 1);
        const auto reference = referenceAt(line, caret);
        std::string found;
        size_t length = 0;
        walkOutline(kText, [&](const OutlineEntry& entry) {
            const auto its = reference ? reference->lengthOf(entry) : 0;
            if (its <= length) return;
            length = its;
            found = std::string(entry.name()) + std::string(sectionName(entry.section));
        });
        EXPECT_EQ(found, name) << marked;
    }
}

}  // namespace
}  // namespace klt
