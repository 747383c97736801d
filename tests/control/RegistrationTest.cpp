// Registration, into a corner of the registry that stands in for the machine's.
#include <gtest/gtest.h>

#include <map>

#include "control/ClassIds.h"
#include "tests/control/ManifestInUse.h"

namespace veygrid {

namespace {

constexpr const wchar_t* Corner = L"Software\\VeyGridRegistrationTest";

enum class Keys { Working, Broken };

// While it lives the machine's keys and the class keys lie in the corner. Broken ones are those of
// a deleted key, below which nothing can be written.
class Redirected {
  public:
    Redirected(Keys machine, Keys classes) {
        HKEY made = nullptr;
        ::RegDeleteTreeW(HKEY_CURRENT_USER, Corner);
        ::RegCreateKeyExW(HKEY_CURRENT_USER, Path(L"\\Software\\Classes").c_str(), 0, nullptr, 0,
                          KEY_ALL_ACCESS, nullptr, &made, nullptr);
        ::RegCloseKey(made);
        m_machine = machine == Keys::Broken ? MakeBroken() : Open(L"", KEY_ALL_ACCESS);
        m_classes =
            classes == Keys::Broken ? MakeBroken() : Open(L"\\Software\\Classes", KEY_ALL_ACCESS);
        EXPECT_EQ(::RegOverridePredefKey(HKEY_LOCAL_MACHINE, m_machine), ERROR_SUCCESS);
        EXPECT_EQ(::RegOverridePredefKey(HKEY_CLASSES_ROOT, m_classes), ERROR_SUCCESS);
    }
    Redirected(const Redirected&) = delete;
    Redirected& operator=(const Redirected&) = delete;
    ~Redirected() {
        ::RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
        ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        ::RegCloseKey(m_classes);
        ::RegCloseKey(m_machine);
        ::RegDeleteTreeW(HKEY_CURRENT_USER, Corner);
        ::RegDeleteKeyW(HKEY_CURRENT_USER, Corner);
    }

    HKEY Machine() const { return m_machine; }
    static std::wstring Path(const wchar_t* below) { return std::wstring(Corner) + below; }
    static bool HasClass(const wchar_t* path) {
        HKEY key = Open((std::wstring(L"\\Software\\Classes\\") + path).c_str(), KEY_READ);
        const bool found = key != nullptr;
        ::RegCloseKey(key);
        return found;
    }
    static std::wstring Default(const wchar_t* path) {
        wchar_t text[MAX_PATH] = {};
        DWORD size = sizeof text;
        ::RegGetValueW(HKEY_CURRENT_USER, (Path(L"\\Software\\Classes\\") + path).c_str(), nullptr,
                       RRF_RT_REG_SZ, nullptr, text, &size);
        return text;
    }

  private:
    static HKEY Open(const wchar_t* below, REGSAM rights) {
        HKEY key = nullptr;
        ::RegOpenKeyExW(HKEY_CURRENT_USER, Path(below).c_str(), 0, rights, &key);
        return key;
    }

    static HKEY MakeBroken() {
        HKEY key = nullptr;
        ::RegCreateKeyExW(HKEY_CURRENT_USER, Path(L"\\Broken").c_str(), 0, nullptr, 0,
                          KEY_ALL_ACCESS, nullptr, &key, nullptr);
        ::RegDeleteKeyW(HKEY_CURRENT_USER, Path(L"\\Broken").c_str());
        return key;
    }

