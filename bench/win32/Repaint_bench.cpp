// Repainting and scrolling the sheet, against the system's list view in report style with the same
// texts in the same font.
#include <windows.h>

#include <commctrl.h>

#include <cstdlib>

#include "bench/Ratio.h"
#include "control/ClassIds.h"
#include "control/DispatchDataset.h"
#include "platform/win32/GdiFonts.h"
#include "tests/control/Container.h"

namespace veygrid::bench {
namespace {

constexpr int Width = 1600;
constexpr int Height = 1000;
constexpr int Rows = 1'000'000;
constexpr int Cols = 25;
// More than fit into the window.
constexpr int RowsOfAView = 130;
constexpr int RowHeaderWidth = 50;
constexpr int ColWidth = 60;

std::wstring TextOf(int row, int col) {
    switch (col % 3) {
        case 0:
            return std::to_wstring(row * 7 + col);
        case 1:
            return L"名称" + std::to_wstring(row % 97);
        default:
            return L"Item " + std::to_wstring(row % 1000);
    }
}

// Until everything drawn is on the screen.
void Flush() {
    ::GdiFlush();
}

// What is hidden costs nothing to paint.
void RequireWholeOnScreen(HWND window) {
    RECT client{};
    RECT seen{};
    ::GetClientRect(window, &client);
    const HDC target = ::GetDC(window);
    const int kind = ::GetClipBox(target, &seen);
    ::ReleaseDC(window, target);
    if (kind != SIMPLEREGION || !::EqualRect(&seen, &client)) {
        std::printf(
            "the screen is too small for two windows of 1600 by 1000, one below the other\n");
        std::exit(1);
    }
}

void FullRepaint(HWND window) {
    ::InvalidateRect(window, nullptr, TRUE);
    ::UpdateWindow(window);
    Flush();
}

class Sheet {
  public:
    Sheet() {
        ::SetWindowPos(m_container.Window(), nullptr, 0, 0, Width, Height,
                       SWP_NOZORDER | SWP_NOACTIVATE);
        m_grid.Put(L"MaxRow", {Rows + RowsOfAView});
        m_grid.Put(L"MaxCol", {Cols});
        m_container.Show(m_control);
        m_window = Container::WindowOf(m_control);
        ::SetWindowPos(m_window, nullptr, 0, 0, Width, Height, SWP_NOZORDER | SWP_NOACTIVATE);
        ::UpdateWindow(m_window);
        RequireWholeOnScreen(m_window);
    }
    // Fills the rows that a view beginning at `row` shows, and goes there.
    void FillAndShow(int row) {
        for (int r = row; r < row + RowsOfAView; ++r) {
            for (int col = 1; col <= Cols; ++col) {
                m_grid.Put(L"CellText", {r, col, TextOf(r, col).c_str()});
            }
        }
        Show(row);
    }
    void Show(int row) {
        m_grid.Call(L"MakeCellVisible", {row, 1});
        ::UpdateWindow(m_window);
        Flush();
    }
    void Scroll(WORD request) {
        ::SendMessageW(m_window, WM_VSCROLL, request, 0);
        ::UpdateWindow(m_window);
        Flush();
    }
    // A key as the input queue brings it, up to the finished paint.
    void Press(WPARAM key) {
        constexpr LPARAM OncePressed = 1;
        ::PostMessageW(m_window, WM_KEYDOWN, key, OncePressed);
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
        Flush();
    }
    const Late& Grid() const { return m_grid; }
    HWND Window() const { return m_window; }

