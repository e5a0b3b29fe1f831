// The compiled help pages: where they stand, and what is read from them.

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>
#include <memory>
#include <optional>

class QHelpEngine;

namespace orvik {

// The files that may hold the pages of a help file that the program asks for, best first. Only
// "help.chm" has pages; any other name is its own and only place.
//   "/opt/orvik/bin/help.chm" -> ..., "/opt/orvik/share/orvik/orvik.qch"
[[nodiscard]] QStringList HelpPlaces(const QString& asked);

class HelpBook {
 public:
    struct Hit {
        QString Title;
        QUrl Page;
    };

    // Opens a compiled file. Qt reads it through a collection, which is kept in the folder cache. A
    // collection that is damaged or of another file is made anew; without a folder that can be
    // written it is made in a temporary one.
    HelpBook(QString file, const QString& cache);
    HelpBook(const HelpBook&) = delete;
    HelpBook& operator=(const HelpBook&) = delete;
    HelpBook(HelpBook&&) = delete;
    HelpBook& operator=(HelpBook&&) = delete;
    ~HelpBook();

    // Why the file could not be opened, empty if it was; without it nothing else may be called.
    [[nodiscard]] const QString& problem() const { return problem_; }
    [[nodiscard]] QHelpEngine& engine() const { return *engine_; }

    // The address of a topic, whether there is such a page or not.
    //   "conversions.html#pim" -> "qthelp://orvik.help/pages/conversions.html#pim"
    [[nodiscard]] static QUrl page(const QString& topic);
    // The bytes of a page or a picture, empty if it is not there.
    [[nodiscard]] QByteArray data(const QUrl& page) const;
    // The words that are searched for what was typed.
    [[nodiscard]] static QStringList words(const QString& typed);
    // The pages that hold all the words, those with one in the title first; none without a word.
    [[nodiscard]] QList<Hit> search(const QString& typed) const;

 private:
    bool open(const QString& folder);
    bool load(const QString& collection);

    QString file_;
    QString problem_;
    std::optional<QTemporaryDir> temporary_;
    std::unique_ptr<QHelpEngine> engine_;
};

}  // namespace orvik
