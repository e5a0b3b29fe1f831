#include "program/program.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "unit/mock_platform.h"

namespace orvik {
namespace {

using testing::Each;

// What a window can read of the shared state.
struct Seen {
    explicit Seen(const Module1& m)
        : Texts{std::string(m.WorkText),
                m.TextMode,
                std::string(m.EmailBlock),
                std::string(m.NickBlock),
                m.textSep,
                std::string(m.LdifText),
                m.MsgAnswer,
                m.OldCaption,
                std::string(m.TextBeforeOpen),
                m.PimSep},
          Numbers{static_cast<int>(m.ItemCount),
                  m.TextSepChoice,
                  m.OpenMode,
                  m.AddressCount,
                  m.AutomationStep},
          Flags{m.EditMode,
                m.StartingUp,
                m.JustStarted,
                m.AutoExtract,
                m.CancelRequested,
                !m.FirstPimRun} {}
    std::vector<std::string> Texts;
    std::vector<int> Numbers;
    std::vector<bool> Flags;
};

// A window that keeps what it read while it was made.
template <class Kind>
class Recording : public Kind {
 public:
    explicit Recording(Module1& module) : Recording(module, Seen(module)) {}
    Seen seen;

 private:
    Recording(Module1& module, const Seen& before) : Kind(module), seen(before) {}
};

// The members of a program, in the order of its declaration.
struct RecordingProgram {
    RecordingProgram(Platform& platform, FileSystem& files)
        : module(
              platform, files, {form1, form2, form3, form4, form5, form6, frm_about, frm_select}) {}

    [[nodiscard]] std::vector<Seen> AllSeen() const {
        return {form1.seen,
                form2.seen,
                form3.seen,
                form4.seen,
                form5.seen,
                form6.seen,
                frm_about.seen,
                frm_select.seen};
    }

    Module1 module;
    Recording<Form1> form1{module};
    Recording<Form2> form2{module};
    Recording<Form3> form3{module};
    Recording<Form4> form4{module};
    Recording<Form5> form5{module};
    Recording<Form6> form6{module};
    Recording<FrmAbout> frm_about{module};
    Recording<FrmSelect> frm_select{module};
};

// In memory full of other bytes, so that a variable that is read too early is seen to be.
TEST(Program, EveryWindow_FindsTheSharedStateReady) {
    testing::StrictMock<test::MockPlatform> platform;
    SystemFiles files;
    const std::size_t size = sizeof(RecordingProgram);
    auto* const memory =
        static_cast<std::byte*>(::operator new(size, std::align_val_t(alignof(RecordingProgram))));
    std::fill_n(memory, size, std::byte{0xA5});
    auto* const program =
        std::construct_at(reinterpret_cast<RecordingProgram*>(memory), platform, files);
    for (const Seen& seen : program->AllSeen()) {
        EXPECT_THAT(seen.Texts, Each(""));
        EXPECT_THAT(seen.Numbers, Each(0));
        EXPECT_THAT(seen.Flags, Each(false));
    }
    std::destroy_at(program);
    ::operator delete(memory, std::align_val_t(alignof(RecordingProgram)));
}

// Members are made in the order in which they are declared, and stand in memory in that order.
TEST(Program, SharedState_IsMadeBeforeEveryWindow) {
    testing::StrictMock<test::MockPlatform> platform;
    SystemFiles files;
    Program program(platform, files);
    for (Form* const form : program.Forms()) {
        EXPECT_LT(static_cast<void*>(&program.module), dynamic_cast<void*>(form)) << form->Name();
    }
}

TEST(Program, Forms_AreTheWindowsThatTheModuleKnows) {
    testing::StrictMock<test::MockPlatform> platform;
    SystemFiles files;
    Program program(platform, files);
    const Module1& module = program.module;
    EXPECT_EQ(program.Forms(),
              (std::vector<Form*>{&module.form1,
                                  &module.form2,
                                  &module.form3,
                                  &module.form4,
                                  &module.form5,
                                  &module.form6,
                                  &module.frm_about,
                                  &module.frm_select}));
}

}  // namespace
}  // namespace orvik
