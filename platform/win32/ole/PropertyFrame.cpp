// A modal window around the property pages of an object.
#include "platform/win32/ole/PropertyFrame.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleObject.h"

namespace veygrid {

namespace {

constexpr WORD FrameDialogId = 101;
constexpr int TabControlId = 100;
constexpr int ApplyButtonId = 103;

struct FramedPage {
    ComPtr<IPropertyPage> page;
    std::wstring title;
    SIZE size{};  // pixels
    bool isActivated = false;
};

// The frame as its pages see it. It may outlive the window.
class Frame final : public OleObject {
  public:
    explicit Frame(PropertyFrameSetting setting)
        : OleObject(nullptr), m_setting(std::move(setting)) {}

    HRESULT Run();

  private:
    class SitePart final : public Part<IPropertyPageSite, Frame> {
      public:
        using Part::Part;
        STDMETHODIMP OnStatusChange(DWORD) override {
            m_owner.UpdateApplyButton();
            return S_OK;
        }
        STDMETHODIMP GetLocaleID(LCID* locale) override {
            return Answered(locale, [&] {
                *locale = m_owner.m_setting.locale;
                return S_OK;
            });
        }
        STDMETHODIMP GetPageContainer(IUnknown** container) override {
            return Answered(container, [] { return E_NOTIMPL; });
        }
        STDMETHODIMP TranslateAccelerator(MSG*) override { return S_FALSE; }
    };

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    IUnknown* FindInterface(REFIID iid) override {
        return iid == IID_IPropertyPageSite ? &m_site : nullptr;
    }
    HRESULT Take(const ComPtr<IPropertyPage>& page);
    void LetGo();
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(int id);
    void Lay();
    void Select(std::size_t index);
    bool Apply();
    void UpdateApplyButton();
    HWND Item(int id) const { return ::GetDlgItem(m_window, id); }

    PropertyFrameSetting m_setting;
    SitePart m_site{*this};
    std::vector<FramedPage> m_pages;
    std::size_t m_selected = 0;
    RECT m_place{};  // of the pages, client pixels of the window
    HWND m_window = nullptr;
};

HRESULT Frame::Run() {
    HRESULT result = E_FAIL;
    for (const ComPtr<IPropertyPage>& page : m_setting.pages) {
        result = Take(page);
        if (FAILED(result)) {
            page->SetPageSite(nullptr);
        }
    }
    if (m_pages.empty()) {
        LetGo();
        return FAILED(result) ? result : E_FAIL;
    }
    const INT_PTR ended =
        ::DialogBoxParamW(module::Instance(), MAKEINTRESOURCEW(FrameDialogId), m_setting.owner,
                          Procedure, reinterpret_cast<LPARAM>(this));
    LetGo();
    return ended == -1 ? E_FAIL : S_OK;
}

HRESULT Frame::Take(const ComPtr<IPropertyPage>& page) {
    IUnknown* object = m_setting.object;
    PROPPAGEINFO info{};
    info.cb = sizeof info;
    HRESULT result = page->SetPageSite(&m_site);
    result = FAILED(result) ? result : page->GetPageInfo(&info);
    result = FAILED(result) ? result : page->SetObjects(1, &object);
    if (SUCCEEDED(result)) {
        m_pages.push_back({page, info.pszTitle == nullptr ? L"" : info.pszTitle, info.size});
    }
    ::CoTaskMemFree(info.pszTitle);
    ::CoTaskMemFree(info.pszDocString);
    ::CoTaskMemFree(info.pszHelpFile);
    return result;
}

void Frame::LetGo() {
    for (const FramedPage& framed : m_pages) {
        framed.page->SetObjects(0, nullptr);
        framed.page->SetPageSite(nullptr);
    }
    m_pages.clear();
    m_setting.pages.clear();
}

INT_PTR CALLBACK Frame::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        ::SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
        reinterpret_cast<Frame*>(lParam)->m_window = window;
    }
    auto* const frame = reinterpret_cast<Frame*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (frame == nullptr) {
        return FALSE;
    }
    try {
        return frame->OnMessage(message, wParam, lParam);
    } catch (...) {
        static_cast<void>(FailureOfCurrentException());
        return FALSE;
    }
}

