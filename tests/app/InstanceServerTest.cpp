#include "app/InstanceServer.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QTest>
#include <algorithm>
#include <filesystem>
#include <future>
#include <thread>

#include "platform/HandOver.h"
#include "platform/HandOverMessage.h"
#include "support/ChildProcess.h"
#include "support/Scratch.h"
#include "support/UnixSocket.h"

using namespace klt;
using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr auto kTitle = "KLT Editor Beta 1.60";
constexpr auto kLong = 30'000ms;

class InstanceServerTest : public testing::Test {
protected:
    void SetUp() override { start(kLong); }
    void start(std::chrono::milliseconds silenceLimit) {
        server_.reset();
        const auto received = [this](std::string line, std::function<void()> done) {
            received_.push_back(std::move(line));
            done_.push_back(std::move(done));
            if (endsItself_) server_.reset();
        };
        server_ = std::make_unique<InstanceServer>(
            instances_, kTitle, InstanceHandlers{[this] { ++activated_; }, received}, silenceLimit);
        ASSERT_TRUE(server_->isListening());
    }
    WindowEntry window() const {
        const auto found = later_.FindMatchingWindows(kWindowTitleSought, kMainWindowClass);
        return found.empty() ? WindowEntry() : found.front();
    }
    Descriptor connection() const { return connectToPath(window().socketPath); }
    /// A later instance's hand-over; it runs while the test lets events run.
    std::future<HandOver> send(const std::string& line, std::chrono::milliseconds limit = kLong) const {
        return std::async(std::launch::async, ActivatePreviousInstance, window(), line, limit);
    }
    template <typename Result>
    static bool isReady(const std::future<Result>& future) {
        return future.wait_for(0s) == std::future_status::ready;
    }
    template <typename Result>
    static Result resultOf(std::future<Result>& future) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return isReady(future); }, 30'000));
        return future.get();
    }
    void waitForMessages(size_t count) const {
        ASSERT_TRUE(QTest::qWaitFor([&] { return received_.size() == count; }, 30'000));
    }
    /// Lets events run until the server has ended this connection.
    static bool isDropped(const Descriptor& socket) {
        const auto isEnded = [&] {
            char byte = 0;
            const auto count = ::recv(socket.number(), &byte, 1, MSG_DONTWAIT);
            return count == 0 || (count < 0 && errno != EAGAIN);
        };
        return QTest::qWaitFor(isEnded, 30'000);
    }

    ScratchFolder scratch_;
    Instances instances_{scratch_ / "klt-editor"}, later_{scratch_ / "klt-editor"};
    std::unique_ptr<InstanceServer> server_;
    int activated_ = 0;
    std::vector<std::string> received_;
    std::vector<std::function<void()>> done_;
    bool endsItself_ = false;
};

}  // namespace

TEST_F(InstanceServerTest, AnEmptyMessageOnlyActivates) {
    auto sender = send("");
    EXPECT_EQ(resultOf(sender), HandOver::delivered);
    EXPECT_EQ(activated_, 1);
    EXPECT_THAT(received_, IsEmpty());
}

TEST_F(InstanceServerTest, ServesManyAtOnceEachWithItsOwnAnswerWhenItsFilesAreOpen) {
    std::vector<std::future<HandOver>> senders;
    for (int i = 0; i < 20; ++i) senders.push_back(send(std::to_string(i) + " \"/\u00E4\xFF\""));
    waitForMessages(20);
    EXPECT_EQ(activated_, 20);
    QTest::qWait(20);
    EXPECT_TRUE(std::none_of(senders.begin(), senders.end(), isReady<HandOver>)) << "no files are open yet";
    for (size_t i = 20; i-- > 0;) {
        EXPECT_THAT(received_[i], testing::EndsWith(" \"/\u00E4\xFF\""));
        if (i > 0) done_[i]();
        done_.pop_back();
        const auto expected = i > 0 ? HandOver::delivered : HandOver::unanswered;
        EXPECT_EQ(resultOf(senders[std::stoul(received_[i])]), expected);
    }
}

TEST_F(InstanceServerTest, OutlivedByWhatItHasTaken) {
    const auto path = window().socketPath;
    auto taken = send("a");
    waitForMessages(1);
    auto waiting = send("b");
    const auto half = connection();
    server_.reset();
    EXPECT_THAT(window().socketPath, IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(resultOf(waiting), HandOver::notAcknowledged);
    EXPECT_TRUE(isDropped(half));
    done_.at(0)();
    EXPECT_EQ(resultOf(taken), HandOver::delivered);
    EXPECT_THAT(received_, ElementsAre("a"));
}

TEST_F(InstanceServerTest, MayBeGoneBehindAMessage) {
    endsItself_ = true;
    auto sender = send("a");
    waitForMessages(1);
    done_.at(0)();
    EXPECT_EQ(resultOf(sender), HandOver::delivered);
}

TEST_F(InstanceServerTest, WhatIsClosedBeforeItsAcknowledgementIsNeverOpened) {
    EXPECT_EQ(send("a", 20ms).get(), HandOver::notAcknowledged) << "no events have run";
    sendBytes(connection(), encodeMessage("b"));
    auto sender = send("c");
    waitForMessages(1);
    EXPECT_THAT(received_, ElementsAre("c"));
    EXPECT_EQ(activated_, 1);
    done_.clear();
    resultOf(sender);
}

TEST_F(InstanceServerTest, DropsWhatIsNoWholeMessage) {
    start(50ms);
    for (const auto& [name, bytes] : {std::pair("silent", ""s),
                                      {"half a length", "\2\0"s},
                                      {"half a text", encodeMessage("abc").substr(0, 7)},
                                      {"odd length", "\3\0\0\0abc"s},
                                      {"more than 1 MiB", "\2\0\x10\0ab"s}}) {
        const auto open = connection(), closed = connection();
        for (const auto* socket : {&open, &closed}) sendBytes(*socket, bytes);
        ::shutdown(closed.number(), SHUT_WR);
        EXPECT_TRUE(isDropped(open) && isDropped(closed)) << name;
    }
    EXPECT_THAT(received_, IsEmpty());
    EXPECT_EQ(activated_, 0);
}

// A window that was busy for long finds the message and the end of its time together.
TEST_F(InstanceServerTest, TakesAMessageThatCameWhileNoEventsRan) {
    start(100ms);
    const auto socket = connection();
    const auto message = encodeMessage("a");
    sendBytes(socket, message.substr(0, 2));
    QTest::qWait(20);
    sendBytes(socket, message.substr(2));
    std::this_thread::sleep_for(150ms);
    waitForMessages(1);
    done_.at(0)();
    EXPECT_EQ(receiveBytes(socket, 2), std::string({kAcknowledged, kFilesAreOpen}));
}

TEST_F(InstanceServerTest, TakesAMessageInPiecesAndUpToTheLimit) {
    const std::string longest(kLongestMessage / 2, 'x');
    auto sender = send(longest);
    const auto slow = connection();
    for (const char byte : encodeMessage("ab")) {
        sendBytes(slow, {&byte, 1});
        QTest::qWait(1);
    }
    waitForMessages(2);
    EXPECT_THAT(received_, testing::UnorderedElementsAre("ab", longest));
    for (const auto& done : done_) done();
    EXPECT_EQ(resultOf(sender), HandOver::delivered);
}

TEST_F(InstanceServerTest, ManySilentOnesDoNotKeepOthersOut) {
    start(100ms);
    std::vector<Descriptor> silent(120);
    for (auto& socket : silent) socket = connection();
    ASSERT_TRUE(silent.back());
    auto sender = send("a");
    waitForMessages(1);
    done_.at(0)();
    EXPECT_EQ(resultOf(sender), HandOver::delivered);
}

TEST_F(InstanceServerTest, IsFoundUnderItsTitleAndClosedToOthers) {
    EXPECT_EQ(window().title, kTitle);
    server_->setWindowTitle("KLT Editor Beta 1.60 - [Untitled1]");
    EXPECT_EQ(window().title, "KLT Editor Beta 1.60 - [Untitled1]");
    struct stat status {};
    ASSERT_EQ(::stat(window().socketPath.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);

    Instances nowhere("");
    InstanceServer deaf(nowhere, kTitle, {});
    EXPECT_FALSE(deaf.isListening());
    deaf.setWindowTitle("KLT Editor");
}

TEST_F(InstanceServerTest, AnotherUsersMessageIsDropped) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can be two users";
    const auto path = window().socketPath;
    // What the modes would refuse comes through, so that the peer's user alone decides.
    for (const auto& open : {scratch_.path(), scratch_ / "klt-editor", path})
        ASSERT_EQ(chmod(open.c_str(), 0777), 0);
    ChildProcess other([&](const ChildProcess::Report& report) {
        if (setuid(65534) != 0) return;
        const auto socket = connectToPath(path);
        report(socket && sendBytes(socket, encodeMessage("a")) ? "sent" : "refused");
        report(receiveBytes(socket).empty() ? "dropped" : "acknowledged");
    });
    EXPECT_EQ(other.nextReport(), "sent");
    auto answer = std::async(std::launch::async, [&] { return other.nextReport(); });
    EXPECT_EQ(resultOf(answer), "dropped");
    EXPECT_THAT(received_, IsEmpty());
}
