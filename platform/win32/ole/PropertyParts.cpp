// What property browsers ask of a control: its pages and the choices of a property.
#include "platform/win32/ole/PropertyParts.h"

#include <algorithm>
#include <iterator>

#include "platform/win32/ole/Enumerator.h"
#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleControl.h"
#include "platform/win32/ole/PropertyFrame.h"

namespace veygrid {

namespace {

template <class Item>
Item* TaskArray(std::size_t count) {
    auto* const items =
        static_cast<Item*>(::CoTaskMemAlloc(std::max<std::size_t>(count, 1) * sizeof(Item)));
    if (items == nullptr) {
        throw std::bad_alloc();
    }
    return items;
}

// The present value of a property as a cookie.
DWORD CurrentCookie(CVeyOleControl& control, DISPID id) {
    OwnedVariant value;
    DISPPARAMS none{};
    Require(control.Automation().Dispatch()->Invoke(
        id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr));
    return static_cast<DWORD>(ReadLong(value.Get(), LOCALE_USER_DEFAULT));
}

// Wine shows the pages in the platform's frame and never applies what they hold.
bool DoesPlatformApplyPages() {
    return ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr;
}

}  // namespace

STDMETHODIMP PagesPart::GetPages(CAUUID* pages) {
    return Answered(pages, [&] {
        const std::span<const PageEntry> known = m_owner.Class().pages;
        pages->pElems = TaskArray<GUID>(known.size());
        pages->cElems = static_cast<ULONG>(known.size());
        std::ranges::transform(known, pages->pElems, &PageEntry::clsid);
        return S_OK;
    });
}

STDMETHODIMP BrowsingPart::GetDisplayString(DISPID id, BSTR* text) {
    return Answered(text, [&] {
        const std::vector<PredefinedValue> choices = m_owner.OnGetPredefinedStrings(id);
        if (choices.empty()) {
            return S_FALSE;
        }
        const auto found =
            std::ranges::find(choices, CurrentCookie(m_owner, id), &PredefinedValue::cookie);
        if (found == choices.end()) {
            return S_FALSE;
        }
        *text = BstrFromWide(found->text).Release();
        return S_OK;
    });
}

STDMETHODIMP BrowsingPart::MapPropertyToPage(DISPID id, CLSID* page) {
    return Answered(page, [&] {
        const CLSID* const mapped = m_owner.OnMapPropertyToPage(id);
        if (mapped == nullptr) {
            return PERPROP_E_NOPAGEAVAILABLE;
        }
        *page = *mapped;
        return S_OK;
    });
}

STDMETHODIMP BrowsingPart::GetPredefinedStrings(DISPID id, CALPOLESTR* strings, CADWORD* cookies) {
    if (strings == nullptr) {
        return E_POINTER;
    }
    *strings = {};
    return Answered(cookies, [&] {
        const std::vector<PredefinedValue> choices = m_owner.OnGetPredefinedStrings(id);
        if (choices.empty()) {
            return S_FALSE;
        }
        strings->pElems = TaskArray<LPOLESTR>(choices.size());
        cookies->pElems = TaskArray<DWORD>(choices.size());
        for (const PredefinedValue& choice : choices) {
            strings->pElems[strings->cElems++] = TaskText(choice.text.c_str());
            cookies->pElems[cookies->cElems++] = choice.cookie;
        }
        return S_OK;
    });
}

STDMETHODIMP BrowsingPart::GetPredefinedValue(DISPID id, DWORD cookie, VARIANT* value) {
    return Answered(value, [&] {
        const std::vector<PredefinedValue> choices = m_owner.OnGetPredefinedStrings(id);
        if (std::ranges::find(choices, cookie, &PredefinedValue::cookie) == choices.end()) {
            return E_INVALIDARG;
        }
        PutLong(*value, static_cast<std::int32_t>(cookie));
        return S_OK;
    });
}

// A page that is not at hand is left out.
std::vector<ComPtr<IPropertyPage>> CVeyOleControl::MakePages() const {
    std::vector<ComPtr<IPropertyPage>> pages;
    for (const PageEntry& entry : m_class.pages) {
        ComPtr<IPropertyPage> page;
        if (entry.make != nullptr) {
            Require(Adopt(entry.make(nullptr)).As(&page));
        } else {
            ::CoCreateInstance(entry.clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IPropertyPage,
                               reinterpret_cast<void**>(page.GetAddressOf()));
        }
        if (page != nullptr) {
            pages.push_back(page);
        }
    }
    return pages;
}

HRESULT CVeyOleControl::OnProperties(HWND parent) {
    const KeepAlive keep(*this);
    ComPtr<IOleControlSite> site;
    if (m_site != nullptr && SUCCEEDED(m_site.As(&site)) && site->ShowPropertyFrame() == S_OK) {
        return S_OK;
    }
    IUnknown* object = Controlling();
    OwnedVariant name;
    const std::wstring caption = GetAmbient(DISPID_AMBIENT_DISPLAYNAME, VT_BSTR, name)
                                     ? std::wstring(name->bstrVal, ::SysStringLen(name->bstrVal))
                                     : module::String(m_class.userTypeNameId);
    std::vector<CLSID> ids;
    std::ranges::transform(m_class.pages, std::back_inserter(ids), &PageEntry::clsid);
    if (DoesPlatformApplyPages() &&
        SUCCEEDED(::OleCreatePropertyFrame(parent, 0, 0, caption.c_str(), 1, &object,
                                           static_cast<ULONG>(ids.size()), ids.data(),
                                           AmbientLocale(), 0, nullptr))) {
        return S_OK;
    }
    return ShowPropertyFrame({parent, caption, object, MakePages(), AmbientLocale()});
}

}  // namespace veygrid
