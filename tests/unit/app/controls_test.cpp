#include "app/controls.h"

#include <stdexcept>
#include <string>
#include <vector>

#include "unit/failure.h"

namespace orvik {
namespace {

using test::FailureOf;

using Rows = std::vector<std::size_t>;

TEST(MenuItem, Dash_IsASeparator) {
    EXPECT_TRUE(MenuItem("-").IsSeparator());
    EXPECT_FALSE(MenuItem("&File").IsSeparator());
}

TEST(Button, ToolTip_IsKept) {
    const Button button("&Nicknames", "Sort by NickName");
    EXPECT_EQ(button.Caption, "&Nicknames");
    EXPECT_EQ(button.ToolTip, "Sort by NickName");
}

class TextBoxTest : public testing::Test {
 protected:
    TextBoxTest() {
        box_.Change = [this] { ++changes_; };
    }

    TextBox box_;
    int changes_ = 0;
};

TEST_F(TextBoxTest, AssignedText_RunsChangeAndSelectsNothing) {
    box_.SetText("abc");
    EXPECT_EQ(box_.Text(), "abc");
    EXPECT_EQ(changes_, 1);
    EXPECT_EQ(box_.SelStart, 0U);
    EXPECT_EQ(box_.SelLength, 0U);
}

TEST_F(TextBoxTest, EqualText_RunsChangeToo) {
    box_.SetText("abc");
    const Revision before = box_.TextRevision();
    box_.SetText("abc");
    EXPECT_EQ(changes_, 2);
    EXPECT_GT(box_.TextRevision(), before);
}

TEST_F(TextBoxTest, TextTypedByUser_RunsChangeAndMovesTheCursor) {
    box_.EditByUser("abc", 2);
    EXPECT_EQ(box_.Text(), "abc");
    EXPECT_EQ(changes_, 1);
    EXPECT_EQ(box_.SelStart, 2U);
    EXPECT_EQ(box_.SelLength, 0U);
}

TEST_F(TextBoxTest, NoHandler_JustAssigns) {
    box_.Change = nullptr;
    box_.SetText("abc");
    EXPECT_EQ(box_.Text(), "abc");
}

TEST_F(TextBoxTest, AssignmentInsideChange_DoesNotRunItAgain) {
    box_.Change = [this] {
        ++changes_;
        box_.SetText("old");
    };
    box_.EditByUser("new", 3);
    EXPECT_EQ(changes_, 1);
    EXPECT_EQ(box_.Text(), "old");
    EXPECT_EQ(box_.SelStart, 0U);
}

TEST_F(TextBoxTest, ChangeThatFails_RunsAgainNextTime) {
    box_.Change = [this] {
        ++changes_;
        throw std::runtime_error("a failing handler");
    };
    EXPECT_THROW(box_.SetText("a"), std::runtime_error);
    EXPECT_EQ(box_.Text(), "a");
    EXPECT_THROW(box_.SetText("b"), std::runtime_error);
    EXPECT_EQ(changes_, 2);
}

struct SelectRow {
    const char* name;
    std::size_t start;
    std::size_t length;
    std::size_t kept_start;
    std::string selected;
};

class TextBoxSelectTest : public testing::TestWithParam<SelectRow> {};

TEST_P(TextBoxSelectTest, Row) {
    TextBox box;
    box.SetText("abcd");
    box.Select(GetParam().start, GetParam().length);
    EXPECT_EQ(box.SelStart, GetParam().kept_start);
    EXPECT_EQ(box.SelText(), GetParam().selected);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    TextBoxSelectTest,
    testing::Values(SelectRow{"Inside_IsSelected", 1, 2, 1, "bc"},
                    SelectRow{"Whole_IsSelected", 0, 4, 0, "abcd"},
                    SelectRow{"EndBeyondText_IsCut", 2, 9, 2, "cd"},
                    SelectRow{"StartBeyondText_IsAtItsEnd", 9, 9, 4, ""},
                    SelectRow{"LargestLength_IsCut", 1, std::string::npos, 1, "bcd"}),
    [](const auto& row) { return row.param.name; });

TEST_F(TextBoxTest, ReplacedSelection_LeavesTheCursorBehindIt) {
    box_.SetText("abcd");
    box_.Select(1, 2);
    box_.ReplaceSelection("XYZ");
    EXPECT_EQ(box_.Text(), "aXYZd");
    EXPECT_EQ(box_.SelStart, 4U);
    EXPECT_EQ(box_.SelLength, 0U);
    EXPECT_EQ(changes_, 2);
}

TEST_F(TextBoxTest, EmptySelectionReplaced_Inserts) {
    box_.SetText("ad");
    box_.Select(1, 0);
    box_.ReplaceSelection("bc");
    EXPECT_EQ(box_.Text(), "abcd");
}

TEST_F(TextBoxTest, SelectionReplacedByNothing_IsDeleted) {
    box_.SetText("abcd");
    box_.Select(1, 2);
    box_.ReplaceSelection("");
    EXPECT_EQ(box_.Text(), "ad");
    EXPECT_EQ(box_.SelStart, 1U);
}

TEST(ItemList, Items_AreKeptApart) {
    ItemList items;
    EXPECT_TRUE(items.empty());
    items.Add("Al");
    items.Add("");
    items.Add("Bo");
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0], "Al");
    EXPECT_EQ(items[1], "");
    EXPECT_EQ(items[2], "Bo");
    items.Clear();
    EXPECT_EQ(items.size(), 0U);
    items.Add("Cy");
    EXPECT_EQ(items[0], "Cy");
}

