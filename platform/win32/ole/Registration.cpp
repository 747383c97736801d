// Registering the classes of a module, for the machine or for one user.
#include "platform/win32/ole/Registration.h"

#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/Module.h"
#include "platform/win32/ole/OleText.h"

namespace veygrid {

namespace {

// A registry key with an owner.
class Key {
  public:
    // Makes the key where it is missing.
    Key(HKEY parent, const std::wstring& path) {
        m_status = ::RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                     &m_key, nullptr);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() {
        if (m_key != nullptr) {
            ::RegCloseKey(m_key);
        }
    }

    // The default value for an empty name. The first failure stays.
    Key& Set(const wchar_t* name, const std::wstring& text) {
        if (m_status == ERROR_SUCCESS) {
            m_status = ::RegSetValueExW(m_key, name, 0, REG_SZ,
                                        reinterpret_cast<const BYTE*>(text.c_str()),
                                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
        }
        return *this;
    }
    bool IsWritten() const { return m_status == ERROR_SUCCESS; }

  private:
    HKEY m_key = nullptr;
    LSTATUS m_status = ERROR_SUCCESS;
};

// The root below which the classes of a scope stand.
HKEY RootOf(RegistrationScope scope) {
    return scope == RegistrationScope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

std::wstring ClassesPath(const std::wstring& path) {
    return L"Software\\Classes\\" + path;
}

bool Write(RegistrationScope scope, const std::wstring& path, const std::wstring& text) {
    return Key(RootOf(scope), ClassesPath(path)).Set(L"", text).IsWritten();
}

bool DeleteTree(RegistrationScope scope, const std::wstring& path) {
    const LSTATUS status = ::RegDeleteTreeW(RootOf(scope), ClassesPath(path).c_str());
    if (status == ERROR_SUCCESS) {
        ::RegDeleteKeyW(RootOf(scope), ClassesPath(path).c_str());
    }
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

// True when the key is gone: it held neither keys nor values, or was not there.
bool DeleteWhenEmpty(RegistrationScope scope, const std::wstring& path) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(RootOf(scope), ClassesPath(path).c_str(), 0, KEY_READ, &key) !=
        ERROR_SUCCESS) {
        return true;
    }
    DWORD keys = 1;
    DWORD values = 0;
    ::RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                       nullptr, nullptr, nullptr);
    ::RegCloseKey(key);
    return keys == 0 && values == 0 && DeleteTree(scope, path);
}

std::wstring ReadDefault(RegistrationScope scope, const std::wstring& path) {
    wchar_t text[MAX_PATH] = {};
    DWORD size = sizeof text;
    const LSTATUS status = ::RegGetValueW(RootOf(scope), ClassesPath(path).c_str(), nullptr,
                                          RRF_RT_REG_SZ, nullptr, text, &size);
    return status == ERROR_SUCCESS ? text : L"";
}

std::wstring ClassPath(const ClassEntry& entry) {
    return L"CLSID\\" + GuidText(entry.clsid);
}

bool WriteServer(RegistrationScope scope, const std::wstring& path) {
    return Key(RootOf(scope), ClassesPath(path + L"\\InprocServer32"))
        .Set(L"", module::FileName())
        .Set(L"ThreadingModel", L"Apartment")
        .IsWritten();
}

bool WriteProgId(RegistrationScope scope, const std::wstring& path, const ClassEntry& entry) {
    return entry.progId == nullptr ||
           (Write(scope, path + L"\\ProgID", entry.progId) &&
            Write(scope, entry.progId, entry.name) &&
            Write(scope, std::wstring(entry.progId) + L"\\CLSID", GuidText(entry.clsid)) &&
            (!entry.isControl || Write(scope, std::wstring(entry.progId) + L"\\Insertable", L"")));
}

bool WriteControl(RegistrationScope scope, const std::wstring& path, const ClassEntry& entry) {
    return !entry.isControl ||
           (Write(scope, path + L"\\Control", L"") && Write(scope, path + L"\\Insertable", L"") &&
            Write(scope, path + L"\\MiscStatus", L"0") &&
            Write(scope, path + L"\\MiscStatus\\1", std::to_wstring(entry.miscStatus)) &&
            Write(scope, path + L"\\ToolboxBitmap32",
                  module::FileName() + L", " + std::to_wstring(entry.toolboxBitmap)));
}

std::wstring VersionText(const TypeLibraryId& library) {
    return std::to_wstring(library.major) + L"." + std::to_wstring(library.minor);
}

bool WriteLibrary(RegistrationScope scope, const std::wstring& path, const ClassEntry& entry) {
    return entry.library == nullptr ||
           (Write(scope, path + L"\\TypeLib", GuidText(entry.library->id)) &&
            Write(scope, path + L"\\Version", VersionText(*entry.library)));
}

constexpr SYSKIND SystemKind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
constexpr const wchar_t* SystemName = SystemKind == SYS_WIN64 ? L"win64" : L"win32";

// The system's own proxy for dispatch interfaces.
constexpr const wchar_t* DispatchProxy = L"{00020420-0000-0000-C000-000000000046}";

std::wstring LibraryPath(const TypeLibraryId& library) {
    return L"TypeLib\\" + GuidText(library.id);
}

// Calls `visit(guid, name)` on each dispatch interface of the module's library.
template <class Visit>
bool ForEachInterface(Visit visit) {
    const ComPtr<ITypeLib> library = module::TypeLibrary();
    bool done = true;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind = TKIND_MAX;
        ComPtr<ITypeInfo> info;
        TYPEATTR* attributes = nullptr;
        OwnedBstr name;
        Require(library->GetTypeInfoType(i, &kind));
        if (kind != TKIND_DISPATCH) {
            continue;
        }
        Require(library->GetTypeInfo(i, &info));
        Require(info->GetDocumentation(MEMBERID_NIL, name.Address(), nullptr, nullptr, nullptr));
        Require(info->GetTypeAttr(&attributes));
        const GUID guid = attributes->guid;
        info->ReleaseTypeAttr(attributes);
        done = visit(guid, std::wstring(name.Get())) && done;
    }
    return done;
}

// The keys that the system writes for the machine, for one user; the system's own call for this is
// not on every system.
bool WriteUserLibrary(const TypeLibraryId& library) {
    constexpr auto User = RegistrationScope::User;
    const std::wstring path = LibraryPath(library) + L"\\" + VersionText(library);
    const std::wstring file = module::FileName();
    OwnedBstr title;
    Require(module::TypeLibrary()->GetDocumentation(MEMBERID_NIL, nullptr, title.Address(), nullptr,
                                                    nullptr));
    return Write(User, path, title.Get() == nullptr ? L"" : title.Get()) &&
           Write(User, path + L"\\0\\" + SystemName, file) &&
           Write(User, path + L"\\FLAGS", std::to_wstring(LIBFLAG_FCONTROL)) &&
           Write(User, path + L"\\HELPDIR", file.substr(0, file.find_last_of(L'\\'))) &&
           ForEachInterface([&](const GUID& guid, const std::wstring& name) {
               const std::wstring key = L"Interface\\" + GuidText(guid);
               return Write(User, key, name) &&
                      Write(User, key + L"\\ProxyStubClsid", DispatchProxy) &&
                      Write(User, key + L"\\ProxyStubClsid32", DispatchProxy) &&
                      Key(RootOf(User), ClassesPath(key + L"\\TypeLib"))
                          .Set(L"", GuidText(library.id))
                          .Set(L"Version", VersionText(library))
                          .IsWritten();
           });
}

// The other kind of system may have its own entry beside ours, and a library other versions.
bool DeleteUserLibrary(const TypeLibraryId& library) {
    constexpr auto User = RegistrationScope::User;
    const std::wstring version = LibraryPath(library) + L"\\" + VersionText(library);
    bool done = DeleteTree(User, version + L"\\0\\" + SystemName);
    if (DeleteWhenEmpty(User, version + L"\\0")) {
        done = DeleteTree(User, version) && done;
        done = ForEachInterface([](const GUID& guid, const std::wstring&) {
                   return DeleteTree(User, L"Interface\\" + GuidText(guid));
               }) &&
               done;
    }
    DeleteWhenEmpty(User, LibraryPath(library));
    DeleteWhenEmpty(User, L"TypeLib");
    DeleteWhenEmpty(User, L"Interface");
    return done;
}

}  // namespace

