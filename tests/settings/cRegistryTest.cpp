#include "settings/cRegistry.h"

#include <errno.h>
#include <gmock/gmock.h>

#include "support/StoreFixture.h"

using namespace klt;
using testing::ElementsAre;

static Bytes bytes(std::string_view text) {
    const auto* start = reinterpret_cast<const std::byte*>(text.data());
    return {start, start + text.size()};
}

constexpr NodePath kNode{HKEY_CURRENT_USER, "Software\\Test"};

class cRegistryTest : public StoreFixture {
protected:
    cRegistryTest() {
        registry_.ClassKey(kNode.root);
        registry_.SectionKey(kNode.path);
        registry_.ValueKey("Name");
    }
    static void expectError(const RegistryOutcome& outcome, const std::string& text,
                            std::uint32_t number = 26001) {
        ASSERT_TRUE(outcome.error) << text;
        EXPECT_EQ(outcome.error->number, number) << text;
        EXPECT_EQ(outcome.error->text, text);
        EXPECT_EQ(outcome.error->source, std::string(program_invocation_short_name) + ".cRegistry");
    }

    cRegistry registry_{store_};
};

TEST_F(cRegistryTest, WritesByValueType) {
    const std::tuple<std::int32_t, RegistryValue, std::optional<StoredValue>> rows[] = {
        {REG_SZ, "50%", StoredValue{REG_SZ, "50%"}},
        {REG_SZ, "%A%", StoredValue{REG_EXPAND_SZ, "%A%"}},
        {REG_SZ, "%%", StoredValue{REG_SZ, "%%"}},
        {REG_SZ, "%%A%", StoredValue{REG_EXPAND_SZ, "%%A%"}},
        {REG_EXPAND_SZ, "plain", StoredValue{REG_SZ, "plain"}},
        {REG_SZ, 7, StoredValue{REG_SZ, "7"}},
        {REG_SZ, true, StoredValue{REG_SZ, "True"}},
        {REG_SZ, 0.5, StoredValue{REG_SZ, "0.5"}},
        {REG_SZ, {}, StoredValue{REG_SZ, ""}},
        {REG_BINARY, bytes("abcd"), StoredValue{REG_BINARY, bytes("ab")}},
        {REG_BINARY, bytes("ab"), StoredValue{REG_BINARY, Bytes()}},
        {REG_BINARY, bytes("a"), std::nullopt},
        {REG_DWORD, std::int16_t{-3}, StoredValue{REG_DWORD, -3}},
        {REG_DWORD_BIG_ENDIAN, 258, StoredValue{REG_DWORD, 258}},
        {REG_DWORD, "text", std::nullopt},
        {REG_DWORD, 0.5, std::nullopt},
        {REG_MULTI_SZ, "text", std::nullopt},
        {99, 1, std::nullopt},
        {REG_SZ, std::string(kLongestEntry + 1, 'x'), std::nullopt},
    };
    for (const auto& [type, value, expected] : rows) {
        registry_.DeleteValue();
        registry_.ValueType(type);
        EXPECT_TRUE(registry_.Value(value)) << asText(value);
        EXPECT_EQ(store_.read(kNode, "Name"), expected) << asText(value);
    }
    registry_.ValueType(REG_BINARY);
    expectError(registry_.Value("no bytes"), "");
}

TEST_F(cRegistryTest, ReadsByStoredType) {
    const ScopedVariable a("KLT_TEST_A", "one"), none("KLT_TEST_NONE", std::nullopt);
    const RegistryValue fallback = "default";
    registry_.Default(fallback);
    EXPECT_EQ(registry_.Value(), fallback);
    const std::pair<StoredValue, RegistryValue> rows[] = {
        {{REG_SZ, "text %KLT_TEST_A%"}, "text %KLT_TEST_A%"},
        {{REG_SZ, ""}, ""},
        {{REG_MULTI_SZ, std::string("a\0b", 3)}, std::string("a\0b", 3)},
        {{REG_EXPAND_SZ, "<%KLT_TEST_A%>"}, "<one>"},
        {{REG_EXPAND_SZ, "%KLT_TEST_NONE%KLT_TEST_A%"}, "%KLT_TEST_NONEone"},
        {{REG_EXPAND_SZ, "100%"}, "100%"},
        {{REG_DWORD, 2147483647}, 2147483647},
        {{REG_DWORD, 4294967296}, fallback},
        {{REG_DWORD, "12"}, 12},
        {{REG_DWORD, "x"}, fallback},
        {{REG_DWORD_BIG_ENDIAN, 258}, 0x02010000},
        {{REG_BINARY, bytes("ab")}, bytes("ab")},
        {{REG_LINK, "ab"}, bytes("ab")},
        {{REG_SZ, 12}, "12"},
        {{8, "text"}, fallback},
    };
    for (const auto& [data, value] : rows) {
        ASSERT_TRUE(store_.write(kNode, "Name", data));
        EXPECT_EQ(registry_.Value(), value) << asText(value);
    }
}

