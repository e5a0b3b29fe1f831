#include "app/messages.h"

namespace orvik {
namespace {

TEST(Messages, Title_IsTheProgramsName) {
    EXPECT_EQ(kTitle, "Orvik");
}

TEST(Messages, TextNonexistant_BeginsAsTheCommandSays) {
    EXPECT_EQ(TextNonexistant("An Error type"),
              "An Error type #USR&001 occured: \"Text Nonexistant\". Please E-Mail a bug report to "
              "support@orvik.example");
    EXPECT_EQ(TextNonexistant("An error type"),
              "An error type #USR&001 occured: \"Text Nonexistant\". Please E-Mail a bug report to "
              "support@orvik.example");
}

TEST(Messages, UnknownFormat_EndsWithTheQuestion) {
    EXPECT_EQ(UnknownFormat(),
              "An Error type #USR&002 occured: \"The file does not appear to be of the known "
              "format\". If nothing helps, please E-Mail a bug report to support@orvik.example. "
              "Select type?");
}

TEST(Messages, TooMuchText_NamesTheLimit) {
    EXPECT_EQ(TooMuchText(),
              "An Error type #USR&003 occured: \"Too much text\". Orvik cannot handle over 32000 "
              "characters of text. If you are positive that you are editing less text, please "
              "E-Mail a bug report to support@orvik.example");
}

}  // namespace
}  // namespace orvik
