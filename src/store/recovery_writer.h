// Keeps the open book on a thread of its own: who gives it a copy waits for no disk.

#pragma once

#include <condition_variable>
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

    // Keeps a copy, or removes what is kept. Of what is given while the disk is busy only the last
    // is done. When it is done what ended programs have left, and is not needed any more, goes too.
    // So do earlier copies: to free a large text takes time as well.
    using Replaced = std::vector<RecoveryStore::Left>;
    using Copies = std::vector<RecoveryCopy>;
    void Keep(RecoveryCopy copy, Replaced replaced = {}, Copies earlier = {});
    void Forget(Replaced replaced = {}, Copies earlier = {});

    // What ended programs have left, and is not removed yet, stays.
    void DropReplaced();

    // Waits until what was given is done or has failed.
    void Finish();
    [[nodiscard]] bool IsBusy();
    // Why the copy that was given last could not be written, empty if it could.
    [[nodiscard]] std::string Problem();

 private:
    struct Task {
        std::optional<RecoveryCopy> Copy;  // none: nothing is to be kept
        Copies Earlier;                    // they go with the task
    };
    void Give(Task task, Replaced replaced);
    void Append(Replaced replaced);
    void Run();
    // Returns what went wrong.
    [[nodiscard]] std::string Do(const Task& task);

    RecoveryStore& store_;
    std::mutex mutex_;
    std::condition_variable changed_;
    // All of this is guarded.
    std::optional<Task> next_;
    Replaced replaced_;
    bool busy_ = false;
    bool ends_ = false;
    std::string problem_;
    std::thread thread_;  // from the first task on
};

}  // namespace orvik