TEST_F(cRegistryTest, DoesNotGrowWithoutEnd) {
    const ScopedVariable a("KLT_TEST_A", std::string(100'000, 'x'));
    std::string text;
    while (text.size() < 60'000) text += "%KLT_TEST_A%";
    ASSERT_TRUE(store_.write(kNode, "Name", {REG_EXPAND_SZ, text}));
    EXPECT_EQ(registry_.Value(), RegistryValue(text));
}

TEST_F(cRegistryTest, RaisesItsErrors) {
    expectError(registry_.DeleteKey(),
                "Failed to delete registry Key: '-2147483647',Section: 'Software\\Test");
    expectError(registry_.DeleteValue(),
                "Failed to open key '-2147483647',Section: 'Software\\Test' for delete access");
    EXPECT_TRUE(registry_.CreateKey());
    EXPECT_TRUE(registry_.CreateKey()) << "opens it";
    expectError(registry_.DeleteValue(),
                "Failed to delete registry Key: '-2147483647',Section: 'Software\\Test',Key: 'Name");
    registry_.ValueType(REG_DWORD);
    EXPECT_TRUE(registry_.Value("last one"));
    registry_.ClassKey(5);
    expectError(
        registry_.Value("new one"),
        "Failed to set registry value Key: '5',Section: 'Software\\Test',Key: 'Name' to value: 'last one'");
    expectError(registry_.CreateKey(), "Failed to create registry Key: 'Software\\Test");
    EXPECT_FALSE(registry_.KeyExists());
    registry_.ClassKey(kNode.root);
    store_.write(kNode, "Name", {REG_SZ, "x"});
    EXPECT_TRUE(registry_.DeleteValue());
    EXPECT_TRUE(registry_.KeyExists());
    EXPECT_TRUE(registry_.DeleteKey());
    EXPECT_FALSE(registry_.KeyExists());
}

TEST_F(cRegistryTest, ListsNamesInOrder) {
    std::vector<std::string> names{"old"};
    std::int32_t count = -1;
    EXPECT_TRUE(registry_.EnumerateValues(names, count) && names.empty() && count == 0);
    for (const auto* name : {"b", "", "A"}) store_.write(kNode, name, {REG_SZ, "x"});
    EXPECT_TRUE(registry_.EnumerateValues(names, count) && count == 3);
    EXPECT_THAT(names, ElementsAre("b", "", "A"));
    registry_.SectionKey("Software");
    EXPECT_TRUE(registry_.EnumerateSections(names, count) && count == 1);
    EXPECT_THAT(names, ElementsAre("Test"));
}

TEST_F(cRegistryTest, CreatesAssociations) {
    const std::vector<std::string_view> extra{"check", "&Check", "prog /c"};
    expectError(registry_.CreateAdditionalEXEAssociations("KLT.File", extra),
                "Error - attempt to create additional associations before class defined.", 0x800469AC);
    EXPECT_TRUE(registry_.CreateEXEAssociation({.ExePath = " /opt/klt\" ",
                                                .ClassName = "KLT.File",
                                                .ClassDescription = "Data file",
                                                .Association = "klt",
                                                .SupportPrint = true,
                                                .SupportNew = true,
                                                .NewMenuText = "N&eu",
                                                .SupportInstall = true,
                                                .DefaultIconIndex = 0}));
    expectError(
        registry_.CreateAdditionalEXEAssociations("KLT.File", {extra.data(), 2}),
        "Invalid parameter list passed to CreateAdditionalEXEAssociations - expected Name/Text/Command",
        0x800469AC);
    EXPECT_TRUE(registry_.CreateAdditionalEXEAssociations("KLT.File", extra));
    const auto expectDefault = [&](const std::string& key, const std::string& text) {
        EXPECT_EQ(store_.read({HKEY_CLASSES_ROOT, key}, ""), (StoredValue{REG_SZ, text})) << key;
    };
    expectDefault(".klt", "KLT.File");
    expectDefault("KLT.File", "Data file");
    expectDefault("KLT.File\\DefaultIcon", "\"/opt/klt\",0");
    for (const auto& [verb, text, command] : {std::tuple("open", "&Open", "\"/opt/klt\" \"%1\""),
                                              {"print", "&Print", "\"/opt/klt\" /p \"%1\""},
                                              {"add", "&Install klt", "\"/opt/klt\" /a \"%1\""},
                                              {"new", "N&eu", "\"/opt/klt\" /n \"%1\""},
                                              {"check", "&Check", "prog /c"}}) {
        const auto key = std::string("KLT.File\\shell\\") + verb;
        expectDefault(key, text);
        expectDefault(key + "\\command", command);
    }
}
