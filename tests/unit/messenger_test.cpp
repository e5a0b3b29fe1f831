#include "batch/messenger.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace orvik::batch {
namespace {

using namespace std::chrono_literals;

class MessengerTest : public testing::Test {
 protected:
    MessengerTest() : stream(open_memstream(&text, &length)) {}
    MessengerTest(const MessengerTest&) = delete;
    MessengerTest& operator=(const MessengerTest&) = delete;
    MessengerTest(MessengerTest&&) = delete;
    MessengerTest& operator=(MessengerTest&&) = delete;
    ~MessengerTest() override {
        std::fclose(stream);
        std::free(text);
    }

    [[nodiscard]] std::string Written() const {
        std::fflush(stream);
        return {text, length};
    }

    char* text = nullptr;
    std::size_t length = 0;
    std::FILE* stream;
};

TEST_F(MessengerTest, AMessageIsOneLineAboutItsFile) {
    Messenger messenger(stream, false, 0ms);
    messenger.Tell("No step yet");
    messenger.BeginStep("book.ldif");
    messenger.Tell("Two\r\n\r\nlines");
    EXPECT_EQ(Written(), "orvik-batch: No step yet\norvik-batch: book.ldif: Two lines\n");
}

TEST_F(MessengerTest, WhatWouldSteerATerminalIsNotSentToIt) {
    Messenger messenger(stream, false, 0ms);
    messenger.BeginStep("a\x1B[2J\x7F");
    messenger.Tell("J\xC3\xBCrg\t");
    EXPECT_EQ(Written(), "orvik-batch: a?[2J?: J\xC3\xBCrg?\n");
}

TEST_F(MessengerTest, ProgressCoversTheProgressBeforeIt) {
    Messenger messenger(stream, true, 0ms);
    messenger.BeginStep("b");
    messenger.Progress("100%");
    messenger.Progress("9%");
    messenger.EndStep();
    messenger.EndStep();
    EXPECT_EQ(Written(), "\rb: 100%\rb: 9%  \r     \r");
}

TEST_F(MessengerTest, AMessageTakesThePlaceOfTheProgress) {
    Messenger messenger(stream, true, 0ms);
    messenger.BeginStep("b");
    messenger.Progress("9%");
    messenger.Tell("Done");
    EXPECT_EQ(Written(), "\rb: 9%\r     \rorvik-batch: b: Done\n");
}

TEST_F(MessengerTest, AQuickStepShowsNoProgress) {
    Messenger messenger(stream, true, 1h);
    messenger.BeginStep("b");
    messenger.Progress("9%");
    messenger.EndStep();
    EXPECT_EQ(Written(), "");
}

TEST_F(MessengerTest, AFileGetsNoProgress) {
    Messenger messenger(stream, false, 0ms);
    messenger.BeginStep("b");
    messenger.Progress("9%");
    messenger.EndStep();
    EXPECT_EQ(Written(), "");
}

}  // namespace
}  // namespace orvik::batch
