// The page of a help window.

#pragma once

#include <QTextBrowser>
#include <QUrl>
#include <QVariant>

namespace orvik {

class HelpBook;

class HelpBrowser : public QTextBrowser {
    Q_OBJECT
 public:
    // book must outlive the browser; without one only showText may be called.
    HelpBrowser(const HelpBook* book, QWidget* parent);

    // Shows a page of the book at its anchor; one that is not there is reported in its place. Any
    // other address is opened by the user's own programs.
    void showPage(const QUrl& page);
    // A page that is in no book, with a heading and a body of HTML.
    void showText(const QString& heading, const QString& body);

    void resetZoom();

 protected:
    QVariant loadResource(int type, const QUrl& name) override;
    // The style sheet takes colours from the palette when a page is loaded.
    void changeEvent(QEvent* event) override;

 private:
    const HelpBook* book_;
    qreal size_;
};

}  // namespace orvik
