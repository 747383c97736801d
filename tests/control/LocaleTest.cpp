// Text on its ways in and out of the control, the same whatever the system's code page is.
#include <gmock/gmock.h>

#include <cstdlib>

#include "control/ClassIds.h"
#include "tests/control/Container.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

Late NewGrid() {
    return Late(Ocx::Make(VeyGridClassId));
}

// Characters whose second byte is a letter, a brace, a bar, a backslash or a tilde, beside the
// plain ones themselves.
const std::string& TrickyBytes() {
    static const std::string bytes =
        "\x81\x41\x81\x5A\x81\x61\x81\x7A\x81\x5C\x8B\x5C\x81\x7B\x81\x7C\x81\x7D\x95\x7E\xFE\x4F"
        "A{|}\\~";
    return bytes;
}

// A folder of its own in the temporary one, gone with all its files at the end.
class Folder {
  public:
    Folder() {
        wchar_t base[MAX_PATH] = {};
        ::GetTempPathW(MAX_PATH, base);
        m_path = std::wstring(base) + L"凭证 丂乗亅 " + std::to_wstring(::GetCurrentProcessId());
        EXPECT_TRUE(::CreateDirectoryW(m_path.c_str(), nullptr));
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        WIN32_FIND_DATAW found{};
        const HANDLE search = ::FindFirstFileW((m_path + L"\\*").c_str(), &found);
        do {
            ::DeleteFileW((m_path + L"\\" + found.cFileName).c_str());
        } while (::FindNextFileW(search, &found));
        ::FindClose(search);
        ::RemoveDirectoryW(m_path.c_str());
    }
    std::wstring File(const wchar_t* name) const { return m_path + L"\\" + name; }

  private:
    std::wstring m_path;
};

TEST(Locale, TheSystemsCodePageIsTheOneAskedFor) {
    const char* const asked = std::getenv("VEYGRID_CODE_PAGE");
    if (asked == nullptr) {
        GTEST_SKIP() << "none is asked for by VEYGRID_CODE_PAGE";
    }
    EXPECT_EQ(::GetACP(), static_cast<UINT>(std::atoi(asked)));
}

TEST(Locale, EveryCharacterOfTheCodePageComesBackAsItWentIn) {
    const Late grid = NewGrid();
    for (int lead = 0x81; lead <= 0xFE; ++lead) {
        std::string row;
        for (int trail = 0x40; trail <= 0xFE; ++trail) {
            const std::string character{static_cast<char>(lead), static_cast<char>(trail)};
            if (CodePage936FromUtf16(Utf16FromCodePage936(character)) == character) {
                row += character;
            }
        }
        ASSERT_EQ(grid.Put(L"CellText", {lead, 1, WideFromText(row).c_str()}), S_OK);
        ASSERT_EQ(grid.Text(L"CellText", {lead, 1}), row) << lead;
    }
}

TEST(Locale, ATextKeepsItsUnitsOnTheWayInAndOut) {
    const Late grid = NewGrid();
    const std::wstring wide = WideFromText(TrickyBytes());
    OwnedVariant result;
    ASSERT_EQ(grid.Put(L"CellText", {1, 1, wide.c_str()}), S_OK);
    ASSERT_EQ(grid.Invoke(106, DISPATCH_PROPERTYGET, {1, 1}, &result), S_OK);
    EXPECT_EQ(std::wstring(result->bstrVal, ::SysStringLen(result->bstrVal)), wide);
}

TEST(Locale, ACharacterOutsideTheCodePageBecomesAQuestionMark) {
    const Late grid = NewGrid();
    ASSERT_EQ(grid.Put(L"CellText", {1, 1, L"a\x00E9\xD840\xDC00z"}), S_OK);
    EXPECT_EQ(grid.Text(L"CellText", {1, 1}), "a\xA8\xA6?z");
}

