#include "book/mail/unseen_mail.h"

#include <string>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

TEST(UnseenMail, IsDeletedByItsStatus) {
    EXPECT_EQ(Unseen::Deleted, UnseenKindOf("X-Mozilla-Status: 0008\nFrom: a@b.c\n\nx\n"));
    EXPECT_EQ(Unseen::Deleted, UnseenKindOf("From: a@b.c\r\nx-mozilla-status: 001B \r\n\r\nx"));
    EXPECT_EQ(Unseen::Deleted, UnseenKindOf("X-Mozilla-Status: 9"));
    for (const char* const status : {"0001", "0010", "0007", "", "0008x", "-8", "10000000008"}) {
        EXPECT_EQ(Unseen::None, UnseenKindOf("X-Mozilla-Status: " + std::string(status) + "\n\nx"))
            << status;
    }
    EXPECT_EQ(Unseen::None, UnseenKindOf("From: a@b.c\n\nX-Mozilla-Status: 0008\n"));
    EXPECT_EQ(Unseen::None, UnseenKindOf("X-Mozilla-Status2: 00000008\n\n"));
    EXPECT_EQ(Unseen::None, UnseenKindOf(""));
}

TEST(UnseenMail, IsWhatServersWriteIntoFolders) {
    const std::string subject = "Subject: DON'T DELETE THIS MESSAGE -- FOLDER INTERNAL DATA\n";
    const std::string from = "From: Mail System Internal Data <MAILER-DAEMON@host.example>\n";
    EXPECT_EQ(Unseen::FolderData, UnseenKindOf(from + subject + "\nx@host.example\n"));
    EXPECT_EQ(Unseen::FolderData, UnseenKindOf(subject + from));
    EXPECT_EQ(Unseen::None, UnseenKindOf(subject + "From: ada@example.org\n\n"));
    EXPECT_EQ(Unseen::None, UnseenKindOf(from + "Subject: Undelivered mail\n\n"));
    EXPECT_EQ(Unseen::None, UnseenKindOf(from + "\n" + subject));
}

TEST(UnseenMail, IsDeletedByItsName) {
    for (const char* const name : {"1:2,T", "17.M1.host,S=9:2,FST", "1;2,ST", "1!2,Ta", "2,:2,T"}) {
        EXPECT_TRUE(IsTrashedName(name)) << name;
    }
    for (const char* const name :
         {"1:2,S", "1:2,", "T", "T:2,S", "2,T", "12,T", "1:2,T.eml", "1:2,T2", "1:1,T", ""}) {
        EXPECT_FALSE(IsTrashedName(name)) << name;
    }
}

}  // namespace
}  // namespace orvik::book
