// The panes beside the page: contents, index, search.

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QtHelp/QHelpContentWidget>
#include <QtHelp/QHelpEngine>
#include <QtHelp/QHelpIndexWidget>
#include <QtHelp/QHelpLink>

#include "desktop/help/help_book.h"
#include "desktop/help/help_browser.h"
#include "desktop/help/help_window.h"

namespace orvik {

QTabWidget* HelpWindow::makePanes() {
    auto* const panes = new QTabWidget(this);
    panes->setObjectName(QStringLiteral("panes"));
    panes->setAccessibleName(tr("Ways to a page"));
    panes->setEnabled(book_ != nullptr);
    panes->addTab(book_ == nullptr ? new QWidget(panes) : makeContents(), tr("&Contents"));
    panes->addTab(book_ == nullptr ? new QWidget(panes) : makeIndex(), tr("&Index"));
    panes->addTab(book_ == nullptr ? new QWidget(panes) : makeSearch(), tr("&Search"));
    panes->tabBar()->installEventFilter(this);
    connect(panes, &QTabWidget::currentChanged, this, &HelpWindow::markWords);
    return panes;
}

QWidget* HelpWindow::makeContents() {
    auto* const pane = new QWidget(this);
    auto* const column = new QVBoxLayout(pane);
    QHelpContentWidget* const contents = book_->engine().contentWidget();
    const QHelpContentModel* const model = book_->engine().contentModel();
    contents->setObjectName(QStringLiteral("contents"));
    contents->setAccessibleName(tr("Contents"));
    const auto follow = [this, contents] {
        const QModelIndex here = contents->indexOf(page_->source());
        if (here.isValid()) {
            contents->setCurrentIndex(here);
        }
    };
    connect(contents, &QHelpContentWidget::linkActivated, page_, &HelpBrowser::showPage);
    connect(contents, &QHelpContentWidget::clicked, page_, [this, model](const QModelIndex& row) {
        if (const QHelpContentItem* const item = model->contentItemAt(row)) {
            page_->showPage(item->url());
        }
    });
    // The contents are read in another thread.
    connect(model, &QHelpContentModel::contentsCreated, contents, [contents, follow] {
        contents->expandAll();
        follow();
    });
    connect(page_, &QTextBrowser::sourceChanged, contents, follow);
    contents->expandAll();
    column->addWidget(contents);
    auto* const version =
        new QLabel(tr("Orvik, version %1").arg(QCoreApplication::applicationVersion()), pane);
    version->setObjectName(QStringLiteral("version"));
    version->setTextFormat(Qt::PlainText);
    column->addWidget(version);
    pane->setFocusProxy(contents);
    return pane;
}

QWidget* HelpWindow::makeIndex() {
    auto* const pane = new QWidget(this);
    auto* const column = new QVBoxLayout(pane);
    auto* const word = new QLineEdit(pane);
    QHelpIndexWidget* const index = book_->engine().indexWidget();
    word->setObjectName(QStringLiteral("indexWord"));
    word->setAccessibleName(tr("Word to look up in the index"));
    word->setPlaceholderText(tr("Look for"));
    word->setClearButtonEnabled(true);
    index->setObjectName(QStringLiteral("index"));
    index->setAccessibleName(tr("Index"));
    column->addWidget(word);
    column->addWidget(index);
    pane->setFocusProxy(word);
    const auto open = [index] {
        if (index->currentIndex().isValid()) {
            index->activateCurrentItem();
        }
    };
    connect(word, &QLineEdit::textChanged, index, [index](const QString& text) {
        index->filterIndices(text);
    });
    connect(word, &QLineEdit::returnPressed, index, open);
    connect(index, &QHelpIndexWidget::clicked, index, open);
    connect(index, &QHelpIndexWidget::documentActivated, page_, [this](const QHelpLink& link) {
        page_->showPage(link.url);
    });
    return pane;
}

QWidget* HelpWindow::makeSearch() {
    auto* const pane = new QWidget(this);
    auto* const column = new QVBoxLayout(pane);
    auto* const words = search_words_ = new QLineEdit(pane);
    auto* const hits = new QListWidget(pane);
    auto* const found = new QLabel(pane);
    words->setObjectName(QStringLiteral("searchWords"));
    words->setAccessibleName(tr("Words to search in all pages"));
    words->setPlaceholderText(tr("Words in a page"));
    words->setClearButtonEnabled(true);
    hits->setObjectName(QStringLiteral("hits"));
    hits->setAccessibleName(tr("Pages found"));
    found->setTextFormat(Qt::PlainText);
    found->setWordWrap(true);
    column->addWidget(words);
    column->addWidget(hits);
    column->addWidget(found);
    pane->setFocusProxy(words);
    connect(words, &QLineEdit::textChanged, hits, [this, hits, found](const QString& text) {
        hits->clear();
        for (const HelpBook::Hit& hit : book_->search(text)) {
            auto* const row = new QListWidgetItem(hit.Title, hits);
            row->setData(Qt::UserRole, hit.Page);
        }
        found->setText(text.trimmed().isEmpty() ? QString()
                       : hits->count() == 0     ? tr("No page has all these words.")
                                                : tr("Pages found: %1").arg(hits->count()));
        markWords();
    });
    const auto open = [this](const QListWidgetItem* row) {
        page_->showPage(row->data(Qt::UserRole).toUrl());
        page_->scrollToFirstMark();
    };
    connect(hits, &QListWidget::itemClicked, page_, open);
    connect(hits, &QListWidget::itemActivated, page_, open);
    connect(words, &QLineEdit::returnPressed, hits, [hits, open] {
        if (hits->count() > 0) {
            open(hits->item(0));
        }
    });
    return pane;
}

void HelpWindow::markWords() {
    const bool searching = search_words_ != nullptr && panes_ != nullptr &&
                           panes_->currentWidget()->isAncestorOf(search_words_);
    page_->mark(searching ? HelpBook::words(search_words_->text()) : QStringList());
}

}  // namespace orvik
