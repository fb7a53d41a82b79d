// Copies of changed texts, written beside the window's thread.

#include <gmock/gmock.h>

#include <QTest>
#include <random>

#include "app/recovery/TextCopies.h"
#include "support/Scratch.h"
#include "ui/RichTextBox.h"

using namespace klt;
using namespace std::chrono_literals;
using testing::IsEmpty;

namespace {

class TextCopiesTest : public testing::Test {
protected:
    ScratchHome home_;
    RecoveryFolder folder_;
    std::vector<std::string> told_;
    TextCopies copies_{folder_,
                       [this](const std::string& text) { told_.push_back(text); },
                       {.small = 0ms, .ofLarge = 0ms, .large = 10000}};
    bool isWanted_ = true;

    std::unique_ptr<RichTextBox> box(const char* name) {
        auto made = std::make_unique<RichTextBox>();
        copies_.watch(*made, [this, name]() -> std::optional<KeptAbout> {
            if (!isWanted_) return std::nullopt;
            return KeptAbout{.name = name};
        });
        return made;
    }
    static void add(RichTextBox& box, std::string_view text) {
        box.SetSelStart(box.Length());
        box.SetSelText(text);
    }
    /// The texts that are kept, by names; one that nothing tells of is kept by nobody.
    std::map<std::string, std::string> kept() const {
        std::map<std::string, std::string> texts;
        const auto folder = home_ / "state/klt-editor/recovery";
        std::error_code none;
        for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
            const std::string name = entry.path().filename();
            if (name.starts_with('.')) continue;
            EXPECT_TRUE(std::filesystem::exists(home_ / "state/klt-editor/recovery/.about-" + name));
            texts[name] = readBytes(entry.path());
        }
        return texts;
    }
    using Texts = std::map<std::string, std::string>;
};

TEST_F(TextCopiesTest, ATextIsCopiedBehindItsEditsAndGoesWithItsBox) {
    auto one = box("one"), two = box("two");
    add(*one, "a");
    add(*two, std::string(20000, 'x'));
    EXPECT_TRUE(QTest::qWaitFor([&] { return kept().size() == 2; }));
    for (int i = 0; i < 100; ++i) {
        add(*one, "b");
        QTest::qWait(i % 3);
    }
    const std::string typed(one->Text());
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return kept() == Texts{{"one", typed}, {"two", std::string(20000, 'x')}};
    }));
    copies_.drop(*two);
    EXPECT_EQ(kept(), (Texts{{"one", typed}}));
    add(*two, "y");
    EXPECT_TRUE(QTest::qWaitFor([&] { return kept().contains("two"); })) << "it is watched on";
    isWanted_ = false;
    add(*two, "y");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !kept().contains("two"); })) << "nothing is to be kept";
    one.reset();
    EXPECT_EQ(kept(), Texts());
    EXPECT_THAT(told_, IsEmpty());
}

TEST_F(TextCopiesTest, WhateverComesWhileItWritesTheLastStateIsKept) {
    std::mt19937 random(14);
    for (int round = 0; round < 60; ++round) {
        auto one = box("one"), two = box("two");
        Texts expected;
        for (int step = 0; step < 8; ++step) {
            auto& it = random() % 2 ? one : two;
            const std::string name = &it == &one ? "one" : "two";
            if (random() % 4) {
                // Sometimes it becomes one of the large ones.
                add(*it, std::string(random() % 2 ? 1 : 9000, 'x'));
                expected[name] = it->Text();
            } else {
                copies_.drop(*it);
                expected.erase(name);
            }
            if (random() % 2) QTest::qWait(static_cast<int>(random() % 8));
        }
        copies_.writeAll();
        EXPECT_EQ(kept(), expected) << round;
        one.reset();
        two.reset();
        copies_.writeAll();
        ASSERT_EQ(kept(), Texts()) << round;
    }
}

TEST_F(TextCopiesTest, AnEarlierCopyGoesWhenTheTextHasItsOwn) {
    auto one = box("one");
    const auto earlier = folder_.keep("", {.name = "one"}, "x").path;
    copies_.replaceCopy(*one, earlier);
    add(*one, "x");
    EXPECT_EQ(kept().size(), 1U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return kept() == Texts{{"one-2", "x"}}; }));
    const auto left = copies_.leave(*one);
    one.reset();
    EXPECT_EQ(kept(), (Texts{{"one-2", "x"}})) << "it outlives its box";
    EXPECT_EQ(left.error, std::nullopt);
}

}  // namespace
