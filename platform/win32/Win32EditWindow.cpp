// The edit window over a cell: the system's own, with a few keys and the input method seen to.
#include "platform/win32/Win32EditWindow.h"

#include <imm.h>

#include <utility>
#include <vector>

#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

std::wstring Widened(std::string_view text) {
    const std::u16string wide = Utf16FromCodePage936(text);
    return {wide.begin(), wide.end()};
}

// Nothing when code page 936 lacks one of the characters.
std::optional<std::string> Narrowed(std::wstring_view text) {
    std::vector<EncodeFault> faults;
    std::string narrow = CodePage936FromUtf16(std::u16string(text.begin(), text.end()), &faults);
    return faults.empty() ? std::optional(std::move(narrow)) : std::nullopt;
}

// The input context of a window.
class InputContext {
  public:
    explicit InputContext(HWND window) : m_window(window), m_context(::ImmGetContext(window)) {}
    InputContext(const InputContext&) = delete;
    InputContext& operator=(const InputContext&) = delete;
    ~InputContext() {
        if (m_context != nullptr) {
            ::ImmReleaseContext(m_window, m_context);
        }
    }

    HIMC Get() const { return m_context; }

  private:
    HWND m_window;
    HIMC m_context;
};

}  // namespace

Win32EditWindow::~Win32EditWindow() {
    if (m_window != nullptr) {
        ::DestroyWindow(m_window);
    }
}

bool Win32EditWindow::Create(std::uint32_t style, const Rect& rect, std::int32_t childId) {
    if (m_parent == nullptr) {
        return false;
    }
    const HWND made =
        ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | style, rect.left, rect.top,
                          rect.right - rect.left, rect.bottom - rect.top, m_parent,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(childId)), nullptr, nullptr);
    if (made == nullptr) {
        return false;
    }
    // As long as the platform takes it: a cell has no limit of its own.
    ::SendMessageW(made, EM_SETLIMITTEXT, 0, 0);
    m_window = made;
    m_isComposing = false;
    ::SetWindowLongPtrW(made, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_former = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(made, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    return true;
}

LRESULT CALLBACK Win32EditWindow::Procedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
    auto* const edit =
        reinterpret_cast<Win32EditWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    return edit == nullptr ? ::DefWindowProcW(window, message, wParam, lParam)
                           : edit->OnMessage(message, wParam, lParam);
}

LRESULT Win32EditWindow::Default(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::CallWindowProcW(m_former, m_window, message, wParam, lParam);
}

LRESULT Win32EditWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCDESTROY: {
            const HWND window = std::exchange(m_window, nullptr);
            ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            return ::CallWindowProcW(m_former, window, message, wParam, lParam);
        }
        // Asked with a message, the window would take itself for one of a dialog, and new lines and
        // tabs for the dialog's.
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_WANTTAB;
        case WM_KEYDOWN:
        case WM_CHAR:
            if (OnTab(message, wParam)) {
                return 0;
            }
            break;
        case WM_IME_STARTCOMPOSITION:
            BeginComposition();
            break;
        case WM_IME_COMPOSITION:
            if (IsStray(lParam)) {
                return 0;
            }
            m_hasResult = m_hasResult || (lParam & GCS_RESULTSTR) != 0;
            break;
        // Posted, as the system would have it, the character might come after the commit.
        case WM_IME_CHAR:
            m_hasResult = true;
            return Default(WM_CHAR, wParam, lParam);
        case WM_IME_ENDCOMPOSITION: {
            const LRESULT result = Default(message, wParam, lParam);
            if (std::exchange(m_isComposing, false) && !m_hasResult) {
                Restore();
            }
            return result;
        }
        // Also where no commit follows.
        case WM_KILLFOCUS:
            FinishComposition();
            break;
        default:
            break;
    }
    return Default(message, wParam, lParam);
}

// Only the one that is typed with Ctrl comes here. Not every keyboard layout makes a character of
// it, so the key itself writes the tab.
bool Win32EditWindow::OnTab(UINT message, WPARAM wParam) {
    if (wParam != VK_TAB) {
        return false;
    }
    if (message == WM_KEYDOWN) {
        Default(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"\t"));
    }
    return true;
}

void Win32EditWindow::BeginComposition() {
    m_isComposing = true;
    m_hasResult = false;
    m_before = {.text = WideText(), .isModified = GetModify()};
    ::SendMessageW(m_window, EM_GETSEL, reinterpret_cast<WPARAM>(&m_before.start),
                   reinterpret_cast<LPARAM>(&m_before.end));
    PlaceComposition();
}

// Some input methods clear a composition once more when it is over. The system's window would put
// the caret back to where it began.
bool Win32EditWindow::IsStray(LPARAM parts) const {
    return !m_isComposing && (parts & GCS_RESULTSTR) == 0;
}

// What the user sees of it becomes text; the input method begins anew.
void Win32EditWindow::FinishComposition() {
    if (!m_isComposing) {
        return;
    }
    const InputContext context(m_window);
    if (context.Get() != nullptr) {
        ::ImmNotifyIME(context.Get(), NI_COMPOSITIONSTR, CPS_COMPLETE, 0);
        ::ImmNotifyIME(context.Get(), NI_COMPOSITIONSTR, CPS_CANCEL, 0);
    }
    m_isComposing = false;
}

// As if the composition had never been. Its text may still come after its end, and then goes where
// it would have gone.
void Win32EditWindow::Restore() {
    if (WideText() != m_before.text) {
        ::SetWindowTextW(m_window, m_before.text.c_str());
    }
    ::SendMessageW(m_window, EM_SETSEL, m_before.start, static_cast<LPARAM>(m_before.end));
    ::SendMessageW(m_window, EM_SETMODIFY, m_before.isModified ? TRUE : FALSE, 0);
}

// Where the caret is, also when the composition began before the window was there.
void Win32EditWindow::PlaceComposition() const {
    const InputContext context(m_window);
    COMPOSITIONFORM form{};
    form.dwStyle = CFS_POINT;
    if (context.Get() != nullptr && ::GetCaretPos(&form.ptCurrentPos)) {
        ::ImmSetCompositionWindow(context.Get(), &form);
    }
}

void Win32EditWindow::SetFocus() {
    ::SetFocus(m_window);
}

void Win32EditWindow::SetWindowText(std::string_view text) {
    ::SetWindowTextW(m_window, Widened(text).c_str());
}

std::wstring Win32EditWindow::WideText() const {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(m_window)) + 1, L'\0');
    const int length = ::GetWindowTextW(m_window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::optional<std::string> Win32EditWindow::GetWindowText() const {
    return Narrowed(WideText());
}

bool Win32EditWindow::GetModify() const {
    return ::SendMessageW(m_window, EM_GETMODIFY, 0, 0) != 0;
}

std::int32_t Win32EditWindow::CharFromPos(Point point) const {
    POINT at{point.x, point.y};
    ::MapWindowPoints(m_parent, m_window, &at, 1);
    return static_cast<std::int32_t>(
        ::SendMessageW(m_window, EM_CHARFROMPOS, 0, MAKELPARAM(at.x, at.y)));
}

void Win32EditWindow::SetSel(std::int32_t start, std::int32_t end) {
    ::SendMessageW(m_window, EM_SETSEL, static_cast<WPARAM>(start), end);
}

void Win32EditWindow::ScrollCaret() {
    ::SendMessageW(m_window, EM_SCROLLCARET, 0, 0);
}

void Win32EditWindow::Close() {
    ::SendMessageW(m_window, WM_CLOSE, 0, 0);
}

}  // namespace veygrid
