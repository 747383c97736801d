// What property browsers ask of a control: its pages and the choices of a property.
#include "platform/win32/ole/PropertyParts.h"

#include <algorithm>

#include "platform/win32/ole/Enumerator.h"
#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleControl.h"

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

}  // namespace

STDMETHODIMP PagesPart::GetPages(CAUUID* pages) {
    return Answered(pages, [&] {
        const std::span<const CLSID> known = m_owner.Class().pages;
        pages->pElems = TaskArray<GUID>(known.size());
        pages->cElems = static_cast<ULONG>(known.size());
        std::ranges::copy(known, pages->pElems);
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

}  // namespace veygrid
