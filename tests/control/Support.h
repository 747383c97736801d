// The module as a host sees it: loaded from beside the test program, without registration.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "control/VeyGridEvents.h"
#include "platform/win32/ole/OleText.h"
#include "platform/win32/ole/OwnedVariant.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

using Microsoft::WRL::ComPtr;

// The loaded module; it stays for the whole run.
class Ocx {
  public:
    static HMODULE Handle() {
        static const HMODULE handle = Load();
        return handle;
    }
    static std::wstring Path() {
        std::wstring path(MAX_PATH, L'\0');
        path.resize(::GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
        return path.substr(0, path.find_last_of(L'\\') + 1) + L"VeyGrid.ocx";
    }
    template <class Function>
    static Function* Entry(const char* name) {
        return reinterpret_cast<Function*>(
            reinterpret_cast<void*>(::GetProcAddress(Handle(), name)));
    }
    static HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** target) {
        return Entry<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject")(clsid, iid,
                                                                                    target);
    }
    // False while anything of the module is held.
    static bool CanUnload() { return Entry<HRESULT WINAPI()>("DllCanUnloadNow")() == S_OK; }
    static ComPtr<IUnknown> Make(REFCLSID clsid, IUnknown* outer = nullptr) {
        ComPtr<IClassFactory> factory;
        ComPtr<IUnknown> object;
        EXPECT_EQ(GetClassObject(clsid, IID_IClassFactory,
                                 reinterpret_cast<void**>(factory.GetAddressOf())),
                  S_OK);
        EXPECT_EQ(factory->CreateInstance(outer, IID_IUnknown,
                                          reinterpret_cast<void**>(object.GetAddressOf())),
                  S_OK);
        return object;
    }

  private:
    static HMODULE Load() {
        ::OleInitialize(nullptr);
        return ::LoadLibraryW(Path().c_str());
    }
};

// An argument or result of a call.
struct Arg {
    VARIANT value{};

    Arg() = default;
    Arg(int number) {
        value.vt = VT_I4;
        value.lVal = number;
    }
    Arg(bool yes) {
        value.vt = VT_BOOL;
        value.boolVal = yes ? VARIANT_TRUE : VARIANT_FALSE;
    }
    Arg(const wchar_t* text) {
        value.vt = VT_BSTR;
        value.bstrVal = ::SysAllocString(text);
    }
    Arg(IDispatch* object) {
        value.vt = VT_DISPATCH;
        value.pdispVal = object;
        if (object != nullptr) {
            object->AddRef();
        }
    }
    static Arg Raw(const VARIANT& given) {
        Arg arg;
        arg.value = given;
        return arg;
    }
    static Arg Reference(VARIANT* target) {
        Arg arg;
        arg.value.vt = VT_BYREF | VT_VARIANT;
        arg.value.pvarVal = target;
        return arg;
    }
    static Arg Reference(LONG* target) {
        Arg arg;
        arg.value.vt = VT_BYREF | VT_I4;
        arg.value.plVal = target;
        return arg;
    }
    static Arg Missing() {
        Arg arg;
        arg.value.vt = VT_ERROR;
        arg.value.scode = DISP_E_PARAMNOTFOUND;
        return arg;
    }
};

// An object reached by late binding.
class Late {
  public:
    explicit Late(const ComPtr<IUnknown>& object) { object.As(&m_dispatch); }
    explicit Late(IDispatch* object) : m_dispatch(object) {}

    IDispatch* operator->() const { return m_dispatch.Get(); }
    IDispatch* Object() const { return m_dispatch.Get(); }

    DISPID IdOf(const wchar_t* name) const {
        DISPID id = DISPID_UNKNOWN;
        auto* text = const_cast<wchar_t*>(name);
        m_dispatch->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
        return id;
    }

