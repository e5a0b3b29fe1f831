#include "desktop/book/book_worker.h"

#include <QSignalSpy>
#include <QStringList>

#include <gtest/gtest.h>

namespace orvik {
namespace {

TEST(BookWorker, RunsOnePieceOfWorkAtATime) {
    BookWorker worker;
    QSignalSpy ended(&worker, &BookWorker::ended);
    QStringList seen;
    QObject::connect(
        &worker, &BookWorker::progressed, &worker, [&](const QString& step, int) { seen << step; });
    bool is_done = false;
    ASSERT_TRUE(worker.run(
        QStringLiteral("Counting"),
        [](const BookWorker::Watch& watch) { watch.Begin("to ten"); },
        [&] { is_done = true; }));
    EXPECT_TRUE(worker.isBusy());
    EXPECT_FALSE(worker.run(
        QStringLiteral("Else"), [](const BookWorker::Watch&) {}, [] {}));
    ASSERT_TRUE(ended.wait());
    EXPECT_TRUE(is_done);
    EXPECT_FALSE(worker.isBusy());
    EXPECT_EQ(ended[0][0].toBool(), true);
}

TEST(BookWorker, DoesNothingAfterACancel) {
    BookWorker worker;
    QSignalSpy ended(&worker, &BookWorker::ended);
    bool is_done = false;
    worker.run(
        QStringLiteral("Counting"),
        [](const BookWorker::Watch& watch) {
            while (true) {
                watch.Tell(1, 2);
            }
        },
        [&] { is_done = true; });
    worker.cancel();
    ASSERT_TRUE(ended.wait());
    EXPECT_FALSE(is_done);
    EXPECT_EQ(ended[0][0].toBool(), false);
    EXPECT_EQ(ended[0][1].toString(), QString());
}

}  // namespace
}  // namespace orvik
