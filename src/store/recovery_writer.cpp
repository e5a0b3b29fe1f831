#include "store/recovery_writer.h"

#include <algorithm>
#include <iterator>
#include <system_error>
#include <utility>

#include "app/run_time_error.h"

namespace orvik {

RecoveryWriter::~RecoveryWriter() {
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void RecoveryWriter::Keep(RecoveryCopy copy, Replaced replaced, Copies earlier) {
    Give({std::move(copy), std::move(earlier)}, std::move(replaced));
}

void RecoveryWriter::Forget(Replaced replaced, Copies earlier) {
    Give({{}, std::move(earlier)}, std::move(replaced));
}

void RecoveryWriter::Append(Replaced replaced) {
    replaced_.insert(replaced_.end(),
                     std::make_move_iterator(replaced.begin()),
                     std::make_move_iterator(replaced.end()));
}

void RecoveryWriter::Give(Task task, Replaced replaced) {
    {
        const std::lock_guard lock(mutex_);
        if (next_) {
            std::move(
                next_->Earlier.begin(), next_->Earlier.end(), std::back_inserter(task.Earlier));
            if (next_->Copy) {
                task.Earlier.push_back(std::move(*next_->Copy));
            }
        }
        next_ = std::move(task);
        Append(std::move(replaced));
        if (!thread_.joinable()) {
            try {
                thread_ = std::thread([this] { Run(); });
            } catch (const std::system_error& error) {
                problem_ = error.code().message();
                next_.reset();
            }
        }
    }
    changed_.notify_all();
}

void RecoveryWriter::DropReplaced() {
    const std::lock_guard lock(mutex_);
    replaced_.clear();
}

void RecoveryWriter::Finish() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !next_ && !busy_; });
}

bool RecoveryWriter::IsBusy() {
    const std::lock_guard lock(mutex_);
    return next_ || busy_;
}

std::string RecoveryWriter::Problem() {
    const std::lock_guard lock(mutex_);
    return problem_;
}

void RecoveryWriter::Run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return next_ || ends_; });
        if (!next_) {
            return;
        }
        std::optional<Task> task = std::exchange(next_, std::nullopt);
        Replaced replaced = std::exchange(replaced_, {});
        busy_ = true;
        lock.unlock();
        std::string problem = Do(*task);
        if (problem.empty()) {
            for (const RecoveryStore::Left& left : replaced) {
                store_.Remove(left);
            }
            replaced.clear();
        }
        task.reset();
        lock.lock();
        Append(std::move(replaced));
        problem_ = std::move(problem);
        busy_ = false;
        changed_.notify_all();
    }
}

std::string RecoveryWriter::Do(const Task& task) {
    std::string problem;
    TrapFailure(
        [&] {
            if (task.Copy) {
                store_.Keep(*task.Copy);
            } else {
                store_.Forget();
            }
        },
        [&](const RunTimeError& failure) { problem = failure.what(); });
    return problem;
}

}  // namespace orvik
