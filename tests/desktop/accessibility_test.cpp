// Every window as a screen reader and a user without a mouse meet it.

#include <QAccessible>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <map>
#include <set>

#include "desktop/form1_window_fixture.h"
#include "desktop/text/text_box_view.h"
#include "desktop/views/picture_view.h"
#include "desktop/windows/late_windows.h"

namespace orvik {
namespace {

using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Return;

using Texts = std::vector<std::string>;

class AccessibilityTest : public test::Form1WindowTest {
 protected:
    AccessibilityTest() {
        EXPECT_CALL(platform, GetSetting(_, _)).WillRepeatedly(Return("5"));
        EXPECT_CALL(platform, ProgramFolder()).WillRepeatedly(Return("/p"));
        List(test::kThree);
        small_windows.makeAll();
    }

    [[nodiscard]] std::vector<QWidget*> Windows() const {
        std::vector<QWidget*> all{const_cast<Form1Window*>(&window)};
        for (const auto& small : small_windows.made()) {
            all.push_back(small.get());
        }
        return all;
    }
    FormWindow& WindowOf(Form& form) {
        return dynamic_cast<FormWindow&>(desktop.viewOf(form)->window());
    }

    LateWindows small_windows{program, desktop, &window};
};

std::string Described(QAccessibleInterface& item) {
    const QString object = item.object() == nullptr ? QString() : item.object()->objectName();
    return object.toStdString() + " (role " + std::to_string(item.role()) + ")";
}

// What holds other things and is not read itself.
bool IsOnlyAFrame(QAccessible::Role role) {
    switch (role) {
        case QAccessible::Client:
        case QAccessible::Grip:
        case QAccessible::LayeredPane:
        case QAccessible::MenuBar:
        case QAccessible::PageTabList:
        case QAccessible::Separator:
        case QAccessible::ScrollBar:
            return true;
        default:
            return false;
    }
}

// A row without a nickname has no name, and the notice of the find bar says nothing at first.
bool MaySayNothing(const QAccessibleInterface& item) {
    return item.role() == QAccessible::ListItem ||
           (item.object() != nullptr &&
            item.object()->objectName() == QStringLiteral("findNotice"));
}

void CollectNameless(QAccessibleInterface& item, Texts& nameless) {
    if (!IsOnlyAFrame(item.role()) && !MaySayNothing(item) &&
        item.text(QAccessible::Name).isEmpty()) {
        nameless.push_back(Described(item));
    }
    for (int i = 0; i < item.childCount(); ++i) {
        if (QAccessibleInterface* const child = item.child(i)) {
            CollectNameless(*child, nameless);
        }
    }
}

TEST_F(AccessibilityTest, EverythingHasANameAndARole) {
    for (QWidget* const shown : Windows()) {
        SCOPED_TRACE(shown->objectName().toStdString());
        QAccessibleInterface* const top = QAccessible::queryAccessibleInterface(shown);
        EXPECT_EQ(top->role(), shown == &window ? QAccessible::Window : QAccessible::Dialog);
        Texts nameless;
        CollectNameless(*top, nameless);
        EXPECT_THAT(nameless, IsEmpty());
    }
}

TEST_F(AccessibilityTest, EveryControlHasTheRoleOfItsKind) {
    const auto expected = [](const ControlRef& control) {
        return std::visit(
            [](const auto* kind) {
                using Kind = std::remove_cvref_t<decltype(*kind)>;
                if constexpr (std::is_same_v<Kind, TextBox>) {
                    return QAccessible::EditableText;
                } else if constexpr (std::is_same_v<Kind, ListBox>) {
                    return QAccessible::List;
                } else if constexpr (std::is_same_v<Kind, Button>) {
                    return QAccessible::PushButton;
                } else if constexpr (std::is_same_v<Kind, Label>) {
                    return QAccessible::StaticText;
                } else if constexpr (std::is_same_v<Kind, Frame>) {
                    return QAccessible::Grouping;
                } else if constexpr (std::is_same_v<Kind, CheckBox>) {
                    return QAccessible::CheckBox;
                } else if constexpr (std::is_same_v<Kind, OptionButton>) {
                    return QAccessible::RadioButton;
                } else if constexpr (std::is_same_v<Kind, ComboBox>) {
                    return QAccessible::ComboBox;
                } else if constexpr (std::is_same_v<Kind, PictureBox>) {
                    return QAccessible::Graphic;
                } else if constexpr (std::is_same_v<Kind, StatusBar>) {
                    return QAccessible::StatusBar;
                } else if constexpr (std::is_same_v<Kind, ProgressBar>) {
                    return QAccessible::ProgressBar;
                } else {
                    return QAccessible::NoRole;
                }
            },
            control);
    };
    for (Form* const form : program.Forms()) {
        for (const NamedControl& control : form->Controls()) {
            const QAccessible::Role role = expected(control.Ref);
            if (role == QAccessible::NoRole || control.Name == "Picture2") {
                continue;
            }
            auto* const view =
                desktop.viewOf(*form)->window().findChild<QWidget*>(ObjectName(control.Name));
            ASSERT_NE(view, nullptr) << control.Name;
            EXPECT_EQ(QAccessible::queryAccessibleInterface(view)->role(), role)
                << form->Name() << "." << control.Name;
        }
    }
}

TEST_F(AccessibilityTest, TheFormatOptionsAreReadUnderTheirHeading) {
    Form2& form = module1.form2;
    for (const OptionButton* const option :
         {&form.Option1, &form.Option2, &form.Option3, &form.Option4}) {
        QAccessibleInterface* const group =
            QAccessible::queryAccessibleInterface(&WindowOf(form).widget(*option))->parent();
        EXPECT_EQ(group->role(), QAccessible::Grouping);
        EXPECT_EQ(group->text(QAccessible::Name),
                  QStringLiteral("How do you want to handle file formats?"));
    }
}

TEST_F(AccessibilityTest, ProgressIsReadInPerCent) {
    Form4& form = module1.form4;
    form.Picture2.Width = Form4::kFullWidth / 4;
    WindowOf(form).sync();
    QAccessibleInterface* const strip =
        QAccessible::queryAccessibleInterface(&WindowOf(form).widget(form.Picture2));
    EXPECT_EQ(strip->role(), QAccessible::ProgressBar);
    ASSERT_NE(strip->valueInterface(), nullptr);
    EXPECT_EQ(strip->valueInterface()->currentValue().toInt(), 25);
    EXPECT_EQ(strip->valueInterface()->maximumValue().toInt(), 100);
}

TEST_F(AccessibilityTest, ThePanelsAreReadAsTheyStand) {
    const auto read = [this](int number) {
        auto& panel = Find<QLabel>("Panel" + std::to_string(number));
        return QAccessible::queryAccessibleInterface(&panel)->text(QAccessible::Name).toStdString();
    };
    EXPECT_EQ(read(1), "Welcome to Orvik");
    EXPECT_EQ(read(2), "3 items");
}

TEST_F(AccessibilityTest, TheListsRowsAreReadAsTheyAreShown) {
    QAccessibleInterface* const list =
        QAccessible::queryAccessibleInterface(&Find<QListView>("List2"));
    EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("Nicknames"));
    ASSERT_EQ(list->childCount(), 3);
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), QStringLiteral("Bo"));
}