    // Takes over the arguments.
    HRESULT Invoke(DISPID id, WORD flags, std::vector<Arg> args, VARIANT* result = nullptr,
                   UINT* argumentInError = nullptr) const {
        std::vector<VARIANT> values;
        for (auto arg = args.rbegin(); arg != args.rend(); ++arg) {
            values.push_back(arg->value);
        }
        DISPID put = DISPID_PROPERTYPUT;
        const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        DISPPARAMS parameters{values.data(), isPut ? &put : nullptr,
                              static_cast<UINT>(values.size()), isPut ? 1U : 0U};
        EXCEPINFO exception{};
        const HRESULT answer = m_dispatch->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags,
                                                  &parameters, result, &exception, argumentInError);
        ::SysFreeString(exception.bstrDescription);
        ::SysFreeString(exception.bstrSource);
        for (VARIANT& value : values) {
            ::VariantClear(&value);
        }
        return answer;
    }
    HRESULT Call(const wchar_t* name, std::vector<Arg> args = {}) const {
        return Invoke(IdOf(name), DISPATCH_METHOD, std::move(args));
    }
    HRESULT Put(const wchar_t* name, std::vector<Arg> args) const {
        return Invoke(IdOf(name), DISPATCH_PROPERTYPUT, std::move(args));
    }
    // A failing read gives a number that no member has.
    LONG Number(const wchar_t* name, std::vector<Arg> args = {}) const {
        OwnedVariant result;
        const HRESULT answer =
            Invoke(IdOf(name), DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(args), &result);
        OwnedVariant number;
        if (FAILED(answer) || FAILED(::VariantChangeType(&number, &result, 0, VT_I4))) {
            ADD_FAILURE() << "no number";
            return -987654321;
        }
        return number->lVal;
    }
    std::string Text(const wchar_t* name, std::vector<Arg> args = {}) const {
        OwnedVariant result;
        EXPECT_EQ(
            Invoke(IdOf(name), DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(args), &result),
            S_OK);
        EXPECT_EQ(result->vt, VT_BSTR);
        return result->vt == VT_BSTR ? TakeBstr(result->bstrVal) : std::string();
    }
    Late Object(const wchar_t* name, std::vector<Arg> args = {}) const {
        OwnedVariant result;
        EXPECT_EQ(
            Invoke(IdOf(name), DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(args), &result),
            S_OK);
        return Late(result->vt == VT_DISPATCH ? result->pdispVal : nullptr);
    }

  private:
    ComPtr<IDispatch> m_dispatch;
};

// The event that a paint fires for each cell, whenever the system lets the window paint.
inline bool IsOfPainting(DISPID id) {
    return id == event::RequestCellFormat;
}

// A sink of events that runs `handler` for each.
template <class Handler>
class EventSink final : public IDispatch {
  public:
    explicit EventSink(Handler handler) : m_handler(std::move(handler)) {}
    ~EventSink() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** target) override {
        *target = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
        if (*target != nullptr) {
            AddRef();
        }
        return *target == nullptr ? E_NOINTERFACE : S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++References); }
    STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--References); }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        m_handler(id, *parameters);
        return S_OK;
    }

    long References = 1;

  private:
    Handler m_handler;
};

// A sink that counts what an object tells it of its picture and its end.
struct Advised final : IAdviseSink {
    STDMETHODIMP QueryInterface(REFIID iid, void** target) override {
        *target = iid == IID_IUnknown || iid == IID_IAdviseSink ? this : nullptr;
        if (*target != nullptr) {
            AddRef();
        }
        return *target == nullptr ? E_NOINTERFACE : S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++References); }
    STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--References); }
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override { ++DataChanges; }
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { ++ViewChanges; }
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override {}
    STDMETHODIMP_(void) OnClose() override { ++Closes; }

    long References = 1;
    int DataChanges = 0;
    int ViewChanges = 0;
    int Closes = 0;
};

// Connects on construction, disconnects on destruction.
class Connected {
  public:
    Connected(const ComPtr<IUnknown>& control, REFIID iid, IUnknown* sink) {
        ComPtr<IConnectionPointContainer> container;
        EXPECT_EQ(control.As(&container), S_OK);
        EXPECT_EQ(container->FindConnectionPoint(iid, &m_point), S_OK);
        EXPECT_EQ(m_point->Advise(sink, &m_cookie), S_OK);
    }
    Connected(const Connected&) = delete;
    Connected& operator=(const Connected&) = delete;
    ~Connected() { Disconnect(); }
    void Disconnect() {
        if (m_point != nullptr) {
            m_point->Unadvise(m_cookie);
            m_point = nullptr;
        }
    }

  private:
    ComPtr<IConnectionPoint> m_point;
    DWORD m_cookie = 0;
};

}  // namespace veygrid
