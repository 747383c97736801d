// The format commands over every kind of selection, by the dialogs that the user answers.
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "control/ClassIds.h"
#include "control/VeyGridCtrl.h"
#include "tests/control/Container.h"
#include "tests/control/OpenDialog.h"
#include "tests/control/OwnModule.h"
#include "tests/control/Pixels.h"

namespace veygrid {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr WPARAM FontCommand = 42300;
constexpr WPARAM AlignCommand = 42302;
constexpr WPARAM ClearFormatsCommand = 42324;

// Of the system's font dialog.
constexpr int FaceList = 1136;
constexpr int StrikeOutBox = 1040;
// Of dialog 2305.
constexpr int HorizontalList = 1005;
constexpr int VerticalList = 1008;
constexpr int WordBreakBox = 1010;
constexpr int MergeBox = 1012;
constexpr int ReadOnlyBox = 1016;

std::function<bool(HWND)> HasItem(int id) {
    return [id](HWND window) { return ::GetDlgItem(window, id) != nullptr; };
}

// A control in a window, with a record of each kind, which data types tell apart: cell (2, 2) has
// 3, row 3 has 1, column 4 has 2.
class FormatCommands : public ::testing::Test {
  protected:
    FormatCommands()
        : made(*new CVeyGridCtrl(nullptr)), control(Adopt(made.Inner())), grid(control) {
        EXPECT_EQ(container.Show(control), S_OK);
        window = Container::WindowOf(control);
        ::UpdateWindow(window);
        Store(2, 2, 3);
        Store(3, 0, 1);
        Store(0, 4, 2);
    }
    void TearDown() override {
        container.Close();
        grid = Late(static_cast<IDispatch*>(nullptr));
        control = nullptr;
        EXPECT_FALSE(module::IsLocked());
    }

