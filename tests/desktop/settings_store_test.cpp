#include "desktop/settings_store.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <string>

#include <gtest/gtest.h>

namespace orvik {
namespace {

using namespace std::string_literals;

class SettingsStoreTest : public testing::Test {
 protected:
    [[nodiscard]] SettingsStore Open() {
        return {file, [this](const QString& problem) { problems.append(problem); }};
    }
    void Write(const char* contents) const {
        QFile out(file);
        ASSERT_TRUE(out.open(QFile::WriteOnly));
        out.write(contents);
    }

    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("orvik/orvik.conf"));
    QStringList problems;
};

TEST_F(SettingsStoreTest, AMissingKeyHasNoValue) {
    EXPECT_EQ(Open().get("Settings", "Open"), std::nullopt);
    EXPECT_TRUE(problems.isEmpty());
}

TEST_F(SettingsStoreTest, EachValueComesBackFromTheFile) {
    for (const std::string& value : {"5"s,
                                     ""s,
                                     ","s,
                                     "\t"s,
                                     " a "s,
                                     "a,b"s,
                                     "\"q\""s,
                                     "\xFC"s,
                                     "\xC3\xBC"s,
                                     "\0x"s,
                                     "@x"s,
                                     "a\\b;c%d"s,
                                     "  a"s,
                                     "a "s,
                                     "="s,
                                     ";a"s,
                                     "#a"s,
                                     "[a]"s,
                                     "a\nb\rc"s,
                                     "a, b"s,
                                     "\"a\", \"b\""s,
                                     "@Invalid()"s,
                                     "@ByteArray(a)"s,
                                     "\x80\xFF,\""s,
                                     "c:\\new\\x41.xtr"s,
                                     "\xF0\x9F\x93\x96"s,
                                     "\xE2\x80\xA8"s,
                                     "\r\n"s}) {
        Open().save("Settings", "Sep", value);
        EXPECT_EQ(Open().get("Settings", "Sep"), value) << testing::PrintToString(value);
    }
    EXPECT_TRUE(problems.isEmpty());
}

TEST_F(SettingsStoreTest, KeysHaveNoCase) {
    Open().save("Settings", "textSep", "5");
    EXPECT_EQ(Open().get("settings", "TEXTSEP"), "5");
    Open().save("Settings", "TextSep", "6");
    EXPECT_EQ(Open().get("Settings", "textSep"), "6");
}

TEST_F(SettingsStoreTest, ASectionInsideAnotherIsApart) {
    Open().save("Settings\\AutoSteps", "info", "1");
    EXPECT_EQ(Open().get("Settings\\AutoSteps", "Info"), "1");
    EXPECT_EQ(Open().get("Settings", "info"), std::nullopt);
}

TEST_F(SettingsStoreTest, AnEmptyValueIsNotMissing) {
    Open().save("Settings\\AutoSteps", "5", "");
    EXPECT_EQ(Open().get("Settings\\AutoSteps", "5"), "");
    EXPECT_EQ(Open().get("Settings\\AutoSteps", "4"), std::nullopt);
}

TEST_F(SettingsStoreTest, NothingIsLeftAfterClearing) {
    SettingsStore store = Open();
    store.save("Settings", "Open", "2");
    store.save("Settings\\AutoSteps", "1", "5");
    store.clear();
    EXPECT_EQ(store.get("Settings", "Open"), std::nullopt);
    EXPECT_EQ(Open().get("Settings", "Open"), std::nullopt);
    EXPECT_EQ(Open().get("Settings\\AutoSteps", "1"), std::nullopt);
    store.save("Settings", "Open", "3");
    EXPECT_EQ(Open().get("Settings", "Open"), "3");
}

TEST_F(SettingsStoreTest, ReadsWhatAUserWrote) {
    ASSERT_TRUE(QDir().mkpath(folder.filePath(QStringLiteral("orvik"))));
    Write("[Settings]\ntextsep=5\nSep=,\nname=a,b\n");
    EXPECT_EQ(Open().get("Settings", "textSep"), "5");
    EXPECT_EQ(Open().get("Settings", "Sep"), ",");
    EXPECT_EQ(Open().get("Settings", "name"), "a,b");
}

TEST_F(SettingsStoreTest, WhatIsNoFileIsToldOnceAndKeptForTheRun) {
    ASSERT_TRUE(QDir().mkpath(file));
    SettingsStore store = Open();
    store.save("Settings", "Open", "2");
    store.save("Settings", "Open", "3");
    EXPECT_EQ(store.get("Settings", "Open"), "3");
    EXPECT_EQ(problems.size(), 1);
    EXPECT_TRUE(problems.value(0).contains(file));
}

TEST_F(SettingsStoreTest, AFileThatCannotBeReadIsNotWritten) {
    ASSERT_TRUE(QDir().mkpath(folder.filePath(QStringLiteral("orvik"))));
    Write("no settings at all\n");
    SettingsStore store = Open();
    EXPECT_EQ(store.get("Settings", "Open"), std::nullopt);
    EXPECT_EQ(problems.size(), 1);
    store.save("Settings", "Open", "2");
    EXPECT_EQ(store.get("Settings", "open"), "2");
    QFile in(file);
    ASSERT_TRUE(in.open(QFile::ReadOnly));
    EXPECT_EQ(in.readAll().toStdString(), "no settings at all\n");
}

}  // namespace
}  // namespace orvik
