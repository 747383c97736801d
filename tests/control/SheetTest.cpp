// The sheet in a window, on other device contexts and without a window, looked at pixel by pixel.
#include <gmock/gmock.h>

#include <functional>
#include <optional>

#include "control/ClassIds.h"
#include "grid/CellPos.h"
#include "tests/control/Container.h"
#include "tests/control/Handles.h"
#include "tests/control/Pixels.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

constexpr DISPID RequestCellFormatId = 9;
constexpr COLORREF Red = RGB(255, 0, 0);
constexpr COLORREF White = RGB(255, 255, 255);

// The window is 300 by 200: a row header of 50, a column header of 20, rows of 18 and columns of 60
// pixels, and both scroll bars.
class SheetTest : public testing::Test {
  protected:
    SheetTest() {
        EXPECT_EQ(container.Show(control), S_OK);
        window = Container::WindowOf(control);
        Paint();
    }

    void Paint() const {
        ::UpdateWindow(window);
        ::GdiFlush();
    }
    COLORREF PixelAt(int x, int y) const {
        const HDC source = ::GetDC(window);
        const COLORREF pixel = ::GetPixel(source, x, y);
        ::ReleaseDC(window, source);
        return pixel;
    }
    // The window's pixels, and those it has after a full repaint.
    std::vector<std::uint32_t> Shown() const {
        RECT client{};
        ::GetClientRect(window, &client);
        const Canvas canvas(client.right, client.bottom);
        const HDC source = ::GetDC(window);
        ::BitBlt(canvas.Dc(), 0, 0, client.right, client.bottom, source, 0, 0, SRCCOPY);
        ::ReleaseDC(window, source);
        return canvas.Pixels();
    }
    std::vector<std::uint32_t> Repainted() const {
        ::InvalidateRect(window, nullptr, TRUE);
        Paint();
        return Shown();
    }
    std::optional<RECT> Invalid() const {
        RECT area{};
        return ::GetUpdateRect(window, &area, FALSE) ? std::optional(area) : std::nullopt;
    }
    void Scroll(UINT message, WORD request, WORD thumb = 0) const {
        ::SendMessageW(window, message, MAKEWPARAM(request, thumb), 0);
    }
    void Wheel(int delta, WORD keys = 0) const {
        ::SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(keys, static_cast<WORD>(delta)), 0);
    }
    // The row or column at a point of the window; 0 for none.
    CellPos CellAt(int x, int y) const {
        POINT point{x, y};
        ::ClientToScreen(window, &point);
        LONG row = -1;
        LONG col = -1;
        OwnedVariant result;
        grid.Invoke(grid.IdOf(L"ScreenPosToRC"), DISPATCH_METHOD,
                    {static_cast<int>(point.x), static_cast<int>(point.y), Arg::Reference(&row),
                     Arg::Reference(&col)},
                    &result);
        isInside = result->boolVal != VARIANT_FALSE;
        return {static_cast<std::int32_t>(row), static_cast<std::int32_t>(col)};
    }
    bool HasBar(LONG style) const { return (::GetWindowLongPtrW(window, GWL_STYLE) & style) != 0; }

    Container container;
    ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Late grid{control};
    HWND window = nullptr;
    mutable bool isInside = false;
};

// --- Painting

