#include "desktop/views/books_menu.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "desktop/text/plain_text.h"

namespace orvik {
namespace {

// So many letters are shown of the name of a book and of that of its folder.
constexpr int kNameLetters = 60;
constexpr int kFolderLetters = 40;

// "~/books" for a folder in the user's own.
QString ShownFolder(const QFileInfo& file) {
    const QString folder = file.path();
    const QString home = QDir::homePath();
    return folder == home || folder.startsWith(home + u'/') ? u'~' + folder.mid(home.size())
                                                            : folder;
}

}  // namespace

BooksMenu::BooksMenu(RecentBooks& books, QWidget* parent) : QMenu(parent), books_(books) {
    setObjectName(QStringLiteral("booksMenu"));
    setAccessibleName(tr("The last books"));
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &BooksMenu::fill);
}

void BooksMenu::fill() {
    clear();
    int number = 0;
    const auto shortened = [this](const QString& name, int letters) {
        return fontMetrics().elidedText(
            ShownName(name), Qt::ElideMiddle, fontMetrics().averageCharWidth() * letters);
    };
    for (const std::string& book : books_.Books()) {
        const QString name = QFile::decodeName(book.c_str());
        const QFileInfo file(name);
        QString text = shortened(file.fileName(), kNameLetters) + QStringLiteral("  (") +
                       shortened(ShownFolder(file), kFolderLetters) + u')';
        text.replace(u'&', QStringLiteral("&&"));
        // The tenth has the key 0.
        ++number;
        const QString key = number < 10 ? u'&' + QString::number(number) : QStringLiteral("1&0");
        QAction* const book_row = addAction(key + QStringLiteral("  ") + text);
        book_row->setToolTip(PlainTip(ShownName(name)));
        connect(book_row, &QAction::triggered, this, [this, name] { emit chosen(name); });
    }
    const bool remembers = books_.Remembers();
    if (number == 0) {
        addAction(remembers ? tr("No books yet") : tr("No books are remembered"))
            ->setEnabled(false);
    }
    addSeparator();
    QAction* const forget = addAction(tr("&Clear this list"));
    forget->setObjectName(QStringLiteral("clearBooks"));
    forget->setEnabled(number > 0);
    connect(forget, &QAction::triggered, this, [this] { books_.Clear(); });
    QAction* const remember = addAction(tr("&Remember books"));
    remember->setObjectName(QStringLiteral("rememberBooks"));
    remember->setCheckable(true);
    remember->setChecked(remembers);
    connect(
        remember, &QAction::toggled, this, [this](bool wanted) { books_.SetRemembers(wanted); });
}

}  // namespace orvik
