#include "desktop/text/text_codec.h"

#include <QTextDocument>
#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace orvik {
namespace {

using namespace std::string_literals;

TEST(ToLetters, ShowsBothEncodings) {
    EXPECT_EQ(ToLetters("J\xC3\xBCrgen"), QStringLiteral("J\u00FCrgen"));
    EXPECT_EQ(ToLetters("J\xFCrgen"), QStringLiteral("J\u00FCrgen"));
    EXPECT_EQ(ToLetters("\x80\x9F"), QStringLiteral("\u20AC\u0178"));
    EXPECT_EQ(ToLetters("\x81\x8D\x8F\x90\x9D"), QStringLiteral("\u0081\u008D\u008F\u0090\u009D"));
    EXPECT_EQ(ToLetters("\xF0\x9F\x98\x80").size(), 2);
    EXPECT_EQ(ToLetters("\xEF\xBB\xBF"
                        "a")
                  .size(),
              2);
}

TEST(ToLetters, EveryByteOfWindows1252HasALetterOfItsOwn) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string bytes(1, static_cast<char>(byte));
        Encoding encoding = Encoding::Windows1252;
        EXPECT_EQ(ToBytes(ToLetters(bytes, encoding), encoding), bytes) << byte;
        EXPECT_EQ(encoding, Encoding::Windows1252) << byte;
    }
}

TEST(ToBytes, AForeignLetterMakesTheWholeTextUtf8) {
    Encoding encoding = Encoding::Windows1252;
    EXPECT_EQ(ToBytes(u"\u20AC\u00FC", encoding), "\x80\xFC");
    EXPECT_EQ(encoding, Encoding::Windows1252);
    EXPECT_EQ(ToBytes(u"\u00FC\u0416", encoding), "\xC3\xBC\xD0\x96");
    EXPECT_EQ(encoding, Encoding::Utf8);
}

TEST(ToBytes, AControlThatWindows1252LacksIsForeign) {
    EXPECT_TRUE(CanEncode(u"\u0081", Encoding::Windows1252));
    EXPECT_FALSE(CanEncode(u"\u0080", Encoding::Windows1252));
}

TEST(ToBoxText, ShowsEachKindOfLineEnd) {
    EXPECT_EQ(ToBoxText("a\r\nb\rc\nd", Encoding::Utf8), QStringLiteral("a\u2029b\u2028c\u240Ad"));
    EXPECT_EQ(ToBoxText("\r\r\n\n", Encoding::Utf8), QStringLiteral("\u2028\u2029\u240A"));
    EXPECT_EQ(WithLineBreaks(u"a\u2029b\u2028c\u240Ad"), QStringLiteral("a\r\nb\rc\nd"));
}

// What a text box makes of the text in its document.
std::string ThroughDocument(const std::string& bytes) {
    Encoding encoding = EncodingOf(bytes);
    QTextDocument document;
    document.setPlainText(ToBoxText(bytes, encoding));
    return FromBoxText(document.toRawText(), encoding);
}

TEST(BoxText, EveryPairOfBytesComesBackFromADocument) {
    std::string all;
    for (int first = 0; first < 256; ++first) {
        all.clear();
        for (int second = 0; second < 256; ++second) {
            const std::string pair = {static_cast<char>(first), static_cast<char>(second)};
            Encoding encoding = EncodingOf(pair);
            ASSERT_EQ(FromBoxText(ToBoxText(pair, encoding), encoding), pair);
            all += pair;
        }
        ASSERT_EQ(ThroughDocument(all), all) << first;
    }
}

TEST(BoxText, RandomTextsComeBackFromADocument) {
    const std::vector<std::string> pieces = {"\r",
                                             "\n",
                                             "\r\n",
                                             "\t",
                                             "\0"s,
                                             " ",
                                             "\xC2\xA0",
                                             "\xA0",
                                             "a",
                                             "<",
                                             "\xC3\xBC",
                                             "\xFC",
                                             "\xF0\x9F\x98\x80",
                                             "\xE2\x80\xA8",
                                             "\xE2\x80\xA9",
                                             "\xE2\x90\x8A",
                                             "\xEF\xBF\xBC",
                                             "\xEF\xBF\xBD",
                                             "\xEF\xBB\xBF",
                                             "\xEF\xB7\x90",
                                             "\x0B",
                                             "\x0C",
                                             "\xC2\x85",
                                             "\xC2\xAD",
                                             "\x1B",
                                             "\x7F",
                                             "\xCC\x81",
                                             "\xE2\x80\x8F",
                                             "-nick-"};
    std::mt19937 random(1);  // the same texts each time
    for (int i = 0; i < 2000; ++i) {
        std::string text;
        for (auto left = random() % 20; left > 0; --left) {
            text += pieces[random() % pieces.size()];
        }
        ASSERT_EQ(ThroughDocument(text), text) << testing::PrintToString(text);
    }
}

