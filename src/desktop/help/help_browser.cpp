#include "desktop/help/help_browser.h"

#include <QDesktopServices>
#include <QEvent>

#include "desktop/help/help_book.h"

namespace orvik {
namespace {

QString PageOf(const QString& heading, const QString& body) {
    return QStringLiteral("<html><head><title>%1</title></head><body><h1>%1</h1>%2</body></html>")
        .arg(heading, body);
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

void HelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !source().isEmpty()) {
        reload();
    }
}

}  // namespace orvik
