// What a cell shows, what may be typed into it, and the width that its column needs.
#include "grid/CellShow.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

std::string Gbk(const char* utf8) {
    return CodePage936FromUtf8(utf8);
}

struct Object {
    std::optional<std::string> bindSource;
    bool hasWindow = true;
    std::vector<std::pair<std::string, std::string>> items;
};

class FakeCombos final : public ComboBoxes {
  public:
    bool ControlHasWindow() const override { return m_hasWindow; }
    std::size_t ObjectCount() const override { return m_objects.size(); }
    std::optional<std::string> BindSourceOf(std::size_t object) const override {
        return m_objects[object].bindSource;
    }
    bool ObjectHasWindow(std::size_t object) const override { return m_objects[object].hasWindow; }
    std::string ItemText(std::size_t object, std::string_view value) const override {
        for (const auto& [itemValue, text] : m_objects[object].items) {
            if (itemValue == value) {
                return text;
            }
        }
        return {};
    }

    bool m_hasWindow = true;
    std::vector<Object> m_objects;
};

class FixedPitch final : public TextMeasure {
  public:
    std::int32_t TextWidth(std::string_view text) const override {
        return static_cast<std::int32_t>(text.size()) * 7;
    }
};

class CellShow : public ::testing::Test {
  protected:
    void Format(std::int32_t row, std::int32_t col, const std::string& showFormat) {
        m_store.SetCellShowFormat(row, col, showFormat);
    }
    std::string Shown(std::int32_t row, std::int32_t col) {
        return GetCellFormatText(m_store, row, col, &m_combos);
    }

    StoreWatcher m_watcher;
    GridStore m_store{m_watcher};
    FakeCombos m_combos;
};

TEST_F(CellShow, ShownTextRefCopiesNothingWhereTextIsShownAsStored) {
    std::string buffer;
    const std::string stored = "20030814";
    for (const char* const showFormat : {"", "General", "#,##0.00", "[cb_text]"}) {
        const std::string_view shown = ShownTextRef(stored, showFormat, 1, 1, nullptr, buffer);
        EXPECT_EQ(shown.data(), stored.data());
    }
    EXPECT_EQ(ShownTextRef(stored, "yyyy-m-d", 1, 1, nullptr, buffer), "2003-8-14");
    // A text that lies in the buffer itself.
    buffer = "20030814";
    EXPECT_EQ(ShownTextRef(buffer, "yyyy-m-d", 1, 1, nullptr, buffer), "2003-8-14");
}

TEST_F(CellShow, RowAndColumn0ReadTheActiveCellUnderTheFormatOfTheSheet) {
    m_store.ActiveRow = 2;
    m_store.ActiveCol = 3;
    m_store.SetCellText(2, 3, "20030814");
    Format(2, 3, Gbk("YYYY年M月D日"));
    EXPECT_EQ(Shown(0, 0), "20030814");
    Format(0, 0, "YYYY-MM-DD");
    EXPECT_EQ(Shown(0, 0), "2003-08-14");
    EXPECT_EQ(Shown(2, 3), Gbk("2003年8月14日"));
}

TEST_F(CellShow, AnEmptyCellShowsNothingUnderDateAndMoneyFormats) {
    Format(1, 1, "YYYY-MM-DD");
    Format(1, 2, "[RMB_UPPER]");
    EXPECT_EQ(Shown(1, 1), "");
    EXPECT_EQ(Shown(1, 2), "");
}

TEST_F(CellShow, ShowingNeverChangesTheStoredText) {
    m_store.SetCellText(1, 1, "abc def");
    Format(1, 1, "YYYY-MM-DD");
    EXPECT_EQ(Shown(1, 1), "abc");
    EXPECT_EQ(m_store.CellText(1, 1), "abc def");
}

TEST_F(CellShow, ZeroShowsWhateverShowZeroValuesSays) {
    m_store.SetCellText(1, 1, "0");
    m_store.Properties.ShowZeroValues = false;
    EXPECT_EQ(Shown(1, 1), "0");
}

TEST_F(CellShow, ColumnTypeDateShowsDatesAsYearMonthDay) {
    EXPECT_EQ(m_store.ColType(1), 4);
    m_store.SetColType(1, 3);
    EXPECT_EQ(m_store.ColType(1), 3);
    m_store.SetCellText(1, 1, "20030814");
    EXPECT_EQ(Shown(1, 1), "2003-08-14");
}

TEST_F(CellShow, ACellWithItsOwnFormatIsNotAffectedByColumnType) {
    Format(1, 1, "General");
    m_store.SetColType(1, 3);
    m_store.SetCellText(1, 1, "20030814");
    EXPECT_EQ(Shown(1, 1), "20030814");
    EXPECT_TRUE(ValidateCellText(m_store, 1, 1, "no date"));
    EXPECT_FALSE(ValidateCellText(m_store, 2, 1, "no date"));
}

