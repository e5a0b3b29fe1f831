// Keeps the open book on a thread of its own: who gives it a copy waits for no disk.

#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "store/recovery_store.h"

namespace orvik {

class RecoveryWriter {
 public:
    // store must outlive the writer, and nobody else keeps or forgets.
    explicit RecoveryWriter(RecoveryStore& store) : store_(store) {}
    RecoveryWriter(const RecoveryWriter&) = delete;
    RecoveryWriter& operator=(const RecoveryWriter&) = delete;
    RecoveryWriter(RecoveryWriter&&) = delete;
    RecoveryWriter& operator=(RecoveryWriter&&) = delete;
    // Finishes.
    ~RecoveryWriter();

    // Keeps a copy of the open book, or removes what is kept of it. Of what is given while the disk
    // is busy only the last is done. When it is done what ended programs have left, and is not
    // needed any more, goes too. So do earlier copies: to free a large text takes time as well.
    using Replaced = std::vector<RecoveryStore::Left>;
    using Copies = std::vector<RecoveryCopy>;
    void Keep(RecoveryCopy copy, Replaced replaced = {}, Copies earlier = {});
    void Forget(Replaced replaced = {}, Copies earlier = {});

    // As the store's. All of these are done, in the order in which they are given. A copy that
    // cannot be set aside is tried again by Retry.
    void SetAside(int number, RecoveryCopy copy, Replaced replaced = {}, Copies earlier = {});
    void TakeBack(int number);
    void LeaveAside(int number);
    void ForgetAside();
    void Retry();
    // Whether a copy waits to be set aside.
    [[nodiscard]] bool SetsAside();

    // What the copy that was given last replaces, and is not removed yet, stays.
    void DropReplaced();

    // Waits until what was given is done or has failed.
    void Finish();
    [[nodiscard]] bool IsBusy();
    // Why a copy could not be set aside, or the last one of the open book not be kept; else empty.
    [[nodiscard]] std::string Problem();

 private:
    enum class Act { Keep, Forget, SetAside, TakeBack, LeaveAside, ForgetAside };
    struct Task {
        Act What = Act::Forget;
        int Number = 0;
        std::optional<RecoveryCopy> Copy = {};
        Replaced Goes = {};
        Copies Earlier = {};  // they go with the task
        bool Failed = false;
    };
    void Give(Task task);
    // What a later task makes needless of the last one joins it.
    void TakePlace(Task& task);
    void Run();
    // Returns what went wrong.
    [[nodiscard]] std::string Do(const Task& task);
    void Done(Task task, std::string problem);
    static void Append(Replaced& all, Replaced replaced);

    RecoveryStore& store_;
    std::mutex mutex_;
    std::condition_variable changed_;
    // All of this is guarded.
    std::deque<Task> tasks_;
    std::deque<Task> failed_;  // could not be set aside
    Replaced replaced_;        // by a copy of the open book that could not be kept
    bool busy_ = false;
    bool ends_ = false;
    std::string problem_;        // of the open book
    std::string aside_problem_;  // while any has failed
    std::thread thread_;         // from the first task on
};

}  // namespace orvik