INT_PTR Frame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            ::SetWindowTextW(m_window, m_setting.caption.c_str());
            Lay();
            Select(0);
            return TRUE;
        case WM_COMMAND:
            OnCommand(LOWORD(wParam));
            return TRUE;
        case WM_NOTIFY:
            if (reinterpret_cast<const NMHDR*>(lParam)->code == TCN_SELCHANGE) {
                Select(static_cast<std::size_t>(TabCtrl_GetCurSel(Item(TabControlId))));
            }
            return TRUE;
        case WM_DESTROY:
            for (FramedPage& framed : m_pages) {
                if (std::exchange(framed.isActivated, false)) {
                    framed.page->Deactivate();
                }
            }
            m_window = nullptr;
            return TRUE;
        default:
            return FALSE;
    }
}

void Frame::OnCommand(int id) {
    if (id == ApplyButtonId) {
        Apply();
    } else if (id == IDCANCEL || (id == IDOK && Apply())) {
        ::EndDialog(m_window, id);
    }
}

// The tabs around the largest page, the buttons below at their distance from the right border.
void Frame::Lay() {
    const HWND tabs = Item(TabControlId);
    SIZE largest{};
    for (const FramedPage& framed : m_pages) {
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(framed.title.c_str());
        ::SendMessageW(tabs, TCM_INSERTITEMW, static_cast<WPARAM>(TabCtrl_GetItemCount(tabs)),
                       reinterpret_cast<LPARAM>(&item));
        largest = {std::max(largest.cx, framed.size.cx), std::max(largest.cy, framed.size.cy)};
    }
    const auto placeOf = [this](HWND item) {
        RECT place{};
        ::GetWindowRect(item, &place);
        ::MapWindowPoints(nullptr, m_window, reinterpret_cast<POINT*>(&place), 2);
        return place;
    };
    const RECT before = placeOf(tabs);
    RECT around{0, 0, largest.cx, largest.cy};
    TabCtrl_AdjustRect(tabs, TRUE, &around);
    ::OffsetRect(&around, before.left - around.left, before.top - around.top);
    const SIZE grown{around.right - before.right, around.bottom - before.bottom};
    const auto resize = [](HWND window, LONG width, LONG height) {
        ::SetWindowPos(window, nullptr, 0, 0, width, height,
                       SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    };
    resize(tabs, around.right - around.left, around.bottom - around.top);
    for (const int id : {IDOK, IDCANCEL, ApplyButtonId}) {
        const RECT place = placeOf(Item(id));
        ::SetWindowPos(Item(id), nullptr, place.left + grown.cx, place.top + grown.cy, 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    RECT window{};
    ::GetWindowRect(m_window, &window);
    resize(m_window, window.right - window.left + grown.cx, window.bottom - window.top + grown.cy);
    m_place = around;
    TabCtrl_AdjustRect(tabs, FALSE, &m_place);
}

void Frame::Select(std::size_t index) {
    if (index >= m_pages.size()) {
        return;
    }
    FramedPage& framed = m_pages[index];
    if (!framed.isActivated) {
        Require(framed.page->Activate(m_window, &m_place, TRUE));
        framed.isActivated = true;
    }
    if (m_pages[m_selected].isActivated && m_selected != index) {
        m_pages[m_selected].page->Show(SW_HIDE);
    }
    m_selected = index;
    framed.page->Show(SW_SHOW);
    TabCtrl_SetCurSel(Item(TabControlId), static_cast<int>(index));
}

// False when a page refuses; it is shown then.
bool Frame::Apply() {
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        const FramedPage& framed = m_pages[i];
        if (framed.isActivated && framed.page->IsPageDirty() == S_OK &&
            FAILED(framed.page->Apply())) {
            Select(i);
            return false;
        }
    }
    UpdateApplyButton();
    return true;
}

void Frame::UpdateApplyButton() {
    if (m_window != nullptr) {
        ::EnableWindow(Item(ApplyButtonId), std::ranges::any_of(m_pages, [](const FramedPage& f) {
                           return f.isActivated && f.page->IsPageDirty() == S_OK;
                       }));
    }
}

}  // namespace

HRESULT ShowPropertyFrame(PropertyFrameSetting setting) {
    return Guarded([&] {
        auto* const frame = new Frame(std::move(setting));
        const ComPtr<IUnknown> owner = Adopt(frame->Inner());
        return frame->Run();
    });
}

}  // namespace veygrid
