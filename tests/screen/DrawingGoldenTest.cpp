// Whole paints, call by call, held against files.
#include <cstring>

#include "DrawingTest.h"

namespace veygrid {
namespace {

class DrawingGolden : public DrawingTest {
  protected:
    static LogFont FontOf(std::int32_t height, std::string_view face) {
        LogFont font;
        font.lfHeight = height;
        font.lfWeight = 400;
        std::memcpy(font.lfFaceName.data(), face.data(), face.size());
        return font;
    }
};

TEST_F(DrawingGolden, NewSheetWithEmptySpaceRightAndBelow) {
    store.SetCellText(2, 1, "abc");
    ExpectGolden("new-sheet", Draw());
}

TEST_F(DrawingGolden, WithoutHeaders) {
    HideHeaders();
    ExpectGolden("no-headers", Draw());
}

TEST_F(DrawingGolden, RowHeadersAlone) {
    properties.ShowColHeaders = false;
    ExpectGolden("row-headers-alone", Draw());
}

TEST_F(DrawingGolden, ColHeadersAlone) {
    properties.ShowRowHeaders = false;
    ExpectGolden("col-headers-alone", Draw());
}

TEST_F(DrawingGolden, HeaderTextsOfTheSheetsOwn) {
    SetSize(3, 3);
    store.SetRowHeader(1, "");
    store.SetRowHeader(2, "two\nlines");
    store.SetRowHeader(3, "1234567");
    store.SetColHeader(1, Gbk(u8"姓名"));
    properties.ShowDefColHeader = false;
    store.SetColHeader(3, "R&D");
    ExpectGolden("header-texts", Draw());
}

TEST_F(DrawingGolden, GridLinesOfOneKindOrNone) {
    SetSize(2, 2);
    HideHeaders();
    std::string dump;
    properties.ShowVGridLines = false;
    dump += "-- rows only\n" + Draw();
    properties.ShowHGridLines = false;
    dump += "-- none\n" + Draw();
    properties.ShowVGridLines = true;
    dump += "-- columns only\n" + Draw();
    ExpectGolden("grid-lines", dump);
}

TEST_F(DrawingGolden, EveryAlignment) {
    SetSize(3, 4);
    HideHeaders();
    bounds = {0, 0, 160, 54};
    const std::uint16_t horizontal[] = {0, 1, 2, 4};
    for (std::int32_t row = 1; row <= 3; ++row) {
        for (std::int32_t col = 1; col <= 4; ++col) {
            const auto align = static_cast<std::uint16_t>(horizontal[col - 1] + (row - 1) * 0x100);
            Format(row, col, [align](CCellFormat& format) { format.Align = align; });
            store.SetCellText(row, col, "12");
        }
    }
    ExpectGolden("alignments", Draw());
}

TEST_F(DrawingGolden, GeneralAlignmentByTheKindOfText) {
    const std::string_view texts[] = {"12",          "-12",      "1.5",       "-.5",
                                      "20030814",    "2003-8-5", "2004-2-29", "12345678901",
                                      "99999999999", "1,000",    " 7 ",       "abc"};
    SetSize(12, 1);
    HideHeaders();
    bounds = {0, 0, 40, 216};
    for (std::int32_t row = 1; row <= 12; ++row) {
        store.SetCellText(row, 1, texts[row - 1]);
    }
    ExpectGolden("general-alignment", Draw());
}

TEST_F(DrawingGolden, WordBreakAndItsMeasure) {
    SetSize(3, 1);
    HideHeaders();
    properties.DefCellHeight = 40;
    bounds = {0, 0, 40, 120};
    for (std::int32_t row = 1; row <= 3; ++row) {
        Format(row, 1, [row](CCellFormat& format) {
            format.Flags = CCellFormat::WordWrapFlag;
            format.Align = static_cast<std::uint16_t>((row - 1) * 0x100 + 1);
        });
        store.SetCellText(row, 1, "one two three");
    }
    ExpectGolden("word-break", Draw());
}

TEST_F(DrawingGolden, ColoursAndFontsOfTheCells) {
    SetSize(2, 3);
    HideHeaders();
    const LogFont font = FontOf(16, Gbk(u8"宋体"));
    for (std::int32_t col = 1; col <= 3; ++col) {
        store.SetCellText(1, col, "x" + std::to_string(col));
        store.SetCellText(2, col, "y" + std::to_string(col));
    }
    Format(1, 2, [](CCellFormat& format) { format.Foreground = 0x0000FF; });
    Format(1, 3, [](CCellFormat& format) { format.Background = 0x00FFFF; });
    Format(2, 1, [&font](CCellFormat& format) { format.Font = font; });
    Format(2, 2, [&font](CCellFormat& format) {
        format.Font = font;
        format.SetVAlign(256);
    });
    store.CellTextMap.Remove({2, 3});
    Format(2, 3, [](CCellFormat& format) { format.Background = 0; });
    ExpectGolden("colours-and-fonts", Draw());
}

TEST_F(DrawingGolden, RowModeWithArrowAndCheckMarks) {
    properties.RowMode = true;
    store.ActiveRow = 2;
    selection.CheckedRowList = {3, 2};
    ExpectGolden("row-mode", Draw());
}

TEST_F(DrawingGolden, SelectionsOfEveryKind) {
    store.ActiveRow = 2;
    struct Case {
        const char* name;
        std::vector<CellRange> ranges;
    };
    const Case cases[] = {
        {"none", {}},
        {"active cell", {{2, 1, 2, 1}}},
        {"block", {{1, 1, 3, 2}}},
        {"two ranges", {{1, 1, 1, 2}, {3, 2, 3, 2}}},
        {"whole rows", {{2, 0, 3, 0}}},
        {"whole columns", {{0, 1, 0, 1}}},
        {"whole sheet", {CellRange::WholeSheet()}},
    };
    std::string dump;
    for (const Case& each : cases) {
        selection.SelectionList = each.ranges;
        dump += std::string("-- ") + each.name + "\n" + DrawnMarks();
        const Rect& frame = layout.m_rcSelFrame;
        dump += "m_rcSelFrame " + std::to_string(frame.left) + "," + std::to_string(frame.top) +
                "," + std::to_string(frame.right) + "," + std::to_string(frame.bottom) + "\n";
    }
    ExpectGolden("selections", dump);
}

TEST_F(DrawingGolden, FrameClippedByScrolling) {
    SetSize(50, 20);
    layout.FirstVisibleRow = 5;
    layout.FirstVisibleCol = 3;
    store.ActiveRow = 5;
    store.ActiveCol = 3;
    struct Case {
        const char* name;
        CellRange range;
    };
    const Case cases[] = {
        {"block begins above and left", {2, 2, 6, 4}},
        {"block ends below and right", {6, 4, 30, 10}},
        {"block lies above", {1, 3, 2, 4}},
        {"block lies below", {40, 3, 41, 4}},
        {"rows begin above", {2, 0, 6, 0}},
        {"rows end below", {6, 0, 30, 0}},
        {"rows lie below", {40, 0, 41, 0}},
        {"columns begin left", {0, 2, 0, 4}},
        {"columns end right", {0, 4, 0, 10}},
    };
    std::string dump;
    for (const Case& each : cases) {
        selection.SelectionList = {each.range};
        Draw();
        RecordingSurface surface;
        DrawSelectionFrame(context, surface);
        dump += std::string("-- ") + each.name + "\n" + surface.Dump();
    }
    ExpectGolden("frame-scrolled", dump);
}

TEST_F(DrawingGolden, ActiveCellWhileItIsEdited) {
    host.inEdit = true;
    ExpectGolden("edit-open", DrawnMarks());
}

TEST_F(DrawingGolden, Paper) {
    isPrinting = true;
    layout.FirstVisibleRow = 2;
    layout.FirstVisibleCol = 2;
    store.SetCellText(2, 1, "abc");
    selection.SelectionList = {{1, 1, 3, 2}};
    ExpectGolden("paper", Draw());
}

TEST_F(DrawingGolden, PaperInRowMode) {
    isPrinting = true;
    properties.RowMode = true;
    selection.CheckedRowList = {2};
    ExpectGolden("paper-row-mode", Draw());
}

TEST_F(DrawingGolden, SecondPageOfPaper) {
    SetSize(10, 2);
    isPrinting = true;
    host.firstRowOfPage = 4;
    ExpectGolden("paper-second-page", Draw());
}

TEST_F(DrawingGolden, HiddenRowsAndColumns) {
    SetSize(5, 3);
    store.SetRowHeight(2, 0);
    store.SetRowHeight(3, 0);
    store.SetColWidth(1, 0);
    store.SetCellText(1, 2, "a");
    store.SetCellText(2, 2, "hidden");
    store.SetCellText(4, 1, "hidden");
    store.SetCellText(4, 3, "b");
    ExpectGolden("hidden-lines", Draw());
}

TEST_F(DrawingGolden, LastRowAndColumnCutByTheEdge) {
    SetSize(50, 20);
    bounds = {0, 0, 100, 60};
    store.SetCellText(3, 2, "cut");
    store.SetCellText(4, 1, "off");
    ExpectGolden("cut-at-the-edge", Draw());
}

TEST_F(DrawingGolden, BoundsThatDoNotBeginAtZero) {
    bounds = {10, 5, 160, 95};
    store.SetCellText(1, 1, "abc");
    ExpectGolden("offset-bounds", Draw());
}

TEST_F(DrawingGolden, HostThatChangesFormats) {
    SetSize(2, 2);
    store.SetCellText(1, 1, "7");
    store.SetCellText(2, 2, "z");
    host.handler = [](std::int32_t row, std::int32_t col, CCellFormat& format) {
        if (row == 1 && col == 1) {
            format.Background = 0x123456;
            format.Foreground = 0x654321;
            format.SetHAlign(2);
        }
    };
    ExpectGolden("request-cell-format", Draw());
}

TEST_F(DrawingGolden, Chinese) {
    SetSize(6, 1);
    HideHeaders();
    bounds = {0, 0, 40, 108};
    store.SetCellText(1, 1, Gbk(u8"凭证编号"));
    store.SetCellText(2, 1, Gbk(u8"2003年8月14日"));
    // Trail bytes that look like "|", "~", a letter and a backslash.
    store.SetCellText(3, 1, "\x81\x7C\x95\x7E\x81\x41\x8B\x5C");
    store.SetCellText(4, 1, "1234.5");
    store.SetCellShowFormat(4, 1, "[RMB_UPPER]");
    store.SetCellText(5, 1, "20030814");
    store.SetCellShowFormat(5, 1, Gbk(u8"YYYY年M月D日"));
    store.SetCellText(6, 1, "a\xFF");
    ExpectGolden("chinese", Draw());
}

}  // namespace
}  // namespace veygrid
