// Books that gave way to others before they were saved.

#include <filesystem>

#include "app/run_time_error.h"
#include "unit/process_limits.h"
#include "unit/store/recovery_store_fixture.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

using RecoveryAsideTest = test::RecoveryStoreTest;

TEST_F(RecoveryAsideTest, WhatWasSetAside_StaysBesideTheOpenBook) {
    {
        RecoveryStore store(files);
        store.Keep(CopyOf("early", 10));
        store.SetAside(1, CopyOf("first", 11));
        // Nothing was kept of the second one yet.
        store.SetAside(2, CopyOf("second", 12));
        store.Keep(CopyOf("open", 13));
        EXPECT_THAT(Offered(), IsEmpty());
        EXPECT_THAT(Texts(store.LeftBooks()), IsEmpty());
        store.SetAside(1, CopyOf("first again", 14));
        RecoveryStore(files).RemoveLeft();
    }
    EXPECT_THAT(Offered(), ElementsAre("first again", "open", "second"));
}

TEST_F(RecoveryAsideTest, ForgettingTheOpenBook_LeavesWhatWasSetAside) {
    {
        RecoveryStore store(files);
        store.SetAside(1, CopyOf("aside"));
        store.Keep(CopyOf("open"));
        store.Forget();
    }
    EXPECT_THAT(Offered(), ElementsAre("aside"));
}

TEST_F(RecoveryAsideTest, WhatIsTakenBack_IsTheOpenBook) {
    {
        RecoveryStore store(files);
        store.TakeBack(1);
        store.SetAside(1, CopyOf("aside"));
        store.Keep(CopyOf("open"));
        store.TakeBack(1);
        EXPECT_THAT(Files(), testing::SizeIs(3));
        store.TakeBack(1);
        store.Forget();
    }
    EXPECT_FALSE(fs::exists(root));
}

TEST_F(RecoveryAsideTest, WhatWasSetAside_CanBeLeftOrForgotten) {
    RecoveryStore store(files);
    store.Keep(CopyOf("one"));
    store.SetAside(1, CopyOf("one"));
    store.SetAside(2, CopyOf("two"));
    store.SetAside(3, CopyOf("three"));
    store.Keep(CopyOf("open"));
    store.LeaveAside(1);
    store.LeaveAside(1);
    EXPECT_THAT(Offered(), ElementsAre("one"));
    store.ForgetAside();
    EXPECT_THAT(Files(), testing::SizeIs(6));
    EXPECT_THAT(Offered(), ElementsAre("one"));
}

TEST_F(RecoveryAsideTest, ABookThatCannotBeSetAside_LeavesWhatWasKeptOfIt) {
    {
        RecoveryStore store(files);
        store.Keep(CopyOf("early"));
        {
            const test::FileSizeLimit full(0);
            EXPECT_THROW(store.SetAside(1, CopyOf("late")), RunTimeError);
        }
        store.Keep(CopyOf("open"));
    }
    EXPECT_THAT(Offered(), testing::UnorderedElementsAre("early", "open"));
}

}  // namespace
}  // namespace orvik
