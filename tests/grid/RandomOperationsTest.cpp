// Random sequences of row and column operations held against the slow model, order included.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "LiteralSheet.h"
#include "SheetRecorder.h"
#include "grid/MoveEntries.h"

namespace veygrid {
namespace {

using Pairs = std::vector<LiteralMap<std::int32_t>::Entry>;

// The entries of a map in its order, the values as numbers.
template <class Value, class Number>
Pairs EntriesOf(const GridMap<Value>& map, Number number) {
    EXPECT_TRUE(map.Check());
    Pairs pairs;
    for (const auto& [key, value] : map) {
        pairs.emplace_back(key, number(value));
    }
    return pairs;
}
Pairs EntriesOf(const TextMap& map) {
    return EntriesOf(map, [](const std::string& text) { return std::stoi(text); });
}
Pairs EntriesOf(const SizeMap& map) {
    return EntriesOf(map, [](std::int32_t size) { return size; });
}
Pairs EntriesOf(const FormatMap& map) {
    return EntriesOf(map, [](const CCellFormat& format) { return format.Foreground; });
}
Pairs EntriesOf(const ModificationLog::Map& map) {
    return EntriesOf(map, [](std::int16_t type) { return std::int32_t{type}; });
}

class Random {
  public:
    explicit Random(std::uint32_t seed) : m_engine(seed) {}
    std::int32_t From(std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution<std::int32_t>(low, high)(m_engine);
    }
    bool Coin() { return From(0, 1) == 1; }

  private:
    std::mt19937 m_engine;
};

class RandomOperationsTest : public SheetTest, public testing::WithParamInterface<std::uint32_t> {
  protected:
    // Rows straddle several chains, 0 and numbers below it among them.
    std::int32_t AnyRow() { return random.Coin() ? random.From(-2, 20) : random.From(0, 300); }
    std::int32_t AnyCol() { return random.From(-1, 8); }

    void Fill() {
        const std::int32_t number = random.From(1, 1000000);
        const std::int32_t row = AnyRow();
        const std::int32_t col = AnyCol();
        FillCell(row, col, number);
        FillLines(row, col, number);
        store.RaiseLast(row, col);
        literal.lastRow = std::max(literal.lastRow, row);
        literal.lastCol = std::max(literal.lastCol, col);
    }
    void FillCell(std::int32_t row, std::int32_t col, std::int32_t number) {
        store.CellTextMap.Set({row, col}, std::to_string(number));
        literal.cellText.Set({row, col}, number);
        CCellFormat format;
        format.Foreground = number;
        const CellPos key{random.Coin() ? row : 0, random.Coin() ? col : 0};
        store.CellFormatMap.Set(key, format);
        literal.cellFormat.Set(key, number);
        store.LogModification(row, col, ModifiedType::Update);
        const CellPos logged{store.Properties.ModifiedLog == 2 ? 0 : row,
                             store.Properties.ModifiedLog == 1 ? 0 : col};
        if (store.Log.ModifiedLogMap.Find(logged) != nullptr &&
            literal.log.Find(logged) == nullptr) {
            literal.log.Set(logged, 2);
        }
    }
    void FillLines(std::int32_t row, std::int32_t col, std::int32_t number) {
        const std::string text = std::to_string(number);
        store.RowHeightMap.Set({row, 0}, number);
        literal.rowHeight.Set({row, 0}, number);
        store.RowNameMap.Set({row, 0}, text);
        literal.rowName.Set({row, 0}, number);
        store.RowInfoMap.Set({row, 0}, text);
        literal.rowInfo.Set({row, 0}, number);
        store.RowHeaderMap.Set({row, 0}, text);
        literal.rowHeader.Set({row, 0}, number);
        store.ColHeaderMap.Set({0, col}, text);
        literal.colHeader.Set({0, col}, number);
        store.ColWidthMap.Set({0, col}, number);
        literal.colWidth.Set({0, col}, number);
        store.ColNameMap.Set({0, col}, text);
        literal.colName.Set({0, col}, number);
        store.ColInfoMap.Set({0, col}, text);
        literal.colInfo.Set({0, col}, number);
    }

    CellRange AnyRange() {
        const std::int32_t row = random.From(1, 20);
        const std::int32_t col = random.From(1, 6);
        switch (random.From(0, 5)) {
            case 0:
                return {row, 0, row + random.From(0, 3), 0};
            case 1:
                return {0, col, 0, col + random.From(0, 2)};
            case 2:
                return {-1, -1, -1, -1};
            case 3:
                return {row, col, row - 1, col};
            default:
                return {row, col, row + random.From(0, 6), col + random.From(0, 3)};
        }
    }

