#include <map>
#include <string>

#include "unit/mock_platform.h"

namespace orvik {
namespace {

using testing::_;

constexpr const char* kCorrupt = "Error, Registry information Corrupt!";

class LoadSettingsTest : public test::CommandTest {
 protected:
    LoadSettingsTest() {
        EXPECT_CALL(platform, GetSetting(std::string_view("Settings"), _))
            .WillRepeatedly([this](std::string_view, std::string_view key) {
                const auto found = settings_.find(std::string(key));
                return found == settings_.end() ? std::nullopt : std::optional(found->second);
            });
    }

    std::map<std::string, std::string> settings_ = {
        {"textSep", "5"}, {"Open", "1"}, {"Extract", "False"}, {"Sep", ","}};
};

struct SeparatorRow {
    const char* name;
    const char* value;
    int choice_before;
    int choice;
    const char* separator;
};

class SeparatorTest : public LoadSettingsTest, public testing::WithParamInterface<SeparatorRow> {};

TEST_P(SeparatorTest, Row) {
    settings_["textSep"] = GetParam().value;
    module1.TextSepChoice = GetParam().choice_before;
    module1.LoadSettings();
    EXPECT_EQ(module1.TextSepChoice, GetParam().choice);
    EXPECT_EQ(module1.textSep, GetParam().separator);
}

INSTANTIATE_TEST_SUITE_P(,
                         SeparatorTest,
                         testing::Values(SeparatorRow{"Five_IsCr", "5", 0, 1, "\r"},
                                         SeparatorRow{"FiveWithBlanks_IsCr", " 5.0 ", 2, 1, "\r"},
                                         SeparatorRow{"Six_IsComma", "6", 1, 2, ","},
                                         SeparatorRow{"OtherNumber_IsCommaAtFirst", "7", 0, 0, ","},
                                         SeparatorRow{"OtherNumber_KeepsCr", "7", 1, 1, "\r"},
                                         SeparatorRow{
                                             "NoWholeNumber_KeepsComma", "5.4", 2, 2, ","}),
                         [](const auto& row) { return row.param.name; });

struct OpenRow {
    const char* name;
    const char* value;
    int mode;
    bool told;
};

class OpenModeTest : public LoadSettingsTest, public testing::WithParamInterface<OpenRow> {};

TEST_P(OpenModeTest, Row) {
    settings_["Open"] = GetParam().value;
    if (GetParam().told) {
        ExpectTold(kCorrupt);
    }
    module1.LoadSettings();
    EXPECT_EQ(module1.OpenMode, GetParam().mode);
}

INSTANTIATE_TEST_SUITE_P(,
                         OpenModeTest,
                         testing::Values(OpenRow{"One_IsTaken", "1", 1, false},
                                         OpenRow{"Four_IsTaken", "4", 4, false},
                                         OpenRow{"RoundedToFour_IsTaken", "4.5", 4, false},
                                         OpenRow{"RoundedToFive_IsCorrupt", "4.6", 1, true},
                                         OpenRow{"Zero_IsCorrupt", "0", 1, true},
                                         OpenRow{"Negative_IsCorrupt", "-1", 1, true}),
                         [](const auto& row) { return row.param.name; });

struct ExtractRow {
    const char* name;
    const char* value;
    bool extract;
    bool told;
};

class ExtractTest : public LoadSettingsTest, public testing::WithParamInterface<ExtractRow> {};

TEST_P(ExtractTest, Row) {
    settings_["Extract"] = GetParam().value;
    if (GetParam().told) {
        ExpectTold(kCorrupt);
    }
    module1.LoadSettings();
    EXPECT_EQ(module1.AutoExtract, GetParam().extract);
}

INSTANTIATE_TEST_SUITE_P(,
                         ExtractTest,
                         testing::Values(ExtractRow{"False_IsFalse", "False", false, false},
                                         ExtractRow{"True_IsTrue", "True", true, false},
                                         ExtractRow{
                                             "OtherCase_IsCorruptAndTrue", "true", true, true},
                                         ExtractRow{"Empty_IsCorruptAndTrue", "", true, true}),
                         [](const auto& row) { return row.param.name; });

TEST_F(LoadSettingsTest, Separator_IsReadForThePim) {
    settings_["Sep"] = ";";
    module1.LoadSettings();
    EXPECT_EQ(module1.PimSep, ";");
}

TEST_F(LoadSettingsTest, MissingPimSeparator_IsEmpty) {
    settings_.erase("Sep");
    module1.PimSep = "old";
    module1.LoadSettings();
    EXPECT_EQ(module1.PimSep, "");
}

}  // namespace
}  // namespace orvik