    HKEY m_machine = nullptr;
    HKEY m_classes = nullptr;
};

// All values below a key, by their path; the registry does not mind capitals.
struct NoCase {
    bool operator()(const std::wstring& a, const std::wstring& b) const {
        return ::_wcsicmp(a.c_str(), b.c_str()) < 0;
    }
};
using Snapshot = std::map<std::wstring, std::wstring, NoCase>;

void TakeKey(HKEY parent, const std::wstring& name, const std::wstring& path, Snapshot& taken) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return;
    }
    taken[path];
    wchar_t text[300] = {};
    BYTE data[1000] = {};
    DWORD size = 300;
    DWORD used = sizeof data;
    for (DWORD i = 0;
         ::RegEnumValueW(key, i, text, &size, nullptr, nullptr, data, &used) == ERROR_SUCCESS;
         ++i, size = 300, used = sizeof data) {
        taken[path + L"@" + text] = reinterpret_cast<const wchar_t*>(data);
    }
    size = 300;
    for (DWORD i = 0;
         ::RegEnumKeyExW(key, i, text, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++i, size = 300) {
        TakeKey(key, text, path + L"\\" + text, taken);
    }
    ::RegCloseKey(key);
}

Snapshot Taken(const std::wstring& path) {
    Snapshot taken;
    TakeKey(HKEY_CURRENT_USER, path, L"", taken);
    return taken;
}

Snapshot UserClasses() {
    return Taken(L"Software\\Classes");
}

// What the first has and the second has not, or otherwise.
Snapshot Without(const Snapshot& one, const Snapshot& other) {
    Snapshot left;
    for (const auto& [path, value] : one) {
        const auto found = other.find(path);
        if (found == other.end() || found->second != value) {
            left.emplace(path, value);
        }
    }
    return left;
}

HRESULT Install(BOOL install, PCWSTR commandLine) {
    return Ocx::Entry<HRESULT WINAPI(BOOL, PCWSTR)>("DllInstall")(install, commandLine);
}

HRESULT RunEntry(const char* name) {
    return Ocx::Entry<HRESULT WINAPI()>(name)();
}

constexpr const wchar_t* ControlKey = L"CLSID\\{5B7A1E46-2C64-4D19-A3F0-7E21C94D6A10}";
constexpr const wchar_t* PageKey = L"CLSID\\{5B7A1E47-2C64-4D19-A3F0-7E21C94D6A10}";
constexpr const wchar_t* LibraryKey = L"TypeLib\\{5B7A1E43-2C64-4D19-A3F0-7E21C94D6A10}";

TEST(Registration, TheControlIsRegisteredWithItsValuesAndGoesWithoutATrace) {
    const Redirected registry(Keys::Working, Keys::Working);
    ASSERT_EQ(RunEntry("DllRegisterServer"), S_OK);
    const auto under = [](const wchar_t* name) {
        return Redirected::Default((std::wstring(ControlKey) + name).c_str());
    };
    EXPECT_EQ(under(L""), L"VeyGrid Control");
    EXPECT_EQ(under(L"\\MiscStatus\\1"), L"131473");
    EXPECT_EQ(under(L"\\ProgID"), L"VEYGRID.VeyGridCtrl.1");
    EXPECT_EQ(under(L"\\Version"), L"1.0");
    EXPECT_EQ(under(L"\\TypeLib"), L"{5B7A1E43-2C64-4D19-A3F0-7E21C94D6A10}");
    EXPECT_EQ(
        under(L"\\ToolboxBitmap32"),
        Redirected::Default((std::wstring(ControlKey) + L"\\InprocServer32").c_str()) + L", 2301");
    EXPECT_TRUE(Redirected::HasClass((std::wstring(ControlKey) + L"\\Insertable").c_str()));
    EXPECT_TRUE(Redirected::HasClass(L"VeyGrid.CellFormat"));
    EXPECT_TRUE(Redirected::HasClass(L"VeyGrid.FormObject"));
    EXPECT_TRUE(Redirected::HasClass(LibraryKey));
    ASSERT_EQ(RunEntry("DllUnregisterServer"), S_OK);
    for (const wchar_t* const key : {ControlKey, LibraryKey, L"VEYGRID.VeyGridCtrl.1",
                                     L"VeyGrid.CellFormat", L"VeyGrid.FormObject"}) {
        EXPECT_FALSE(Redirected::HasClass(key));
    }
}

TEST(Registration, UnregisteringTwiceIsNoFailure) {
    const Redirected registry(Keys::Working, Keys::Working);
    EXPECT_EQ(RunEntry("DllUnregisterServer"), S_OK);
}

TEST(Registration, Reports80040200AndTouchesNoClassWhenTheTypeLibraryCannotBeRegistered) {
    const Redirected registry(Keys::Working, Keys::Broken);
    EXPECT_EQ(static_cast<unsigned>(RunEntry("DllRegisterServer")), 0x80040200U);
    EXPECT_FALSE(Redirected::HasClass(ControlKey));
}

TEST(Registration, Reports80040201WhenAClassCannotBeRegistered) {
    const Redirected registry(Keys::Broken, Keys::Working);
    EXPECT_EQ(static_cast<unsigned>(RunEntry("DllRegisterServer")), 0x80040201U);
    EXPECT_FALSE(Redirected::HasClass(ControlKey));
}

TEST(Registration, ThePropertyPageIsRegisteredByItsName) {
    const Redirected registry(Keys::Working, Keys::Working);
    ASSERT_EQ(RunEntry("DllRegisterServer"), S_OK);
    EXPECT_EQ(Redirected::Default(PageKey), L"VeyGrid Property Page");
    EXPECT_EQ(Redirected::Default(L"VEYGRID.VeyGridPropPage.1\\CLSID"),
              L"{5B7A1E47-2C64-4D19-A3F0-7E21C94D6A10}");
    EXPECT_FALSE(Redirected::HasClass((std::wstring(PageKey) + L"\\Insertable").c_str()));
    ASSERT_EQ(RunEntry("DllUnregisterServer"), S_OK);
    EXPECT_FALSE(Redirected::HasClass(PageKey));
    EXPECT_FALSE(Redirected::HasClass(L"VEYGRID.VeyGridPropPage.1"));
}

TEST(Registration, AnotherClassesProgIdStays) {
    const Redirected registry(Keys::Working, Keys::Working);
    ASSERT_EQ(RunEntry("DllRegisterServer"), S_OK);
    const std::wstring path = Redirected::Path(L"\\Software\\Classes\\VeyGrid.CellFormat\\CLSID");
    ::RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), nullptr, REG_SZ, L"{other}", 16);
    EXPECT_EQ(RunEntry("DllUnregisterServer"), S_OK);
    EXPECT_TRUE(Redirected::HasClass(L"VeyGrid.CellFormat"));
}

