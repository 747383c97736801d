// The module: its handle, the count of what keeps it loaded, and its type library.
#include "platform/win32/ole/Module.h"

#include <atomic>

#include "platform/win32/ole/Guard.h"

namespace veygrid::module {

namespace {

HINSTANCE g_instance = nullptr;
std::atomic<long> g_locks = 0;
std::atomic<HWND> g_mainWindow = nullptr;

}  // namespace

void Attach(HINSTANCE instance) {
    g_instance = instance;
}

HINSTANCE Instance() {
    return g_instance;
}

std::wstring FileName() {
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            ::GetModuleFileNameW(g_instance, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size()) {
            name.resize(length);
            return name;
        }
        name.resize(name.size() * 2);
    }
}

std::wstring String(UINT id) {
    const wchar_t* text = nullptr;
    const int length = ::LoadStringW(g_instance, id, reinterpret_cast<wchar_t*>(&text), 0);
    return length > 0 ? std::wstring(text, static_cast<std::size_t>(length)) : std::wstring();
}

void SetMainWindow(HWND window) {
    g_mainWindow = window;
}

HWND MainWindow() {
    const HWND window = g_mainWindow;
    return ::IsWindow(window) ? window : nullptr;
}

void Lock() {
    ++g_locks;
}

void Unlock() {
    --g_locks;
}

bool IsLocked() {
    return g_locks > 0;
}

// The system caches a loaded library, so that asking again costs little.
ComPtr<ITypeLib> TypeLibrary() {
    ComPtr<ITypeLib> library;
    Require(::LoadTypeLibEx(FileName().c_str(), REGKIND_NONE, &library));
    return library;
}

ComPtr<ITypeInfo> TypeInfo(REFGUID guid) {
    ComPtr<ITypeInfo> info;
    Require(TypeLibrary()->GetTypeInfoOfGuid(guid, &info));
    return info;
}

}  // namespace veygrid::module
