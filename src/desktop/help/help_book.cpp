#include "desktop/help/help_book.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextDocument>
#include <QtHelp/QHelpEngine>
#include <algorithm>
#include <utility>

namespace orvik {
namespace {

// As help/orvik.qhp says.
QString Namespace() {
    return QStringLiteral("orvik.help");
}

QString SourceKey() {
    return QStringLiteral("orvik/source");
}

// Differs when another file, or another version of it, stands behind the name.
QString SourceOf(const QString& file) {
    const QFileInfo info(file);
    return QStringLiteral("%1|%2|%3")
        .arg(info.canonicalFilePath())
        .arg(info.lastModified().toMSecsSinceEpoch())
        .arg(info.size());
}

// What is no database at all would make Qt complain on the terminal.
bool IsDatabase(const QString& name) {
    QFile file(name);
    return file.open(QFile::ReadOnly) && file.read(15) == "SQLite format 3";
}

}  // namespace

QStringList HelpPlaces(const QString& asked) {
    const QFileInfo info(asked);
    if (info.fileName().compare(QStringLiteral("help.chm"), Qt::CaseInsensitive) != 0) {
        return {asked};
    }
    // Beside the program, in the build tree, and where it is installed.
    QStringList places = {QStringLiteral("orvik.qch"),
                          QStringLiteral("../help/orvik.qch"),
                          QStringLiteral("../share/orvik/orvik.qch")};
    for (QString& place : places) {
        place = QDir::cleanPath(info.dir().filePath(place));
    }
    return places;
}

HelpBook::HelpBook(QString file, const QString& cache) : file_(std::move(file)) {
    if (open(cache)) {
        return;
    }
    temporary_.emplace();
    if (!open(temporary_->path())) {
        problem_ = engine_ == nullptr || engine_->error().isEmpty()
                       ? QCoreApplication::translate("Help", "There is no folder to work in.")
                       : engine_->error();
    }
}

HelpBook::~HelpBook() = default;

bool HelpBook::open(const QString& folder) {
    if (!QDir().mkpath(folder)) {
        return false;
    }
    const QString collection = QDir(folder).filePath(QStringLiteral("orvik.qhc"));
    if (QFile::exists(collection)) {
        if (IsDatabase(collection) && load(collection) &&
            engine_->registeredDocumentations() == QStringList(Namespace()) &&
            engine_->customValue(SourceKey()).toString() == SourceOf(file_)) {
            return true;
        }
        engine_.reset();
        if (!QFile::remove(collection)) {
            return false;
        }
    }
    return load(collection) && engine_->registerDocumentation(file_) &&
           engine_->registeredDocumentations() == QStringList(Namespace()) &&
           engine_->setCustomValue(SourceKey(), SourceOf(file_));
}

bool HelpBook::load(const QString& collection) {
    engine_ = std::make_unique<QHelpEngine>(collection);
    engine_->setReadOnly(false);
    engine_->setUsesFilterEngine(true);
    return engine_->setupData();
}

QUrl HelpBook::page(const QString& topic) {
    return QUrl(QStringLiteral("qthelp://%1/pages/").arg(Namespace())).resolved(QUrl(topic));
}

QByteArray HelpBook::data(const QUrl& page) const {
    return engine_->fileData(page.adjusted(QUrl::RemoveFragment));
}

QStringList HelpBook::words(const QString& typed) {
    return typed.split(u' ', Qt::SkipEmptyParts);
}

// The pages are few and short: they are read faster than an index of them is opened.
QList<HelpBook::Hit> HelpBook::search(const QString& typed) const {
    const QStringList wanted = words(typed);
    const auto is_in = [](const QString& text) {
        return [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); };
    };
    QList<Hit> in_title;
    QList<Hit> in_text;
    if (wanted.isEmpty()) {
        return in_text;
    }
    const QList<QUrl> pages = engine_->files(Namespace(), QString(), QStringLiteral("html"));
    for (const QUrl& page : pages) {
        QTextDocument document;
        document.setHtml(QString::fromUtf8(data(page)));
        const QString text = document.toPlainText();
        if (std::all_of(wanted.begin(), wanted.end(), is_in(text))) {
            const QString title = document.metaInformation(QTextDocument::DocumentTitle);
            const bool top = std::any_of(wanted.begin(), wanted.end(), is_in(title));
            (top ? in_title : in_text).append({title, page});
        }
    }
    const auto by_title = [](const Hit& a, const Hit& b) {
        return a.Title.localeAwareCompare(b.Title) < 0;
    };
    std::sort(in_title.begin(), in_title.end(), by_title);
    std::sort(in_text.begin(), in_text.end(), by_title);
    return in_title + in_text;
}

}  // namespace orvik