    GridStore& Sheet() { return made.Store(); }
    void Store(std::int32_t row, std::int32_t col, std::int16_t type) {
        CCellFormat format;
        format.SetDataType(type);
        Sheet().StoreCellFormat(row, col, format);
    }
    void Select(std::vector<CellRange> ranges) {
        made.Selected().SelectionList.assign(ranges.begin(), ranges.end());
    }
    LRESULT Command(WPARAM command) const { return ::SendMessageW(window, WM_COMMAND, command, 0); }
    // Runs `command` and confirms its dialog after `act`.
    void Confirm(int item, const std::function<void()>& command,
                 const std::function<void(HWND)>& act) const {
        const OpenDialog dialog(HasItem(item), [&](HWND shown) {
            act(shown);
            ::PostMessageW(shown, WM_COMMAND, IDOK, 0);
        });
        const OwnModule resources(Ocx::Handle());
        command();
        EXPECT_TRUE(dialog.WasSeen());
    }
    void StrikeOut() const {
        Confirm(
            FaceList, [this] { Command(FontCommand); },
            [](HWND shown) { ::SendDlgItemMessageW(shown, StrikeOutBox, BM_CLICK, 0, 0); });
    }
    void Align(const std::function<void(HWND)>& act) const {
        Confirm(
            WordBreakBox, [this] { Command(AlignCommand); }, act);
    }
    void AlignRight() const {
        Align([](HWND shown) { ::SendDlgItemMessageW(shown, HorizontalList, CB_SETCURSEL, 3, 0); });
    }
    // The records as "row,col type", with a star where `isChanged`.
    template <class IsChanged>
    std::vector<std::string> Records(IsChanged isChanged) {
        std::vector<std::string> lines;
        for (const auto& [key, format] : Sheet().CellFormatMap) {
            lines.push_back(std::to_string(key.Row) + "," + std::to_string(key.Col) + " " +
                            std::to_string(format.GetDataType()) + (isChanged(format) ? "*" : ""));
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }
    std::vector<std::string> StruckOut() {
        return Records([](const CCellFormat& format) { return format.Font.lfStrikeOut == 1; });
    }
    std::vector<std::string> RightAligned() {
        return Records([](const CCellFormat& format) { return format.GetHAlign() == 4; });
    }
    bool IsInvalid() const { return ::GetUpdateRect(window, nullptr, FALSE) != FALSE; }
    // How many pixels of the part of the window are not of its most left, uppermost colour.
    int Drawn(const RECT& part) const {
        ::InvalidateRect(window, nullptr, TRUE);
        ::UpdateWindow(window);
        RECT client{};
        ::GetClientRect(window, &client);
        const Canvas canvas(client.right, client.bottom);
        const HDC source = ::GetDC(window);
        ::BitBlt(canvas.Dc(), 0, 0, client.right, client.bottom, source, 0, 0, SRCCOPY);
        ::ReleaseDC(window, source);
        return canvas.Count(part, canvas.At(part.left, part.top));
    }

    OwnModule own;
    Container container;
    CVeyGridCtrl& made;
    ComPtr<IUnknown> control;
    Late grid;
    HWND window = nullptr;
};

// --- The font

TEST_F(FormatCommands, TheFontGoesToTheActiveCellWithItsEffectiveFormat) {
    grid.Call(L"SetActiveCell", {5, 4});
    StrikeOut();
    EXPECT_THAT(StruckOut(), ElementsAre("0,4 2", "2,2 3", "3,0 1", "5,4 2*"));
    EXPECT_EQ(Sheet().CellFormatMap.Find({5, 4})->Foreground, 0);
}

TEST_F(FormatCommands, TheFontGoesToEveryCellOfABlock) {
    Select({{2, 1, 3, 2}});
    StrikeOut();
    EXPECT_THAT(StruckOut(), ElementsAre("0,4 2", "2,1 0*", "2,2 3*", "3,0 1", "3,1 1*", "3,2 1*"));
}

TEST_F(FormatCommands, TheFontGoesToEachOfSeveralRanges) {
    Select({{1, 1, 1, 1}, {5, 4, 5, 4}, {3, 0, 3, 0}});
    StrikeOut();
    EXPECT_THAT(StruckOut(), ElementsAre("0,4 2", "1,1 0*", "2,2 3", "3,0 1*", "3,4 2*", "5,4 2*"));
}

TEST_F(FormatCommands, TheFontGoesToWholeRowsAndTakesTheColumnsRecordsDown) {
    Select({{2, 0, 3, 0}});
    StrikeOut();
    EXPECT_THAT(StruckOut(),
                ElementsAre("0,4 2", "2,0 0*", "2,2 3*", "2,4 2*", "3,0 1*", "3,4 2*"));
}

TEST_F(FormatCommands, TheFontGoesToWholeColumnsAndTakesTheRowsRecordsAlong) {
    Select({{0, 2, 0, 2}});
    StrikeOut();
    EXPECT_THAT(StruckOut(), ElementsAre("0,2 0*", "0,4 2", "2,2 3*", "3,0 1", "3,2 1*"));
}

TEST_F(FormatCommands, TheFontGoesToTheWholeSheetAndAllItsRecords) {
    Select({CellRange::WholeSheet()});
    StrikeOut();
    EXPECT_THAT(StruckOut(), ElementsAre("0,0 0*", "0,4 2*", "2,2 3*", "3,0 1*"));
}

TEST_F(FormatCommands, TheMethodsDoWhatTheCommandsDo) {
    Select({{1, 1, 1, 1}});
    Confirm(
        FaceList, [this] { EXPECT_EQ(grid.Call(L"ShowFontDlg"), S_OK); },
        [](HWND shown) { ::SendDlgItemMessageW(shown, StrikeOutBox, BM_CLICK, 0, 0); });
    EXPECT_THAT(StruckOut(), ElementsAre("0,4 2", "1,1 0*", "2,2 3", "3,0 1"));
    Confirm(
        WordBreakBox, [this] { EXPECT_EQ(grid.Call(L"ShowAlignDlg"), S_OK); },
        [](HWND shown) { ::SendDlgItemMessageW(shown, HorizontalList, CB_SETCURSEL, 3, 0); });
    EXPECT_THAT(RightAligned(), ElementsAre("0,4 2", "1,1 0*", "2,2 3", "3,0 1"));
    EXPECT_EQ(Sheet().CellFormatMap.Find({1, 1})->Font.lfStrikeOut, 1);
}

// --- The alignment

TEST_F(FormatCommands, TheAlignmentGoesToTheActiveCellWithItsEffectiveFormat) {
    grid.Call(L"SetActiveCell", {3, 1});
    AlignRight();
    EXPECT_THAT(RightAligned(), ElementsAre("0,4 2", "2,2 3", "3,0 1", "3,1 1*"));
}

TEST_F(FormatCommands, TheAlignmentGoesToEveryCellOfABlockAndOfSeveralRanges) {
    Select({{2, 1, 3, 2}, {5, 4, 5, 4}});
    AlignRight();
    EXPECT_THAT(RightAligned(),
                ElementsAre("0,4 2", "2,1 0*", "2,2 3*", "3,0 1", "3,1 1*", "3,2 1*", "5,4 2*"));
}

TEST_F(FormatCommands, TheAlignmentGoesToWholeRowsColumnsAndTheSheet) {
    Select({{2, 0, 3, 0}});
    AlignRight();
    EXPECT_THAT(RightAligned(),
                ElementsAre("0,4 2", "2,0 0*", "2,2 3*", "2,4 2*", "3,0 1*", "3,4 2*"));
    Select({{0, 5, 0, 5}});
    AlignRight();
    EXPECT_THAT(RightAligned(), ElementsAre("0,4 2", "0,5 0*", "2,0 0*", "2,2 3*", "2,4 2*",
                                            "2,5 0*", "3,0 1*", "3,4 2*", "3,5 1*"));
    Select({CellRange::WholeSheet()});
    AlignRight();
    EXPECT_THAT(RightAligned(), ElementsAre("0,0 0*", "0,4 2*", "0,5 0*", "2,0 0*", "2,2 3*",
                                            "2,4 2*", "2,5 0*", "3,0 1*", "3,4 2*", "3,5 1*"));
}

TEST_F(FormatCommands, TheMergeAndReadOnlyBoxesAreDisabledAndTheMergeBoxChangesNothing) {
    Align([](HWND shown) {
        EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(shown, MergeBox)));
        EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(shown, ReadOnlyBox)));
        EXPECT_TRUE(::IsWindowEnabled(::GetDlgItem(shown, WordBreakBox)));
        ::CheckDlgButton(shown, MergeBox, BST_CHECKED);
    });
    EXPECT_EQ(Sheet().EffectiveFormat(1, 1), CCellFormat());
    EXPECT_EQ(Sheet().CellFormatMap.Count(), 4U);
}