std::wstring GuidText(REFGUID guid) {
    wchar_t text[40] = {};
    ::StringFromGUID2(guid, text, 40);
    return text;
}

HRESULT RegisterLibrary(RegistrationScope scope, const TypeLibraryId& library) {
    return Guarded([&] {
        if (scope == RegistrationScope::User) {
            return WriteUserLibrary(library) ? S_OK : TYPE_E_REGISTRYACCESS;
        }
        std::wstring file = module::FileName();
        return ::RegisterTypeLib(module::TypeLibrary().Get(), file.data(), nullptr);
    });
}

HRESULT UnregisterLibrary(RegistrationScope scope, const TypeLibraryId& library) {
    return Guarded([&] {
        if (scope == RegistrationScope::User) {
            return DeleteUserLibrary(library) ? S_OK : TYPE_E_REGISTRYACCESS;
        }
        OwnedBstr path;
        if (FAILED(::QueryPathOfRegTypeLib(library.id, library.major, library.minor, LANG_NEUTRAL,
                                           path.Address()))) {
            return S_OK;
        }
        return ::UnRegisterTypeLib(library.id, library.major, library.minor, LANG_NEUTRAL,
                                   SystemKind);
    });
}

bool RegisterClass(RegistrationScope scope, const ClassEntry& entry) {
    const std::wstring path = ClassPath(entry);
    return Write(scope, path, entry.name) && WriteServer(scope, path) &&
           WriteProgId(scope, path, entry) && WriteControl(scope, path, entry) &&
           WriteLibrary(scope, path, entry);
}

bool UnregisterClass(RegistrationScope scope, const ClassEntry& entry) {
    bool done = DeleteTree(scope, ClassPath(entry));
    if (entry.progId != nullptr &&
        ReadDefault(scope, std::wstring(entry.progId) + L"\\CLSID") == GuidText(entry.clsid)) {
        done = DeleteTree(scope, entry.progId) && done;
    }
    if (scope == RegistrationScope::User) {
        DeleteWhenEmpty(scope, L"CLSID");
    }
    return done;
}

}  // namespace veygrid
