// Undo and redo beside a slow twin that keeps whole copies of everything.

#include <random>
#include <string>
#include <vector>

#include "app/undo.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::Items;

// What a user sees of the book.
struct Book {
    std::string Text;
    std::string Mode;
    std::string Caption;
    std::string Box;
    Items Addresses;
    Items Nicknames;
    std::vector<std::size_t> Selected;
    bool operator==(const Book&) const = default;
};

class UndoTwinTest : public test::CommandTest {
 protected:
    [[nodiscard]] Book Present() const {
        return {std::string(module1.WorkText),
                module1.TextMode,
                form1.Caption,
                std::string(form1.Text1.Text()),
                ItemsOf(form1.List1),
                ItemsOf(form1.List2),
                form1.List1.Selected()};
    }
    void Run(const std::function<void()>& command) {
        const Book before = Present();
        module1.history.Run("Command", command);
        if (before.Text != Present().Text) {
            undo_.push_back(before);
            if (undo_.size() > UndoHistory::kMostSteps) {
                undo_.erase(undo_.begin());
            }
            redo_.clear();
        }
    }
    void Undo() { Step(undo_, redo_, &UndoHistory::Undo); }
    void Redo() { Step(redo_, undo_, &UndoHistory::Redo); }

 private:
    void Step(std::vector<Book>& from, std::vector<Book>& to, void (UndoHistory::*step)()) {
        const Book before = Present();
        (module1.history.*step)();
        if (from.empty()) {
            EXPECT_EQ(Present(), before);
            return;
        }
        EXPECT_EQ(Present(), from.back());
        to.push_back(before);
        from.pop_back();
    }

    std::vector<Book> undo_;
    std::vector<Book> redo_;
};

TEST_F(UndoTwinTest, StepsWithEditsBetween_BringBackWhatTheTwinKept) {
    std::minstd_rand random(1);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same run each time
    int number = 0;
    const auto edit = [&] {
        const std::string name = std::to_string(++number);
        switch (random() % 6) {
            case 0:
                module1.TextMode = mode::kAscii;
                module1.WorkText = "\"N" + name + "\" <A" + name + ">\r\nB\r\n";
                module1.RefreshLists();
                break;
            case 1:  // the text box holds the working text
                form1.Text1.SetText(module1.WorkText);
                break;
            case 2:
                form1.Text1.SetText("A" + name + "\r\n-nick-\r\nN\r\n");
                module1.TextMode = mode::kNative;
                module1.RefreshLists();
                break;
            case 3:  // rows with a line feed of their own are no views of the text
                module1.WorkText = "A\n" + name + "\r\nB\r\n-nick-\r\n\r\n\r\n";
                module1.TextMode = mode::kNative;
                module1.RefreshLists();
                break;
            case 4:
                form1.List1.AddItem(name);
                form1.List1.Select({form1.List1.Items().size() - 1});
                break;
            default:
                form1.Caption = name;
                module1.WorkText = std::string(random() % 5000, 'x');
        }
    };
    for (int i = 0; i < 60; ++i) {
        Run(edit);
    }
    for (int round = 0; round < 50; ++round) {
        const auto steps = random() % 5;
        for (unsigned i = 0; i <= steps; ++i) {
            Undo();
        }
        for (unsigned i = 0; i < random() % 4; ++i) {
            Redo();
        }
        if (random() % 2 == 0) {
            Run(edit);
            Run(edit);
        }
    }
    for (int i = 0; i < 55; ++i) {
        Undo();
    }
    for (int i = 0; i < 55; ++i) {
        Redo();
    }
}

TEST_F(UndoTwinTest, Step_CopiesNoText) {
    const std::string line(1000, 'a');
    module1.WorkText = line + "\r\n-nick-\r\n" + line + "\r\n";
    module1.TextMode = mode::kNative;
    module1.RefreshLists();
    form1.Text1.Restore(module1.WorkText);
    const char* const place = module1.WorkText.View().data();
    module1.history.Run("Command", [this] { form1.Text1.SetText(""); });
    module1.history.Undo();
    EXPECT_EQ(module1.WorkText.View().data(), place);
    EXPECT_EQ(form1.Text1.Text().View().data(), place);
    EXPECT_EQ(form1.List1.Items()[0].data(), place);
    EXPECT_EQ(form1.List2.Items().Source().View().data(), place);
}

}  // namespace
}  // namespace orvik
