#include "platform/HandOver.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <atomic>
#include <thread>

#include "platform/HandOverMessage.h"
#include "support/ChildProcess.h"
#include "support/Scratch.h"
#include "support/UnixSocket.h"

using namespace klt;
using namespace std::chrono_literals;
using namespace std::string_literals;
using State = MessageReader::State;

namespace {

const std::string kAcknowledgement(1, kAcknowledged);
const std::string kAnswer(1, kFilesAreOpen);
constexpr auto kLong = 30'000ms;

class HandOverTest : public testing::Test {
protected:
    WindowEntry window() const { return {"KLT Editor", "ThunderRT6MDIForm", path_}; }

    ScratchFolder scratch_;
    const std::string path_ = scratch_ / "socket";
};

/// Reads one whole message, as a receiver does.
std::string takeMessage(const Descriptor& socket) {
    MessageReader reader;
    while (reader.state() == State::unfinished) {
        const auto bytes = receiveBytes(socket, 1);
        if (bytes.empty()) return "(cut off)";
        reader.take(bytes);
    }
    return reader.commandLine();
}

}  // namespace

TEST(HandOverMessage, IsTheLengthThenUtf16) {
    const struct {
        std::string text, message;
    } rows[] = {
        {"", "\0\0\0\0"s},
        {"aB", "\4\0\0\0a\0B\0"s},
        {"\0"s, "\2\0\0\0\0\0"s},
        {"\u00E4\u20AC", "\4\0\0\0\xE4\0\xAC\x20"s},
        {"\U0001F600", "\4\0\0\0\x3D\xD8\x00\xDE"s},
        {"\xE4\xFF", "\4\0\0\0\xE4\xDC\xFF\xDC"s},
        {"\xED\xA0\x80", "\6\0\0\0\xED\xDC\xA0\xDC\x80\xDC"s},
        {std::string(0x8000, 'x'), "\0\0\1\0"s},
    };
    for (const auto& row : rows) {
        const auto message = encodeMessage(row.text);
        EXPECT_EQ(message.substr(0, row.message.size()), row.message) << row.text;
        EXPECT_EQ(decodeMessageText(std::string_view(message).substr(4)), row.text);
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

TEST(HandOverMessage, IsGatheredFromPiecesOfAnySize) {
    const auto message = encodeMessage("\"/a\" \"/\u00E4\"");
    for (size_t piece = 1; piece <= message.size(); ++piece) {
        MessageReader reader;
        auto rest = message + "more";
        while (reader.wanted() > 0) {
            EXPECT_EQ(reader.state(), State::unfinished);
            const auto size = std::min(piece, reader.wanted());
            reader.take(rest.substr(0, size));
            rest.erase(0, size);
        }
        EXPECT_EQ(reader.state(), State::complete);
        EXPECT_EQ(reader.commandLine(), "\"/a\" \"/\u00E4\"");
        EXPECT_EQ(rest, "more");
    }
}

TEST(HandOverMessage, IsRefusedByItsLengthAlone) {
    const struct {
        const char* name;
        std::string header;
        State state;
    } rows[] = {
        {"empty", "\0\0\0\0"s, State::complete},           {"odd", "\3\0\0\0"s, State::refused},
        {"1 MiB", "\0\0\x10\0"s, State::unfinished},       {"more than 1 MiB", "\2\0\x10\0"s, State::refused},
        {"negative", "\xFE\xFF\xFF\xFF"s, State::refused}, {"half a length", "\2\0\0"s, State::unfinished},
    };
    for (const auto& row : rows) EXPECT_EQ(MessageReader().take(row.header), row.state) << row.name;
}

TEST_F(HandOverTest, EndsAsTheOtherSideAnswers) {
    const struct {
        const char* name;
        std::string answers;
        HandOver result;
    } rows[] = {
        {"both answers", kAcknowledgement + kAnswer, HandOver::delivered},
        {"no second answer", kAcknowledgement, HandOver::unanswered},
        {"acknowledged twice", kAcknowledgement + kAcknowledgement, HandOver::unanswered},
        {"nothing", "", HandOver::notAcknowledged},
        {"something else", "x" + kAcknowledgement, HandOver::notAcknowledged},
        {"second answer first", kAnswer + kAcknowledgement, HandOver::notAcknowledged},
    };
    const auto listener = listenAtPath(path_);
    for (const auto& row : rows) {
        std::string taken;
        std::thread receiver([&] {
            const Descriptor socket(::accept(listener.number(), nullptr, nullptr));
            taken = takeMessage(socket);
            sendBytes(socket, row.answers);
        });
        EXPECT_EQ(ActivatePreviousInstance(window(), "\"/\u00E4\xFF\"", kLong), row.result) << row.name;
        receiver.join();
        EXPECT_EQ(taken, "\"/\u00E4\xFF\"") << row.name;
    }
}

TEST_F(HandOverTest, WaitsForTheSecondAnswerBeyondTheLimit) {
    const auto listener = listenAtPath(path_);
    std::thread receiver([&] {
        const Descriptor socket(::accept(listener.number(), nullptr, nullptr));
        takeMessage(socket);
        sendBytes(socket, kAcknowledgement);
        std::this_thread::sleep_for(600ms);
        sendBytes(socket, kAnswer);
    });
    EXPECT_EQ(ActivatePreviousInstance(window(), "a", 500ms), HandOver::delivered);
    receiver.join();
}

TEST_F(HandOverTest, NobodyToTakeIt) {
    EXPECT_EQ(ActivatePreviousInstance(window(), "a", kLong), HandOver::notAcknowledged) << "no socket";
    listenAtPath(path_);
    EXPECT_EQ(ActivatePreviousInstance(window(), "a", kLong), HandOver::notAcknowledged)
        << "left by a dead one";
    for (const auto& path : {std::string(), std::string(200, 'x')})
        EXPECT_EQ(ActivatePreviousInstance({"", "", path}, "a", kLong), HandOver::notAcknowledged) << path;
}

// A frozen process's sockets still take connections and bytes, until their room is used up.
TEST_F(HandOverTest, GivesUpOnAFrozenOne) {
    const auto listener = listenAtPath(path_, 0);
    EXPECT_EQ(ActivatePreviousInstance(window(), "a", 20ms), HandOver::notAcknowledged);
    const Descriptor late(::accept(listener.number(), nullptr, nullptr));
    EXPECT_EQ(takeMessage(late), "a");
    EXPECT_FALSE(sendBytes(late, kAcknowledgement)) << "woken up, it must not open the files";

    EXPECT_EQ(ActivatePreviousInstance(window(), std::string(4'000'000, 'a'), 20ms),
              HandOver::notAcknowledged)
        << "no room for the message";
    std::vector<Descriptor> others;
    while (others.empty() || others.back()) others.push_back(connectToPath(path_, SOCK_NONBLOCK));
    EXPECT_EQ(ActivatePreviousInstance(window(), "a", 20ms), HandOver::notAcknowledged)
        << "no room to connect";
}

// Whatever the moment at which the limit ends: either both sides take it for handed over, or neither.
TEST_F(HandOverTest, BothSidesAgreeAtTheLimit) {
    const auto listener = listenAtPath(path_);
    for (int i = 0; i < 300; ++i) {
        bool committed = false;
        std::thread receiver([&] {
            const Descriptor socket(::accept(listener.number(), nullptr, nullptr));
            takeMessage(socket);
            std::this_thread::sleep_for(std::chrono::microseconds(1500 + 5 * i));
            committed = sendBytes(socket, kAcknowledgement);
            if (committed) sendBytes(socket, kAnswer);
        });
        const auto result = ActivatePreviousInstance(window(), "a", 2ms);
        receiver.join();
        EXPECT_EQ(result, committed ? HandOver::delivered : HandOver::notAcknowledged);
    }
}

TEST_F(HandOverTest, AnotherUsersSocketIsNotTrusted) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can be two users";
    ASSERT_EQ(chmod(scratch_.path().c_str(), 0777), 0);
    ChildProcess other([&](const ChildProcess::Report& report) {
        if (setuid(65534) != 0) return;
        const auto listener = listenAtPath(path_);
        report("listens");
        const Descriptor socket(::accept(listener.number(), nullptr, nullptr));
        sendBytes(socket, kAcknowledgement + kAnswer);
        report(receiveBytes(socket).empty() ? "nothing" : "a message");
    });
    ASSERT_EQ(other.nextReport(), "listens");
    EXPECT_EQ(ActivatePreviousInstance(window(), "a", kLong), HandOver::notAcknowledged);
    EXPECT_EQ(other.nextReport(), "nothing");
}