// --- Word break

TEST_F(FormatCommands, TheWordBreakBoxIsPresetFromTheActiveCellAndSetsAndClearsItsBitAlone) {
    CCellFormat format;
    format.SetReadOnly(true);
    format.Align = 0x0102;
    Sheet().StoreCellFormat(1, 1, format);
    const auto flags = [this] { return Sheet().EffectiveFormat(1, 1).Flags; };
    Align([](HWND shown) {
        EXPECT_EQ(::IsDlgButtonChecked(shown, WordBreakBox), BST_UNCHECKED);
        EXPECT_EQ(::IsDlgButtonChecked(shown, ReadOnlyBox), BST_CHECKED);
        ::CheckDlgButton(shown, WordBreakBox, BST_CHECKED);
    });
    EXPECT_EQ(flags(), CCellFormat::WordWrapFlag | CCellFormat::ReadOnlyFlag);
    Align([](HWND shown) {
        EXPECT_EQ(::IsDlgButtonChecked(shown, WordBreakBox), BST_CHECKED);
        ::CheckDlgButton(shown, WordBreakBox, BST_INDETERMINATE);
    });
    EXPECT_EQ(flags(), CCellFormat::WordWrapFlag | CCellFormat::ReadOnlyFlag);
    Align([](HWND shown) { ::CheckDlgButton(shown, WordBreakBox, BST_UNCHECKED); });
    EXPECT_EQ(flags(), CCellFormat::ReadOnlyFlag);
    EXPECT_EQ(Sheet().CellFormatMap.Find({1, 1})->Align, 0x0102);
}

