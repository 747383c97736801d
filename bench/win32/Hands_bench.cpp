// Hands on the sheet: a block pasted and cleared against the same through the system's list view,
// and a drag over the cells against a full repaint.
#include <windows.h>

#include <commctrl.h>

#include "bench/win32/SheetWindow.h"
#include "platform/win32/Clipboard.h"

namespace veygrid::bench {
namespace {

constexpr int Rows = 5'000;
constexpr int Cols = 20;
constexpr int ColWidth = 60;
constexpr int RowHeight = 18;

// A voucher's line: numbers, and texts in Chinese.
std::wstring TextOf(int row, int col) {
    switch (col % 3) {
        case 0:
            return std::to_wstring(row * 7 + col) + L".50";
        case 1:
            return L"银行存款" + std::to_wstring(row % 97);
        default:
            return L"摘要 " + std::to_wstring(row % 1000);
    }
}

std::wstring TabbedText() {
    std::wstring text;
    for (int row = 1; row <= Rows; ++row) {
        for (int col = 1; col <= Cols; ++col) {
            text += TextOf(row, col);
            text += col < Cols ? L"\t" : row < Rows ? L"\r\n" : L"";
        }
    }
    return text;
}

void PutOnClipboard(HWND owner) {
    if (!PutClipboardText(owner, TextFromWide(TabbedText()))) {
        std::printf("the clipboard is another program's\n");
        std::exit(1);
    }
}

// Up to the finished paint.
void Finish(HWND window) {
    Pump();
    ::UpdateWindow(window);
    Flush();
}

// The system's list in report style with the rows there and nothing in them.
class List {
  public:
    List() {
        const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_LISTVIEW_CLASSES};
        ::InitCommonControlsEx(&wanted);
        m_window = ::CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0,
                                     Width, Height, m_parent, nullptr, nullptr, nullptr);
        for (int col = 0; col < Cols; ++col) {
            LVCOLUMNW column{};
            column.mask = LVCF_WIDTH;
            column.cx = ColWidth;
            ::SendMessageW(m_window, LVM_INSERTCOLUMNW, static_cast<WPARAM>(col),
                           reinterpret_cast<LPARAM>(&column));
        }
        ListView_SetItemCount(m_window, Rows);
        for (int row = 0; row < Rows; ++row) {
            LVITEMW item{};
            item.iItem = row;
            ::SendMessageW(m_window, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        }
        Finish(m_window);
        RequireWholeOnScreen(m_window);
    }
    List(const List&) = delete;
    List& operator=(const List&) = delete;
    ~List() { ::DestroyWindow(m_parent); }

    // `textOf` gives the text of a cell, both counted from 1.
    template <class TextOfCell>
    double Write(TextOfCell textOf) {
        return Seconds([&] {
            for (int row = 0; row < Rows; ++row) {
                for (int col = 0; col < Cols; ++col) {
                    LVITEMW item{};
                    item.iSubItem = col;
                    item.pszText = const_cast<wchar_t*>(textOf(row + 1, col + 1));
                    ::SendMessageW(m_window, LVM_SETITEMTEXTW, static_cast<WPARAM>(row),
                                   reinterpret_cast<LPARAM>(&item));
                }
            }
            Finish(m_window);
        });
    }

  private:
    HWND m_parent = MakePeerWindow();
    HWND m_window = nullptr;
};

// The host's own work, made beforehand.
std::vector<std::wstring> AllTexts() {
    std::vector<std::wstring> texts;
    for (int row = 1; row <= Rows; ++row) {
        for (int col = 1; col <= Cols; ++col) {
            texts.push_back(TextOf(row, col));
        }
    }
    return texts;
}

void RequireText(const SheetWindow& sheet, const std::wstring& wanted) {
    if (sheet.Grid().Text(L"CellText", {Rows, Cols}) != TextFromWide(wanted)) {
        std::printf("the last cell does not hold what it must\n");
        std::exit(1);
    }
}

struct Times {
    std::vector<double> ours;
    std::vector<double> peer;

    void Print(const char* what) const {
        constexpr double Limit = 0.5;
        Ratio(what, Limit).Print(Median(ours), Median(peer), "ms", 1000.0);
    }
};

void PasteAndClear(const SheetWindow& sheet) {
    sheet.Grid().Call(L"SetActiveCell", {1, 1});
    List list;
    const std::vector<std::wstring> texts = AllTexts();
    const auto textOf = [&texts](int row, int col) {
        return texts[static_cast<std::size_t>((row - 1) * Cols + col - 1)].c_str();
    };
    const auto empty = [](int, int) { return L""; };
    const auto paste = [&sheet] {
        return Seconds([&sheet] {
            sheet.Grid().Call(L"EditPaste", {});
            Finish(sheet.Window());
        });
    };
    const auto clear = [&sheet] {
        return Seconds([&sheet] {
            sheet.Grid().Call(L"ClearRange", {1, 1, Rows, Cols, 0});
            Finish(sheet.Window());
        });
    };
    Times pasting;
    Times clearing;
    constexpr int Rounds = 3;
    for (int round = 0; round < Rounds; ++round) {
        pasting.peer.push_back(list.Write(textOf));
        pasting.ours.push_back(paste());
        RequireText(sheet, TextOf(Rows, Cols));
        clearing.peer.push_back(list.Write(empty));
        clearing.ours.push_back(clear());
        RequireText(sheet, L"");
    }
    pasting.Print("a block of 100,000 cells pasted, against the list view's cells");
    clearing.Print("the same cells cleared");
}

// There and back again between 0 and `last`.
int Bounce(int step, int last) {
    const int place = step % (2 * last);
    return place <= last ? place : 2 * last - place;
}

// The mouse over all of the window, into another cell with each of its moves, the button held.
void Drag(const SheetWindow& sheet) {
    const HWND window = sheet.Window();
    sheet.Grid().Call(L"EditPaste", {});
    Finish(window);
    constexpr POINT Middle{80, 30};
    constexpr int ColsOnView = 24;
    constexpr int RowsOnView = 50;
    const auto at = [&Middle](int step) {
        return MAKELPARAM(Middle.x + Bounce(step, ColsOnView) * ColWidth,
                          Middle.y + Bounce(step, RowsOnView) * RowHeight);
    };
    constexpr int Moves = 240;
    const auto drag = [&](auto afterMove) {
        ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at(0));
        Finish(window);
        const double seconds = Seconds([&] {
            for (int i = 1; i <= Moves; ++i) {
                ::SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, at(i));
                afterMove();
            }
            Flush();
        });
        ::SendMessageW(window, WM_LBUTTONUP, 0, at(Moves));
        Finish(window);
        return seconds / Moves;
    };
    drag([window] {
        if (::GetUpdateRect(window, nullptr, FALSE)) {
            std::printf("a drag asks for a paint\n");
            std::exit(1);
        }
    });
    constexpr double Limit = 1.0 / 20;
    Ratio("a move of the mouse in a selection drag, against a full repaint", Limit)
        .Run([&] { return drag([] {}); }, [&] { return Repaints(window, 5); }, 9);
}

}  // namespace
}  // namespace veygrid::bench

int main(int count, char** arguments) {
    using namespace veygrid::bench;
    testing::InitGoogleTest(&count, arguments);
    ::OleInitialize(nullptr);
    {
        constexpr int EmptyCols = 5;
        const SheetWindow sheet(Rows, Cols + EmptyCols);
        PutOnClipboard(sheet.Window());
        Drag(sheet);
        PasteAndClear(sheet);
    }
    return 0;
}
