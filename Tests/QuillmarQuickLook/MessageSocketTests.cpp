#include "QuillmarQuickLook/MessageSocket.h"

#include <array>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace quillmar {
namespace {

using namespace std::string_literals;
using std::chrono::milliseconds;

constexpr milliseconds patience{10'000};
constexpr milliseconds impatience{20};
constexpr std::size_t maxBytes = 10'000'000;

struct MessageSocketTest : testing::Test {
    MessageSocketTest() { EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0); }
    ~MessageSocketTest() override {
        closeOther();
        ::close(ends[0]);
    }

    void closeOther() {
        if (ends[1] >= 0) ::close(ends[1]);
        ends[1] = -1;
    }

    /// Bytes from the other side, as they stand.
    void sayRaw(DataView bytes) const {
        ASSERT_EQ(::write(ends[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }

    MessageSocket socket(milliseconds time = patience) const { return {ends[0], time}; }
    MessageSocket other(milliseconds time = patience) const { return {ends[1], time}; }

    std::array<int, 2> ends{-1, -1};
};

/// A length as this machine writes it.
Data lengthOf(std::uint32_t length) { return {reinterpret_cast<const char*>(&length), sizeof length}; }

TEST_F(MessageSocketTest, deliversAMessage) {
    EXPECT_TRUE(socket().send("a\0b"s));
    EXPECT_EQ(other().receive(maxBytes), "a\0b"s);
}

TEST_F(MessageSocketTest, deliversAnEmptyMessage) {
    EXPECT_TRUE(socket().send(""));
    EXPECT_EQ(other().receive(0), "");
}

TEST_F(MessageSocketTest, deliversMessagesOneByOneInBothDirections) {
    EXPECT_TRUE(socket().send("first"));
    EXPECT_TRUE(socket().send(""));
    EXPECT_TRUE(socket().send("third"));
    EXPECT_TRUE(other().send("back"));
    EXPECT_EQ(other().receive(maxBytes), "first");
    EXPECT_EQ(other().receive(maxBytes), "");
    EXPECT_EQ(other().receive(maxBytes), "third");
    EXPECT_EQ(socket().receive(maxBytes), "back");
}

TEST_F(MessageSocketTest, deliversMoreThanASocketHolds) {
    Data message(maxBytes, '\0');
    for (std::size_t i = 0; i < message.size(); ++i) message[i] = static_cast<char>(i % 251);
    std::optional<Data> received;
    std::thread reader([&] { received = other().receive(maxBytes); });
    EXPECT_TRUE(socket().send(message));
    reader.join();
    EXPECT_EQ(received, message);
}

TEST_F(MessageSocketTest, waitsForEverWhenItIsTold) {
    std::thread writer([&] {
        std::this_thread::sleep_for(impatience);
        EXPECT_TRUE(other(MessageSocket::forever).send("late"));
    });
    EXPECT_EQ(socket(MessageSocket::forever).receive(maxBytes), "late");
    writer.join();
}

TEST_F(MessageSocketTest, putsAMessageTogetherThatComesInPieces) {
    const Data bytes = lengthOf(5) + "piece";
    std::optional<Data> received;
    std::thread reader([&] { received = socket().receive(maxBytes); });
    for (const char byte : bytes) sayRaw(DataView(&byte, 1));
    reader.join();
    EXPECT_EQ(received, "piece");
}

TEST_F(MessageSocketTest, takesAMessageOfTheLargestSizeAndNoLarger) {
    sayRaw(lengthOf(4) + "four");
    EXPECT_EQ(socket().receive(4), "four");
    sayRaw(lengthOf(5) + "fives");
    EXPECT_FALSE(socket().receive(4));
}

TEST_F(MessageSocketTest, believesNoEndlessLength) {
    sayRaw(lengthOf(0xFFFFFFFF) + "short");
    EXPECT_FALSE(socket().receive(maxBytes));
}

TEST_F(MessageSocketTest, receivesNothingWhenTheOtherSideSaysLessThanItAnnounced) {
    sayRaw(lengthOf(100) + "short");
    EXPECT_FALSE(socket(impatience).receive(maxBytes));
}

TEST_F(MessageSocketTest, receivesNothingWhenTheOtherSideSaysNothing) {
    EXPECT_FALSE(socket(impatience).receive(maxBytes));
}

TEST_F(MessageSocketTest, receivesNothingWhenTheOtherSideIsGone) {
    closeOther();
    EXPECT_FALSE(socket().receive(maxBytes));
}

TEST_F(MessageSocketTest, receivesNothingWhenTheOtherSideGoesInAMessage) {
    sayRaw(lengthOf(100) + "short");
    closeOther();
    EXPECT_FALSE(socket().receive(maxBytes));
}

TEST_F(MessageSocketTest, receivesNothingWhenTheOtherSideGoesInALength) {
    sayRaw(lengthOf(100).substr(0, 3));
    closeOther();
    EXPECT_FALSE(socket().receive(maxBytes));
}

TEST_F(MessageSocketTest, receivesWhatWasWholeBeforeTheOtherSideWent) {
    EXPECT_TRUE(other().send("last words"));
    closeOther();
    EXPECT_EQ(socket().receive(maxBytes), "last words");
    EXPECT_FALSE(socket().receive(maxBytes));
}

TEST_F(MessageSocketTest, hasPatienceForAWholeMessageAndNotForEachByte) {
    constexpr int slowBytes = 500;
    std::thread writer([&] {
        sayRaw(lengthOf(slowBytes));
        for (int i = 0; i < slowBytes && ::send(ends[1], "x", 1, MSG_DONTWAIT) == 1; ++i)
            std::this_thread::sleep_for(milliseconds(1));
    });
    EXPECT_FALSE(socket(impatience).receive(maxBytes));
    writer.join();
}

TEST_F(MessageSocketTest, sendsNothingToASideThatIsGone) {
    closeOther();
    EXPECT_FALSE(socket().send("message")); // and no signal ends this process
}

TEST_F(MessageSocketTest, givesUpOnASideThatDoesNotListen) {
    EXPECT_FALSE(socket(impatience).send(Data(maxBytes, 'x')));
}

TEST_F(MessageSocketTest, givesUpOnASideThatGoesInAMessage) {
    std::thread reader([&] {
        std::array<char, 10> some{};
        EXPECT_GT(::read(ends[1], some.data(), some.size()), 0);
        closeOther();
    });
    EXPECT_FALSE(socket().send(Data(maxBytes, 'x')));
    reader.join();
}

TEST_F(MessageSocketTest, livesWithADescriptorThatIsNone) {
    const MessageSocket none(-1, impatience);
    EXPECT_FALSE(none.send("message"));
    EXPECT_FALSE(none.receive(maxBytes));
}

} // namespace
} // namespace quillmar
