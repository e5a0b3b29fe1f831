#include "cli/messenger.h"

#include <sstream>

#include <gtest/gtest.h>

namespace orvik::cli {
namespace {

using namespace std::chrono_literals;

class MessengerTest : public testing::Test {
 protected:
    std::ostringstream stream;
};

TEST_F(MessengerTest, AMessageIsOneLineAboutItsFile) {
    Messenger messenger("orvik-batch", stream, false, 0ms);
    messenger.Tell("No step yet");
    messenger.BeginStep("book.ldif");
    messenger.Tell("Two\r\n\r\nlines");
    EXPECT_EQ(stream.str(), "orvik-batch: No step yet\norvik-batch: book.ldif: Two lines\n");
}

TEST_F(MessengerTest, WhatWouldSteerATerminalIsNotSentToIt) {
    Messenger messenger("orvik-batch", stream, false, 0ms);
    messenger.BeginStep("a\x1B[2J\x7F\n");
    messenger.Tell("J\xC3\xBCrg\t\xE2\x80\xAE\xC2\x9B");
    EXPECT_EQ(stream.str(), "orvik-batch: a\\x1B[2J\\x7F\\x0A: J\xC3\xBCrg\\x09\\u202E\\u009B\n");
}

TEST_F(MessengerTest, NorIsItWithTheProgress) {
    Messenger messenger("orvik-batch", stream, true, 0ms);
    messenger.BeginStep("a\r\x1B");
    messenger.Progress("\xFC");
    EXPECT_EQ(stream.str(), "\ra\\x0D\\x1B: \\xFC");
}

TEST_F(MessengerTest, ProgressCoversTheProgressBeforeIt) {
    Messenger messenger("orvik-batch", stream, true, 0ms);
    messenger.BeginStep("b");
    messenger.Progress("100%");
    messenger.Progress("9%");
    messenger.EndStep();
    messenger.EndStep();
    EXPECT_EQ(stream.str(), "\rb: 100%\rb: 9%  \r     \r");
}

TEST_F(MessengerTest, AMessageTakesThePlaceOfTheProgress) {
    Messenger messenger("orvik-batch", stream, true, 0ms);
    messenger.BeginStep("b");
    messenger.Progress("9%");
    messenger.Tell("Done");
    EXPECT_EQ(stream.str(), "\rb: 9%\r     \rorvik-batch: b: Done\n");
}

TEST_F(MessengerTest, AQuickStepShowsNoProgress) {
    Messenger messenger("orvik-batch", stream, true, 1h);
    messenger.BeginStep("b");
    messenger.Progress("9%");
    messenger.EndStep();
    EXPECT_EQ(stream.str(), "");
}

TEST_F(MessengerTest, AFileGetsNoProgress) {
    Messenger messenger("orvik-batch", stream, false, 0ms);
    messenger.BeginStep("b");
    messenger.Progress("9%");
    messenger.EndStep();
    EXPECT_EQ(stream.str(), "");
}

}  // namespace
}  // namespace orvik::cli