  private:
    Container m_container;
    ComPtr<IUnknown> m_control = Ocx::Make(VeyGridClassId);
    Late m_grid{m_control};
    HWND m_window = nullptr;
};

// The list's own window and its parent, which answers for the texts.
class List {
  public:
    explicit List(HFONT font) {
        const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_LISTVIEW_CLASSES};
        ::InitCommonControlsEx(&wanted);
        m_parent = ::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"peer", WS_POPUP | WS_VISIBLE, 0,
                                     Height, Width, Height, nullptr, nullptr, nullptr, nullptr);
        s_before = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrW(m_parent, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Answer)));
        m_window = ::CreateWindowExW(0, WC_LISTVIEWW, L"",
                                     WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, 0, 0,
                                     Width, Height, m_parent, nullptr, nullptr, nullptr);
        ::SendMessageW(m_window, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
        ListView_SetExtendedListViewStyle(m_window, LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT);
        // An empty picture makes the rows as high as those of the sheet.
        constexpr int RowPicture = 17;
        ListView_SetImageList(m_window, ::ImageList_Create(1, RowPicture, ILC_COLOR, 1, 1),
                              LVSIL_SMALL);
        for (int col = 0; col <= Cols; ++col) {
            std::wstring title =
                col == 0 ? L"" : std::wstring(1, static_cast<wchar_t>(L'A' + col - 1));
            LVCOLUMNW column{};
            column.mask = LVCF_WIDTH | LVCF_TEXT | LVCF_FMT;
            column.fmt = col % 3 == 0 ? LVCFMT_RIGHT : LVCFMT_LEFT;
            column.cx = col == 0 ? RowHeaderWidth : ColWidth;
            column.pszText = title.data();
            ::SendMessageW(m_window, LVM_INSERTCOLUMNW, static_cast<WPARAM>(col),
                           reinterpret_cast<LPARAM>(&column));
        }
        ListView_SetItemCountEx(m_window, Rows, 0);
        ::UpdateWindow(m_window);
    }
    List(const List&) = delete;
    List& operator=(const List&) = delete;
    ~List() { ::DestroyWindow(m_parent); }

    void Show(int row) {
        ListView_EnsureVisible(m_window, Rows - 1, FALSE);
        ListView_EnsureVisible(m_window, row - 1, FALSE);
        ::UpdateWindow(m_window);
        Flush();
    }
    void Scroll(WORD request) {
        ::SendMessageW(m_window, WM_VSCROLL, request, 0);
        ::UpdateWindow(m_window);
        Flush();
    }
    int RowsPerPage() const { return ListView_GetCountPerPage(m_window); }
    HWND Window() const { return m_window; }

  private:
    static LRESULT CALLBACK Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_NOTIFY) {
            auto* const asked = reinterpret_cast<NMLVDISPINFOW*>(lParam);
            if (asked->hdr.code == LVN_GETDISPINFOW && (asked->item.mask & LVIF_TEXT) != 0) {
                static std::wstring text;
                const int row = asked->item.iItem + 1;
                const int col = asked->item.iSubItem;
                text = col == 0 ? std::to_wstring(row) : TextOf(row, col);
                asked->item.pszText = text.data();
            }
        }
        return ::CallWindowProcW(s_before, window, message, wParam, lParam);
    }

    static inline WNDPROC s_before = nullptr;
    HWND m_parent = nullptr;
    HWND m_window = nullptr;
};

double Repaints(HWND window, int count) {
    return Seconds([&] {
               for (int i = 0; i < count; ++i) {
                   FullRepaint(window);
               }
           }) /
           count;
}

void AgainstTheList(Sheet& sheet, List& list) {
    sheet.FillAndShow(1);
    list.Show(1);
    constexpr int Count = 10;
    Ratio("full repaint of 1600 by 1000, against the list view", 1.0)
        .Run([&] { return Repaints(sheet.Window(), Count); },
             [&] { return Repaints(list.Window(), Count); }, 9);
    const auto scroll = [](auto& view, WORD request, WORD back) {
        return Seconds([&] {
                   for (int i = 0; i < Count; ++i) {
                       view.Scroll(request);
                   }
                   for (int i = 0; i < Count; ++i) {
                       view.Scroll(back);
                   }
               }) /
               (2 * Count);
    };
    sheet.FillAndShow(1);
    Ratio("scrolling by one row, against the list view", 1.0)
        .Run([&] { return scroll(sheet, SB_LINEDOWN, SB_LINEUP); },
             [&] { return scroll(list, SB_LINEDOWN, SB_LINEUP); }, 9);
    for (int row = 1; row < Count * RowsOfAView; row += RowsOfAView) {
        sheet.FillAndShow(row);
    }
    sheet.Show(1);
    Ratio("scrolling by one page, against the list view", 1.0)
        .Run([&] { return scroll(sheet, SB_PAGEDOWN, SB_PAGEUP); },
             [&] { return scroll(list, SB_PAGEDOWN, SB_PAGEUP); }, 9);
}

