// The window of a control with a host's dataset: painted, scrolled, clicked and typed into, while
// the dataset does as it likes.
#include <gmock/gmock.h>

#include <set>

#include "control/ClassIds.h"
#include "tests/control/Container.h"
#include "tests/control/FakeDataset.h"
#include "tests/control/Handles.h"
#include "tests/control/OpenDialog.h"
#include "tests/control/Pixels.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

constexpr int EditId = 1000;

// The window is 300 by 200: a row header of 50, a column header of 20, rows of 18 and columns of 60
// pixels.
class BoundWindow : public testing::Test {
  protected:
    BoundWindow() {
        EXPECT_EQ(container.Show(control), S_OK);
        window = Container::WindowOf(control);
        ::UpdateWindow(window);
    }
    void TearDown() override {
        container.Close();
        grid = Late(static_cast<IDispatch*>(nullptr));
        control = nullptr;
        EXPECT_EQ(told.Alive, 0);
        EXPECT_EQ(container.References, 1);
        EXPECT_TRUE(Ocx::CanUnload());
    }

    FakeDataset* Make(int rows, int cols) { return new FakeDataset(told, rows, cols); }
    FakeDataset* Bound(int rows, int cols) {
        FakeDataset* const dataset = Make(rows, cols);
        EXPECT_EQ(Bind(grid, dataset), S_OK);
        Paint();
        told.Calls.clear();
        return dataset;
    }
    void Paint() const {
        ::UpdateWindow(window);
        ::GdiFlush();
    }
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
    bool IsInvalid() const { return ::GetUpdateRect(window, nullptr, FALSE) != FALSE; }
    bool HasBar(LONG style) const { return (::GetWindowLongPtrW(window, GWL_STYLE) & style) != 0; }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageW(window, message, wParam, lParam);
    }
    HWND Edit() const { return ::GetDlgItem(window, EditId); }

    FakeDataset::Told told;
    Container container;
    ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Late grid{control};
    HWND window = nullptr;
};

bool IsOneColor(const std::vector<std::uint32_t>& pixels) {
    return std::set(pixels.begin(), pixels.end()).size() == 1;
}

// --- Live reading

TEST_F(BoundWindow, EveryRepaintAsksTheDatasetForEveryCellOnView) {
    Bound(1000, 3);
    for (int paints = 0; paints < 2; ++paints) {
        told.Calls.clear();
        Repainted();
        EXPECT_THAT(told.Calls, Contains("3 1 1 result True"));
        EXPECT_THAT(told.Calls, Contains("3 5 3 result True"));
        EXPECT_THAT(told.Calls, Contains("10 2"));
        EXPECT_THAT(told.Calls, ::testing::Not(Contains("3 500 1 result True")));
    }
}

TEST_F(BoundWindow, BindingRepaintsTheWholeControlAndItsBarsFollow) {
    EXPECT_EQ(Bind(grid, Make(3, 2)), S_OK);
    EXPECT_TRUE(IsInvalid());
    Paint();
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ(Bind(grid, Make(1000, 2)), S_OK);
    Paint();
    EXPECT_TRUE(HasBar(WS_VSCROLL));
}

TEST_F(BoundWindow, AViewFarDownComesBackToAShorterDataset) {
    Bound(1000, 2);
    grid.Call(L"MakeCellVisible", {900, 1});
    Paint();
    EXPECT_EQ(Bind(grid, Make(10, 2)), S_OK);
    Repainted();
    EXPECT_THAT(told.Calls, Contains("3 10 1 result True"));
}

TEST_F(BoundWindow, ScrollingShowsWhatTheDatasetHasNow) {
    FakeDataset* const dataset = Bound(1000, 2);
    dataset->Value = [](VARIANT& value) {
        value.vt = VT_I4;
        value.lVal = 8;
    };
    Send(WM_VSCROLL, SB_LINEDOWN);
    Paint();
    EXPECT_EQ(Shown(), Repainted());
}

// --- Failures while painting

TEST_F(BoundWindow, ACellThatCannotBeReadLeavesABlankPictureThatIsNotPaintedAgain) {
    FakeDataset* const dataset = Bound(10, 3);
    const auto before = Repainted();
    EXPECT_FALSE(IsOneColor(before));
    dataset->FailingId = datasetid::GetCellValue;
    told.Calls.clear();
    EXPECT_TRUE(IsOneColor(Repainted()));
    EXPECT_FALSE(IsInvalid());
    EXPECT_EQ(std::ranges::count(told.Calls, "3 1 1 result True"), 1);
    dataset->FailingId = 0;
    EXPECT_EQ(Repainted(), before);
}

