// A property page: a dialog whose fields stand for properties of the objects that are shown.
#include "platform/win32/ole/PropertyPage.h"

#include <algorithm>
#include <optional>

#include "platform/win32/ole/Enumerator.h"
#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleText.h"

namespace veygrid {

namespace {

DISPID NumberOfProperty(IDispatch& object, const wchar_t* property) {
    DISPID id = DISPID_UNKNOWN;
    auto* name = const_cast<wchar_t*>(property);
    object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

// Throws OleError when the object lacks the property.
void ReadProperty(IDispatch& object, const wchar_t* property, VARTYPE type, OwnedVariant& value) {
    DISPPARAMS none{};
    OwnedVariant given;
    Require(object.Invoke(NumberOfProperty(object, property), IID_NULL, LOCALE_USER_DEFAULT,
                          DISPATCH_PROPERTYGET, &none, &given, nullptr, nullptr));
    Require(::VariantChangeType(&value, &given, 0, type));
}

void WriteProperty(IDispatch& object, const wchar_t* property, VARIANT& value) {
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&value, &named, 1, 1};
    Require(object.Invoke(NumberOfProperty(object, property), IID_NULL, LOCALE_USER_DEFAULT,
                          DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr));
}

INT_PTR CALLBACK IdleProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

std::wstring WindowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

}  // namespace

// From the objects to the fields. Where the objects differ, a text is empty and a check off.
class COlePropertyPage::Loader final : public PageExchange {
  public:
    explicit Loader(const COlePropertyPage& page) : m_page(page) {}

    void Text(int control, const wchar_t* property, std::wstring& member) override {
        const auto read = [&](IDispatch& object) {
            OwnedVariant value;
            ReadProperty(object, property, VT_BSTR, value);
            return std::wstring(value->bstrVal, ::SysStringLen(value->bstrVal));
        };
        member = Common<std::wstring>(read).value_or(L"");
        ::SendDlgItemMessageW(m_page.m_window, control, EM_LIMITTEXT, 0, 0);
        ::SetDlgItemTextW(m_page.m_window, control, member.c_str());
    }
    void Check(int control, const wchar_t* property, bool& member) override {
        const auto read = [&](IDispatch& object) {
            OwnedVariant value;
            ReadProperty(object, property, VT_BOOL, value);
            return value->boolVal != VARIANT_FALSE;
        };
        member = Common<bool>(read).value_or(false);
        ::CheckDlgButton(m_page.m_window, control, member ? BST_CHECKED : BST_UNCHECKED);
    }

  private:
    // What all objects have; nothing where they differ.
    template <class Value, class Read>
    std::optional<Value> Common(Read read) {
        std::optional<Value> common;
        for (const ComPtr<IDispatch>& object : m_page.m_objects) {
            const Value value = read(*object.Get());
            if (common && *common != value) {
                return std::nullopt;
            }
            common = value;
        }
        return common;
    }

    const COlePropertyPage& m_page;
};

// From the changed fields to all objects.
class COlePropertyPage::Saver final : public PageExchange {
  public:
    explicit Saver(COlePropertyPage& page) : m_page(page) {}

    void Text(int control, const wchar_t* property, std::wstring& member) override {
        if (m_page.ControlStatus(control)) {
            member = WindowText(::GetDlgItem(m_page.m_window, control));
            OwnedVariant value;
            value->bstrVal = BstrFromWide(member).Release();
            value->vt = VT_BSTR;
            Write(control, property, value);
        }
    }
    void Check(int control, const wchar_t* property, bool& member) override {
        if (m_page.ControlStatus(control)) {
            member = ::IsDlgButtonChecked(m_page.m_window, control) == BST_CHECKED;
            OwnedVariant value;
            PutBool(value.Get(), member);
            Write(control, property, value);
        }
    }

  private:
    void Write(int control, const wchar_t* property, OwnedVariant& value) {
        // A write may reach a host that takes the objects away.
        const std::vector<ComPtr<IDispatch>> objects = m_page.m_objects;
        for (const ComPtr<IDispatch>& object : objects) {
            WriteProperty(*object.Get(), property, value.Get());
        }
        m_page.SetControlStatus(control, false);
    }

    COlePropertyPage& m_page;
};

// The field that stands for a property.
class COlePropertyPage::Finder final : public PageExchange {
  public:
    Finder(IDispatch& object, DISPID id) : m_object(object), m_id(id) {}