TEST_F(CellShow, ComboTextReplacesTheValueOfABoundColumn) {
    m_combos.m_objects = {{"c2", true, {{"1", "one"}}}};
    Format(0, 2, "[cb_text]");
    m_store.SetCellText(7, 2, "1");
    EXPECT_EQ(Shown(7, 2), "one");
    m_store.SetCellText(7, 2, "9");
    EXPECT_EQ(Shown(7, 2), "");
}

TEST_F(CellShow, ComboTextTakesTheFirstMatchingObjectOnly) {
    m_combos.m_objects = {{std::nullopt, true, {}},
                          {"", true, {{"1", "unbound"}}},
                          {"%<R1C2>%", true, {{"1", "parameter"}}},
                          {"R3C2", true, {{"1", "other row"}}},
                          {"R1C2", true, {{"1", "this cell"}}},
                          {"C2", true, {{"1", "whole column"}}}};
    EXPECT_EQ(ComboTextForValue(m_combos, "1", 1, 2), "this cell");
    EXPECT_EQ(ComboTextForValue(m_combos, "1", 4, 2), "whole column");
    EXPECT_EQ(ComboTextForValue(m_combos, "1", 4, 3), "1");
}

TEST_F(CellShow, AMatchingComboWithoutAWindowEndsTheSearchWithTheValue) {
    m_combos.m_objects = {{"C2", false, {}}, {"C2", true, {{"1", "later"}}}};
    EXPECT_EQ(ComboTextForValue(m_combos, "1", 1, 2), "1");
}

TEST_F(CellShow, ComboTextWithoutAControlWindowShowsTheTextAsStored) {
    m_combos.m_objects = {{"C1", true, {{"1", "one"}}}};
    m_combos.m_hasWindow = false;
    Format(1, 1, "[CB_TEXT]");
    m_store.SetCellText(1, 1, "1");
    EXPECT_EQ(Shown(1, 1), "1");
}

TEST_F(CellShow, ComboMarkInsideALongerFormatIsNoComboFormat) {
    m_combos.m_objects = {{"C1", true, {{"1", "one"}}}};
    Format(1, 1, "[CB_TEXT] ");
    m_store.SetCellText(1, 1, "1");
    EXPECT_EQ(Shown(1, 1), "1");
}

TEST_F(CellShow, ValidationReadsTheDataTypeOfTheEffectiveFormat) {
    CCellFormat format;
    format.DataType = 1;
    m_store.SetCellFormat(0, 0, &format);
    EXPECT_TRUE(ValidateCellText(m_store, 9, 9, "007"));
    EXPECT_FALSE(ValidateCellText(m_store, 9, 9, "1.5"));
    EXPECT_FALSE(ValidateCellText(m_store, 9, 9, "20030814"));
    EXPECT_TRUE(ValidateCellText(m_store, 9, 9, ""));
}

TEST_F(CellShow, AutoWidthTakesTheLongestShownTextPlus8Pixels) {
    m_store.SetCellText(3, 1, "1234567890");
    SetColAutoWidth(m_store, 1, FixedPitch());
    EXPECT_EQ(m_store.ColWidth(1), 78);
}

TEST_F(CellShow, AutoWidthMeasuresTheShownTextNotTheStoredOne) {
    m_store.SetCellText(1, 1, "10");
    Format(1, 1, "[RMB_UPPER]");
    SetColAutoWidth(m_store, 1, FixedPitch());
    EXPECT_EQ(m_store.ColWidth(1), 14 * 7 + 8);
}

TEST_F(CellShow, AutoWidthLeavesRow1000Out) {
    m_store.Properties.MaxRow = 2000;
    m_store.SetCellText(999, 1, "12345");
    m_store.SetCellText(1000, 1, "the longest text of the column");
    SetColAutoWidth(m_store, 1, FixedPitch());
    EXPECT_EQ(m_store.ColWidth(1), 43);
}

TEST_F(CellShow, AutoWidthCountsTheHeaderOnlyWhenStrictlyLonger) {
    m_store.SetColHeader(1, "heading");
    SetColAutoWidth(m_store, 1, FixedPitch());
    EXPECT_EQ(m_store.ColWidth(1), 57);
}

TEST_F(CellShow, AutoWidthStopsAt480Pixels) {
    m_store.SetCellText(1, 1, std::string(1000, 'w'));
    SetColAutoWidth(m_store, 1, FixedPitch());
    EXPECT_EQ(m_store.ColWidth(1), 480);
}

}  // namespace
}  // namespace veygrid
