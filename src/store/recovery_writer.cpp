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
    Give({.What = Act::Keep,
          .Copy = std::move(copy),
          .Goes = std::move(replaced),
          .Earlier = std::move(earlier)});
}

void RecoveryWriter::Forget(Replaced replaced, Copies earlier) {
    Give({.What = Act::Forget, .Goes = std::move(replaced), .Earlier = std::move(earlier)});
}

void RecoveryWriter::SetAside(int number, RecoveryCopy copy, Replaced replaced, Copies earlier) {
    Give({.What = Act::SetAside,
          .Number = number,
          .Copy = std::move(copy),
          .Goes = std::move(replaced),
          .Earlier = std::move(earlier)});
}

void RecoveryWriter::TakeBack(int number) {
    Give({.What = Act::TakeBack, .Number = number});
}

void RecoveryWriter::LeaveAside(int number) {
    Give({.What = Act::LeaveAside, .Number = number});
}

void RecoveryWriter::ForgetAside() {
    Give({.What = Act::ForgetAside});
}

void RecoveryWriter::Append(Replaced& all, Replaced replaced) {
    std::move(replaced.begin(), replaced.end(), std::back_inserter(all));
}

void RecoveryWriter::TakePlace(Task& task) {
    const bool of_open = task.What == Act::Keep || task.What == Act::Forget;
    if (tasks_.empty() || (!of_open && task.What != Act::SetAside)) {
        return;
    }
    Task& last = tasks_.back();
    // What was to be forgotten must not be what is set aside.
    if (last.What != Act::Keep && (last.What != Act::Forget || !of_open)) {
        return;
    }
    Append(task.Goes, std::move(last.Goes));
    std::move(last.Earlier.begin(), last.Earlier.end(), std::back_inserter(task.Earlier));
    if (last.Copy) {
        task.Earlier.push_back(std::move(*last.Copy));
    }
    tasks_.pop_back();
}

void RecoveryWriter::Give(Task task) {
    {
        const std::lock_guard lock(mutex_);
        TakePlace(task);
        tasks_.push_back(std::move(task));
        if (!thread_.joinable()) {
            try {
                thread_ = std::thread([this] { Run(); });
            } catch (const std::system_error& error) {
                problem_ = error.code().message();
                tasks_.clear();
            }
        }
    }
    changed_.notify_all();
}

void RecoveryWriter::Retry() {
    {
        const std::lock_guard lock(mutex_);
        std::move(failed_.rbegin(), failed_.rend(), std::front_inserter(tasks_));
        failed_.clear();
    }
    changed_.notify_all();
}

bool RecoveryWriter::SetsAside() {
    const std::lock_guard lock(mutex_);
    return busy_ || !failed_.empty() ||
           std::any_of(tasks_.begin(), tasks_.end(), [](const Task& task) {
               return task.What == Act::SetAside;
           });
}

void RecoveryWriter::DropReplaced() {
    const std::lock_guard lock(mutex_);
    replaced_.clear();
}

void RecoveryWriter::Finish() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return tasks_.empty() && !busy_; });
}

bool RecoveryWriter::IsBusy() {
    const std::lock_guard lock(mutex_);
    return !tasks_.empty() || busy_;
}

std::string RecoveryWriter::Problem() {
    const std::lock_guard lock(mutex_);
    return failed_.empty() ? problem_ : aside_problem_;
}

void RecoveryWriter::Run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return !tasks_.empty() || ends_; });
        if (tasks_.empty()) {
            return;
        }
        Task task = std::move(tasks_.front());
        tasks_.pop_front();
        // What failed before is not the open book any more.
        if (task.What == Act::Keep || task.What == Act::Forget ||
            (task.What == Act::SetAside && !task.Failed)) {
            Append(task.Goes, std::exchange(replaced_, {}));
        }
        busy_ = true;
        lock.unlock();
        std::string problem = Do(task);
        if (problem.empty()) {
            for (const RecoveryStore::Left& left : task.Goes) {
                store_.Remove(left);
            }
            task.Goes.clear();
        }
        if (problem.empty() || task.What != Act::SetAside) {
            task.Copy.reset();
        }
        task.Earlier.clear();
        lock.lock();
        Done(std::move(task), std::move(problem));
        busy_ = false;
        changed_.notify_all();
    }
}

void RecoveryWriter::Done(Task task, std::string problem) {
    if (task.What == Act::SetAside) {
        if (!problem.empty()) {
            aside_problem_ = std::move(problem);
            task.Failed = true;
            failed_.push_back(std::move(task));
        }
        return;
    }
    if (task.What == Act::Keep || task.What == Act::Forget) {
        Append(replaced_, std::move(task.Goes));
        problem_ = std::move(problem);
        return;
    }
    // What could not be set aside is the open book now, or nobody wants it.
    const auto gone =
        std::stable_partition(failed_.begin(), failed_.end(), [&](const Task& failed) {
            return task.What != Act::ForgetAside && failed.Number != task.Number;
        });
    for (auto failed = gone; failed != failed_.end() && task.What == Act::TakeBack; ++failed) {
        Append(replaced_, std::move(failed->Goes));
    }
    failed_.erase(gone, failed_.end());
}

std::string RecoveryWriter::Do(const Task& task) {
    std::string problem;
    TrapFailure(
        [&] {
            switch (task.What) {
                case Act::Keep:
                    store_.Keep(*task.Copy);
                    break;
                case Act::Forget:
                    store_.Forget();
                    break;
                case Act::SetAside:
                    store_.SetAside(task.Number, *task.Copy);
                    break;
                case Act::TakeBack:
                    store_.TakeBack(task.Number);
                    break;
                case Act::LeaveAside:
                    store_.LeaveAside(task.Number);
                    break;
                case Act::ForgetAside:
                    store_.ForgetAside();
                    break;
            }
        },
        [&](const RunTimeError& failure) { problem = failure.what(); });
    return problem;
}

}  // namespace orvik