// Whether a view lies within a text, and so is no copy.
bool IsWithin(std::string_view view, const SharedText& text) {
    const std::string_view whole = text.View();
    return view.data() >= whole.data() && view.data() + view.size() <= whole.data() + whole.size();
}

TEST(ItemList, ItemsOfASource_AreViews) {
    const SharedText text("skipped|Al|Bo||Cy");
    ItemList items;
    items.Clear(text);
    for (const auto& [start, length] : {std::pair(8, 2), {11, 2}, {14, 0}, {15, 2}}) {
        items.Add(
            text.View().substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length)));
    }
    ASSERT_EQ(items.size(), 4U);
    EXPECT_EQ(items[0], "Al");
    EXPECT_EQ(items[1], "Bo");
    EXPECT_EQ(items[2], "");
    EXPECT_EQ(items[3], "Cy");
    EXPECT_TRUE(IsWithin(items[0], text));
    EXPECT_TRUE(IsWithin(items[3], text));
    EXPECT_EQ(items.Source().Revision(), text.Revision());
}

TEST(ItemList, ViewsOutliveTheTextsName) {
    ItemList items;
    {
        const SharedText text("Al and more that no string keeps in itself");
        items.Clear(text);
        items.Add(text.View().substr(0, 2));
    }
    EXPECT_EQ(items[0], "Al");
}

// Another distance, an earlier place, or another text: the items get a text of their own.
TEST(ItemList, ItemThatIsNoNextView_EndsTheSharing) {
    const SharedText text("Al,Bo,,Cy");
    const std::string_view view = text;
    const std::string other = "Dy";
    for (const std::string_view last :
         {view.substr(7, 2), view.substr(0, 2), view.substr(5, 1), std::string_view(other)}) {
        ItemList items;
        items.Clear(text);
        items.Add(view.substr(0, 2));
        items.Add(view.substr(3, 2));
        EXPECT_TRUE(IsWithin(items[1], text));
        items.Add(last);
        items.Add("Ed");
        EXPECT_EQ(items[0], "Al");
        EXPECT_EQ(items[1], "Bo");
        EXPECT_EQ(items[2], last);
        EXPECT_EQ(items[3], "Ed");
        EXPECT_FALSE(IsWithin(items[0], text));
        EXPECT_TRUE(items.Source().empty());
    }
}

TEST(ItemList, SecondItemBeforeTheFirst_EndsTheSharing) {
    const SharedText text("Al,Bo");
    ItemList items;
    items.Clear(text);
    items.Add(text.View().substr(3, 2));
    items.Add(text.View().substr(0, 2));
    EXPECT_EQ(items[0], "Bo");
    EXPECT_EQ(items[1], "Al");
}

