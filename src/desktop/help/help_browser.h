// The page of a help window.

#pragma once

#include <QStringList>
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

    // Marks these words wherever they stand, in this page and in those that follow.
    void mark(const QStringList& words);
    void scrollToFirstMark();

    void resetZoom();

 protected:
    QVariant loadResource(int type, const QUrl& name) override;
    // The style sheet takes colours from the palette when a page is loaded.
    void changeEvent(QEvent* event) override;
    // Pictures are as wide as the page at most.
    void resizeEvent(QResizeEvent* event) override;

 private:
    void takeColours();
    void fitPictures();
    void showMarks();
    // A null image where there is no such picture.
    [[nodiscard]] QImage picture(const QUrl& whole) const;
    [[nodiscard]] int widestPicture() const;

    const HelpBook* book_;
    qreal size_;
    QStringList marked_;
    int fitted_ = 0;  // the width for which the pictures are
};

}  // namespace orvik