TEST(Registration, RegisteringTwiceIsTheSameAsOnce) {
    const Redirected registry(Keys::Working, Keys::Working);
    ASSERT_EQ(RunEntry("DllRegisterServer"), S_OK);
    const Snapshot once = Taken(Corner);
    ASSERT_EQ(RunEntry("DllRegisterServer"), S_OK);
    EXPECT_EQ(Taken(Corner), once);
}

TEST(Registration, TheCommandLineUserRegistersForOneUserAlone) {
    const Redirected registry(Keys::Broken, Keys::Broken);
    const auto exists = [] { return UserClasses().contains(std::wstring(L"\\") + ControlKey); };
    EXPECT_EQ(Install(TRUE, L"user"), S_OK);
    EXPECT_TRUE(exists());
    EXPECT_EQ(Install(FALSE, L"user"), S_OK);
    EXPECT_FALSE(exists());
}

// What a script of this user finds is what a script of any user finds on the machine.
TEST(Registration, TheKeysOfOneUserAreThoseOfTheMachine) {
    const Snapshot before = UserClasses();
    Snapshot machine;
    {
        const Redirected registry(Keys::Working, Keys::Working);
        ASSERT_EQ(Install(TRUE, L""), S_OK);
        machine = Taken(std::wstring(Corner) + L"\\Software\\Classes");
        ASSERT_EQ(Install(FALSE, L""), S_OK);
    }
    ASSERT_EQ(Install(TRUE, L"USER"), S_OK);
    Snapshot user = UserClasses();
    for (const auto& [path, value] : before) {
        if (!machine.contains(path)) {
            user.erase(path);
        }
    }
    // Wine counts a library's file among its flags.
    const std::wstring flags = std::wstring(L"\\") + LibraryKey + L"\\1.0\\FLAGS@";
    EXPECT_EQ(user[flags], L"2");
    machine[flags] = user[flags];
    EXPECT_EQ(Without(user, machine), Snapshot());
    EXPECT_EQ(Without(machine, user), Snapshot());
    EXPECT_EQ(Install(FALSE, L"user"), S_OK);
    EXPECT_EQ(UserClasses(), before);
}

TEST(Registration, TheOtherSystemsTypeLibraryOfAUserStays) {
    const Snapshot before = UserClasses();
    const std::wstring other =
        std::wstring(L"Software\\Classes\\") + LibraryKey + L"\\1.0\\0\\other";
    ASSERT_EQ(Install(TRUE, L"user"), S_OK);
    ::RegSetKeyValueW(HKEY_CURRENT_USER, other.c_str(), nullptr, REG_SZ, L"x", 4);
    EXPECT_EQ(Install(FALSE, L"user"), S_OK);
    EXPECT_TRUE(UserClasses().contains(std::wstring(L"\\") + LibraryKey + L"\\1.0\\0\\other"));
    ::RegDeleteKeyW(HKEY_CURRENT_USER, other.c_str());
    EXPECT_EQ(Install(FALSE, L"user"), S_OK);
    EXPECT_EQ(UserClasses(), before);
}

TEST(Registration, Reports80040200ForAUserWhoseKeysCannotBeWritten) {
    const Redirected registry(Keys::Broken, Keys::Working);
    ASSERT_EQ(::RegOverridePredefKey(HKEY_CURRENT_USER, registry.Machine()), ERROR_SUCCESS);
    const HRESULT result = Install(TRUE, L"user");
    ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    EXPECT_EQ(static_cast<unsigned>(result), 0x80040200U);
}

TEST(Registration, TheManifestServesEveryClassAndTheLibraryWithoutRegistration) {
    const ManifestInUse manifest;
    for (const wchar_t* const name : {L"VEYGRID.VeyGridCtrl.1", L"VEYGRID.VeyGridPropPage.1",
                                      L"VeyGrid.CellFormat", L"VeyGrid.FormObject"}) {
        // Not the number of the class, but one that stands for it here.
        CLSID clsid{};
        EXPECT_EQ(::CLSIDFromProgID(name, &clsid), S_OK);
        ComPtr<IUnknown> object;
        EXPECT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                     reinterpret_cast<void**>(object.GetAddressOf())),
                  S_OK);
        EXPECT_TRUE(object != nullptr);
    }
    ComPtr<ITypeLib> library;
    EXPECT_EQ(::LoadRegTypeLib(LibraryId, 1, 0, LOCALE_NEUTRAL, &library), S_OK);
    EXPECT_TRUE(library != nullptr && library->GetTypeInfoCount() > 0);
}

}  // namespace

}  // namespace veygrid
