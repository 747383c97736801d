// What is kept of the rows, and the pending changes over them, against plain lists.
#include "apps/host/odbc/RowWindows.h"

#include <gtest/gtest.h>

#include <random>

#include "apps/host/odbc/PendingRows.h"

namespace veygrid {
namespace {

std::u16string Text(long number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

class CountedReader final : public WindowReader {
  public:
    long reads = 0;
    long rows = 100'000;
    std::size_t textLength = 0;
    long CountRows() override { return rows; }
    std::vector<Record> Read(long first, long count) override {
        ++reads;
        std::vector<Record> records;
        for (long row = first; row < first + count; ++row) {
            records.push_back({Text(row) + std::u16string(textLength, u'x')});
        }
        return records;
    }
};

TEST(RowWindowsTest, EachRowIsTheOneAskedFor) {
    CountedReader reader;
    RowWindows windows(reader);
    std::mt19937 random(5);
    for (int i = 0; i < 20'000; ++i) {
        const long row = 1 + static_cast<long>(random() % 100'000);
        ASSERT_EQ(windows.At(row, reader.rows, 1)[0], CellValue(Text(row)));
        ASSERT_LE(windows.WindowCount(), RowWindows::WindowLimit);
    }
}

TEST(RowWindowsTest, AWindowIsReadOnceWhileItIsKept) {
    CountedReader reader;
    RowWindows windows(reader);
    for (int again = 0; again < 3; ++again) {
        for (long row = 1; row <= RowWindows::RowsOfWindow * 10; ++row) {
            windows.At(row, reader.rows, 1);
        }
    }
    EXPECT_EQ(reader.reads, 10);
    windows.Clear();
    EXPECT_EQ(windows.Bytes(), 0u);
    windows.At(1, reader.rows, 1);
    EXPECT_EQ(reader.reads, 11);
}

TEST(RowWindowsTest, TheWindowUsedLeastRecentlyGoesFirst) {
    CountedReader reader;
    RowWindows windows(reader);
    const auto use = [&](std::size_t window) {
        windows.At(static_cast<long>(window) * RowWindows::RowsOfWindow + 1, reader.rows, 1);
    };
    for (std::size_t i = 0; i < RowWindows::WindowLimit; ++i) {
        use(i);
    }
    use(0);
    use(RowWindows::WindowLimit);
    const long before = reader.reads;
    use(0);
    EXPECT_EQ(reader.reads, before);
    use(1);
    EXPECT_EQ(reader.reads, before + 1);
}

TEST(RowWindowsTest, LongTextsLeaveFewerWindowsAndNeverMoreBytesThanAllowed) {
    CountedReader reader;
    reader.textLength = 5000;
    RowWindows windows(reader);
    for (long row = 1; row < 20'000; row += 64) {
        windows.At(row, reader.rows, 1);
        ASSERT_LE(windows.Bytes(), RowWindows::ByteLimit);
    }
    EXPECT_LT(windows.WindowCount(), RowWindows::WindowLimit);
}

class ListSource final : public RecordSource {
  public:
    explicit ListSource(long rows) {
        for (long row = 1; row <= rows; ++row) {
            m_records.push_back({Text(row), std::nullopt});
        }
    }
    const std::vector<ColumnInfo>& Columns() const override { return m_columns; }
    long RowCount() const override { return static_cast<long>(m_records.size()); }
    const Record& At(long row) override { return m_records.at(static_cast<std::size_t>(row - 1)); }

  private:
    std::vector<ColumnInfo> m_columns{2};
    std::vector<Record> m_records;
};

TEST(PendingRowsTest, PlacesOutsideChangeNothing) {
    ListSource source(2);
    PendingRows rows(source);
    for (const auto& [row, col] : std::vector<std::pair<long, int>>{
             {0, 1}, {3, 1}, {1, 0}, {1, 3}, {-2147483647L, -5}, {2147483647L, 2147483647}}) {
        EXPECT_FALSE(rows.SetPending(row, col, u"x"));
        EXPECT_EQ(rows.Shown(row, col), std::nullopt);
    }
    EXPECT_FALSE(rows.DeleteRow(0));
    EXPECT_FALSE(rows.DeleteRow(3));
    EXPECT_FALSE(rows.HasPending());
}

TEST(PendingRowsTest, RandomWorkEqualsAPlainList) {
    struct Row {
        Record shown;
        bool appended;
    };
    ListSource source(200);
    PendingRows rows(source);
    std::vector<Row> model;
    for (long row = 1; row <= 200; ++row) {
        model.push_back({source.At(row), false});
    }
    std::mt19937 random(9);
    for (int i = 0; i < 3000; ++i) {
        const std::size_t at = model.empty() ? 0 : random() % model.size();
        const long row = static_cast<long>(at) + 1;
        const auto choice = random() % 10;
        if (choice == 0) {
            ASSERT_EQ(rows.AppendRow(), static_cast<long>(model.size()) + 1);
            model.push_back({Record(2), true});
        } else if (choice == 1 && !model.empty()) {
            ASSERT_TRUE(rows.DeleteRow(row));
            model.erase(model.begin() + static_cast<std::ptrdiff_t>(at));
        } else if (!model.empty()) {
            const std::size_t col = random() % 2;
            const std::u16string text = Text(static_cast<long>(random() % 50));
            ASSERT_TRUE(rows.SetPending(row, static_cast<int>(col) + 1, text));
            model[at].shown[col] = text;
        }
        ASSERT_EQ(rows.RowCount(), static_cast<long>(model.size()));
        const std::size_t look = model.empty() ? 0 : random() % model.size();
        for (std::size_t col = 0; col < 2 && !model.empty(); ++col) {
            ASSERT_EQ(rows.Shown(static_cast<long>(look) + 1, static_cast<int>(col) + 1),
                      model[look].shown[col]);
            ASSERT_EQ(rows.IsAppended(static_cast<long>(look) + 1), model[look].appended);
        }
    }
    rows.ClearPending();
    EXPECT_EQ(rows.RowCount(), 200);
    EXPECT_EQ(rows.Shown(7, 1), CellValue(u"7"));
}

TEST(PendingRowsTest, TheRecordIsTheOneReadBeforeTheFirstChange) {
    ListSource source(3);
    PendingRows rows(source);
    rows.SetPending(2, 1, u"x");
    rows.SetPending(2, 1, u"y");
    EXPECT_EQ(rows.SourceRecord(2), (Record{u"2", std::nullopt}));
    rows.DeleteRow(2);
    ASSERT_EQ(rows.Deleted().size(), 1u);
    EXPECT_EQ(rows.Deleted().begin()->second, (Record{u"2", std::nullopt}));
    EXPECT_EQ(rows.SourceRecord(2), (Record{u"3", std::nullopt}));
}

}  // namespace
}  // namespace veygrid
