#include "desktop/help/help_browser.h"

#include <QDesktopServices>
#include <QEvent>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

#include "desktop/help/help_book.h"
#include "desktop/help/help_picture.h"
#include "desktop/text/colours.h"

namespace orvik {
namespace {

QString PageOf(const QString& heading, const QString& body) {
    return QStringLiteral("<html><head><title>%1</title></head><body><h1>%1</h1>%2</body></html>")
        .arg(heading, body);
}

// In every palette: black on a yellow marker.
QTextCharFormat MarkFormat() {
    QTextCharFormat format;
    format.setBackground(QColor(255, 224, 102));
    format.setForeground(Qt::black);
    return format;
}

}  // namespace

HelpBrowser::HelpBrowser(const HelpBook* book, QWidget* parent)
    : QTextBrowser(parent), book_(book), size_(font().pointSizeF()) {
    setObjectName(QStringLiteral("page"));
    setAccessibleName(tr("Help page"));
    document()->setDocumentMargin(2 * document()->documentMargin());
    // A help address is no file, so Qt would take it for one of another program.
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::showPage);
    connect(this, &QTextBrowser::sourceChanged, this, [this] {
        fitPictures();
        showMarks();
    });
    takeColours();
}

void HelpBrowser::showPage(const QUrl& page) {
    const QUrl whole = source().resolved(page);
    if (whole.scheme() == QStringLiteral("qthelp")) {
        setSource(whole);
    } else {
        QDesktopServices::openUrl(whole);
    }
}

void HelpBrowser::showText(const QString& heading, const QString& body) {
    setHtml(PageOf(heading, body));
}

void HelpBrowser::mark(const QStringList& words) {
    marked_ = words;
    showMarks();
}

void HelpBrowser::showMarks() {
    QList<ExtraSelection> marks;
    for (const QString& word : marked_) {
        for (QTextCursor found = document()->find(word); !found.isNull();
             found = document()->find(word, found)) {
            marks.append({found, MarkFormat()});
        }
    }
    setExtraSelections(marks);
}

void HelpBrowser::scrollToFirstMark() {
    const QList<ExtraSelection> marks = extraSelections();
    const auto first =
        std::min_element(marks.begin(), marks.end(), [](const auto& one, const auto& other) {
            return one.cursor.selectionStart() < other.cursor.selectionStart();
        });
    if (first != marks.end()) {
        QTextCursor place = first->cursor;
        place.setPosition(place.selectionStart());
        setTextCursor(place);
        ensureCursorVisible();
    }
}

void HelpBrowser::resetZoom() {
    QFont font = this->font();
    font.setPointSizeF(size_);
    setFont(font);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    if (book_ == nullptr) {
        return {};
    }
    const QUrl whole = source().resolved(name);
    if (type == QTextDocument::ImageResource) {
        return picture(whole);
    }
    const QByteArray bytes = book_->data(whole);
    if (!bytes.isEmpty()) {
        return bytes;
    }
    if (type != QTextDocument::HtmlResource) {
        return {};
    }
    return PageOf(tr("Page not found"),
                  tr("<p>The page <b>%1</b> is not in the help. The <a href=\"%2\">first page</a> "
                     "shows what there is.</p>")
                      .arg(whole.fileName().toHtmlEscaped(),
                           HelpBook::page(QStringLiteral("index.html")).toString()));
}

QImage HelpBrowser::picture(const QUrl& whole) const {
    const QColor text = palette().color(QPalette::Text);
    const QColor paper = palette().color(QPalette::Base);
    const QColor frame((text.red() + paper.red()) / 2,
                       (text.green() + paper.green()) / 2,
                       (text.blue() + paper.blue()) / 2);
    for (const QString& name :
         PictureNames(whole.fileName(), IsDark(palette()), devicePixelRatioF())) {
        const QByteArray bytes = book_->data(whole.resolved(QUrl(name)));
        if (!bytes.isEmpty()) {
            return FramedPicture(bytes, name, widestPicture(), devicePixelRatioF(), frame);
        }
    }
    return {};
}

int HelpBrowser::widestPicture() const {
    return viewport()->width() - static_cast<int>(2 * document()->documentMargin());
}

void HelpBrowser::takeColours() {
    document()->setDefaultStyleSheet(
        QStringLiteral("a:link { color: %1; }").arg(LinkColour(palette()).name()));
}

// The document keeps the pictures that it has, of whatever width and palette.
void HelpBrowser::fitPictures() {
    if (book_ == nullptr) {
        return;
    }
    fitted_ = widestPicture();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextImageFormat image = part.fragment().charFormat().toImageFormat();
            if (image.isValid()) {
                const QUrl name(image.name());
                document()->addResource(QTextDocument::ImageResource,
                                        document()->baseUrl().resolved(name),
                                        picture(source().resolved(name)));
                document()->markContentsDirty(part.fragment().position(), 1);
            }
        }
    }
}

void HelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) {
        return;
    }
    takeColours();
    if (!source().isEmpty()) {
        reload();
    }
}

void HelpBrowser::resizeEvent(QResizeEvent* event) {
    if (fitted_ != widestPicture()) {
        fitPictures();
    }
    QTextBrowser::resizeEvent(event);
}

}  // namespace orvik