void KeyToPaint(Sheet& sheet) {
    sheet.FillAndShow(1);
    sheet.Grid().Call(L"SetActiveCell", {10, 3});
    sheet.Press(VK_DOWN);
    LONG row = 0;
    LONG col = 0;
    sheet.Grid().Call(L"GetActiveCell", {Arg::Reference(&row), Arg::Reference(&col)});
    if (row != 11 || col != 3) {
        std::printf("the key did not move the active cell\n");
        std::exit(1);
    }
    constexpr int Count = 10;
    Ratio("a key that moves the active cell, up to its paint, against a full repaint", 1.1)
        .Run(
            [&] {
                return Seconds([&] {
                           for (int i = 0; i < Count; ++i) {
                               sheet.Press(i % 2 == 0 ? VK_UP : VK_DOWN);
                           }
                       }) /
                       Count;
            },
            [&] { return Repaints(sheet.Window(), Count); }, 9);
}

// A dataset in the process that answers from a table, as a good one does. Lives on the stack.
class TableDataset final : public IDispatch {
  public:
    TableDataset() {
        for (int row = 1; row <= RowsOfAView; ++row) {
            for (int col = 1; col <= Cols; ++col) {
                m_texts.push_back(TextOf(row, col));
            }
        }
    }
    STDMETHODIMP QueryInterface(REFIID, void** target) override {
        *target = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 1; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        result->vt = VT_I4;
        switch (id) {
            case datasetid::GetCellValue:
                PutText(*given->rgvarg[1].pvarVal,
                        m_texts[static_cast<std::size_t>((given->rgvarg[3].lVal - 1) * Cols +
                                                         given->rgvarg[2].lVal - 1)]);
                return S_OK;
            case datasetid::GetColCount:
                result->lVal = Cols;
                return S_OK;
            case datasetid::GetRowCount:
                result->lVal = RowsOfAView;
                return S_OK;
            case datasetid::GetColName:
                PutText(*result,
                        std::wstring(1, static_cast<wchar_t>(L'A' + given->rgvarg[0].lVal - 1)));
                return S_OK;
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
    }

  private:
    static void PutText(VARIANT& target, const std::wstring& text) {
        target.vt = VT_BSTR;
        target.bstrVal = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }

    std::vector<std::wstring> m_texts;
};

// The same texts in both.
void BoundAgainstOwnCells() {
    TableDataset dataset;
    Sheet sheet;
    sheet.FillAndShow(1);
    sheet.Grid().Put(L"MaxRow", {RowsOfAView});
    constexpr int Count = 10;
    const auto bound = [&](IDispatch* object) {
        sheet.Grid().Call(L"BindDataset", {Arg(object)});
        if (object == nullptr) {
            sheet.Grid().Put(L"MaxRow", {RowsOfAView});
            sheet.Grid().Put(L"MaxCol", {Cols});
        }
        FullRepaint(sheet.Window());
        return Repaints(sheet.Window(), Count);
    };
    Ratio("full repaint of a bound sheet, against its own cells", 3)
        .Run([&] { return bound(&dataset); }, [&] { return bound(nullptr); }, 9);
    sheet.Grid().Call(L"BindDataset", {Arg(static_cast<IDispatch*>(nullptr))});
}

// Where in the sheet the view stands must not matter.
void DownTheSheet(Sheet& sheet) {
    constexpr int Tab = 9;
    for (int row = 1; row <= Rows; ++row) {
        sheet.Grid().Call(L"SetRowData", {row, 1, TextOf(row, 1).c_str(), Tab});
    }
    constexpr int Near = 10;
    constexpr int Count = 10;
    for (const int row : {100'000, Rows}) {
        const auto at = [&](int place) {
            sheet.FillAndShow(place);
            return Repaints(sheet.Window(), Count);
        };
        const std::string what = "full repaint at row " + std::to_string(row) +
                                 " of a million filled ones, against row 10";
        Ratio(what, 1.1).Run([&] { return at(row); }, [&] { return at(Near); }, 15);
    }
}

}  // namespace
}  // namespace veygrid::bench

int main() {
    using namespace veygrid;
    using namespace veygrid::bench;
    ::OleInitialize(nullptr);
    {
        Sheet sheet;
        LOGFONTW record{};
        record.lfHeight = -12;
        record.lfCharSet = GB2312_CHARSET;
        ::lstrcpyW(record.lfFaceName, L"宋体");
        const OwnedFont font = MakeFont(record);
        List list(font.Get());
        RequireWholeOnScreen(sheet.Window());
        AgainstTheList(sheet, list);
        KeyToPaint(sheet);
        BoundAgainstOwnCells();
        DownTheSheet(sheet);
    }
    return 0;
}
