// A change of format carried over the selection.
#include "grid/FormatChange.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <stdexcept>

#include "LiteralSheet.h"
#include "SheetRecorder.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr std::int32_t IntMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t NewColor = 77;

void Colour(CCellFormat& format) {
    format.Foreground = NewColor;
}

class FormatChangeTest : public SheetTest {
  protected:
    // A record that can be told apart by its show format.
    void Put(std::int32_t row, std::int32_t col, const std::string& name) {
        CCellFormat format;
        format.ShowFormat = name;
        store.StoreCellFormat(row, col, format);
    }
    void Change(FormatBasis basis = FormatBasis::Visited) {
        ChangeSelectedFormats(store, selection.SelectionList, Colour, basis);
    }
    // Name and colour of a stored record.
    std::string At(std::int32_t row, std::int32_t col) const {
        const CCellFormat* const format = store.CellFormatMap.Find({row, col});
        return format == nullptr ? "none"
                                 : format->ShowFormat + " " + std::to_string(format->Foreground);
    }
};

TEST_F(FormatChangeTest, WithoutASelectionTheActiveCellGetsItsEffectiveFormatChanged) {
    Put(0, 4, "col");
    store.ActiveRow = 3;
    store.ActiveCol = 4;
    EXPECT_THAT(CallsOf([&] { Change(); }), ElementsAre("InvalidateControl"));
    EXPECT_EQ(At(3, 4), "col 77");
    EXPECT_EQ(At(0, 4), "col -1");
}

TEST_F(FormatChangeTest, EachCellOfABlockIsTakenThroughItsEffectiveFormat) {
    Put(0, 2, "col");
    Put(3, 0, "row");
    Put(3, 1, "own");
    selection.SelectionList = {{3, 2, 2, 1}};
    EXPECT_THAT(CallsOf([&] { Change(); }), ElementsAre("InvalidateControl"));
    EXPECT_EQ(At(2, 1), " 77");
    EXPECT_EQ(At(2, 2), "col 77");
    EXPECT_EQ(At(3, 1), "own 77");
    EXPECT_EQ(At(3, 2), "col 77");
    EXPECT_EQ(At(3, 0), "row -1");
    EXPECT_EQ(store.CellFormatMap.Count(), 6U);
    EXPECT_EQ(store.Properties.LastRow, 3);
    EXPECT_EQ(store.Properties.LastCol, 2);
}

TEST_F(FormatChangeTest, WholeRowsCarryTheColumnsFormatsDown) {
    Put(0, 2, "col");
    Put(5, 4, "own");
    Put(9, 4, "other");
    selection.SelectionList = {{5, 0, 6, 0}};
    Change();
    EXPECT_EQ(At(5, 2), "col 77");
    EXPECT_EQ(At(6, 2), "col 77");
    EXPECT_EQ(At(0, 2), "col -1");
    EXPECT_EQ(At(5, 4), "own 77");
    EXPECT_EQ(At(9, 4), "other -1");
    EXPECT_EQ(At(5, 0), " 77");
    EXPECT_EQ(At(6, 0), " 77");
    EXPECT_EQ(store.CellFormatMap.Count(), 7U);
    EXPECT_EQ(store.Properties.LastRow, 9);
}

TEST_F(FormatChangeTest, WholeColumnsCarryTheRowsFormatsAcross) {
    Put(2, 0, "row");
    Put(4, 5, "own");
    selection.SelectionList = {{0, 5, 0, 6}};
    Change();
    EXPECT_EQ(At(2, 5), "row 77");
    EXPECT_EQ(At(2, 6), "row 77");
    EXPECT_EQ(At(2, 0), "row -1");
    EXPECT_EQ(At(4, 5), "own 77");
    EXPECT_EQ(At(0, 5), " 77");
    EXPECT_EQ(At(0, 6), " 77");
    EXPECT_EQ(store.Properties.LastCol, 6);
}

TEST_F(FormatChangeTest, TheSheetsFormatIsCarriedIntoWholeRowsToo) {
    Put(0, 0, "sheet");
    selection.SelectionList = {{5, 0, 5, 0}};
    Change();
    EXPECT_EQ(At(5, 0), "sheet 77");
    EXPECT_EQ(At(0, 0), "sheet -1");
}

TEST_F(FormatChangeTest, WhereARowMeetsAFormattedColumnTheVisitedRecordOverwritesTheCellsOwn) {
    Put(5, 2, "own");
    Put(0, 2, "col");
    selection.SelectionList = {{5, 0, 5, 0}};
    Change(FormatBasis::Visited);
    EXPECT_EQ(At(5, 2), "col 77");
}

TEST_F(FormatChangeTest, OnTheEffectiveBasisTheCellsOwnRecordStaysTheBasis) {
    Put(5, 2, "own");
    Put(0, 2, "col");
    Put(0, 3, "col");
    selection.SelectionList = {{5, 0, 5, 0}};
    Change(FormatBasis::Effective);
    EXPECT_EQ(At(5, 2), "own 77");
    EXPECT_EQ(At(5, 3), "col 77");
}

