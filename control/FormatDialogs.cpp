// The dialogs of the format commands: the system's for the font, and dialog 2305 for the alignment.
#include "control/FormatDialogs.h"

#include <commdlg.h>

#include <array>
#include <span>

#include "control/ModalDialog.h"
#include "platform/win32/GdiFonts.h"
#include "platform/win32/ole/OleText.h"
#include "resources/Texts.h"

namespace veygrid {

namespace {

constexpr UINT AlignDialogId = 2305;
constexpr int HorizontalList = 1005;
constexpr int VerticalList = 1008;
constexpr int WordBreakBox = 1010;
constexpr int MergeBox = 1012;  // read by nothing: there are no merged cells
constexpr int ReadOnlyBox = 1016;

// General, left, centre, right; top, middle, bottom.
constexpr std::array<std::uint32_t, 4> HorizontalTexts{0x20005095, 0x2000508F, 0x20005091,
                                                       0x20005090};
constexpr std::array<std::uint32_t, 3> VerticalTexts{0x20005092, 0x20005094, 0x20005093};

class CAlignDlg final : public ModalDialog {
  public:
    explicit CAlignDlg(const AlignChoice& choice) : m_choice(choice) {}

    const AlignChoice& Choice() const { return m_choice; }

  private:
    void OnInitDialog() override {
        FillList(HorizontalList, HorizontalTexts, m_choice.horizontal);
        FillList(VerticalList, VerticalTexts, m_choice.vertical);
        SetBox(WordBreakBox, m_choice.wordBreak);
        SetBox(ReadOnlyBox, m_choice.readOnly);
        SetBox(MergeBox, BoxUnchanged);
    }
    void OnOk() override {
        m_choice = {.horizontal = Chosen(HorizontalList),
                    .vertical = Chosen(VerticalList),
                    .wordBreak = Box(WordBreakBox),
                    .readOnly = Box(ReadOnlyBox)};
    }

    void FillList(int list, std::span<const std::uint32_t> texts, std::int32_t chosen) {
        for (const std::uint32_t text : texts) {
            const std::wstring line = WideFromText(GetMsg(text));
            Send(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
        }
        Send(list, CB_SETCURSEL, static_cast<WPARAM>(chosen));
    }
    std::int32_t Chosen(int list) const {
        return static_cast<std::int32_t>(Send(list, CB_GETCURSEL));
    }
    void SetBox(int box, std::int32_t state) {
        ::CheckDlgButton(Window(), box, static_cast<UINT>(state));
    }
    std::int32_t Box(int box) const {
        return static_cast<std::int32_t>(::IsDlgButtonChecked(Window(), box));
    }

    AlignChoice m_choice;
};

}  // namespace

std::optional<FontChoice> AskFont(HWND owner, const LogFont& shown) {
    LOGFONTW font = WideRecord(shown);
    CHOOSEFONTW asked{};
    asked.lStructSize = sizeof asked;
    asked.hwndOwner = owner;
    asked.lpLogFont = &font;
    asked.Flags = CF_SCREENFONTS | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT;
    if (!::ChooseFontW(&asked)) {
        return std::nullopt;
    }
    return FontChoice{NarrowRecord(font), asked.rgbColors};
}

std::optional<AlignChoice> AskAlignment(HWND owner, const AlignChoice& shown) {
    CAlignDlg dialog(shown);
    return dialog.DoModal(AlignDialogId, owner) ? std::optional(dialog.Choice()) : std::nullopt;
}

}  // namespace veygrid
