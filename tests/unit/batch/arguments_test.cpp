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
        {{"-q"}, "usage"},
        {{}, "usage"},
    };
    for (const auto& [words, expected] : rows) {
        const Parsed parsed = Parse(words);
        EXPECT_EQ(StepsOf(parsed), expected);
        EXPECT_EQ(parsed.Err.empty(), expected != "usage") << parsed.Err;
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