TEST_F(FormatChangeTest, TheWholeSheetChangesEveryRecordInItsPlace) {
    Put(5, 2, "cell");
    Put(0, 2, "col");
    Put(3, 0, "row");
    const std::vector<CellPos> before = KeysOf(store.CellFormatMap);
    store.Properties.LastRow = 0;
    selection.SelectionList = {CellRange::WholeSheet()};
    EXPECT_THAT(CallsOf([&] { Change(); }), ElementsAre("InvalidateControl"));
    EXPECT_EQ(At(5, 2), "cell 77");
    EXPECT_EQ(At(0, 2), "col 77");
    EXPECT_EQ(At(3, 0), "row 77");
    EXPECT_EQ(At(0, 0), " 77");
    EXPECT_EQ(store.CellFormatMap.Count(), before.size() + 1);
    EXPECT_EQ(store.Properties.LastRow, 0);
}

TEST_F(FormatChangeTest, EachRangeIsHandledByItsKindAndTheControlRepaintedOnce) {
    selection.SelectionList = {{1, 1, 1, 1}, {0, 0, 0, 0}, {2, 0, 3, 4}, {4, 0, 4, 0}};
    EXPECT_THAT(CallsOf([&] { Change(); }), ElementsAre("InvalidateControl"));
    EXPECT_THAT(KeysOf(store.CellFormatMap), UnorderedElementsAre(CellPos{1, 1}, CellPos{4, 0}));
}

TEST_F(FormatChangeTest, ClearAllFormatsRemovesAllRecordsButTheDefaultAndRepaintsNothing) {
    Put(1, 1, "cell");
    Put(0, 1, "col");
    Put(0, 0, "sheet");
    store.DefCellFormat.Foreground = 3;
    EXPECT_THAT(CallsOf([&] { ClearAllFormats(store); }), IsEmpty());
    EXPECT_TRUE(store.CellFormatMap.IsEmpty());
    EXPECT_EQ(store.EffectiveFormat(1, 1).Foreground, 3);
}

TEST_F(FormatChangeTest, ARangeOfTooManyRecordsIsRefused) {
    for (const CellRange& range : {CellRange{1, 1, IntMax, IntMax}, CellRange{1, 0, IntMax, 0},
                                   CellRange{0, 1, 0, IntMax}}) {
        selection.SelectionList = {range};
        EXPECT_THROW(Change(), std::length_error);
    }
    EXPECT_TRUE(store.CellFormatMap.IsEmpty());
}

TEST_F(FormatChangeTest, ASheetOfManyWholeRowsIsNotWalkedOnceForEachRow) {
    for (std::int32_t col = 1; col <= 10; ++col) {
        Put(0, col, "col");
    }
    selection.SelectionList = {{1, 0, 20000, 0}};
    Change();
    EXPECT_EQ(store.CellFormatMap.Count(), 10U + 20000U * 11U);
    EXPECT_EQ(At(20000, 10), "col 77");
}

// The walk as it is told, over live chains.
void ChangeLinesWordByWord(LiteralMap<CCellFormat>& map, bool rows, std::int32_t first,
                           std::int32_t last, const CCellFormat& fallback) {
    const auto changed = [](CCellFormat format) {
        Colour(format);
        return format;
    };
    for (std::int32_t line = first; line <= last; ++line) {
        map.VisitLive([&](CellPos key, const CCellFormat& format) {
            std::int32_t& own = rows ? key.Row : key.Col;
            if (own == line || own == 0) {
                own = line;
                map.Set(key, changed(format));
            }
        });
        const CellPos whole = rows ? RowKey(line) : ColKey(line);
        CCellFormat* basis = map.Find(whole);
        basis = basis != nullptr ? basis : map.Find({0, 0});
        map.Set(whole, changed(basis != nullptr ? *basis : fallback));
    }
}

TEST_F(FormatChangeTest, RandomSheetsChangeAsWordByWordOrderIncluded) {
    std::mt19937 engine(1);
    const auto from = [&](std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution<std::int32_t>(low, high)(engine);
    };
    for (int round = 0; round < 500; ++round) {
        store.CellFormatMap.RemoveAll();
        LiteralMap<CCellFormat> literal;
        for (int i = from(0, 25); i > 0; --i) {
            const CellPos key{from(0, 3) * from(0, 12), from(0, 4)};
            Put(key.Row, key.Col, std::to_string(i));
            literal.Set(key, *store.CellFormatMap.Find(key));
        }
        const bool rows = from(0, 1) == 1;
        const std::int32_t first = from(1, 30);
        const std::int32_t last = first + from(0, 4);
        selection.SelectionList = {rows ? CellRange{first, 0, last, 0}
                                        : CellRange{0, first, 0, last}};
        Change();
        ChangeLinesWordByWord(literal, rows, first, last, store.DefCellFormat);
        std::vector<LiteralMap<CCellFormat>::Entry> entries;
        for (const auto& [key, format] : store.CellFormatMap) {
            entries.emplace_back(key, format);
        }
        ASSERT_EQ(entries, literal.Entries()) << "round " << round;
    }
}

}  // namespace
}  // namespace veygrid
