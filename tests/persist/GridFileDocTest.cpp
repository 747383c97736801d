// docs/grid-file.md held against what the writer really writes.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <sstream>

#include "Support.h"
#include "persist/PropertyExchange.h"

namespace veygrid {
namespace {

std::string Document() {
    std::ifstream file(std::string(VEYGRID_TESTS_DIR) + "/../docs/grid-file.md", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The lines between the marks of the dump.
std::string DumpOf(const std::string& document) {
    constexpr std::string_view Open = "```hex\n";
    const std::size_t start = document.find(Open) + Open.size();
    return document.substr(start, document.find("```", start) - start);
}

std::string Hex(std::size_t number, int width) {
    std::ostringstream text;
    text << std::hex << std::uppercase << std::setfill('0') << std::setw(width) << number;
    return text.str();
}

// The small file that the document takes apart.
void FillAsDocumented(Grid& grid) {
    GridStore& store = grid.Store;
    grid.Document.Stock.ExtentWidth = 5000;
    grid.Document.Stock.ExtentHeight = 3000;
    store.SetCellText(2, 1, "12");
    store.SetCellText(1, 1, Gbk(u8"维诺"));
    store.SetRowHeight(2, 24);
    store.SetParam(Gbk(u8"单位"), Gbk(u8"元"));
    CCellFormat format;
    format.SetHAlign(4);
    format.DataType = 1;
    format.ShowFormat = "#,##0";
    store.StoreCellFormat(0, 1, format);
    GuiObjRecord object;
    object.m_nType = 1;
    object.m_nCtrlID = 1001;
    object.m_bCellPos = 0;
    object.m_rcPos = {8, 8, 88, 28};
    LabelRecord label;
    label.m_nType = 1;
    label.Name = "Label1";
    label.Caption = Gbk(u8"合计");
    label.Style = 0x50000000;
    label.TextFlags = 0x0101;
    object.Window = label;
    grid.Document.m_guiObjects.push_back(object);
    grid.Document.m_nNextCtrlID = 1002;
}

// Blanks inside a line split the offset from the bytes and these from the remark by two.
TEST(GridFileDoc, TheDumpHoldsTheBytesThatTheWriterWrites) {
    Grid grid;
    FillAsDocumented(grid);
    const std::string bytes = grid.Save();
    std::size_t offset = 0;
    std::istringstream lines(DumpOf(Document()));
    for (std::string line; std::getline(lines, line);) {
        EXPECT_EQ(line.substr(0, 6), Hex(offset, 4) + "  ") << line;
        for (std::size_t at = 6; at + 1 < line.size() && at < 6 + 16 * 3 && line[at] != ' ';
             at += 3) {
            ASSERT_LT(offset, bytes.size()) << line;
            EXPECT_EQ(line.substr(at, 2), Hex(static_cast<unsigned char>(bytes[offset]), 2))
                << "at byte " << offset << " in: " << line;
            ++offset;
        }
    }
    EXPECT_EQ(offset, bytes.size());
}

TEST(GridFileDoc, TheTableOfPropertiesIsTheOneInUse) {
    const std::string document = Document();
    constexpr std::array<std::string_view, 5> Forms{"u8", "i16", "i32", "u32", "String"};
    std::size_t number = 0;
    for (const PropertyEntry& entry : PropertyTable()) {
        std::ostringstream row;
        row << "| " << ++number << " | `" << entry.Name << "` | "
            << Forms[static_cast<std::size_t>(entry.Kind())] << " | ";
        EXPECT_NE(document.find(row.str()), std::string::npos) << row.str();
    }
}

}  // namespace
}  // namespace veygrid
