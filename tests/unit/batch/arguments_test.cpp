#include "batch/arguments.h"

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace orvik::batch {
namespace {

struct Parsed {
    std::variant<Arguments, Status> Result;
    std::string Out;
    std::string Err;
};

Parsed Parse(std::vector<const char*> words) {
    words.insert(words.begin(), "orvik-batch");
    std::ostringstream out;
    std::ostringstream err;
    auto result = ParseArguments(static_cast<int>(words.size()), words.data(), out, err);
    return {std::move(result), out.str(), err.str()};
}

// The steps as words; "usage" where there are none.
std::string StepsOf(const Parsed& parsed) {
    const auto* const arguments = std::get_if<Arguments>(&parsed.Result);
    if (arguments == nullptr) {
        return "usage";
    }
    const std::vector<std::string> names = {
        "open", "extract", "merge", "by-address", "by-nickname", "save", "pim", "automation"};
    std::string text;
    for (const Step& step : arguments->Steps) {
        text += names.at(static_cast<std::size_t>(step.What)) + "(" + step.File +
                (step.Output.empty() ? "" : "," + step.Output) + ")";
    }
    return text;
}

TEST(ParseArgumentsTest, StepsComeInTheOrderGiven) {
    const std::vector<std::pair<std::vector<const char*>, std::string>> rows = {
        {{"--open", "a"}, "open(a)"},
        {{"--open=a", "--save=b"}, "open(a)save(b)"},
        {{"--save", "b", "--merge", "c", "--save", "d", "--merge", "e"},
         "save(b)merge(c)save(d)merge(e)"},
        {{"--pim", "a", "b", "--extract", "c"}, "pim(a,b)extract(c)"},
        {{"--extract", "c", "--pim", "a", "b"}, "extract(c)pim(a,b)"},
        {{"--open", "[a]", "--merge", "[b,c]", "--save", "[d]"}, "open([a])merge([b,c])save([d])"},
        {{"--pim", "[a,b]", "[c]"}, "pim([a,b],[c])"},
        {{"--pim", "[a,b]"}, "usage"},
        {{"--sort", "[address]"}, "usage"},
        {{"--sort", "nickname", "--open", "a"}, "by-nickname()open(a)"},
        {{"--open", "a", "--sort", "address"}, "open(a)by-address()"},
        {{"--automation", "-q", "--save", "a"}, "automation()save(a)"},
        {{"--answer", "yes", "--open", "a b"}, "open(a b)"},
        {{"--open", "a", "--open", "b"}, "usage"},
        {{"--open", "a", "--extract", "b"}, "usage"},
        {{"--sort", "address", "--sort", "nickname"}, "usage"},
        {{"--sort", "size"}, "usage"},
        {{"--pim", "a"}, "usage"},
        {{"--pim", "a", "b", "--pim", "c", "d"}, "usage"},
        {{"--merge", "a", "b"}, "usage"},
        {{"--save"}, "usage"},
        {{"--open", ""}, "usage"},
        {{"--open=a=", "--save=--b"}, "open(a=)save(--b)"},
        {{"--open="}, "usage"},
        {{"--open=", "a"}, "usage"},
        {{"--extract=", "a"}, "usage"},
        {{"--open", "a", "--merge=", "b"}, "usage"},
        {{"--open", "a", "--save=", "b"}, "usage"},
        {{"--pim=", "a"}, "usage"},
        {{"--pim=", "a", "b"}, "usage"},
        {{"--open", "a", "--sort="}, "usage"},
        {{"--open", "a", "--separator=", "comma"}, "usage"},
        {{"--open", "a", "--answer=", "yes"}, "usage"},
        {{"--automation="}, "usage"},
        {{"--open", "./-", "--save=-a"}, "open(./-)save(-a)"},
        {{"--open", "-"}, "usage"},
        {{"--open=-"}, "usage"},
        {{"--extract", "-"}, "usage"},
        {{"--merge", "-"}, "usage"},
        {{"--save", "-"}, "usage"},
        {{"--pim", "-", "b"}, "usage"},
        {{"--pim", "a", "-"}, "usage"},
        {{"-q"}, "usage"},
        {{}, "usage"},
    };
    for (const auto& [words, expected] : rows) {
        const Parsed parsed = Parse(words);
        EXPECT_EQ(StepsOf(parsed), expected);
        EXPECT_EQ(parsed.Err.empty(), expected != "usage") << parsed.Err;
    }
}

TEST(ParseArgumentsTest, AMistakeIsExplained) {
    EXPECT_EQ(Parse({"--save="}).Err,
              "--save: a file's name is empty\nRun with --help for more information.\n");
    EXPECT_EQ(Parse({"--merge", "-"}).Err,
              "--merge: - would be standard input or output, which is no book: the ending of its "
              "name tells the format, and it may be read twice. A file of this name is ./-\n"
              "Run with --help for more information.\n");
}

TEST(ParseArgumentsTest, WhatIsQuotedIsPlainText) {
    EXPECT_EQ(Parse({"--open", "a", "b\n\x1B[2J\xE2\x80\xAE\xC2\x9B\xFC"}).Err,
              "The following argument was not expected: b\\x0A\\x1B[2J\\u202E\\u009B\\xFC\n"
              "Run with --help for more information.\n");
}

TEST(ParseArgumentsTest, HelpThatIsLostIsAnError) {
    for (const char* const word : {"--help", "--version"}) {
        std::ostringstream out;
        std::ostringstream err;
        out.setstate(std::ios::badbit);
        const std::vector<const char*> words = {"orvik-batch", word};
        const auto parsed = ParseArguments(2, words.data(), out, err);
        EXPECT_EQ(std::get<Status>(parsed), Status::InputOutput);
        EXPECT_EQ(err.str(), "orvik-batch: Standard output cannot be written to\n");
    }
}

TEST(ParseArgumentsTest, WithoutOptionsQuestionsAreAnsweredNo) {
    const auto arguments = std::get<Arguments>(Parse({"--open", "a"}).Result);
    EXPECT_EQ(arguments.Reply, Answer::No);
    EXPECT_EQ(arguments.EntriesBy, std::nullopt);
    EXPECT_FALSE(arguments.Quiet);
    EXPECT_FALSE(arguments.UsesSettings());
}

TEST(ParseArgumentsTest, OptionsMayStandAnywhere) {
    const auto arguments = std::get<Arguments>(
        Parse({"--answer", "yes", "--automation", "--separator", "comma", "--quiet"}).Result);
    EXPECT_EQ(arguments.Reply, Answer::Yes);
    EXPECT_EQ(arguments.EntriesBy, Separator::Comma);
    EXPECT_TRUE(arguments.Quiet);
    EXPECT_TRUE(arguments.UsesSettings());
}

TEST(ParseArgumentsTest, HelpAndVersionArePrintedAndDone) {
    for (const char* const word : {"-h", "--help", "--version"}) {
        const Parsed parsed = Parse({word});
        EXPECT_EQ(std::get<Status>(parsed.Result), Status::Done);
        EXPECT_NE(parsed.Out.find("orvik-batch"), std::string::npos) << word;
        EXPECT_EQ(parsed.Err, "");
    }
}

}  // namespace
}  // namespace orvik::batch