TEST_F(FormatCommands, OfASelectionTheBoxesBeginInTheThirdStateAndTheListsEmpty) {
    Select({{2, 2, 2, 2}, {3, 0, 3, 0}});
    Align([](HWND shown) {
        for (const int box : {WordBreakBox, ReadOnlyBox, MergeBox}) {
            EXPECT_EQ(::IsDlgButtonChecked(shown, box), BST_INDETERMINATE) << box;
        }
        for (const int list : {HorizontalList, VerticalList}) {
            EXPECT_EQ(::SendDlgItemMessageW(shown, list, CB_GETCURSEL, 0, 0), CB_ERR) << list;
        }
        ::CheckDlgButton(shown, WordBreakBox, BST_CHECKED);
    });
    EXPECT_THAT(Records([](const CCellFormat& format) {
                    return format.Flags == CCellFormat::WordWrapFlag;
                }),
                ElementsAre("0,4 2", "2,2 3*", "3,0 1*", "3,4 2*"));
}

TEST_F(FormatCommands, ABrokenTextIsShownOnTwoLinesOfItsCell) {
    grid.Put(L"RowHeight", {1, 60});
    grid.Put(L"ColWidth", {2, 60});
    grid.Put(L"CellText", {1, 2, L"MMMM MMMM"});
    // The lower half of cell (1, 2), off its lines.
    const RECT below{112, 40, 167, 76};
    EXPECT_EQ(Drawn(below), 0);
    Select({{1, 2, 1, 2}});
    Align([](HWND shown) { ::CheckDlgButton(shown, WordBreakBox, BST_CHECKED); });
    Select({});
    EXPECT_GT(Drawn(below), 0);
}

// --- Notices

TEST_F(FormatCommands, FontAndAlignmentRepaintTheControlAndSayNothingOfAChange) {
    grid.Put(L"Modified", {false});
    std::vector<DISPID> events;
    EventSink sink([&](DISPID id, DISPPARAMS&) {
        if (!IsOfPainting(id)) {
            events.push_back(id);
        }
    });
    const Connected connected(control, VeyGridEventsId, &sink);
    StrikeOut();
    EXPECT_TRUE(IsInvalid());
    ::UpdateWindow(window);
    AlignRight();
    EXPECT_TRUE(IsInvalid());
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(grid.Number(L"Modified"), 0);
}

TEST_F(FormatCommands, ClearFormatsTakesCellRowColumnAndSheetRecordsWithoutRepaintOrNotice) {
    Store(0, 0, 1);
    Sheet().DefCellFormat.SetDataType(2);
    grid.Put(L"CellText", {2, 2, L"x"});
    grid.Put(L"Modified", {false});
    ::UpdateWindow(window);
    ::ValidateRect(window, nullptr);
    std::vector<DISPID> events;
    EventSink sink([&](DISPID id, DISPPARAMS&) { events.push_back(id); });
    const Connected connected(control, VeyGridEventsId, &sink);
    ASSERT_EQ(Sheet().CellFormatMap.Count(), 4U);
    Select({{1, 1, 1, 1}});
    Command(ClearFormatsCommand);
    EXPECT_EQ(Sheet().CellFormatMap.Count(), 0U);
    EXPECT_FALSE(IsInvalid());
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(grid.Number(L"Modified"), 0);
    EXPECT_EQ(Sheet().DefCellFormat.GetDataType(), 2);
    EXPECT_EQ(grid.Text(L"CellText", {2, 2}), "x");
}

}  // namespace
}  // namespace veygrid