TEST_F(BoundWindow, ATitleThatCannotBeReadLeavesABlankPictureThatIsNotPaintedAgain) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->FailingId = datasetid::GetColName;
    EXPECT_TRUE(IsOneColor(Repainted()));
    EXPECT_FALSE(IsInvalid());
}

TEST_F(BoundWindow, AFailingPaintLeavesNoDrawingObjectsBehind) {
    FakeDataset* const dataset = Bound(10, 3);
    Repainted();
    dataset->FailingId = datasetid::GetCellValue;
    Repainted();
    const int before = Handles::GdiObjects();
    for (int i = 0; i < 50; ++i) {
        Repainted();
    }
    EXPECT_LE(Handles::GdiObjects(), before);
}

TEST_F(BoundWindow, AFirstPaintThatFailsStillBringsTheScrollBars) {
    container.Close();
    FakeDataset* const dataset = Make(1000, 3);
    EXPECT_EQ(Bind(grid, dataset), S_OK);
    dataset->FailingId = datasetid::GetCellValue;
    ASSERT_EQ(container.Show(control), S_OK);
    window = Container::WindowOf(control);
    Paint();
    EXPECT_TRUE(HasBar(WS_VSCROLL));
}

TEST_F(BoundWindow, APictureOfASheetThatCannotBeReadFailsWithTheDatasetsCode) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->FailingId = datasetid::GetCellValue;
    dataset->FailingCode = E_ACCESSDENIED;
    ComPtr<IViewObject> view;
    ComPtr<IDataObject> data;
    ASSERT_EQ(control.As(&view), S_OK);
    ASSERT_EQ(control.As(&data), S_OK);
    const Canvas canvas(300, 200);
    const RECTL bounds{0, 0, 300, 200};
    const auto drawn = [&] {
        return view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, canvas.Dc(), &bounds,
                          nullptr, nullptr, 0);
    };
    EXPECT_EQ(drawn(), E_ACCESSDENIED);
    const int before = Handles::GdiObjects();
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(drawn(), E_ACCESSDENIED);
        for (const WORD kind : {WORD{CF_METAFILEPICT}, WORD{CF_ENHMETAFILE}}) {
            FORMATETC format{
                kind, nullptr, DVASPECT_CONTENT, -1,
                static_cast<DWORD>(kind == CF_METAFILEPICT ? TYMED_MFPICT : TYMED_ENHMF)};
            STGMEDIUM medium{};
            EXPECT_EQ(data->GetData(&format, &medium), E_ACCESSDENIED);
        }
    }
    EXPECT_LE(Handles::GdiObjects(), before);
    dataset->FailingId = 0;
    EXPECT_EQ(drawn(), S_OK);
}

TEST_F(BoundWindow, AFailingDatasetMakesNoMessageOfTheWindowFail) {
    FakeDataset* const dataset = Bound(1000, 3);
    for (const DISPID id : {datasetid::GetCellValue, datasetid::GetColName}) {
        dataset->FailingId = id;
        for (const UINT message : {WM_VSCROLL, WM_HSCROLL}) {
            Send(message, SB_LINEDOWN);
            Paint();
        }
        Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(80, 60));
        Send(WM_LBUTTONUP, 0, MAKELPARAM(80, 60));
        Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(80, 60));
        Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)));
        Paint();
        EXPECT_FALSE(IsInvalid());
    }
}

TEST_F(BoundWindow, AnEditOfACellThatCannotBeReadDoesNotBegin) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->FailingId = datasetid::GetCellValue;
    EXPECT_EQ(grid.Call(L"StartEdit"), DISP_E_EXCEPTION);
    EXPECT_EQ(Edit(), nullptr);
    dataset->FailingId = 0;
    EXPECT_EQ(grid.Number(L"StartEdit"), 1);
    wchar_t text[20] = {};
    ::GetWindowTextW(Edit(), text, 20);
    EXPECT_EQ(std::wstring(text), L"R1C1");
}

// --- Datasets that act while the sheet is painted