    void Text(int control, const wchar_t* property, std::wstring&) override {
        Look(control, property);
    }
    void Check(int control, const wchar_t* property, bool&) override { Look(control, property); }

    std::optional<int> Found;

  private:
    void Look(int control, const wchar_t* property) {
        if (NumberOfProperty(m_object, property) == m_id) {
            Found = control;
        }
    }

    IDispatch& m_object;
    DISPID m_id;
};

COlePropertyPage::COlePropertyPage(IUnknown* outer, const PageClass& pageClass)
    : OleObject(outer), m_class(pageClass) {}

IUnknown* COlePropertyPage::FindInterface(REFIID iid) {
    return iid == IID_IPropertyPage || iid == IID_IPropertyPage2 ? &m_page : nullptr;
}

void COlePropertyPage::OnFinalRelease() {
    Destroy();
}

void COlePropertyPage::SetControlStatus(int control, bool changed) {
    if (changed) {
        m_changed.insert(control);
    } else {
        m_changed.erase(control);
    }
}

void COlePropertyPage::SetModifiedFlag(bool modified) {
    m_modified = modified;
    if (m_site != nullptr) {
        m_site->OnStatusChange(modified ? PROPPAGESTATUS_DIRTY | PROPPAGESTATUS_VALIDATE
                                        : PROPPAGESTATUS_CLEAN);
    }
}

void COlePropertyPage::Make(HWND parent) {
    ::CreateDialogParamW(module::Instance(), MAKEINTRESOURCEW(m_class.dialogId), parent, Procedure,
                         reinterpret_cast<LPARAM>(this));
    if (m_window == nullptr) {
        throw OleError{E_FAIL};
    }
}

void COlePropertyPage::Destroy() {
    if (m_window != nullptr) {
        ::DestroyWindow(m_window);
    }
}

void COlePropertyPage::Move(const RECT& place) {
    ::SetWindowPos(m_window, nullptr, place.left, place.top, place.right - place.left,
                   place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void COlePropertyPage::Load() {
    m_isLoading = true;
    try {
        Loader loader(*this);
        DoDataExchange(loader);
    } catch (...) {
        m_isLoading = false;
        throw;
    }
    m_isLoading = false;
    m_changed.clear();
    m_modified = false;
}

HRESULT COlePropertyPage::Apply() {
    Saver saver(*this);
    DoDataExchange(saver);
    SetModifiedFlag(false);
    return S_OK;
}

// Every change of a field counts, by hand or by program.
void COlePropertyPage::OnCommand(int control, int notification) {
    const HWND field = ::GetDlgItem(m_window, control);
    const bool isButton = notification == BN_CLICKED && field != nullptr;
    const bool isCheck = isButton &&
                         (::SendMessageW(field, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0 &&
                         (::GetWindowLongPtrW(field, GWL_STYLE) & BS_TYPEMASK) == BS_AUTOCHECKBOX;
    if (isButton && !isCheck) {
        OnButton(control);
    } else if (!m_isLoading && (isCheck || notification == EN_CHANGE)) {
        SetControlStatus(control, true);
        SetModifiedFlag(true);
    }
}

INT_PTR CALLBACK COlePropertyPage::Procedure(HWND window, UINT message, WPARAM wParam,
                                             LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        ::SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
        reinterpret_cast<COlePropertyPage*>(lParam)->m_window = window;
        return FALSE;
    }
    auto* const page =
        reinterpret_cast<COlePropertyPage*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (page == nullptr || (message != WM_COMMAND && message != WM_NCDESTROY)) {
        return FALSE;
    }
    if (message == WM_NCDESTROY) {
        page->m_window = nullptr;
        return FALSE;
    }
    const KeepAlive keep(*page);
    try {
        page->OnCommand(LOWORD(wParam), HIWORD(wParam));
    } catch (...) {
        // A click that fails changes nothing.
        static_cast<void>(FailureOfCurrentException());
    }
    return TRUE;
}

// The dialog knows its size only once it is made.
SIZE COlePropertyPage::Size() const {
    const HWND measured = ::CreateDialogParamW(
        module::Instance(), MAKEINTRESOURCEW(m_class.dialogId), HWND_MESSAGE, IdleProcedure, 0);
    RECT place{};
    ::GetWindowRect(measured, &place);
    ::DestroyWindow(measured);
    return {place.right - place.left, place.bottom - place.top};
}

STDMETHODIMP COlePropertyPage::PagePart::SetPageSite(IPropertyPageSite* site) {
    if (site != nullptr && m_owner.m_site != nullptr) {
        return E_UNEXPECTED;
    }
    m_owner.m_site = site;
    return S_OK;
}

STDMETHODIMP COlePropertyPage::PagePart::Activate(HWND parent, LPCRECT place, BOOL) {
    if (place == nullptr) {
        return E_POINTER;
    }
    if (m_owner.m_window != nullptr || m_owner.m_objects.empty()) {
        return E_UNEXPECTED;
    }
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        m_owner.Make(parent);
        m_owner.Move(*place);
        m_owner.Load();
        return S_OK;
    });
}

STDMETHODIMP COlePropertyPage::PagePart::Deactivate() {
    if (m_owner.m_window == nullptr) {
        return E_UNEXPECTED;
    }
    const KeepAlive keep(m_owner);
    m_owner.Destroy();
    return S_OK;
}

STDMETHODIMP COlePropertyPage::PagePart::GetPageInfo(PROPPAGEINFO* info) {
    if (info == nullptr) {
        return E_POINTER;
    }
    return Guarded([&] {
        PROPPAGEINFO answer{};
        answer.cb = sizeof answer;
        answer.size = m_owner.Size();
        answer.pszTitle = TaskText(module::String(m_owner.m_class.titleId).c_str());
        answer.pszDocString = TaskText(m_owner.m_class.helpText);
        answer.pszHelpFile = TaskText(m_owner.m_class.helpFile);
        *info = answer;
        return S_OK;
    });
}

STDMETHODIMP COlePropertyPage::PagePart::SetObjects(ULONG count, IUnknown** objects) {
    if (count != 0 && objects == nullptr) {
        return E_POINTER;
    }
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        std::vector<ComPtr<IDispatch>> asked(count);
        for (ULONG i = 0; i < count; ++i) {
            if (objects[i] == nullptr) {
                return E_POINTER;
            }
            Require(objects[i]->QueryInterface(IID_IDispatch,
                                               reinterpret_cast<void**>(asked[i].GetAddressOf())));
        }
        m_owner.m_objects = std::move(asked);
        if (m_owner.m_window != nullptr && count != 0) {
            m_owner.Load();
        }
        return S_OK;
    });
}