// The slow ways, letter by letter.
QString LiteralLetters(std::string_view bytes) {
    QString letters;
    while (!bytes.empty()) {
        const Utf8Letter next = FirstLetter(bytes);
        letters += next.Length == 0 ? QString(QChar(QChar::ReplacementCharacter))
                                    : QString::fromUcs4(&next.Code, 1);
        bytes.remove_prefix(std::max<std::size_t>(next.Length, 1));
    }
    return letters;
}

QString LiteralBoxText(const QString& letters) {
    QString box_text;
    for (qsizetype i = 0; i < letters.size(); ++i) {
        const bool paragraph = letters[i] == u'\r' && letters.mid(i + 1, 1) == u"\n";
        box_text += paragraph             ? QChar(kParagraphSeparator)
                    : letters[i] == u'\r' ? QChar(kLineSeparator)
                    : letters[i] == u'\n' ? QChar(kLineFeedSign)
                                          : letters[i];
        i += paragraph ? 1 : 0;
    }
    return box_text;
}

TEST(ToLetters, MakesOfLongTextsWhatALiteralCodecMakes) {
    const std::vector<std::string> pieces = {"\r",
                                             "\n",
                                             "\r\n",
                                             "a",
                                             "\xC3\xBC",
                                             "\xFC",
                                             "\xF0\x9F\x98\x80",
                                             "\xE2\x80\xA9",
                                             "\xC3",
                                             std::string(31, 'x'),
                                             std::string(32, 'y'),
                                             std::string(33, '\0')};
    std::mt19937 random(3);
    for (int i = 0; i < 2000; ++i) {
        std::string text;
        for (auto left = random() % 10; left > 0; --left) {
            text += pieces[random() % pieces.size()];
        }
        SCOPED_TRACE(testing::PrintToString(text));
        const QString letters = LiteralLetters(text);
        ASSERT_EQ(ToLetters(text, Encoding::Utf8), letters);
        const QString box_text = LiteralBoxText(letters);
        ASSERT_EQ(ToBoxText(text, Encoding::Utf8), box_text);
        QString back = box_text;
        back.replace(QChar(kParagraphSeparator), QStringLiteral("\r\n"));
        back.replace(QChar(kLineSeparator), QChar(u'\r'))
            .replace(QChar(kLineFeedSign), QChar(u'\n'));
        ASSERT_EQ(WithLineBreaks(box_text), back);
    }
}

TEST(Positions, OfBytesAndLettersMatchAtEachLetter) {
    for (const std::string& text : {"a\r\n\xC3\xBC"
                                    "b\rc\nd\xF0\x9F\x98\x80"
                                    "e\xE2\x82\xAC"s,
                                    "\xFC\r\n\x80\r\r\n\n\n"s}) {
        const Encoding encoding = EncodingOf(text);
        const QString letters = ToBoxText(text, encoding);
        for (qsizetype position = 0; position <= letters.size(); ++position) {
            if (position > 0 && letters.at(position - 1).isHighSurrogate()) {
                continue;
            }
            const std::size_t offset = ByteOffset(letters, position, encoding);
            Encoding same = encoding;
            EXPECT_EQ(offset, FromBoxText(letters.first(position), same).size());
            EXPECT_EQ(BoxPosition(text, offset, encoding), position);
        }
        EXPECT_EQ(ByteOffset(letters, letters.size(), encoding), text.size());
    }
}

TEST(Positions, InsideALetterOrALineBreakStandBehindIt) {
    EXPECT_EQ(BoxPosition("a\r\nb", 2, Encoding::Utf8), 2);
    EXPECT_EQ(BoxPosition("\xC3\xBC"
                          "b",
                          1,
                          Encoding::Utf8),
              1);
    EXPECT_EQ(BoxPosition("\xF0\x9F\x98\x80", 1, Encoding::Utf8), 2);
    EXPECT_EQ(BoxPosition("ab", 9, Encoding::Utf8), 2);
}

}  // namespace
}  // namespace orvik
