#include "desktop/text/system_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <memory>
#include <optional>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace orvik {
namespace {

TEST(Clipboard, AnotherProgramsLineFeedIsALineBreak) {
    const struct {
        QString Text;
        std::string Expected;
    } rows[] = {
        {QStringLiteral("a\nb"), "a\r\nb"},
        {QStringLiteral("a\r\nb"), "a\r\nb"},
        {QStringLiteral("a\rb"), "a\rb"},
        {QStringLiteral("a\n\r\nb\r"), "a\r\n\r\nb\r"},
        {QStringLiteral("a\u2029b\u2028c"), "a\r\nb\rc"},
        {QStringLiteral("\u00FC"), "\xC3\xBC"},
        {QString(), ""},
    };
    for (const auto& row : rows) {
        QGuiApplication::clipboard()->setText(row.Text);
        EXPECT_EQ(ClipboardBytes(Encoding::Utf8), row.Expected) << row.Text.toStdString();
    }
}

TEST(Clipboard, OwnTextComesBackAsItWas) {
    for (const std::string text : {"a\nb\rc\r\nd", "\xC3\xBC", "-nick-\r\n"}) {
        SetClipboardBytes(text, EncodingOf(text));
        EXPECT_EQ(ClipboardBytes(Encoding::Utf8), text);
        EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), text);
    }
}

TEST(Clipboard, LettersComeInTheEncodingThatIsAskedFor) {
    SetClipboardBytes("\xFC\x80", Encoding::Windows1252);
    EXPECT_EQ(ClipboardBytes(Encoding::Windows1252), "\xFC\x80");
    EXPECT_EQ(ClipboardBytes(Encoding::Utf8), "\xC3\xBC\xE2\x82\xAC");
    QGuiApplication::clipboard()->setText(QStringLiteral("\u0416"));
    EXPECT_EQ(ClipboardBytes(Encoding::Windows1252), "\xD0\x96");
}

// The slow way: all that a program can ask for is made at once.
TEST(Clipboard, OffersWhatABoxWithTheSameTextOffers) {
    const QString own = QStringLiteral("application/x-orvik-box-text");
    const QString plain = QStringLiteral("text/plain");
    const std::string pieces[] = {"a",
                                  "-nick-\r\n",
                                  "\r",
                                  "\n",
                                  "\xC3\xBC",
                                  "\xFC",
                                  "\x80",
                                  "\xEF\xBB\xBF",
                                  "\xE2\x80\xA9",
                                  "\xF0\x9F\x98\x80",
                                  std::string(1, '\0'),
                                  "\xEF\xBF\xBE",
                                  std::string(40, 'x')};
    std::mt19937 random(5);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes;
        for (auto left = random() % 6; left > 0; --left) {
            bytes += pieces[random() % std::size(pieces)];
        }
        const std::optional<Encoding> encodings[] = {
            std::nullopt, Encoding::Utf8, Encoding::Windows1252};
        const std::optional<Encoding> encoding = encodings[random() % 3];
        SCOPED_TRACE(testing::PrintToString(bytes));
        const std::unique_ptr<QMimeData> literal(
            MimeFromBoxText(ToBoxText(bytes, encoding.value_or(EncodingOf(bytes)))));
        SetClipboardBytes(bytes, encoding);
        const QMimeData& offered = *QGuiApplication::clipboard()->mimeData();
        ASSERT_EQ(offered.formats(), literal->formats());
        ASSERT_EQ(offered.text(), literal->text());
        ASSERT_EQ(offered.data(plain), literal->data(plain));
        ASSERT_EQ(offered.data(own), literal->data(own));
        ASSERT_EQ(BoxTextFromMime(offered), BoxTextFromMime(*literal));
        ASSERT_FALSE(offered.hasFormat(QStringLiteral("text/html")));
        ASSERT_TRUE(offered.data(QStringLiteral("text/html")).isNull());
        ASSERT_EQ(offered.hasUrls(), literal->hasUrls());
    }
}

TEST(Clipboard, KeepsItsTextWhenTheBookGoes) {
    {
        const std::string book = "Al\r\n" + std::string(100, 'x');
        SetClipboardBytes(book, std::nullopt);
    }
    EXPECT_EQ(ClipboardBytes(Encoding::Utf8), "Al\r\n" + std::string(100, 'x'));
}

}  // namespace
}  // namespace orvik
