// The main window of a program whose platform is scripted.

#pragma once

#include <QAction>
#include <QCoreApplication>
#include <QLabel>
#include <QListView>
#include <QTest>
#include <stdexcept>
#include <string>
#include <string_view>

#include "desktop/session/desktop.h"
#include "desktop/views/control_views.h"
#include "desktop/windows/form1_window.h"
#include "unit/mock_platform.h"

namespace orvik::test {

class Form1WindowTest : public CommandTest {
 protected:
    template <class Kind>
    Kind& Find(std::string_view name) {
        auto* const found = window.findChild<Kind*>(ObjectName(name));
        if (found == nullptr) {
            throw std::runtime_error("no such object: " + std::string(name));
        }
        return *found;
    }
    void Show() {
        window.show();
        Settle();
    }
    // A list lays itself out in a timer and paints itself behind that.
    static void Settle() {
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::processEvents();
        }
    }
    void List(const std::string& native) {
        SetNative(native);
        desktop.run([this] { module1.RefreshLists(); });
    }
    void SwitchEditMode() { Find<QAction>("mnuEntEd").trigger(); }
    // As an extraction shows itself while it runs.
    void Extract(bool runs) {
        form1.cmdCancel.Visible = runs;
        form1.mnuFile.Enabled = !runs;
        window.sync();
    }
    void ClickRow(QListView& list, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(list.viewport(),
                          Qt::LeftButton,
                          modifiers,
                          list.visualRect(list.model()->index(row, 0)).center());
    }
    [[nodiscard]] QString PanelText(int number) {
        return Find<QLabel>("Panel" + std::to_string(number)).text();
    }

    Desktop desktop;
    RecentBooks books;
    Form1Window window{module1, desktop, books};
};

// Three entries.
inline constexpr const char* kThree = "A1\r\nA2\r\nA3\r\n-nick-\r\nAl\r\nBo\r\nCy\r\n";

}  // namespace orvik::test
