// The Book window by Tab alone: each control once, and nowhere a trap.

#include <QTabBar>
#include <algorithm>
#include <string>
#include <vector>

#include "desktop/book_window_fixture.h"

namespace orvik {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::UnorderedElementsAreArray;

using Texts = std::vector<std::string>;

// A person who is there twice, and one with an address that is odd.
constexpr const char* kFiles[] = {"old.ldif", "phone.vcf"};

class BookTabsTest : public test::BookWindowTest {
 protected:
    void OpenBoth() {
        Write(kFiles[0],
              "dn: cn=Al Berg\ncn: Al Berg\nmail: al@example.org\n\n"
              "dn: cn=Bo\ncn: Bo\nmail: bo@localhost\n");
        Write(kFiles[1], Card("Al Berg", "N:Berg;Al;;;\nEMAIL:al@example.org\nTEL:555\n"));
        Show();
        Open({kFiles[0], kFiles[1]});
        Table().selectRow(0);
        Wait();
    }

    static std::string NameOf(const QWidget& widget) { return widget.objectName().toStdString(); }
    // All that Tab should lead to.
    [[nodiscard]] Texts Usable() const {
        Texts names;
        for (const QWidget* const one : window.findChildren<QWidget*>()) {
            const bool takes_tab =
                one->focusProxy() == nullptr && (one->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
            if (takes_tab && one->isVisible() && one->isEnabled()) {
                names.push_back(NameOf(*one));
            }
        }
        return names;
    }
    // From what has the focus until it has it again, or for a while.
    [[nodiscard]] Texts Tabbed(Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        constexpr std::size_t kMost = 60;
        Texts names;
        QWidget* const first = window.focusWidget();
        QWidget* at = first;
        do {
            names.push_back(NameOf(*at));
            QTest::keyClick(
                at, modifiers == Qt::NoModifier ? Qt::Key_Tab : Qt::Key_Backtab, modifiers);
            at = window.focusWidget();
        } while (at != nullptr && at != first && names.size() < kMost);
        return names;
    }
    // Presses Tab until that has the focus.
    void TabTo(const std::string& name) {
        for (int i = 0; i < 60 && NameOf(*window.focusWidget()) != name; ++i) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        }
        ASSERT_EQ(NameOf(*window.focusWidget()), name);
    }
    // By the keys of the tabs of the panel.
    void TabToPage(int page) {
        TabTo("qt_tabwidget_tabbar");
        auto* const bar = qobject_cast<QTabBar*>(window.focusWidget());
        for (int i = 0; i < bar->count() && bar->currentIndex() != page; ++i) {
            QTest::keyClick(bar, bar->currentIndex() < page ? Qt::Key_Right : Qt::Key_Left);
        }
        ASSERT_EQ(bar->currentIndex(), page);
        Wait();
    }
    // Tab goes from the table through the panel to the filter, through all once, and back.
    void ExpectTabs(const Texts& of_page) {
        Texts expected = {"bookTable", "qt_tabwidget_tabbar"};
        expected.insert(expected.end(), of_page.begin(), of_page.end());
        expected.emplace_back("filterText");
        Table().setFocus();
        ASSERT_THAT(Tabbed(), ElementsAreArray(expected));
        EXPECT_THAT(Usable(), UnorderedElementsAreArray(expected));
        Texts back = expected;
        std::reverse(back.begin() + 1, back.end());
        EXPECT_THAT(Tabbed(Qt::ShiftModifier), ElementsAreArray(back));
    }
    void Press(const char* button) {
        TabTo(button);
        QTest::keyClick(window.focusWidget(), Qt::Key_Space);
        Wait();
    }
};

TEST_F(BookTabsTest, ThePersonIsReached) {
    OpenBoth();
    TabToPage(0);
    ExpectTabs({"personFields", "personValue", "personSourceLink"});
    Press("personSourceLink");
    ExpectTabs({"personFields", "personValue", "personSourceLink", "personSourceLines"});
}

TEST_F(BookTabsTest, TheProblemsAreReached) {
    OpenBoth();
    TabToPage(1);
    ExpectTabs(
        {"problemKinds", "problemTable", "problemDetail", "problemKeep", "problemSourceLink"});
    // What is below the files and the headings is about a record.
    TabTo("problemTable");
    for (int i = 0; i < 10; ++i) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Down);
    }
    Texts expected = {"problemKinds",
                      "problemTable",
                      "problemDetail",
                      "problemFixButton",
                      "problemKeep",
                      "problemLeaveOut",
                      "problemSourceLink"};
    ExpectTabs(expected);
    Press("problemFixButton");
    expected.insert(expected.end() - 1, {"problemFixText", "problemFixCancel"});
    ExpectTabs(expected);
}

TEST_F(BookTabsTest, TheDuplicatesAreReached) {
    OpenBoth();
    TabToPage(2);
    Press("duplicatesLook");
    Texts expected = {"duplicatesLook",
                      "duplicatesSave",
                      "duplicatesLoad",
                      "duplicatesTiers",
                      "duplicatesUndecided",
                      "duplicatesGroups",
                      "duplicatesMerge",
                      "duplicatesKeep",
                      "duplicatesLater",
                      "duplicatesMergeSure",
                      "duplicatesBeside"};
    ExpectTabs(expected);
    Press("duplicatesMerge");
    EXPECT_EQ(Counts(), "2 people");
    std::erase(expected, "duplicatesMergeSure");
    ExpectTabs(expected);
}

TEST_F(BookTabsTest, TheEmptyWindowIsReached) {
    Show();
    EXPECT_THAT(Tabbed(), ElementsAre("welcomeOpen"));
    EXPECT_THAT(Usable(), ElementsAre("welcomeOpen"));
}

}  // namespace
}  // namespace orvik
