#include "platform/HandOver.h"

#include <gmock/gmock.h>
#include <sys/syscall.h>

#include <thread>

#include "platform/HandOverMessage.h"
#include "support/OrdinaryUser.h"
#include "support/Scratch.h"
#include "support/UnixSocket.h"

using namespace klt;
using namespace std::chrono_literals;
using namespace std::string_literals;
using State = MessageReader::State;

static const std::string kAcknowledgement(1, kAcknowledged);
static const std::string kAnswer(1, kFilesAreOpen);
constexpr auto kLong = 30'000ms;

/// Reads one whole message in pieces, as a receiver does.
static std::string takeMessage(const Descriptor& socket) {
    MessageReader reader;
    while (reader.state() == State::unfinished) {
        const auto bytes = receiveBytes(socket, std::min(reader.wanted(), size_t{3}));
        if (bytes.empty()) return "(cut off)";
        reader.take(bytes);
    }
    return reader.commandLine();
}

class HandOverTest : public testing::Test {
protected:
    HandOver handOver(std::string_view commandLine, std::chrono::milliseconds limit = kLong) const {
        return ActivatePreviousInstance({"KLT Editor", "ThunderRT6MDIForm", path_}, commandLine, limit);
    }
    Descriptor accepted() const { return Descriptor(::accept(listener_.number(), nullptr, nullptr)); }

    ScratchFolder scratch_;
    const std::string path_ = scratch_ / "socket";
    Descriptor listener_;
};

// What the other side does before the next shutdown of a socket.
static std::function<void()> beforeShutdown;

extern "C" int shutdown(int socket, int how) {
    if (const auto work = std::exchange(beforeShutdown, nullptr)) work();
    return static_cast<int>(syscall(SYS_shutdown, socket, how));
}

TEST(HandOverMessage, IsTheLengthThenUtf16) {
    const std::pair<std::string, std::string> rows[] = {
        {"", "\0\0\0\0"s},
        {"aB", "\4\0\0\0a\0B\0"s},
        {"\0"s, "\2\0\0\0\0\0"s},
        {"\u00E4\u20AC", "\4\0\0\0\xE4\0\xAC\x20"s},
        {"\U0001F600", "\4\0\0\0\x3D\xD8\x00\xDE"s},
        {"\xE4\xFF", "\4\0\0\0\xE4\xDC\xFF\xDC"s},
        {"\xED\xA0\x80", "\6\0\0\0\xED\xDC\xA0\xDC\x80\xDC"s},
        {std::string(0x8000, 'x'), "\0\0\1\0"s},
    };
    for (const auto& [text, start] : rows) {
        const auto message = encodeMessage(text);
        EXPECT_EQ(message.substr(0, start.size()), start) << text;
        EXPECT_EQ(decodeMessageText(std::string_view(message).substr(4)), text);
    }
}

TEST(HandOverMessage, SurrogatesThatStandForNothingAreReplaced) {
    const std::string replaced = "\uFFFD";
    for (const auto& [utf16, text] : {std::pair("\x3D\xD8"s, replaced),
                                      {"\x3D\xD8"s + "a\0"s, replaced + "a"},
                                      {"\x00\xDE"s, replaced},
                                      {"\x7F\xDC"s, replaced},
                                      {"\x3D\xD8\x3D\xD8\x00\xDE"s, replaced + "\U0001F600"}})
        EXPECT_EQ(decodeMessageText(utf16), text);
}

TEST(HandOverMessage, IsRefusedByItsLengthAlone) {
    const std::tuple<const char*, std::string, State> rows[] = {
        {"empty", "\0\0\0\0"s, State::complete},           {"odd", "\3\0\0\0"s, State::refused},
        {"1 MiB", "\0\0\x10\0"s, State::unfinished},       {"more than 1 MiB", "\2\0\x10\0"s, State::refused},
        {"negative", "\xFE\xFF\xFF\xFF"s, State::refused}, {"half a length", "\2\0\0"s, State::unfinished},
    };
    for (const auto& [name, header, state] : rows) EXPECT_EQ(MessageReader().take(header), state) << name;
}

