#include "settings/HostEntries.h"

#include <gmock/gmock.h>

#include "support/Scratch.h"

using namespace klt;
using testing::ElementsAre;

namespace {

const HostProgram kProgram{"klteditor", "/bin/klteditor %filelistquoted%", "/bin/klteditor.bmp"};

class HostEntries : public testing::Test {
protected:
    using Enter = HostResult (*)(const std::string& file, const HostProgram& program);
    void expect(Enter enter, std::string_view before, bool isUpdate, const std::string& after) {
        writeBytes(file_, before);
        const auto result = enter(file_, kProgram);
        EXPECT_EQ(result.error, std::nullopt) << before;
        EXPECT_EQ(result.isUpdate, isUpdate) << before;
        EXPECT_EQ(readBytes(file_), after) << before;
    }
    ScratchHome home_;
    const std::string file_ = home_ / "TVM.INI";
};

}  // namespace

TEST_F(HostEntries, NameTheProgramAsAWhole) {
    const std::pair<const char*, bool> rows[] = {
        {"klteditor", true},
        {R"(C:\TVM\KLTEditor.EXE %filelistquoted%)", true},
        {"/usr/bin/klteditor|x.bmp", true},
        {R"("/my tools/klteditor" x)", true},
        {R"(c:klteditor.exe)", true},
        {"start klteditor.exe", true},
        {"xklteditor klteditor", true},
        {"klteditor2", false},
        {"klteditor.exe2", false},
        {"klteditor.bmp", false},
        {"my-klteditor", false},
        {"", false},
    };
    for (const auto& [value, names] : rows)
        EXPECT_EQ(findEntry({{"k", value}}, kProgram) != nullptr, names) << value;
    EXPECT_NE(findEntry({{"k", "xa b a b a"}}, {"a b a", "", ""}), nullptr);
    EXPECT_EQ(findEntry({{"k", "x"}}, {"", "", ""}), nullptr);
}

TEST_F(HostEntries, OfTheAddOns) {
    const std::string entry = "TVM Data File Editor=/bin/klteditor %filelistquoted%\n";
    expect(addToAddOns, "[Toolbits]\na=klteditor\n[Addons]\n", false,
           "[Toolbits]\na=klteditor\n[Addons]\n" + entry);
    expect(addToAddOns, "[Addons]\n" + entry, true, "[Addons]\n" + entry);
    expect(addToAddOns, "[addons]\nx=1\nMine=\\KLTEDITOR.EXE /q\nb=klteditor\n[0]\n", true,
           "[addons]\nx=1\nMine=/bin/klteditor %filelistquoted%\nb=klteditor\n[0]\n");
}

TEST_F(HostEntries, OfTheToolbar) {
    const std::string entry = "TVM Data File Editor=/bin/klteditor %filelistquoted%|/bin/klteditor.bmp\n";
    const std::string addOns = "[Addons]\nMine=klteditor\n";
    expect(addToToolbar, addOns, false, addOns + "[Toolbits]\nspace1=|\n" + entry);
    std::string twelve = "[Toolbits]\n";
    for (int i = 0; i < 10; ++i) twelve += std::to_string(i) + "=x\n";
    expect(addToToolbar, twelve + "a=|\nb=|\n", false, twelve + "a=|\nb=|\nspace13=|\n" + entry);
    expect(addToToolbar, twelve + "a=|\nSpace13=|\n;b=1\n", false,
           twelve + "a=|\nSpace13=|\nspace14=|\n" + entry + ";b=1\n");
    expect(addToToolbar, addOns + "[Toolbits]\na=|\nb=RunAddOn(MINE)|x\n", true,
           addOns + "[Toolbits]\na=|\nb=RunAddon(Mine)|/bin/klteditor.bmp\n");
    expect(addToToolbar, addOns + "[Toolbits]\n" + entry, true,
           addOns + "[Toolbits]\nTVM Data File Editor=RunAddon(Mine)|/bin/klteditor.bmp\n");
    expect(addToToolbar, "[Toolbits]\na=RunAddon()\nb=klteditor.exe|x\n", true,
           "[Toolbits]\na=RunAddon()\nb=/bin/klteditor %filelistquoted%|/bin/klteditor.bmp\n");
}

TEST_F(HostEntries, AreMadeWithTheirFileOrTellWhy) {
    EXPECT_EQ(addToAddOns(file_, kProgram).error, std::nullopt);
    EXPECT_EQ(readBytes(file_), "[Addons]\r\nTVM Data File Editor=/bin/klteditor %filelistquoted%\r\n");
    EXPECT_EQ(addToToolbar(home_ / "none/TVM.INI", kProgram).error, "No such file or directory");
    EXPECT_FALSE(std::filesystem::exists(home_ / "none"));
    for (const auto enter : {addToAddOns, addToToolbar})
        EXPECT_EQ(enter(home_.folder().path(), kProgram).error, "Is a directory");
    // All of it or nothing: the spacer could have been written.
    writeBytes(file_, "[Toolbits]\n");
    EXPECT_NE(addToToolbar(file_, {"x", "\u0142", "y"}).error, std::nullopt);
    EXPECT_EQ(readBytes(file_), "[Toolbits]\n");
}

TEST_F(HostEntries, ByOneRegisteredSection) {
    modINIStuff ini;
    EXPECT_EQ(ini.IniGetSection().error, kIniNotRegistered);
    EXPECT_EQ(ini.IniGetValue("k", "").error, kIniNotRegistered);
    EXPECT_EQ(ini.IniPutValue("k", "v"), kIniNotRegistered);
    EXPECT_EQ(ini.IniFlush(), kIniNotRegistered);

    writeBytes(file_, "[S]\nk=1\n");
    ini.RegisterIni(" s ", " " + file_ + " ");
    EXPECT_EQ(ini.IniGetValue("K", "d").text, "1");
    EXPECT_EQ(ini.IniGetValue("l", std::string(300, 'd')).text, std::string(255, 'd'));
    EXPECT_EQ(ini.IniPutValue("k", "2"), std::nullopt);
    EXPECT_EQ(readBytes(file_), "[S]\nk=1\n");
    EXPECT_EQ(ini.IniFlush(), std::nullopt);
    EXPECT_EQ(readBytes(file_), "[S]\nk=2\n");
    EXPECT_EQ(ini.IniPutValue("k", "3"), std::nullopt);
    ini.RegisterIni("s", file_);
    EXPECT_THAT(ini.IniGetSection().rows, ElementsAre(IniRow{"k", "2"}));
}