TEST_F(BoundWindow, ADatasetThatBindsAnotherOneWhileItIsPaintedGivesWay) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->OnCall = [&](DISPID id) {
        if (id == datasetid::GetCellValue) {
            dataset->OnCall = nullptr;
            Bind(grid, Make(4, 2));
        }
    };
    Repainted();
    EXPECT_EQ(told.Alive, 1);
    EXPECT_EQ(grid.Number(L"MaxRow"), 4);
    Repainted();  // takes the scroll bars away, which makes the window's inside larger
    EXPECT_EQ(Repainted(), Repainted());
}

TEST_F(BoundWindow, ADatasetThatIsRemovedWhileItIsPaintedGivesWayToTheSheet) {
    for (const DISPID step : {datasetid::GetCellValue, datasetid::GetColName}) {
        FakeDataset* const dataset = Bound(10, 3);
        dataset->OnCall = [&](DISPID id) {
            if (id == step) {
                Bind(grid, nullptr);
            }
        };
        Repainted();
        EXPECT_EQ(told.Alive, 0);
        EXPECT_EQ(Repainted(), Repainted());
        EXPECT_THAT(grid.Text(L"CellText", {1, 1}), IsEmpty());
    }
}

TEST_F(BoundWindow, ADatasetThatChangesTheSheetWhileItIsPaintedHarmsNothing) {
    FakeDataset* const dataset = Bound(100, 3);
    int left = 200;
    dataset->OnCall = [&](DISPID) {
        if (left-- > 0) {
            grid.Put(L"MaxCol", {1 + left % 7});
            grid.Put(L"RowHeight", {1 + left % 9, left % 30});
            grid.Call(L"ClearRange", {-1, -1, -1, -1, 0});
            const Late format = grid.Object(L"CellFormat", {left % 5, 1});
            format.Put(L"ShowFormat", {L"YYYY-MM-DD"});
            grid.Put(L"CellFormat", {left % 5, 1, Arg(format.Object())});
        }
    };
    while (left > 0) {
        Repainted();
    }
    dataset->OnCall = nullptr;
    grid.Put(L"MaxCol", {3});
    EXPECT_EQ(Repainted(), Repainted());
}

TEST_F(BoundWindow, ADatasetThatPaintsTheWindowWhileItIsPaintedHarmsNothing) {
    FakeDataset* const dataset = Bound(10, 3);
    const auto before = Repainted();
    int depth = 0;
    int left = 20;
    dataset->OnCall = [&](DISPID) {
        if (depth < 3 && left-- > 0) {
            ++depth;
            Repainted();
            --depth;
        }
    };
    Repainted();
    EXPECT_EQ(Repainted(), before);
}

TEST_F(BoundWindow, ADatasetThatClosesTheControlWhileItIsPaintedHarmsNothing) {
    for (const DISPID step : {datasetid::GetCellValue, datasetid::GetColName}) {
        FakeDataset* const dataset = Bound(10, 3);
        dataset->OnCall = [&](DISPID id) {
            if (id == step) {
                dataset->OnCall = nullptr;
                container.Close();
            }
        };
        ::InvalidateRect(window, nullptr, TRUE);
        Paint();
        EXPECT_FALSE(::IsWindow(window));
        EXPECT_EQ(grid.Text(L"CellText", {1, 1}), "R1C1");
        ASSERT_EQ(container.Show(control), S_OK);
        window = Container::WindowOf(control);
    }
}

TEST_F(BoundWindow, ADatasetThatReleasesTheControlWhileItIsPaintedHarmsNothing) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->OnCall = [&](DISPID) {
        dataset->OnCall = nullptr;
        container.Close();
        grid = Late(static_cast<IDispatch*>(nullptr));
        control = nullptr;
    };
    ::InvalidateRect(window, nullptr, TRUE);
    Paint();
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(told.Alive, 0);
}

TEST_F(BoundWindow, ADatasetThatIsGoneBehindItsObjectLeavesABlankPicture) {
    for (const HRESULT code : {RPC_E_DISCONNECTED, CO_E_OBJNOTCONNECTED, RPC_E_SERVERFAULT}) {
        FakeDataset* const dataset = Bound(10, 3);
        dataset->FailingId = datasetid::GetCellValue;
        dataset->FailingCode = code;
        EXPECT_TRUE(IsOneColor(Repainted()));
        EXPECT_EQ(Bind(grid, nullptr), S_OK);
        EXPECT_EQ(told.Alive, 0);
        EXPECT_FALSE(IsOneColor(Repainted()));
    }
}

// --- The header dialog

