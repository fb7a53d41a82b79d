#include "SampleText.h"

#include <array>
#include <random>
#include <string_view>

namespace bench {

namespace {

constexpr std::array<std::string_view, 24> kAdjectives = {
    "Amber", "Ancient", "Bitter", "Bold",   "Calm",  "Cold",   "Crimson", "Deep",
    "Early", "Fair",    "Fleet",  "Gilded", "Grim",  "Hidden", "Iron",    "Ivory",
    "Keen",  "Light",   "Misty",  "Noble",  "Quiet", "River",  "Sharp",   "Swift"};
constexpr std::array<std::string_view, 24> kNouns = {
    "Anchor", "Archer", "Balance", "Beacon", "Bridge", "Charm",   "Climbing", "Compass",
    "Dagger", "Echo",   "Fencing", "Glyph",  "Harp",   "Insight", "Javelin",  "Lantern",
    "Map",    "Net",    "Orator",  "Parry",  "Riding", "Sailing", "Tactics",  "Ward"};
constexpr std::array<std::string_view, 6> kTypes = {"P/E", "P/A", "P/H", "M/E", "M/A", "M/VH"};

class Writer {
public:
    Writer(size_t bytes, unsigned seed) : wanted_(bytes), random_(seed) { text_.reserve(bytes + 4096); }

    std::string write() {
        text_ =
            "Version=2\r\n* The version information above MUST be the first line of the data file\r\n\r\n";
        while (text_.size() < wanted_) chapter();
        return std::move(text_);
    }

private:
    static constexpr int kItems = 200;

    size_t number(size_t below) { return random_() % below; }
    std::string name() {
        return std::string(kAdjectives[number(kAdjectives.size())]) + " " +
               std::string(kNouns[number(kNouns.size())]) + " " + std::to_string(number(1000));
    }
    void line(std::string_view text) { text_.append(text).append("\r\n"); }

    void chapter() {
        line("[ADS]");
        for (int i = 0; i < kItems; ++i) advantage(i);
        line("[SKILLS]");
        for (int i = 0; i < kItems; ++i) skill(i);
        line("[SPELLS]");
        line("<Sea>");
        for (int i = 0; i < kItems; ++i)
            line(name() + ", type(M/H), castingcost(" + std::to_string(number(9)) + "), needs(SP:" + name() +
                 "), page(HB" + std::to_string(number(200)) + ")");
        line("[PACKAGES]");
        for (int i = 0; i < kItems / 4; ++i) package();
    }

    void advantage(int i) {
        if (i % 20 == 0) line("<" + name() + ">");
        if (i % 10 == 0) line("* What follows came with the harbor chapter.");
        line(name() + ", " + std::to_string(number(40)) + "/" + std::to_string(number(90)) + ", gives(+" +
             std::to_string(number(5)) + " to SK:" + name() + ",_");
        line("\t+@INT(%level/" + std::to_string(2 + number(6)) + ") to ST upto 5), page(HB" +
             std::to_string(number(200)) + "), notes(" + name() + ") // see the map");
    }

    void skill(int i) {
        if (i % 20 == 0) line("<" + name() + ">");
        line(name() + ", " + std::string(kTypes[number(kTypes.size())]) + ", default(DX-" +
             std::to_string(number(7)) + ", \"SK:" + name() + "\"-4), needs(AD:" + name() +
             " | ST>=" + std::to_string(number(15)) + "), cat(Trade)");
    }

    void package() {
        line("{" + name() + " = \"For the ferry guild\"}");
        line("ADD=SK:" + name() + " .AT. 12");
        line("CREATE=DI:" + name() + ", -" + std::to_string(number(30)) + ", page(HB7)");
    }

    size_t wanted_;
    std::string text_;
    std::minstd_rand random_;
};

}  // namespace

std::string sampleText(size_t bytes, unsigned seed) {
    return Writer(bytes, seed).write();
}

}  // namespace bench
