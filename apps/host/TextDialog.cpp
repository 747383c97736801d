// A dialog that asks the user for one text.
#include "apps/host/TextDialog.h"

#include <cstring>
#include <vector>

#include "apps/host/WindowText.h"

namespace veygrid {

namespace {

// Dialog units.
constexpr short Width = 300;
constexpr short Margin = 7;
constexpr short LabelHeight = 10;
constexpr short ButtonWidth = 50;
constexpr short ButtonHeight = 14;
constexpr short PointSize = 9;

// Window classes that a template names by number.
enum TemplateClass : WORD { ButtonClass = 0x0080, EditClass = 0x0081, StaticClass = 0x0082 };

struct Item {
    TemplateClass kind;
    DWORD style;
    SHORT x, y, width, height;
    int id;
    const wchar_t* text;
};

// A dialog template in memory, so that the dialog needs no resource of the program.
class Template {
  public:
    Template(const std::wstring& caption, SHORT height, std::initializer_list<Item> items) {
        const DLGTEMPLATE head{DS_SETFONT | DS_CENTER | DS_MODALFRAME | WS_POPUP | WS_CAPTION |
                                   WS_SYSMENU | WS_VISIBLE,
                               0,
                               static_cast<WORD>(items.size()),
                               0,
                               0,
                               Width,
                               height};
        Append(&head, sizeof head);
        AppendWord(0);  // no menu
        AppendWord(0);  // the class of dialogs
        AppendText(caption.c_str());
        AppendWord(PointSize);
        AppendText(L"宋体");
        for (const Item& item : items) {
            AppendItem(item);
        }
    }

    const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(m_words.data()); }

  private:
    void Append(const void* bytes, std::size_t size) {
        const std::size_t at = m_words.size();
        m_words.resize(at + size / sizeof(WORD));
        std::memcpy(&m_words[at], bytes, size);
    }
    void AppendWord(WORD word) { m_words.push_back(word); }
    void AppendText(const wchar_t* text) {
        Append(text, (std::wcslen(text) + 1) * sizeof(wchar_t));
    }
    void AppendItem(const Item& item) {
        m_words.resize((m_words.size() + 1) / 2 * 2);  // items begin on multiples of four bytes
        const DLGITEMTEMPLATE head{
            item.style | WS_CHILD | WS_VISIBLE, 0, item.x, item.y, item.width, item.height,
            static_cast<WORD>(item.id)};
        Append(&head, sizeof head);
        AppendWord(0xFFFF);
        AppendWord(item.kind);
        AppendText(item.text);
        AppendWord(0);  // no further data
    }

    std::vector<WORD> m_words;
};

struct Asked {
    const std::wstring& initial;
    std::wstring answer;
};

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        SetDlgItemTextW(dialog, TextDialogEdit,
                        reinterpret_cast<const Asked*>(lParam)->initial.c_str());
        return TRUE;
    }
    if (message != WM_COMMAND || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)) {
        return FALSE;
    }
    if (LOWORD(wParam) == IDOK) {
        auto* asked = reinterpret_cast<Asked*>(GetWindowLongPtrW(dialog, DWLP_USER));
        asked->answer = TextOfWindow(GetDlgItem(dialog, TextDialogEdit));
    }
    EndDialog(dialog, LOWORD(wParam));
    return TRUE;
}

Template MakeTemplate(const TextQuestion& question) {
    const SHORT editHeight = question.hasSeveralLines ? 70 : 14;
    const DWORD editStyle = question.hasSeveralLines
                                ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL
                                : ES_AUTOHSCROLL;
    constexpr SHORT inner = Width - 2 * Margin;
    constexpr SHORT editTop = Margin + LabelHeight + 2;
    const auto buttonTop = static_cast<SHORT>(editTop + editHeight + Margin);
    constexpr SHORT cancelLeft = Width - Margin - ButtonWidth;
    constexpr SHORT okLeft = cancelLeft - Margin - ButtonWidth;
    return {question.caption,
            static_cast<SHORT>(buttonTop + ButtonHeight + Margin),
            {{StaticClass, SS_LEFT, Margin, Margin, inner, LabelHeight, TextDialogLabel,
              question.label.c_str()},
             {EditClass, editStyle | WS_BORDER | WS_TABSTOP, Margin, editTop, inner, editHeight,
              TextDialogEdit, L""},
             {ButtonClass, BS_DEFPUSHBUTTON | WS_TABSTOP, okLeft, buttonTop, ButtonWidth,
              ButtonHeight, IDOK, L"确定"},
             {ButtonClass, BS_PUSHBUTTON | WS_TABSTOP, cancelLeft, buttonTop, ButtonWidth,
              ButtonHeight, IDCANCEL, L"取消"}}};
}

}  // namespace

std::optional<std::wstring> AskForText(HWND owner, const TextQuestion& question) {
    const Template layout = MakeTemplate(question);
    Asked asked{question.text, {}};
    const INT_PTR result = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), layout.Get(), owner,
                                                   &Procedure, reinterpret_cast<LPARAM>(&asked));
    return result == IDOK ? std::optional(asked.answer) : std::nullopt;
}

}  // namespace veygrid
