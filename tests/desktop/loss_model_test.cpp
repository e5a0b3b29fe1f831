#include "desktop/book/loss_model.h"

#include <QAbstractItemModelTester>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace orvik {
namespace {

using book::Reason;
using book::What;

// A preview of which so many values are lost, and that many fields are carried.
std::shared_ptr<const MovePreview> Preview(int lost, int carried) {
    auto loaded = std::make_shared<book_cli::Loaded>();
    book::Book& book = loaded->Book;
    book.AddSource(std::make_unique<book::Source>("/far/a\n.vcf", ""));
    for (int i = 0; i < lost; ++i) {
        book.Told.Add({"TEL", "5", 0, 3, book::FieldNames::kNone, What::Lost, Reason::NotInTarget});
    }
    for (int i = 0; i < carried; ++i) {
        book.Told.Add({book.Keep("X-" + std::to_string(i)),
                       "6",
                       0,
                       4,
                       book::FieldNames::kNone,
                       What::Carried,
                       Reason::None});
    }
    auto preview = std::make_shared<MovePreview>();
    preview->Groups = book::GroupRemarks(book.Told);
    preview->Book = loaded;
    return preview;
}

std::string TextAt(const QModelIndex& index) {
    return index.data().toString().toStdString();
}

TEST(LossModel, ReasonsHoldTheirValues) {
    LossModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(model.rowCount(), 0);
    model.show(Preview(2, 1));
    ASSERT_EQ(model.rowCount(), 2);
    const QModelIndex lost = model.index(0, 0);
    EXPECT_EQ(TextAt(lost), "Lost: has no place in the target (2)");
    ASSERT_EQ(model.rowCount(lost), 2);
    EXPECT_EQ(TextAt(model.index(1, 0, lost)),
              "a\\x0A.vcf: line 3: lost: TEL \"5\": has no place in the target");
    // The row has no room for the folder.
    EXPECT_EQ(
        model.index(1, 0, lost).data(Qt::ToolTipRole).toString(),
        QStringLiteral("/far/a\\x0A.vcf: line 3: lost: TEL \"5\": has no place in the target"));
    EXPECT_EQ(TextAt(model.index(1, 0)), "Carried: X-0 (1)");
    EXPECT_FALSE(model.isMore(lost));
    model.show(nullptr);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(LossModel, ManyRowsComePageByPage) {
    LossModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    constexpr int kPage = LossModel::kPage;
    model.show(Preview(2 * kPage + 5, kPage));
    const QModelIndex lost = model.index(0, 0);
    ASSERT_EQ(model.rowCount(lost), kPage + 1);
    EXPECT_EQ(TextAt(model.index(kPage, 0, lost)), std::to_string(kPage + 5) + " more");
    EXPECT_TRUE(model.isMore(model.index(kPage, 0, lost)));
    model.showMore(model.index(0, 0, lost));
    ASSERT_EQ(model.rowCount(lost), kPage + 1);
    model.showMore(model.index(kPage, 0, lost));
    ASSERT_EQ(model.rowCount(lost), 2 * kPage + 1);
    EXPECT_EQ(TextAt(model.index(2 * kPage, 0, lost)), "5 more");
    model.showMore(model.index(2 * kPage, 0, lost));
    EXPECT_EQ(model.rowCount(lost), 2 * kPage + 5);
    // Reasons do, too.
    ASSERT_EQ(model.rowCount(), kPage + 1);
    EXPECT_EQ(TextAt(model.index(kPage, 0)), "1 more");
    EXPECT_EQ(model.rowCount(model.index(kPage, 0)), 0);
    model.showMore(model.index(kPage, 0));
    EXPECT_EQ(model.rowCount(), kPage + 1);
    EXPECT_EQ(TextAt(model.index(kPage, 0)), "Carried: X-" + std::to_string(kPage - 1) + " (1)");
}

}  // namespace
}  // namespace orvik