// Answers the header dialog with a text, and notes the message box that may follow.
class HeaderAnswered {
  public:
    explicit HeaderAnswered(const wchar_t* text) : m_text(text) {}

    bool WasDialogSeen() const { return m_isAnswered; }
    const std::string& Message() const { return m_message; }

  private:
    bool Look(HWND shown) {
        constexpr int TextField = 1003;
        if (const HWND field = ::GetDlgItem(shown, TextField)) {
            if (!m_isAnswered) {
                m_isAnswered = true;
                ::SetWindowTextW(field, m_text);
                ::PostMessageW(shown, WM_COMMAND, IDOK, 0);
            }
            return false;
        }
        return true;
    }
    void Note(HWND box) {
        constexpr int TextOfBox = 0xFFFF;
        wchar_t text[100] = {};
        wchar_t caption[100] = {};
        ::GetDlgItemTextW(box, TextOfBox, text, 100);
        ::GetWindowTextW(box, caption, 100);
        m_message = TextFromWide(caption) + ": " + TextFromWide(text);
        ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    }

    const wchar_t* m_text;
    bool m_isAnswered = false;
    std::string m_message;
    OpenDialog m_dialogs{[this](HWND shown) { return Look(shown); },
                         [this](HWND shown) { Note(shown); }};
};

TEST_F(BoundWindow, ATitleThatTheDatasetAcceptsRepaintsTheControl) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->CaptionAnswer = 5;
    const HeaderAnswered answered(L"单价");
    Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(140, 10));
    EXPECT_TRUE(answered.WasDialogSeen());
    EXPECT_THAT(told.Calls, Contains(CodePage936FromUtf8("9 2 单价")));
    EXPECT_EQ(answered.Message(), "");
    EXPECT_TRUE(IsInvalid());
    EXPECT_EQ(Bind(grid, nullptr), S_OK);
    EXPECT_EQ(grid.Text(L"ColHeader", {2}), "B");
}

TEST_F(BoundWindow, ATitleThatTheDatasetRefusesShowsTheMessageAndRepaintsNothing) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->CaptionAnswer = -2;
    dataset->OnCall = [this](DISPID id) {
        if (id == datasetid::SetColCaption) {
            ::ValidateRect(window, nullptr);  // what the dialog uncovered
            told.Calls.clear();
        }
    };
    const HeaderAnswered answered(L"x");
    Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(140, 10));
    EXPECT_EQ(answered.Message(), "Veynor Grid Control: 0xFFFFFFFE");
    // A paint under the box would have asked for the cells.
    EXPECT_THAT(told.Calls, ::testing::Not(Contains(::testing::StartsWith("3 "))));
    EXPECT_FALSE(IsInvalid());
}

TEST_F(BoundWindow, ATitleThatFailsChangesNothingAndShowsNoBox) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->FailingId = datasetid::SetColCaption;
    const HeaderAnswered answered(L"x");
    Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(140, 10));
    EXPECT_TRUE(answered.WasDialogSeen());
    EXPECT_EQ(answered.Message(), "");
}

TEST_F(BoundWindow, ARowHeaderStillGoesToTheSheet) {
    Bound(10, 3);
    const HeaderAnswered answered(L"row");
    Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(10, 47));
    EXPECT_EQ(grid.Text(L"RowHeader", {2}), "row");
}

// --- Moved columns

TEST_F(BoundWindow, AMoveOfAColumnByTheMouseNamesTheColumnsAfterTheDatasetAgain) {
    FakeDataset* const dataset = Bound(10, 3);
    grid.Put(L"ColName", {1, L"mine"});
    dataset->Cols = 2;
    const auto at = [](int x, int y) { return MAKELPARAM(x, y); };
    grid.Call(L"SetSelection", {0, 1, 0, 1});
    Paint();
    told.Calls.clear();
    Send(WM_LBUTTONDOWN, MK_LBUTTON, at(51, 30));  // its frame
    Send(WM_MOUSEMOVE, MK_LBUTTON, at(140, 30));
    Send(WM_LBUTTONUP, 0, at(140, 30));
    std::erase_if(told.Calls, [](const std::string& call) { return call.starts_with("3 "); });
    EXPECT_THAT(told.Calls, Contains("7").Times(3));
    // The refresh names the columns before they are moved.
    EXPECT_EQ(grid.Text(L"ColName", {2}), CodePage936FromUtf8("列1"));
}

}  // namespace
}  // namespace veygrid
