#include "desktop/help/help_viewer.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>
#include <algorithm>
#include <string>
#include <utility>

#include "desktop/help/help_book.h"
#include "desktop/help/help_window.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/text_codec.h"

namespace orvik {
namespace {

QString Translated(const char* text) {
    return QCoreApplication::translate("Help", text);
}

QString Item(const QString& text) {
    return QStringLiteral("<li>%1</li>").arg(ShownName(text).toHtmlEscaped());
}

}  // namespace

HelpViewer::HelpViewer(QString cache) : cache_(std::move(cache)) {}

HelpViewer::~HelpViewer() = default;

QString HelpViewer::userCache() {
    // Not CacheLocation, which repeats the name of a program that is its own organisation.
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/orvik");
}

void HelpViewer::show(HelpCommand command, std::string_view target, std::string_view data) {
    // A folder's name may hold a ">", a window's cannot.
    const std::size_t end = target.rfind('>');
    const std::string_view window_name =
        end == std::string_view::npos ? "" : target.substr(end + 1);
    QString asked = QFile::decodeName(QByteArray(std::string(target.substr(0, end)).c_str()));
    asked.replace(u'\\', u'/');

    const bool alone = window_name == "Stripped";
    QString problem;
    HelpBook* const book = open(asked, problem);
    std::unique_ptr<HelpWindow>& window = alone ? page_alone_ : with_panes_;
    if (window == nullptr || (book != nullptr && !window->hasBook())) {
        window = std::make_unique<HelpWindow>(
            book, alone ? HelpWindow::Kind::PageAlone : HelpWindow::Kind::WithPanes);
    }
    if (book == nullptr) {
        window->showProblem(Translated("There is no help"), problem);
        return;
    }
    switch (command) {
        case HelpCommand::Topic:
            window->showTopic(ToLetters(data));
            return;
        case HelpCommand::Contents:
            window->showContents();
            return;
        case HelpCommand::Index:
            window->showIndex();
            return;
    }
}

HelpBook* HelpViewer::open(const QString& asked, QString& body) {
    const QStringList places = HelpPlaces(asked);
    const auto place = std::find_if(places.begin(), places.end(), [](const QString& name) {
        return name.endsWith(QStringLiteral(".qch")) && QFile::exists(name);
    });
    if (place == places.end()) {
        QString list;
        for (const QString& name : places) {
            list += Item(name);
        }
        body = Translated(
                   "<p>The help file <b>%1</b> is missing. Looked for were:</p><ul>%2</ul>"
                   "<p>Installing Orvik again brings it back.</p>")
                   .arg(ShownName(asked).toHtmlEscaped(), list);
        return nullptr;
    }
    if (book_ == nullptr || !book_->problem().isEmpty()) {
        book_ = std::make_unique<HelpBook>(*place, cache_);
    }
    if (!book_->problem().isEmpty()) {
        body = Translated(
                   "<p>The help file <b>%1</b> cannot be read:</p><ul>%2</ul>"
                   "<p>Installing Orvik again may help.</p>")
                   .arg(ShownName(*place).toHtmlEscaped(), Item(book_->problem()));
        return nullptr;
    }
    return book_.get();
}

}  // namespace orvik
