// A table of hostile texts and all commands. In no cell is a byte of the text looked at more than a
// few dozen times, so that no text makes a command hang.

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/system_files.h"
#include "reliability/world.h"
#include "unit/temp_folder.h"
#include "work/hostile_texts.h"
#include "work/main_commands.h"
#include "work/work_limits.h"

namespace orvik::test {
namespace {

constexpr std::size_t kSize = 32000;
constexpr std::size_t kPrinted = 10;

struct Cell {
    std::string Name;
    std::size_t Size = 0;
    Work Did;
    std::size_t Shown = 0;
};

Cell Try(const HostileText& text, Holding holding, const MainCommand& command) {
    const TempFolder folder;
    SystemFiles files(false);
    World world(folder.Path(), files);
    world.module.textSep = text.Separator;
    Put(world, text.Text, holding, command.File);
    const std::size_t shown = world.person.shown;
    StartCounting();
    try {
        command.Act(world);
    } catch (const ProgramEnded&) {
        // What Exit does.
    }
    const Work did = WorkDone();
    return {text.Name + ", " + std::string(NameOf(holding)) + ": " + command.Name,
            text.Text.size(),
            did,
            world.person.shown - shown};
}

// Prints the cells in which most was done for each byte.
void PrintWorst(std::vector<Cell>& cells, const char* what, std::size_t Work::*done) {
    const auto per_byte = [done](const Cell& cell) {
        return PerByte(cell.Did.*done, LongestText(cell.Size, cell.Did));
    };
    const std::size_t printed = std::min(kPrinted, cells.size());
    std::partial_sort(cells.begin(),
                      cells.begin() + static_cast<std::ptrdiff_t>(printed),
                      cells.end(),
                      [&](const Cell& a, const Cell& b) { return per_byte(a) > per_byte(b); });
    std::printf("Most %s for each byte:\n", what);
    for (std::size_t i = 0; i < printed; ++i) {
        std::printf("%6.1f  %s\n", per_byte(cells[i]), cells[i].Name.c_str());
    }
}

TEST(WorkTest, NoTextMakesACommandHang) {
    std::vector<Cell> cells;
    const std::vector<MainCommand> commands = MainCommands();
    for (const HostileText& text : HostileTexts(kSize)) {
        for (const Holding holding : {Holding::Native, Holding::List, Holding::EditText}) {
            for (const MainCommand& command : commands) {
                cells.push_back(Try(text, holding, command));
                const Cell& cell = cells.back();
                EXPECT_EQ(Excess(cell.Size, cell.Did), "") << cell.Name;
                EXPECT_LE(cell.Shown, kMostShown) << cell.Name;
                EXPECT_LE(cell.Shown, kMostPerByte * cell.Size + kMostShownAtAll) << cell.Name;
            }
        }
    }
    std::printf("%zu cells\n", cells.size());
    PrintWorst(cells, "bytes looked at", &Work::Bytes);
    PrintWorst(cells, "steps", &Work::Steps);
}

// What is counted is the commands' work, and it is the same each time.
TEST(WorkTest, EachByteThatACommandReadsCounts) {
    const MainCommand convert{
        "", {}, [](World& world) { world.Click(world.program.form1, "mnuConvert_Click"); }};
    const std::vector<HostileText> texts = HostileTexts(kSize);
    const HostileText& book = texts.at(2);
    const Cell once = Try(book, Holding::Native, convert);
    EXPECT_GE(once.Did.Bytes, book.Text.size());
    // The LDIF is made when somebody reads it, and piece by piece.
    EXPECT_GT(once.Did.Largest, 0U);
    EXPECT_GT(once.Shown, 0U);
    const Cell again = Try(book, Holding::Native, convert);
    EXPECT_EQ(once.Did.Bytes, again.Did.Bytes);
    EXPECT_EQ(once.Did.Steps, again.Did.Steps);
}

}  // namespace
}  // namespace orvik::test