    void Operate() {
        const std::int32_t start = random.Coin() ? random.From(0, 10) : random.From(0, 60);
        const std::int32_t count = random.From(-1, 6);
        switch (random.From(0, 5)) {
            case 0:
                operations.InsertRows(start, count);
                return literal.InsertRows(start, count);
            case 1:
                operations.DeleteRows(start, count);
                return literal.DeleteRows(start, count);
            case 2:
                operations.InsertCols(start % 12, count);
                return literal.InsertCols(start % 12, count);
            case 3:
                operations.DeleteCols(start % 12, count);
                return literal.DeleteCols(start % 12, count);
            case 4:
                return Clear(AnyRange());
            default:
                return Move(AnyRange());
        }
    }
    void Clear(const CellRange& range) {
        const auto type = static_cast<std::int16_t>(random.From(0, 3));
        operations.ClearRange(range.Row1, range.Col1, range.Row2, range.Col2, type);
        literal.ClearRange(range.Row1, range.Col1, range.Row2, range.Col2, type);
    }
    void Move(const CellRange& range) {
        const bool copy = random.Coin();
        const std::int32_t row = random.From(0, 25);
        const std::int32_t col = random.From(0, 8);
        operations.MoveCells(range, row, col, copy);
        literal.MoveCells(range, row, col, copy);
    }

    void CompareMaps() {
        EXPECT_EQ(EntriesOf(store.CellTextMap), literal.cellText.Entries());
        EXPECT_EQ(EntriesOf(store.CellFormatMap), literal.cellFormat.Entries());
        EXPECT_EQ(EntriesOf(store.RowHeightMap), literal.rowHeight.Entries());
        EXPECT_EQ(EntriesOf(store.RowNameMap), literal.rowName.Entries());
        EXPECT_EQ(EntriesOf(store.RowInfoMap), literal.rowInfo.Entries());
        EXPECT_EQ(EntriesOf(store.RowHeaderMap), literal.rowHeader.Entries());
        EXPECT_EQ(EntriesOf(store.ColHeaderMap), literal.colHeader.Entries());
        EXPECT_EQ(EntriesOf(store.ColWidthMap), literal.colWidth.Entries());
        EXPECT_EQ(EntriesOf(store.ColNameMap), literal.colName.Entries());
        EXPECT_EQ(EntriesOf(store.ColInfoMap), literal.colInfo.Entries());
        EXPECT_EQ(EntriesOf(store.Log.ModifiedLogMap), literal.log.Entries());
    }
    void CompareScalars() {
        EXPECT_EQ(store.Properties.MaxRow, literal.maxRow);
        EXPECT_EQ(store.Properties.MaxCol, literal.maxCol);
        EXPECT_EQ(store.Properties.LastRow, literal.lastRow);
        EXPECT_EQ(store.Properties.LastCol, literal.lastCol);
        EXPECT_EQ(store.ActiveRow, literal.activeRow);
        EXPECT_EQ(store.ActiveCol, literal.activeCol);
        EXPECT_THAT(selection.CheckedRowList, testing::ElementsAreArray(literal.checkedRows));
    }

    Random random{GetParam()};
    LiteralSheet literal;
};

TEST_P(RandomOperationsTest, SequencesLeaveEveryMapAndItsOrderAsWordByWord) {
    store.Properties.ModifiedLog = static_cast<std::int16_t>(random.From(0, 4));
    literal.modifiedLog = store.Properties.ModifiedLog;
    store.Properties.RowMode = literal.rowMode = random.Coin();
    for (const std::int32_t row : {9, 3, 12, 1}) {
        selection.ToggleCheckedRow(row);
        literal.checkedRows.push_back(row);
    }
    for (int step = 0; step < 60; ++step) {
        for (int i = random.From(0, 5); i > 0; --i) {
            Fill();
        }
        Operate();
        CompareMaps();
        CompareScalars();
        ASSERT_FALSE(HasFailure()) << "step " << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomOperationsTest, testing::Range(1U, 61U));

// Blocks over themselves: everything about a block's move lies in the order of its turns.
class RandomBlockMoveTest : public testing::TestWithParam<bool> {};

TEST_P(RandomBlockMoveTest, OverlappingBlocksMoveAsWordByWord) {
    Random random(GetParam() ? 1U : 2U);
    for (int round = 0; round < 6000; ++round) {
        SizeMap map;
        LiteralMap<std::int32_t> literal;
        // Around row 16, where a new chain begins.
        const std::int32_t base = random.Coin() ? 12 : 1;
        for (int i = random.From(0, 30); i > 0; --i) {
            const CellPos key{base + random.From(0, 8), random.From(1, 7)};
            map.Set(key, i);
            literal.Set(key, i);
        }
        const CellRange range{base + random.From(0, 3), random.From(1, 3), base + random.From(3, 8),
                              random.From(3, 7)};
        const CellPos target{range.Row1 + random.From(-4, 4), range.Col1 + random.From(-3, 3)};
        if (target == CellPos{range.Row1, range.Col1}) {
            continue;
        }
        MoveEntries(map, {range, target, GetParam()});
        literal.Move(range, target, GetParam());
        ASSERT_EQ(EntriesOf(map), literal.Entries()) << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutCopy, RandomBlockMoveTest, testing::Bool());

}  // namespace
}  // namespace veygrid
