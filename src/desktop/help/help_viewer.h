// Shows the help: which file and window a call means, and what is said when there is no help.

#pragma once

#include <QString>
#include <memory>
#include <string_view>

#include "platform/platform.h"

namespace orvik {

class HelpBook;
class HelpWindow;

class HelpViewer {
 public:
    // Qt's collection is kept in the folder cache.
    explicit HelpViewer(QString cache = userCache());
    HelpViewer(const HelpViewer&) = delete;
    HelpViewer& operator=(const HelpViewer&) = delete;
    HelpViewer(HelpViewer&&) = delete;
    HelpViewer& operator=(HelpViewer&&) = delete;
    ~HelpViewer();

    // target is the help file, ">" and the window's name: "Stripped" is the page alone, any other
    // the window with panes. data is the topic. The viewer reports failures on the page it shows.
    //   Topic, "/opt/orvik/bin\\help.chm>secWin", "conversions.html#pim"
    void show(HelpCommand command, std::string_view target, std::string_view data);

    // $XDG_CACHE_HOME/orvik
    [[nodiscard]] static QString userCache();

 private:
    // The book of a help file; none if it is missing or broken, and body then says so.
    HelpBook* open(const QString& asked, QString& body);

    QString cache_;
    std::unique_ptr<HelpBook> book_;
    // After the book, which they must not outlive.
    std::unique_ptr<HelpWindow> with_panes_;
    std::unique_ptr<HelpWindow> page_alone_;
};

}  // namespace orvik
