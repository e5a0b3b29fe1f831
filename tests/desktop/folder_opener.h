// Whoever opens folders for the desktop, in its place.

#pragma once

#include <QDesktopServices>
#include <QList>
#include <QString>
#include <QTextBrowser>
#include <QUrl>

namespace orvik::test {

// A browser is what has a slot for an address already.
class FolderOpener : public QTextBrowser {
 public:
    FolderOpener() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "setSource"); }
    FolderOpener(const FolderOpener&) = delete;
    FolderOpener& operator=(const FolderOpener&) = delete;
    FolderOpener(FolderOpener&&) = delete;
    FolderOpener& operator=(FolderOpener&&) = delete;
    ~FolderOpener() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    [[nodiscard]] const QList<QUrl>& opened() const { return opened_; }

 protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType /*type*/) override {
        opened_.append(name);
    }

 private:
    QList<QUrl> opened_;
};

}  // namespace orvik::test