STDMETHODIMP COlePropertyPage::PagePart::Show(UINT command) {
    if (m_owner.m_window == nullptr) {
        return E_UNEXPECTED;
    }
    ::ShowWindow(m_owner.m_window, static_cast<int>(command));
    return S_OK;
}

STDMETHODIMP COlePropertyPage::PagePart::Move(LPCRECT place) {
    if (place == nullptr) {
        return E_POINTER;
    }
    if (m_owner.m_window == nullptr) {
        return E_UNEXPECTED;
    }
    m_owner.Move(*place);
    return S_OK;
}

STDMETHODIMP COlePropertyPage::PagePart::IsPageDirty() {
    return m_owner.m_modified ? S_OK : S_FALSE;
}

STDMETHODIMP COlePropertyPage::PagePart::Apply() {
    if (m_owner.m_window == nullptr || m_owner.m_objects.empty()) {
        return E_UNEXPECTED;
    }
    const KeepAlive keep(m_owner);
    return Guarded([&] { return m_owner.Apply(); });
}

// The frame shows the file that the page's information names.
STDMETHODIMP COlePropertyPage::PagePart::Help(LPCOLESTR) {
    return E_NOTIMPL;
}

// The frame's own dialog handling goes through the fields of its pages.
STDMETHODIMP COlePropertyPage::PagePart::TranslateAccelerator(MSG* message) {
    return message == nullptr ? E_POINTER : S_FALSE;
}

STDMETHODIMP COlePropertyPage::PagePart::EditProperty(DISPID id) {
    if (m_owner.m_window == nullptr || m_owner.m_objects.empty()) {
        return E_UNEXPECTED;
    }
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        Finder finder(*m_owner.m_objects.front().Get(), id);
        m_owner.DoDataExchange(finder);
        if (!finder.Found) {
            return E_NOTIMPL;
        }
        ::SetFocus(::GetDlgItem(m_owner.m_window, *finder.Found));
        return S_OK;
    });
}

}  // namespace veygrid
