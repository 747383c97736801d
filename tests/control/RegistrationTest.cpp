// Registration, into a corner of the registry that stands in for the machine's.
#include <gtest/gtest.h>

#include "control/ClassIds.h"
#include "tests/control/Support.h"

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

HRESULT RunEntry(const char* name) {
    return Ocx::Entry<HRESULT WINAPI()>(name)();
}

constexpr const wchar_t* ControlKey = L"CLSID\\{5B7A1E46-2C64-4D19-A3F0-7E21C94D6A10}";
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

TEST(Registration, TheCommandLineUserRegistersForOneUserAlone) {
    const Redirected registry(Keys::Broken, Keys::Broken);
    auto* const install = Ocx::Entry<HRESULT WINAPI(BOOL, PCWSTR)>("DllInstall");
    const auto exists = [] {
        HKEY key = nullptr;
        ::RegOpenKeyExW(HKEY_CURRENT_USER,
                        (std::wstring(L"Software\\Classes\\") + ControlKey).c_str(), 0, KEY_READ,
                        &key);
        ::RegCloseKey(key);
        return key != nullptr;
    };
    EXPECT_EQ(install(TRUE, L"user"), S_OK);
    EXPECT_TRUE(exists());
    EXPECT_EQ(install(FALSE, L"user"), S_OK);
    EXPECT_FALSE(exists());
}

}  // namespace

}  // namespace veygrid