// A label in front of a control leads to it.
TEST_F(AccessibilityTest, LabelsHaveBuddies) {
    const std::set<std::string> only_told = {
        "Form2.firstStart", "Form3.Label1", "Form4.Result", "Form6.Label1", "frmAbout.version"};
    for (const auto& small : small_windows.made()) {
        for (const auto* const label : small->findChildren<QLabel*>()) {
            const std::string name =
                (small->objectName() + u'.' + label->objectName()).toStdString();
            EXPECT_EQ(label->buddy() == nullptr, only_told.contains(name)) << name;
        }
    }
}

// The access keys of captions that can be seen at one time.
void ExpectNoKeyTwice(const std::vector<QString>& captions) {
    std::map<QString, QString> taken;
    for (const QString& caption : captions) {
        const QString key = QKeySequence::mnemonic(caption).toString();
        if (key.isEmpty()) {
            continue;
        }
        const auto [other, is_free] = taken.emplace(key, caption);
        EXPECT_TRUE(is_free) << key.toStdString() << ": " << other->second.toStdString() << " and "
                             << caption.toStdString();
    }
}

std::vector<QString> CaptionsOf(const QList<QAction*>& actions) {
    std::vector<QString> captions;
    for (const QAction* const action : actions) {
        captions.push_back(action->text());
    }
    return captions;
}

TEST_F(AccessibilityTest, NoAccessKeyIsTwiceInAMenu) {
    for (const QAction* const menu : window.menuBar()->actions()) {
        ExpectNoKeyTwice(CaptionsOf(menu->menu()->actions()));
    }
    for (const char* const list : {"List1", "List2"}) {
        const QList<QAction*> actions = Find<QListView>(list).actions();
        ExpectNoKeyTwice(CaptionsOf(actions));
        for (const QAction* const action : actions) {
            EXPECT_TRUE(action->isSeparator() || action->text().contains(u'&'))
                << action->text().toStdString();
        }
    }
}

TEST_F(AccessibilityTest, NoAccessKeyIsTwiceInAWindow) {
    module1.form2.Check1.Value = 1;
    module1.form2.Frame2.Visible = true;
    for (QWidget* const shown : Windows()) {
        SCOPED_TRACE(shown->objectName().toStdString());
        std::vector<QString> captions;
        if (shown == &window) {
            captions = CaptionsOf(window.menuBar()->actions());
        }
        std::vector<QWidget*> pages{nullptr};
        if (const auto* const tabs = shown == &window ? nullptr : shown->findChild<QTabWidget*>()) {
            pages.clear();
            for (int i = 0; i < tabs->count(); ++i) {
                captions.push_back(tabs->tabText(i));
                pages.push_back(tabs->widget(i));
            }
        }
        // Of the tabs one can be seen.
        for (const QWidget* const page : pages) {
            std::vector<QString> level = captions;
            const auto add = [&](const QWidget& view, const QString& caption) {
                const bool on_other_page = page != nullptr && !page->isAncestorOf(&view) &&
                                           page->parentWidget()->isAncestorOf(&view);
                if (view.window() == shown && !on_other_page) {
                    level.push_back(caption);
                }
            };
            for (const auto* const button : shown->findChildren<QAbstractButton*>()) {
                add(*button, button->text());
            }
            for (const auto* const label : shown->findChildren<QLabel*>()) {
                if (label->buddy() != nullptr) {
                    add(*label, label->text());
                }
            }
            ExpectNoKeyTwice(level);
        }
    }
}

