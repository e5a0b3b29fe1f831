#include "desktop/text/system_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

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

}  // namespace
}  // namespace orvik
