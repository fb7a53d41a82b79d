#include "settings/cRegistry.h"

#include <errno.h>
#include <gmock/gmock.h>

#include "support/Scratch.h"

namespace klt {
namespace {

using testing::ElementsAre;

Bytes bytes(std::string_view text) {
    const auto* start = reinterpret_cast<const std::byte*>(text.data());
    return {start, start + text.size()};
}

class cRegistryTest : public testing::Test {
protected:
    cRegistryTest() {
        registry_.ClassKey(HKEY_CURRENT_USER);
        registry_.SectionKey("Software\\Test");
        registry_.ValueKey("Name");
    }
    std::optional<StoredValue> stored() {
        return store_.read({registry_.ClassKey(), registry_.SectionKey()}, registry_.ValueKey());
    }
    void expectError(const RegistryOutcome& outcome, std::uint32_t number, const std::string& text) {
        ASSERT_TRUE(outcome.error) << text;
        EXPECT_FALSE(outcome);
        EXPECT_EQ(outcome.error->number, number) << text;
        EXPECT_EQ(outcome.error->text, text);
        EXPECT_EQ(outcome.error->source, std::string(program_invocation_short_name) + ".cRegistry");
    }

    ScratchFolder folder_;
    Store store_{folder_ / "store.sqlite3"};
    cRegistry registry_{store_};
};

TEST_F(cRegistryTest, WritesByValueType) {
    struct Row {
        std::int32_t type;
        RegistryValue value;
        std::optional<StoredValue> stored;
    };
    const Row rows[] = {
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
    for (size_t row = 0; row < std::size(rows); ++row) {
        registry_.ValueKey("Row" + std::to_string(row));
        registry_.ValueType(rows[row].type);
        EXPECT_TRUE(registry_.Value(rows[row].value)) << row;
        EXPECT_EQ(stored(), rows[row].stored) << row;
    }
    registry_.ValueType(REG_BINARY);
    expectError(registry_.Value("no bytes"), 26001, "");
}

TEST_F(cRegistryTest, ReadsByStoredType) {
    const ScopedVariable a("KLT_TEST_A", "one"), none("KLT_TEST_NONE", std::nullopt);
    struct Row {
        StoredValue stored;
        RegistryValue value;
    };
    const RegistryValue fallback = "default";
    registry_.Default(fallback);
    EXPECT_EQ(registry_.Value(), fallback);
    const Row rows[] = {
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
    for (const auto& row : rows) {
        ASSERT_TRUE(store_.write({HKEY_CURRENT_USER, "Software\\Test"}, "Name", row.stored));
        EXPECT_EQ(registry_.Value(), row.value) << asText(row.value);
    }
}

TEST_F(cRegistryTest, DoesNotGrowWithoutEnd) {
    const ScopedVariable a("KLT_TEST_A", std::string(100'000, 'x'));
    std::string text;
    while (text.size() < 60'000) text += "%KLT_TEST_A%";
    ASSERT_TRUE(store_.write({HKEY_CURRENT_USER, "Software\\Test"}, "Name", {REG_EXPAND_SZ, text}));
    EXPECT_EQ(registry_.Value(), RegistryValue(text));
}

TEST_F(cRegistryTest, KeysComeAndGo) {
    EXPECT_FALSE(registry_.KeyExists());
    EXPECT_TRUE(registry_.CreateKey());
    EXPECT_TRUE(registry_.CreateKey()) << "opens it";
    EXPECT_TRUE(registry_.KeyExists());
    registry_.ValueType(REG_SZ);
    registry_.Value("below");
    EXPECT_TRUE(registry_.DeleteValue());
    EXPECT_TRUE(registry_.DeleteKey());
    EXPECT_FALSE(registry_.KeyExists());
}

TEST_F(cRegistryTest, RaisesItsErrors) {
    expectError(registry_.DeleteKey(), 26001,
                "Failed to delete registry Key: '-2147483647',Section: 'Software\\Test");
    expectError(registry_.DeleteValue(), 26001,
                "Failed to open key '-2147483647',Section: 'Software\\Test' for delete access");
    registry_.CreateKey();
    expectError(registry_.DeleteValue(), 26001,
                "Failed to delete registry Key: '-2147483647',Section: 'Software\\Test',Key: 'Name");
    registry_.ValueType(REG_DWORD);
    EXPECT_TRUE(registry_.Value("last one"));
    registry_.ClassKey(5);
    expectError(
        registry_.Value("new one"), 26001,
        "Failed to set registry value Key: '5',Section: 'Software\\Test',Key: 'Name' to value: 'last one'");
    expectError(registry_.CreateKey(), 26001, "Failed to create registry Key: 'Software\\Test");
    EXPECT_FALSE(registry_.KeyExists());
}

TEST_F(cRegistryTest, ListsNamesInOrder) {
    std::vector<std::string> names{"old"};
    std::int32_t count = -1;
    EXPECT_TRUE(registry_.EnumerateValues(names, count));
    EXPECT_EQ(count, 0);
    EXPECT_THAT(names, ElementsAre());
    registry_.ValueType(REG_SZ);
    for (const auto* name : {"b", "", "A"}) {
        registry_.ValueKey(name);
        registry_.Value("x");
    }
    EXPECT_TRUE(registry_.EnumerateValues(names, count));
    EXPECT_EQ(count, 3);
    EXPECT_THAT(names, ElementsAre("b", "", "A"));
    registry_.SectionKey("Software");
    EXPECT_TRUE(registry_.EnumerateSections(names, count));
    EXPECT_EQ(count, 1);
    EXPECT_THAT(names, ElementsAre("Test"));
}

TEST_F(cRegistryTest, CreatesAssociations) {
    const std::vector<std::string_view> extra{"check", "&Check", "prog /c"};
    expectError(registry_.CreateAdditionalEXEAssociations("KLT.File", extra), 0x800469AC,
                "Error - attempt to create additional associations before class defined.");
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
        registry_.CreateAdditionalEXEAssociations("KLT.File", {extra.data(), 2}), 0x800469AC,
        "Invalid parameter list passed to CreateAdditionalEXEAssociations - expected Name/Text/Command");
    EXPECT_TRUE(registry_.CreateAdditionalEXEAssociations("KLT.File", extra));
    const std::pair<const char*, const char*> defaults[] = {
        {".klt", "KLT.File"},
        {"KLT.File", "Data file"},
        {"KLT.File\\shell\\open", "&Open"},
        {"KLT.File\\shell\\open\\command", "\"/opt/klt\" \"%1\""},
        {"KLT.File\\shell\\print", "&Print"},
        {"KLT.File\\shell\\print\\command", "\"/opt/klt\" /p \"%1\""},
        {"KLT.File\\shell\\add", "&Install klt"},
        {"KLT.File\\shell\\add\\command", "\"/opt/klt\" /a \"%1\""},
        {"KLT.File\\shell\\new", "N&eu"},
        {"KLT.File\\shell\\new\\command", "\"/opt/klt\" /n \"%1\""},
        {"KLT.File\\DefaultIcon", "\"/opt/klt\",0"},
        {"KLT.File\\shell\\check", "&Check"},
        {"KLT.File\\shell\\check\\command", "prog /c"},
    };
    for (const auto& [key, text] : defaults)
        EXPECT_EQ(store_.read({HKEY_CLASSES_ROOT, key}, ""), (StoredValue{REG_SZ, text})) << key;
}

}  // namespace
}  // namespace klt