// The object names along the Tab key's way.
Texts TabsThrough(QWidget& shown, QWidget& first) {
    Texts names;
    shown.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
    first.setFocus();
    for (QWidget* focus = &first; names.empty() || focus != &first;) {
        names.push_back(focus->objectName().toStdString());
        QTest::keyClick(focus, Qt::Key_Tab);
        focus = shown.focusWidget();
        if (names.size() > 50) {
            break;
        }
    }
    return names;
}

TEST_F(AccessibilityTest, TabGoesAsTheEyeDoes) {
    Show();
    EXPECT_THAT(
        TabsThrough(window, Find<QWidget>("List1")),
        ElementsAre("List1", "List2", "cmdEmail", "cmdNick", "List1Heading", "List2Heading"));

    FormWindow& export_window = WindowOf(module1.form4);
    export_window.show();
    EXPECT_THAT(
        TabsThrough(export_window, export_window.widget(module1.form4.Text1)),
        ElementsAre("Text1", "Command1", "Text2", "Command2", "Command4", "Command3", "Command5"));

    Form2& form = module1.form2;
    FormWindow& preferences = WindowOf(form);
    form.Option7.Value = true;
    form.Frame2.Visible = form.Combo2.Enabled = form.Combo3.Enabled = true;
    preferences.sync();
    preferences.show();
    preferences.widget<QTabWidget>(form.SSTab1).setCurrentIndex(2);
    EXPECT_THAT(TabsThrough(preferences, preferences.widget(form.Check1)),
                ElementsAre("Check1",
                            "Check2",
                            "Check3",
                            "Check4",
                            "Option7",
                            "Text2",
                            "Command5",
                            "Combo1",
                            "Combo2",
                            "Combo3",
                            "Text3",
                            "Command6",
                            "Command1",
                            "Command2",
                            "Command4",
                            "qt_tabwidget_tabbar"));
}

TEST_F(AccessibilityTest, TabDoesNotBecomeText) {
    Show();
    SwitchEditMode();
    const SharedText before = module1.WorkText;
    QTest::keyClick(&Find<TextBoxView>("Text1"), Qt::Key_Tab);
    EXPECT_EQ(module1.WorkText, before);
}

TEST_F(AccessibilityTest, CancelHasTheKeysDuringAnExtraction) {
    Show();
    window.activateWindow();
    auto& list = Find<QListView>("List2");
    list.setFocus();
    Extract(true);
    EXPECT_TRUE(Find<QPushButton>("cmdCancel").hasFocus());
    Extract(false);
    EXPECT_TRUE(list.hasFocus());
    // A list generation shows it too; there the numbers are wanted first.
    form1.cmdCancel.Visible = true;
    window.sync();
    EXPECT_TRUE(list.hasFocus());
}

TEST_F(AccessibilityTest, AKeyWithoutAUseBringsTheHelpOfTheExport) {
    Form4& form = module1.form4;
    FormWindow& shown = WindowOf(form);
    shown.show();
    shown.activateWindow();
    EXPECT_CALL(platform, ShowHelp(HelpCommand::Topic, _, "conversions.html#pim")).Times(2);
    QTest::keyClick(&shown.widget(form.Command4), Qt::Key_X);
    QTest::keyClick(&shown.widget(form.Text1), Qt::Key_F1);
    // These have a use, or were pressed elsewhere.
    QTest::keyClick(&shown.widget(form.Text1), Qt::Key_X);
    QTest::keyClick(&shown.widget(form.Command4), Qt::Key_Tab);
    QTest::keyClick(&shown.widget(form.Command4), Qt::Key_Shift);
    QTest::keyClick(&shown.widget(form.Command4), Qt::Key_X, Qt::ControlModifier);
    QTest::keyRelease(&shown.widget(form.Command4), Qt::Key_P);
    EXPECT_EQ(form.Text1.Text(), "x");
}

TEST_F(AccessibilityTest, KeysStopTheAutomationAsAClickDoes) {
    FormWindow& shown = WindowOf(module1.form6);
    shown.show();
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Space, Qt::Key_Return}) {
        EXPECT_CALL(platform, ShowBox(_)).WillOnce(Return(Answer::Yes));
        module1.CancelRequested = false;
        QTest::keyClick(&shown, key);
        EXPECT_TRUE(module1.CancelRequested);
    }
}

}  // namespace
}  // namespace orvik
