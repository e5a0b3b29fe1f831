#include "app/run_time_error.h"

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace orvik {
namespace {

struct FailureRow {
    Failure failure;
    int number;
    std::string description;
};

class RunTimeErrorTest : public testing::TestWithParam<FailureRow> {};

TEST_P(RunTimeErrorTest, Failure_HasItsNumberAndDescription) {
    const RunTimeError error(GetParam().failure);
    EXPECT_EQ(error.Number(), GetParam().number);
    EXPECT_EQ(error.what(), GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    RunTimeErrorTest,
    testing::Values(
        FailureRow{Failure::InvalidProcedureCall, 5, "Invalid procedure call or argument"},
        FailureRow{Failure::Overflow, 6, "Overflow"},
        FailureRow{Failure::OutOfMemory, 7, "Out of memory"},
        FailureRow{Failure::TypeMismatch, 13, "Type mismatch"},
        FailureRow{Failure::BadFileNumber, 52, "Bad file name or number"},
        FailureRow{Failure::FileNotFound, 53, "File not found"},
        FailureRow{Failure::FileAlreadyOpen, 55, "File already open"},
        FailureRow{Failure::DeviceError, 57, "Device I/O error"},
        FailureRow{Failure::DiskFull, 61, "Disk full"},
        FailureRow{Failure::InputPastEnd, 62, "Input past end of file"},
        FailureRow{Failure::PermissionDenied, 70, "Permission denied"},
        FailureRow{Failure::PathFileAccess, 75, "Path/File access error"},
        FailureRow{Failure::PathNotFound, 76, "Path not found"}),
    [](const auto& row) { return "Number" + std::to_string(row.param.number); });

class TrapFailureTest : public testing::Test {
 protected:
    template <class Statement>
    void RunGuarded(Statement&& statement) {
        TrapFailure(statement,
                    [this](const RunTimeError& failure) { reported_.push_back(failure.Number()); });
    }

    std::vector<int> reported_;
};

TEST_F(TrapFailureTest, StatementThatEndsWell_ReportsNothing) {
    bool ran = false;
    RunGuarded([&] { ran = true; });
    EXPECT_TRUE(ran);
    EXPECT_TRUE(reported_.empty());
}

TEST_F(TrapFailureTest, RunTimeFailure_IsReported) {
    RunGuarded([] { throw RunTimeError(Failure::FileNotFound); });
    EXPECT_EQ(reported_, std::vector{53});
}

TEST_F(TrapFailureTest, LackOfMemory_IsReportedAs7) {
    RunGuarded([] { throw std::bad_alloc(); });
    EXPECT_EQ(reported_, std::vector{7});
}

TEST_F(TrapFailureTest, TextTooLongForMemory_IsReportedAs7) {
    RunGuarded([] { throw std::length_error("too long"); });
    EXPECT_EQ(reported_, std::vector{7});
}

TEST_F(TrapFailureTest, LackOfMemory_IsPassedOnByAReportOfTheData) {
    EXPECT_THROW(TrapFailure([] { throw std::bad_alloc(); }, &PassLackOfMemory), std::bad_alloc);
    TrapFailure([] { throw RunTimeError(Failure::DiskFull); }, &PassLackOfMemory);
}

TEST_F(TrapFailureTest, OtherException_PassesThrough) {
    EXPECT_THROW(RunGuarded([] { throw std::logic_error("a mistake"); }), std::logic_error);
    EXPECT_TRUE(reported_.empty());
}

TEST_F(TrapFailureTest, FailureOfTheReport_PassesThrough) {
    EXPECT_THROW(TrapFailure([] { throw RunTimeError(Failure::DiskFull); },
                             [](const RunTimeError& failure) { throw failure; }),
                 RunTimeError);
}

}  // namespace
}  // namespace orvik