TEST(Locale, HeadersNamesParametersAndFormatsCarryChinese) {
    const Late grid = NewGrid();
    const std::wstring wide = WideFromText(TrickyBytes());
    for (const wchar_t* const member : {L"RowHeader", L"ColHeader", L"RowName", L"ColName"}) {
        ASSERT_EQ(grid.Put(member, {3, wide.c_str()}), S_OK);
        EXPECT_EQ(grid.Text(member, {3}), TrickyBytes());
    }
    ASSERT_EQ(grid.Put(L"Param", {L"参数", wide.c_str()}), S_OK);
    EXPECT_EQ(grid.Text(L"Param", {L"参数"}), TrickyBytes());
    ASSERT_EQ(grid.Put(L"CellShowFormat", {1, 1, L"yyyy年mm月"}), S_OK);
    EXPECT_EQ(grid.Text(L"CellShowFormat", {1, 1}), CodePage936FromUtf8("yyyy年mm月"));
}

TEST(Locale, AFileIsSavedAndOpenedUnderAChineseNameInAChineseFolder) {
    const Folder folder;
    const std::wstring wide = WideFromText(TrickyBytes());
    const std::wstring name = folder.File(L"甲乙 丂亅{}~龘.grd");
    const Late grid = NewGrid();
    grid.Put(L"CellText", {2, 2, wide.c_str()});
    EXPECT_EQ(grid.Number(L"SaveFile", {name.c_str()}), -1);
    EXPECT_NE(::GetFileAttributesW(name.c_str()), INVALID_FILE_ATTRIBUTES);
    const Late other = NewGrid();
    EXPECT_EQ(other.Number(L"OpenFile", {name.c_str(), 0}), 1);
    EXPECT_EQ(other.Text(L"CellText", {2, 2}), TrickyBytes());
}

TEST(Locale, TheMessageThatOpensAFileTakesItsPathInCodePage936) {
    const Folder folder;
    const std::wstring path = folder.File(L"丂乗~龘.grd");
    const Late saved = NewGrid();
    saved.Put(L"CellText", {1, 1, L"摘要"});
    ASSERT_EQ(saved.Number(L"SaveFile", {path.c_str()}), -1);

    Container container;
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    ASSERT_EQ(container.Show(control), S_OK);
    const HWND window = Container::WindowOf(control);
    const UINT open = ::RegisterWindowMessageW(L"VeynorGrid_OpenFile");
    const std::string narrow = TextFromWide(path);
    // Registered messages carry the bytes as they are, by the narrow call as by the wide one.
    EXPECT_EQ(::SendMessageA(window, open, reinterpret_cast<WPARAM>(narrow.c_str()), 0), 1);
    EXPECT_EQ(::SendMessageW(window, open, reinterpret_cast<WPARAM>(narrow.c_str()), 0), 1);
    EXPECT_EQ(Late(control).Text(L"CellText", {1, 1}), CodePage936FromUtf8("摘要"));
    const std::string missing = narrow + "x";
    EXPECT_EQ(::SendMessageA(window, open, reinterpret_cast<WPARAM>(missing.c_str()), 0), 0);
}

TEST(Locale, StreamsHoldTheSameBytesUnderEveryCodePage) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Late(control).Put(L"CellText", {1, 1, WideFromText(TrickyBytes()).c_str()});
    ComPtr<IPersistMemory> memory;
    ASSERT_EQ(control.As(&memory), S_OK);
    ULONG size = 0;
    ASSERT_EQ(memory->GetSizeMax(&size), S_OK);
    std::string bytes(size, '\0');
    ASSERT_EQ(memory->Save(bytes.data(), FALSE, size), S_OK);
    EXPECT_NE(bytes.find(TrickyBytes()), std::string::npos);
}

TEST(Locale, ClipboardTextIsPutAndTakenInCodePage936) {
    Container container;
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    ASSERT_EQ(container.Show(control), S_OK);
    const Late grid(control);
    grid.Put(L"CellText", {1, 1, WideFromText(TrickyBytes()).c_str()});
    grid.Call(L"EditCopy");
    grid.Put(L"CellText", {1, 1, L""});
    grid.Call(L"EditPaste");
    EXPECT_EQ(grid.Text(L"CellText", {1, 1}), TrickyBytes());
}

}  // namespace

}  // namespace veygrid
