// The control's module: loaded from beside the program, without any registration.
#include "apps/host/ControlModule.h"

#include <string>

#include "apps/host/Automation.h"

namespace veygrid {

namespace {

std::wstring ProgramFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

}  // namespace

ControlModule::ControlModule() {
    const std::wstring path = ProgramFolder() + L"VeyGrid.ocx";
    m_module = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (m_module == nullptr) {
        throw ComFault{HRESULT_FROM_WIN32(GetLastError()), path};
    }
}

ComPtr<IUnknown> ControlModule::Create(REFCLSID classId) const {
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const FARPROC entry = GetProcAddress(m_module, "DllGetClassObject");
    if (entry == nullptr) {
        throw ComFault{HRESULT_FROM_WIN32(GetLastError()), L"DllGetClassObject"};
    }
    const auto getClassObject = reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(entry));
    ComPtr<IClassFactory> factory;
    Check(getClassObject(classId, IID_IClassFactory, &factory), L"DllGetClassObject");
    ComPtr<IUnknown> object;
    Check(factory->CreateInstance(nullptr, IID_IUnknown, &object), L"CreateInstance");
    return object;
}

}  // namespace veygrid
