// Lists on the screen follow their rows: through every order of changes, and with what a person has selected and
// scrolled to.
#include "desktop/stage.h"
#include "hosts/desktop/rows_model.h"

#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QScrollBar>
#include <gtest/gtest.h>
#include <random>

namespace ombrin::test {

namespace {

using desktop::RowsModel;

void ExpectSame(const RowsModel& model, const RowList& rows) {
    ASSERT_EQ(model.rowCount(), static_cast<int>(rows.Count()));
    for (int row = 0; row < model.rowCount(); ++row) {
        const RowId id = rows.At(static_cast<std::size_t>(row));
        ASSERT_EQ(model.RowAt(row), id) << row;
        ASSERT_EQ(model.data(model.index(row, 0), Qt::DisplayRole).toString().toStdString(), rows.Text(id));
        ASSERT_EQ(model.data(model.index(row, 1), Qt::DisplayRole).toString().toStdString(), rows.SubItem(id, 1));
    }
}

TEST(RowsModel, ShowsTheRowsThroughThousandsOfChangesInAnyOrder) {
    std::mt19937 random(7);
    const auto upTo = [&](std::size_t count) { return count == 0 ? 0 : random() % count; };
    for (const bool sorted : {false, true}) {
        RowList rows;
        RowsModel model(rows, 2, CodePage::Usual(), {nullptr, [] { return std::optional<Colour>(); }}, [] {});
        // Its complaints are Qt's, which fail the test.
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        const auto change = [&](int number) {
            const std::string text = "name" + std::to_string(random() % 50);
            const RowId any = rows.At(upTo(rows.Count()));
            const auto kind = random() % 8;
            if (kind == 7 && number % 20 == 0) return rows.Clear();
            if (!any || (kind < 3 && rows.Count() < 60)) {
                sorted ? rows.InsertSorted(text) : rows.Append(text);
                return;
            }
            if (kind < 5) return rows.Remove(any);
            if (kind == 5) return rows.SetSubItem(any, 1, text);
            rows.SetImage(any, static_cast<int>(random() % 4));
        };
        for (int frame = 0; frame < 800; ++frame) {
            // Mostly a few changes a frame; now and then more than are told one by one, or more than are noted at all.
            const std::size_t changes = frame % 200 == 60    ? 600
                                        : frame % 200 == 160 ? RowJournal::kBound + 100
                                                             : upTo(12);
            for (std::size_t i = 0; i < changes; ++i) change(frame);
            model.Apply();
            ExpectSame(model, rows);
            if (HasFatalFailure()) return;
        }
    }
}

TEST(RowsModel, ARowThatIsGoneIsEmptyUntilTheNextFrame) {
    RowList rows;
    const RowId ann = rows.Append("ann");
    RowsModel model(rows, 1, CodePage::Usual(), {nullptr, [] { return std::optional<Colour>(); }}, [] {});
    rows.Remove(ann);
    rows.Append("bob");
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.PositionOf(model.RowAt(0)), -1) << "a click on it is a click on nothing";
    EXPECT_FALSE(model.data(model.index(0, 0), Qt::DisplayRole).isValid());
}

TEST(Lists, WhatIsSelectedAndInViewStaysThroughUpdates) {
    constexpr int kUsers = 300;
    Stage stage{"English"};
    const auto user = [](int i) { return "u" + std::to_string(i); };
    const auto all = [&](const char* before, const char* after) {
        std::string message;
        for (int i = 0; i < kUsers; ++i) message += before + user(i) + after;
        return message;
    };
    auto& view = *qobject_cast<QAbstractItemView*>(stage.WidgetOf(stage.view.UserList));
    int top = 0;
    stage.LogsOn();
    stage.Sends("0:" + all("", ";1;") + "~");
    stage.ClicksRow(stage.view.UserList, 150);
    stage.Step([&] { top = view.indexAt({5, 5}).row(); });
    const std::pair<const char*, std::string> kUpdates[] = {
        {"status of some", "13:2:u1;;;2:u150;;;3:u200;;;~"},
        {"status of all, more than are told one by one", "13:" + all("2:", ";;;") + all("3:", ";;;") + "~"},
        {"rows behind", "0:zoe;1;yan;1;~15:zoe;~15:u299;~"},
        {"a row before that goes and one that comes", "15:u5;~0:new;1;~"},
    };
    for (const auto& [what, message] : kUpdates) {
        stage.Sends(message);
        stage.Step([&, what = what] {
            SCOPED_TRACE(what);
            ASSERT_EQ(view.selectionModel()->selectedRows().size(), 1);
            EXPECT_EQ(view.currentIndex().data().toString(), QStringLiteral("u147"));
            EXPECT_EQ(view.indexAt({5, 5}).row(), top);
        });
    }
    EXPECT_TRUE(stage.Run());
    EXPECT_GT(top, 0);
}

} // namespace

} // namespace ombrin::test