// A file of the sheet as it is, cut off by `lost` bytes at its end.
class SavedSheet {
  public:
    explicit SavedSheet(const Late& grid, LONG lost = 0) {
        wchar_t folder[MAX_PATH];
        EXPECT_NE(::GetTempPathW(MAX_PATH, folder), 0U);
        EXPECT_NE(::GetTempFileNameW(folder, L"vey", 0, m_name), 0U);
        EXPECT_EQ(grid.Number(L"SaveFile", {m_name}), -1);
        const HANDLE file =
            ::CreateFileW(m_name, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        EXPECT_NE(::SetFilePointer(file, -lost, nullptr, FILE_END), INVALID_SET_FILE_POINTER);
        EXPECT_TRUE(::SetEndOfFile(file));
        ::CloseHandle(file);
    }
    SavedSheet(const SavedSheet&) = delete;
    SavedSheet& operator=(const SavedSheet&) = delete;
    ~SavedSheet() { ::DeleteFileW(m_name); }

    const wchar_t* Name() const { return m_name; }

  private:
    wchar_t m_name[MAX_PATH];
};

TEST_F(SheetTest, AFileThatIsOpenedIsOnViewAtOnce) {
    grid.Put(L"BackColor", {static_cast<int>(Red)});
    const SavedSheet saved(grid);
    grid.Put(L"BackColor", {static_cast<int>(White)});
    Paint();
    ASSERT_EQ(PixelAt(80, 60), White);
    EXPECT_EQ(grid.Number(L"OpenFile", {saved.Name(), 0}), 1);
    Paint();
    EXPECT_EQ(PixelAt(80, 60), Red);
}

TEST_F(SheetTest, WhatWasReadOfADamagedFileIsOnViewAtOnce) {
    grid.Put(L"BackColor", {static_cast<int>(Red)});
    const SavedSheet saved(grid, 4);
    grid.Put(L"BackColor", {static_cast<int>(White)});
    Paint();
    OwnedVariant result;
    EXPECT_EQ(grid.Invoke(grid.IdOf(L"OpenFile"), DISPATCH_METHOD, {saved.Name(), 0}, &result),
              DISP_E_EXCEPTION);
    Paint();
    EXPECT_EQ(PixelAt(80, 60), Red);
}

TEST_F(SheetTest, TheWindowShowsHeadersGridLinesAndTheMarkOfTheActiveCell) {
    EXPECT_EQ(PixelAt(0, 0), ::GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(PixelAt(25, 100), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(PixelAt(200, 100), White);
    // The line on the last pixel of column 2 and of row 4.
    EXPECT_EQ(PixelAt(50 + 2 * 60 - 1, 100), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(PixelAt(200, 20 + 4 * 18 - 1), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(PixelAt(50, 25), ::GetSysColor(COLOR_ACTIVECAPTION));
}

TEST_F(SheetTest, TextIsShownInItsCellAndNowhereElse) {
    grid.Put(L"CellText", {3, 2, L"中文 text that is longer than its cell"});
    const std::vector<std::uint32_t> shown = Repainted();
    const auto inked = [&](const RECT& area) {
        int count = 0;
        for (int y = area.top; y < area.bottom; ++y) {
            for (int x = area.left; x < area.right; ++x) {
                count += PixelAt(x, y) != White ? 1 : 0;
            }
        }
        return count;
    };
    EXPECT_GT(inked({110, 56, 168, 72}), 40);
    EXPECT_EQ(inked({171, 56, 228, 72}), 0);
    EXPECT_EQ(inked({110, 74, 168, 90}), 0);
}

TEST_F(SheetTest, ACellsBackgroundFillsItsRectangleAndLeavesTheGridLine) {
    const ComPtr<IUnknown> format = Ocx::Make(CellFormatClassId);
    Late(format).Put(L"Background", {static_cast<int>(Red)});
    grid.Invoke(grid.IdOf(L"CellFormat"), DISPATCH_PROPERTYPUTREF, {3, 2, Late(format).Object()});
    grid.Call(L"SetSelection", {1, 1, 1, 1});
    Paint();
    EXPECT_EQ(PixelAt(110, 56), Red);
    EXPECT_EQ(PixelAt(168, 72), Red);
    EXPECT_EQ(PixelAt(169, 60), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(PixelAt(120, 73), ::GetSysColor(COLOR_BTNFACE));
}

TEST_F(SheetTest, TheSelectionIsInvertedButForTheActiveCell) {
    grid.Call(L"SetSelection", {1, 1, 3, 2});
    Paint();
    EXPECT_EQ(PixelAt(140, 50), 0U);
    EXPECT_EQ(PixelAt(80, 30), White);
}

TEST_F(SheetTest, UncoveringPaintsWhatWasThere) {
    grid.Put(L"CellText", {2, 1, L"123"});
    grid.Call(L"SetSelection", {2, 2, 4, 3});
    const std::vector<std::uint32_t> whole = Repainted();
    for (const RECT& hole : {RECT{60, 30, 140, 80}, RECT{0, 0, 55, 25}, RECT{168, 0, 171, 180}}) {
        // What another window left behind.
        const HDC target = ::GetDC(window);
        ::FillRect(target, &hole, static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH)));
        ::ReleaseDC(window, target);
        EXPECT_NE(Shown(), whole);
        ::InvalidateRect(window, &hole, TRUE);
        Paint();
        EXPECT_EQ(Shown(), whole);
    }
}

TEST_F(SheetTest, TheMillionthRowIsPaintedAsTheFirst) {
    grid.Put(L"MaxRow", {2'000'000});
    grid.Put(L"CellText", {1'000'000, 1, L"here"});
    grid.Call(L"MakeCellVisible", {1'000'000, 1});
    Paint();
    EXPECT_EQ(CellAt(60, 25), (CellPos{1'000'000, 1}));
    const std::vector<std::uint32_t> there = Shown();
    EXPECT_EQ(Repainted(), there);
    grid.Put(L"CellText", {1'000'000, 1, L""});
    Paint();
    EXPECT_NE(Shown(), there);
}

TEST_F(SheetTest, AHundredThousandCellsPaintedLeaveNoHandle) {
    grid.Put(L"CellText", {1, 1, L"中文"});
    const ComPtr<IUnknown> format = Ocx::Make(CellFormatClassId);
    Late(format).Put(L"HAlign", {4});
    grid.Invoke(grid.IdOf(L"CellFormat"), DISPATCH_PROPERTYPUTREF, {1, 1, Late(format).Object()});
    Repainted();
    const Handles before;
    constexpr int CellsOnView = 10 * 5;
    for (int i = 0; i < 100'000 / CellsOnView; ++i) {
        ::InvalidateRect(window, nullptr, TRUE);
        ::UpdateWindow(window);
    }
    EXPECT_EQ(Handles(), before);
}

// --- Events of painting

TEST_F(SheetTest, APaintAsksForTheVisibleCellsOnlyEachOnce) {
    std::vector<CellPos> asked;
    EventSink sink([&](DISPID id, DISPPARAMS& parameters) {
        if (id == RequestCellFormatId) {
            asked.push_back({parameters.rgvarg[2].lVal, parameters.rgvarg[1].lVal});
        }
    });
    const Connected connected(control, VeyGridEventsId, &sink);
    Repainted();
    // 283 by 183 pixels.
    EXPECT_EQ(asked.size(), 4U * 10U);
    EXPECT_EQ(asked.front(), (CellPos{1, 1}));
    EXPECT_EQ(asked.back(), (CellPos{10, 4}));
}

TEST_F(SheetTest, TheHostMayChangeTheCopyAndTheSheetKeepsItsFormat) {
    EventSink sink([&](DISPID id, DISPPARAMS& parameters) {
        if (id == RequestCellFormatId && parameters.rgvarg[2].lVal == 3) {
            Late(parameters.rgvarg[0].pdispVal).Put(L"Background", {static_cast<int>(Red)});
        }
    });
    {
        const Connected connected(control, VeyGridEventsId, &sink);
        Repainted();
        EXPECT_EQ(PixelAt(140, 60), Red);
        EXPECT_EQ(PixelAt(140, 78), White);
    }
    Repainted();
    EXPECT_EQ(PixelAt(140, 60), White);
    EXPECT_EQ(grid.Object(L"CellFormat", {3, 2}).Number(L"Background"), -1);
}

TEST_F(SheetTest, TheHostMayChangeTheSheetWhileItIsPainted) {
    EventSink sink([&](DISPID id, DISPPARAMS& parameters) {
        if (id == RequestCellFormatId) {
            const LONG row = parameters.rgvarg[2].lVal;
            const LONG col = parameters.rgvarg[1].lVal;
            grid.Put(L"CellText", {static_cast<int>(row), static_cast<int>(col), L"changed"});
            grid.Call(L"ClearRange", {1, 1, 50, 20, 0});
            grid.Put(L"MaxRow", {static_cast<int>(5 + row)});
            grid.Put(L"RowHeight", {static_cast<int>(row), 30});
        }
    });
    const Connected connected(control, VeyGridEventsId, &sink);
    Repainted();
    EXPECT_GE(grid.Number(L"MaxRow"), 6);
}

TEST_F(SheetTest, TheHostMayKeepTheCopy) {
    ComPtr<IDispatch> kept;
    EventSink sink([&](DISPID id, DISPPARAMS& parameters) {
        if (id == RequestCellFormatId && kept == nullptr) {
            kept = parameters.rgvarg[0].pdispVal;
        }
    });
    {
        const Connected connected(control, VeyGridEventsId, &sink);
        Repainted();
    }
    ASSERT_NE(kept, nullptr);
    const Late format(kept.Get());
    EXPECT_EQ(format.Put(L"Background", {static_cast<int>(Red)}), S_OK);
    EXPECT_EQ(format.Number(L"Background"), static_cast<LONG>(Red));
    container.Close();
    EXPECT_EQ(format.Number(L"Background"), static_cast<LONG>(Red));
}

TEST_F(SheetTest, TheHostMayPaintInsideThePaint) {
    int depth = 0;
    EventSink sink([&](DISPID id, DISPPARAMS& parameters) {
        if (id == RequestCellFormatId && depth == 0) {
            ++depth;
            Late(parameters.rgvarg[0].pdispVal).Put(L"Background", {static_cast<int>(Red)});
            ::InvalidateRect(window, nullptr, TRUE);
            ::UpdateWindow(window);
        }
    });
    const Connected connected(control, VeyGridEventsId, &sink);
    Repainted();
    EXPECT_EQ(depth, 1);
}

TEST_F(SheetTest, TheHostMayCloseTheControlInsideThePaint) {
    EventSink sink([&](DISPID id, DISPPARAMS&) {
        if (id == RequestCellFormatId) {
            container.Close();
        }
    });
    const Connected connected(control, VeyGridEventsId, &sink);
    ::InvalidateRect(window, nullptr, TRUE);
    ::UpdateWindow(window);
    EXPECT_FALSE(::IsWindow(window));
}

// --- What is repainted

TEST_F(SheetTest, ACellsTextRepaintsItsRectangleOnly) {
    grid.Put(L"CellText", {3, 2, L"x"});
    const std::optional<RECT> invalid = Invalid();
    ASSERT_TRUE(invalid);
    EXPECT_EQ(invalid->left, 110);
    EXPECT_EQ(invalid->top, 56);
    EXPECT_EQ(invalid->right, 169);
    EXPECT_EQ(invalid->bottom, 73);
    Paint();
    grid.Put(L"CellText", {40, 2, L"off the view"});
    EXPECT_FALSE(Invalid());
}

TEST_F(SheetTest, MovingTheActiveCellLeavesThePictureOfAFullRepaint) {
    for (const CellPos& cell : {CellPos{2, 2}, CellPos{9, 4}, CellPos{30, 10}, CellPos{1, 1}}) {
        grid.Call(L"SetActiveCell", {cell.Row, cell.Col});
        Paint();
        const std::vector<std::uint32_t> shown = Shown();
        EXPECT_EQ(Repainted(), shown) << cell.Row << "," << cell.Col;
    }
}

TEST_F(SheetTest, MovingTheActiveCellIsOnePaint) {
    int paints = 0;
    EventSink sink([&](DISPID id, DISPPARAMS& parameters) {
        paints += id == RequestCellFormatId && parameters.rgvarg[2].lVal == 1 &&
                          parameters.rgvarg[1].lVal == 1
                      ? 1
                      : 0;
    });
    const Connected connected(control, VeyGridEventsId, &sink);
    grid.Call(L"SetActiveCell", {4, 3});
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::DispatchMessageW(&message);
    }
    EXPECT_EQ(paints, 1);
    EXPECT_FALSE(Invalid());
}

TEST_F(SheetTest, AHeaderRepaintsItsBox) {
    grid.Put(L"RowHeader", {3, L"r"});
    std::optional<RECT> invalid = Invalid();
    ASSERT_TRUE(invalid);
    EXPECT_EQ(invalid->left, 0);
    EXPECT_EQ(invalid->bottom, 73);
    Paint();
    grid.Put(L"ColHeader", {2, L"c"});
    invalid = Invalid();
    ASSERT_TRUE(invalid);
    EXPECT_EQ(invalid->top, 0);
    EXPECT_EQ(invalid->left, 110);
}

// --- Scrolling

TEST_F(SheetTest, ScrollingShowsWhatAFullRepaintShows) {
    for (int row = 1; row <= 50; ++row) {
        for (int col = 1; col <= 20; ++col) {
            grid.Put(L"CellText", {row, col, std::to_wstring(row * 100 + col).c_str()});
        }
    }
    grid.Put(L"RowHeight", {7, 40});
    grid.Put(L"RowHeight", {8, 0});
    grid.Put(L"ColWidth", {3, 25});
    struct Step {
        UINT message;
        WORD request;
        WORD thumb = 0;
    };
    const Step steps[] = {
        {WM_VSCROLL, SB_LINEDOWN},       {WM_VSCROLL, SB_LINEDOWN}, {WM_HSCROLL, SB_LINEDOWN},
        {WM_VSCROLL, SB_PAGEDOWN},       {WM_VSCROLL, SB_LINEUP},   {WM_HSCROLL, SB_LINEDOWN},
        {WM_HSCROLL, SB_LINEUP},         {WM_VSCROLL, SB_PAGEUP},   {WM_VSCROLL, SB_BOTTOM},
        {WM_VSCROLL, SB_LINEUP},         {WM_HSCROLL, SB_BOTTOM},   {WM_VSCROLL, SB_TOP},
        {WM_VSCROLL, SB_THUMBTRACK, 4},  {WM_VSCROLL, SB_LINEUP},   {WM_HSCROLL, SB_TOP},
        {WM_VSCROLL, SB_THUMBTRACK, 12}, {WM_VSCROLL, SB_LINEDOWN}, {WM_VSCROLL, SB_LINEDOWN},
        {WM_VSCROLL, SB_THUMBTRACK, 2},  {WM_HSCROLL, SB_PAGEDOWN}, {WM_HSCROLL, SB_LINEUP}};
    const auto run = [&](const char* what) {
        for (const Step& step : steps) {
            Scroll(step.message, step.request, step.thumb);
            Paint();
            const std::vector<std::uint32_t> shown = Shown();
            ASSERT_EQ(Repainted(), shown)
                << what << " " << step.message << " " << step.request << " " << step.thumb;
        }
        // Several steps before one paint.
        for (int i = 0; i < 3; ++i) {
            Scroll(WM_VSCROLL, SB_LINEDOWN);
            Scroll(WM_VSCROLL, SB_LINEDOWN);
            Scroll(WM_HSCROLL, SB_LINEDOWN);
            Scroll(WM_VSCROLL, SB_LINEUP);
            Paint();
            const std::vector<std::uint32_t> shown = Shown();
            ASSERT_EQ(Repainted(), shown) << what;
        }
        Scroll(WM_VSCROLL, SB_TOP);
        Scroll(WM_HSCROLL, SB_TOP);
        Repainted();
    };
    run("active cell");
    grid.Call(L"SetSelection", {3, 2, 20, 6});
    run("long block");
    grid.Call(L"SetSelection", {2, 2, 5, 3});
    run("block");
    grid.Call(L"SetSelection", {4, 0, 6, 0});
    run("rows");
    grid.Call(L"SetSelection", {0, 2, 0, 3});
    run("columns");
    grid.Call(L"SetSelection", {-1, -1, -1, -1});
    run("sheet");
    grid.Call(L"SetActiveCell", {5, 3});
    grid.Put(L"RowMode", {true});
    run("row mode");
    grid.Put(L"ShowRowHeaders", {false});
    grid.Put(L"ShowColHeaders", {false});
    ::InvalidateRect(window, nullptr, TRUE);
    Paint();
    run("no headers");
}

TEST_F(SheetTest, APartOfTheWindowThatWaitsForItsPaintIsPaintedAfterScrollingToo) {
    grid.Put(L"CellText", {5, 2, L"old"});
    Paint();
    grid.Put(L"CellText", {5, 2, L"new"});
    Scroll(WM_VSCROLL, SB_LINEDOWN);
    Paint();
    const std::vector<std::uint32_t> shown = Shown();
    EXPECT_EQ(Repainted(), shown);
}

TEST_F(SheetTest, ANotchOfTheWheelScrollsThreeRows) {
    Wheel(-WHEEL_DELTA);
    EXPECT_EQ(CellAt(60, 25), (CellPos{4, 1}));
    Wheel(-2 * WHEEL_DELTA);
    EXPECT_EQ(CellAt(60, 25).Row, 10);
    Wheel(WHEEL_DELTA);
    EXPECT_EQ(CellAt(60, 25).Row, 7);
    Wheel(100 * WHEEL_DELTA);
    EXPECT_EQ(CellAt(60, 25).Row, 1);
    Wheel(-WHEEL_DELTA, MK_SHIFT);
    EXPECT_EQ(CellAt(60, 25), (CellPos{1, 4}));
}

TEST_F(SheetTest, AFineWheelScrollsARowForAThirdOfANotch) {
    Wheel(-WHEEL_DELTA / 6);
    EXPECT_EQ(CellAt(60, 25).Row, 1);
    Wheel(-WHEEL_DELTA / 6);
    EXPECT_EQ(CellAt(60, 25).Row, 2);
}

TEST_F(SheetTest, ScrollingGivesTheControlTheFocus) {
    const HWND other = ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 320, 0, 50, 20,
                                         container.Window(), nullptr, nullptr, nullptr);
    ::SetFocus(other);
    Scroll(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(::GetFocus(), window);
    ::DestroyWindow(other);
}

TEST_F(SheetTest, BarsShowOnlyWhereTheSheetIsLargerThanTheWindow) {
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    grid.Call(L"DeleteRows", {1, 1});
    grid.Put(L"MaxRow", {5});
    grid.Put(L"MaxCol", {3});
    grid.Put(L"RowHeight", {1, 18});  // brings the bars up to date
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    // 50 + 4 * 60 = 290 is wider than the window with a vertical bar only.
    grid.Put(L"MaxCol", {4});
    grid.Put(L"RowHeight", {1, 18});
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    grid.Put(L"MaxRow", {30});
    grid.Put(L"RowHeight", {1, 18});
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
}

TEST_F(SheetTest, BarsFollowTheSizeOfTheWindow) {
    grid.Put(L"MaxRow", {12});
    grid.Put(L"MaxCol", {5});
    ::SetWindowPos(window, nullptr, 0, 0, 400, 300, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    Paint();
    ::SetWindowPos(window, nullptr, 0, 0, 400, 100, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    Paint();
    const std::vector<std::uint32_t> shown = Shown();
    EXPECT_EQ(Repainted(), shown);
}

TEST_F(SheetTest, ALoadedSheetThatIsShorterIsOnView) {
    Scroll(WM_VSCROLL, SB_BOTTOM);
    Scroll(WM_HSCROLL, SB_BOTTOM);
    ComPtr<IPersistStreamInit> persist;
    control.As(&persist);
    ASSERT_EQ(persist->InitNew(), S_OK);
    grid.Put(L"MaxRow", {5});
    ComPtr<IStream> stream;
    ASSERT_EQ(::CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
    ASSERT_EQ(persist->Save(stream.Get(), TRUE), S_OK);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    ASSERT_EQ(persist->Load(stream.Get()), S_OK);
    Paint();
    EXPECT_EQ(CellAt(60, 25).Row, 5);
}

// --- Points of the screen

TEST_F(SheetTest, PointsOfTheScreenAreCells) {
    EXPECT_EQ(CellAt(115, 60), (CellPos{3, 2}));
    EXPECT_TRUE(isInside);
    EXPECT_EQ(CellAt(10, 10), (CellPos{0, 0}));
    EXPECT_TRUE(isInside);
    EXPECT_EQ(CellAt(-1, 10), (CellPos{-1, -1}));
    EXPECT_FALSE(isInside);
}

TEST(SheetWithoutWindow, HasNoPointsOfTheScreen) {
    const Late grid(Ocx::Make(VeyGridClassId));
    LONG row = 7;
    OwnedVariant result;
    grid.Invoke(grid.IdOf(L"ScreenPosToRC"), DISPATCH_METHOD,
                {20, 30, Arg::Reference(&row), Arg::Reference(&row)}, &result);
    EXPECT_EQ(result->boolVal, VARIANT_FALSE);
    EXPECT_EQ(row, 7);
}

// --- Other device contexts

HRESULT DrawOn(const ComPtr<IUnknown>& control, HDC target, RECTL bounds,
               const RECTL* picture = nullptr) {
    ComPtr<IViewObject> view;
    control.As(&view);
    return view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, target, &bounds, picture,
                      nullptr, 0);
}

TEST(SheetWithoutWindow, IsDrawnIntoTheBoundsAndNowhereElse) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Late(control).Put(L"BackColor", {static_cast<int>(RGB(200, 220, 240))});
    const Canvas canvas(300, 200);
    EXPECT_EQ(DrawOn(control, canvas.Dc(), {40, 30, 240, 130}), S_OK);
    // The cell area begins behind the headers, counted from the bounds.
    EXPECT_EQ(canvas.At(40 + 60, 30 + 45), RGB(200, 220, 240));
    EXPECT_EQ(canvas.At(40 + 45, 30 + 45), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(canvas.Count({0, 0, 300, 30}, White), 0);
    EXPECT_EQ(canvas.Count({0, 0, 40, 200}, White), 0);
    EXPECT_EQ(canvas.Count({240, 0, 300, 200}, White), 0);
    EXPECT_EQ(canvas.Count({0, 130, 300, 200}, White), 0);
}

TEST_F(SheetTest, DrawingElsewhereLeavesTheWindowLaidOut) {
    const Canvas canvas(300, 200);
    EXPECT_EQ(DrawOn(control, canvas.Dc(), {0, 0, 100, 50}), S_OK);
    EXPECT_EQ(CellAt(250, 150), (CellPos{8, 4}));
    const std::vector<std::uint32_t> shown = Shown();
    EXPECT_EQ(Repainted(), shown);
}

TEST(SheetWithoutWindow, IsDrawnIntoAMetafileInPixelsOfTheScreen) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    const Late grid(control);
    grid.Put(L"BackColor", {static_cast<int>(RGB(200, 220, 240))});
    grid.Put(L"CellText", {1, 2, L"中文"});
    ComPtr<IDataObject> data;
    control.As(&data);
    for (const CLIPFORMAT kind : {CLIPFORMAT{CF_METAFILEPICT}, CLIPFORMAT{CF_ENHMETAFILE}}) {
        FORMATETC format{kind, nullptr, DVASPECT_CONTENT, -1,
                         kind == CF_METAFILEPICT ? DWORD{TYMED_MFPICT} : DWORD{TYMED_ENHMF}};
        STGMEDIUM medium{};
        ASSERT_EQ(data->GetData(&format, &medium), S_OK);
        const Canvas canvas(320, 240);
        if (kind == CF_METAFILEPICT) {
            const auto* const record =
                static_cast<const METAFILEPICT*>(::GlobalLock(medium.hMetaFilePict));
            ::SetMapMode(canvas.Dc(), MM_ANISOTROPIC);
            ::SetViewportExtEx(canvas.Dc(), 320, 240, nullptr);
            ::PlayMetaFile(canvas.Dc(), record->hMF);
            ::GlobalUnlock(medium.hMetaFilePict);
        } else {
            const RECT whole{0, 0, 320, 240};
            ::PlayEnhMetaFile(canvas.Dc(), medium.hEnhMetaFile, &whole);
        }
        EXPECT_EQ(canvas.At(140, 100), RGB(200, 220, 240)) << kind;
        EXPECT_EQ(canvas.At(25, 104), ::GetSysColor(COLOR_BTNFACE)) << kind;
        EXPECT_GT(canvas.Count({112, 22, 166, 36}, RGB(200, 220, 240)), 15) << kind;
        ::ReleaseStgMedium(&medium);
    }
}

TEST(SheetWithoutWindow, IsDrawnIntoAPartOfAMetafile) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Late(control).Put(L"BackColor", {static_cast<int>(RGB(200, 220, 240))});
    // A frame of 640 by 480 pixels.
    const HDC screen = ::GetDC(nullptr);
    constexpr int HimetricPerMillimetre = 100;
    const auto himetric = [screen](int pixels, int millimetres, int resolution) {
        return ::MulDiv(pixels, ::GetDeviceCaps(screen, millimetres) * HimetricPerMillimetre,
                        ::GetDeviceCaps(screen, resolution));
    };
    const RECT frame{0, 0, himetric(640, HORZSIZE, HORZRES), himetric(480, VERTSIZE, VERTRES)};
    ::ReleaseDC(nullptr, screen);
    const HDC target = ::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    ::SetMapMode(target, MM_ANISOTROPIC);
    ::SetViewportExtEx(target, 640, 480, nullptr);
    const RECTL picture{0, 0, 6400, 4800};
    EXPECT_EQ(DrawOn(control, target, {3200, 2400, 6400, 4800}, &picture), S_OK);
    const HENHMETAFILE made = ::CloseEnhMetaFile(target);
    const Canvas canvas(700, 520);
    const RECT whole{0, 0, 640, 480};
    ::PlayEnhMetaFile(canvas.Dc(), made, &whole);
    ::DeleteEnhMetaFile(made);
    // The lower right quarter, and nothing beside it.
    EXPECT_EQ(canvas.At(320 + 140, 240 + 100), RGB(200, 220, 240));
    EXPECT_EQ(canvas.At(320 + 25, 240 + 104), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(canvas.Count({0, 0, 318, 520}, White), 0);
    EXPECT_EQ(canvas.Count({0, 0, 700, 238}, White), 0);
    EXPECT_EQ(canvas.Count({642, 0, 700, 520}, White), 0);
    EXPECT_EQ(canvas.Count({0, 482, 700, 520}, White), 0);
}

}  // namespace
}  // namespace veygrid