TEST(ItemList, AddingToACopy_LeavesTheOther) {
    const SharedText text("Al,Bo,Cy");
    ItemList items;
    items.Clear(text);
    items.Add(text.View().substr(0, 2));
    const ItemList copy = items;
    EXPECT_EQ(copy.Identity(), items.Identity());
    items.Add(text.View().substr(3, 2));
    EXPECT_EQ(copy.size(), 1U);
    EXPECT_EQ(items.size(), 2U);
    EXPECT_EQ(items[1], "Bo");
}

class ListBoxTest : public testing::Test {
 protected:
    ListBoxTest() {
        for (const std::string_view item : {"A0", "A1", "A2", "A3"}) {
            list_.AddItem(item);
        }
    }

    ListBox list_;
};

TEST_F(ListBoxTest, AddedItem_RaisesTheItemsRevision) {
    const Revision before = list_.ItemsRevision();
    list_.AddItem("A4");
    EXPECT_GT(list_.ItemsRevision(), before);
    EXPECT_EQ(list_.Items()[4], "A4");
}

TEST_F(ListBoxTest, SelectedRows_AreSortedAndOnceEach) {
    const Revision before = list_.SelectionRevision();
    list_.Select({3, 0, 3});
    EXPECT_EQ(list_.Selected(), (Rows{0, 3}));
    EXPECT_GT(list_.SelectionRevision(), before);
    EXPECT_TRUE(list_.IsSelected(0));
    EXPECT_FALSE(list_.IsSelected(1));
    EXPECT_TRUE(list_.IsSelected(3));
    EXPECT_FALSE(list_.IsSelected(100));
}

TEST_F(ListBoxTest, NewSelection_ReplacesTheOld) {
    list_.Select({0, 1});
    list_.Select({2});
    EXPECT_EQ(list_.Selected(), Rows{2});
    list_.Select({});
    EXPECT_TRUE(list_.Selected().empty());
}

TEST_F(ListBoxTest, MissingRow_FailsWith5AndChangesNothing) {
    list_.Select({1});
    const Revision before = list_.SelectionRevision();
    EXPECT_EQ(FailureOf([&] { list_.Select({0, 4}); }), 5);
    EXPECT_EQ(list_.Selected(), Rows{1});
    EXPECT_EQ(list_.SelectionRevision(), before);
}

TEST_F(ListBoxTest, Clear_ForgetsItemsSelectionAndClick) {
    list_.Select({1});
    list_.ListIndex = 1;
    const Revision items = list_.ItemsRevision();
    const Revision selection = list_.SelectionRevision();
    list_.Clear();
    EXPECT_TRUE(list_.Items().empty());
    EXPECT_TRUE(list_.Selected().empty());
    EXPECT_EQ(list_.ListIndex, -1);
    EXPECT_GT(list_.ItemsRevision(), items);
    EXPECT_GT(list_.SelectionRevision(), selection);
}

TEST(StatusBar, Panels_CountFromOne) {
    StatusBar bar({"first", "tip 1"}, {"second", "tip 2"});
    EXPECT_EQ(bar.Panels(1).Text, "first");
    EXPECT_EQ(bar.Panels(2).ToolTip, "tip 2");
    bar.SetPanelText(2, "12 items");
    EXPECT_EQ(bar.Panels(1).Text, "first");
    EXPECT_EQ(bar.Panels(2).Text, "12 items");
}

TEST(StatusBar, ChangedText_IsToldOnce) {
    StatusBar bar({"", ""}, {"", ""});
    std::vector<std::string> told;
    bar.TextChanged = [&](std::size_t number, std::string_view text) {
        told.push_back(std::to_string(number) + " " + std::string(text));
    };
    bar.SetPanelText(1, "Ready");
    bar.SetPanelText(1, "Ready");
    bar.SetPanelText(2, "0 items");
    EXPECT_EQ(told, (std::vector<std::string>{"1 Ready", "2 0 items"}));
}

}  // namespace
}  // namespace orvik