TEST_F(HandOverTest, EndsAsTheOtherSideAnswers) {
    const std::tuple<const char*, std::string, HandOver> rows[] = {
        {"both answers", kAcknowledgement + kAnswer, HandOver::delivered},
        {"the second beyond the limit", kAcknowledgement + "." + kAnswer, HandOver::delivered},
        {"no second answer", kAcknowledgement, HandOver::unanswered},
        {"acknowledged twice", kAcknowledgement + kAcknowledgement, HandOver::unanswered},
        {"nothing", "", HandOver::notAcknowledged},
        {"something else", "x" + kAcknowledgement, HandOver::notAcknowledged},
        {"second answer first", kAnswer + kAcknowledgement, HandOver::notAcknowledged},
    };
    listener_ = listenAtPath(path_);
    for (const auto& [name, answers, result] : rows) {
        std::string taken;
        std::thread receiver([&, &sent = answers] {
            const auto socket = accepted();
            taken = takeMessage(socket);
            for (const char answer : sent) {
                if (answer == '.') std::this_thread::sleep_for(600ms);
                if (answer != '.') sendBytes(socket, {&answer, 1});
            }
        });
        const auto limit = answers.find('.') == answers.npos ? kLong : 500ms;
        EXPECT_EQ(handOver("\"/\u00E4\xFF\"", limit), result) << name;
        receiver.join();
        EXPECT_EQ(taken, "\"/\u00E4\xFF\"") << name;
    }
}

TEST_F(HandOverTest, NobodyToTakeIt) {
    EXPECT_EQ(handOver("a"), HandOver::notAcknowledged) << "no socket";
    listenAtPath(path_);
    EXPECT_EQ(handOver("a"), HandOver::notAcknowledged) << "left by a dead one";
    for (const auto& path : {std::string(), std::string(200, 'x')})
        EXPECT_EQ(ActivatePreviousInstance({"", "", path}, "a", kLong), HandOver::notAcknowledged) << path;
}

// A frozen process's sockets still take connections and bytes, until their room is used up.
TEST_F(HandOverTest, GivesUpOnAFrozenOne) {
    listener_ = listenAtPath(path_, 0);
    EXPECT_EQ(handOver("a", 20ms), HandOver::notAcknowledged);
    const auto late = accepted();
    EXPECT_EQ(takeMessage(late), "a");
    EXPECT_FALSE(sendBytes(late, kAcknowledgement)) << "woken up, it must not open the files";

    EXPECT_EQ(handOver(std::string(4'000'000, 'a'), 20ms), HandOver::notAcknowledged)
        << "no room for the message";
    std::vector<Descriptor> others;
    while (others.empty() || others.back()) others.push_back(connectToPath(path_, SOCK_NONBLOCK));
    EXPECT_EQ(handOver("a", 20ms), HandOver::notAcknowledged) << "no room to connect";
}

// Before the limit is made known to the other side it may still acknowledge, and then opens the files.
TEST_F(HandOverTest, AnAcknowledgementAtTheLastMomentCounts) {
    listener_ = listenAtPath(path_);
    Descriptor late;
    beforeShutdown = [&] {
        late = accepted();
        takeMessage(late);
        sendBytes(late, kAcknowledgement);
    };
    EXPECT_EQ(handOver("a", 1ms), HandOver::delivered);
}

TEST_F(HandOverTest, AnotherUsersSocketIsNotTrusted) {
    if (!isRoot()) GTEST_SKIP() << "only root can be two users";
    ASSERT_EQ(chmod(scratch_.path().c_str(), 0777), 0);
    ChildProcess other([&](const ChildProcess::Report& report) {
        if (setuid(kNobody) != 0) return;
        listener_ = listenAtPath(path_);
        report("listens");
        const auto socket = accepted();
        sendBytes(socket, kAcknowledgement + kAnswer);
        report(receiveBytes(socket).empty() ? "nothing" : "a message");
    });
    ASSERT_EQ(other.nextReport(), "listens");
    EXPECT_EQ(handOver("a"), HandOver::notAcknowledged);
    EXPECT_EQ(other.nextReport(), "nothing");
}
