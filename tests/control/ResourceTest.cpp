// What the module brings along as data: strings, pictures, dialogs, and its size.
#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>

#include "control/ClassIds.h"
#include "tests/control/OpenDialog.h"
#include "tests/control/Support.h"

namespace veygrid {

namespace {

constexpr std::array Cursors{1021, 1022,  1023,  1024,  1025,  1026, 1027,
                             1028, 30983, 30984, 30985, 30986, 30987};

std::wstring StringOf(UINT id) {
    wchar_t text[100] = {};
    ::LoadStringW(Ocx::Handle(), id, text, 100);
    return text;
}

// The pixels of a cursor as it appears over white and over black.
std::string PictureOf(HCURSOR cursor, COLORREF ground) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), 32, -32, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HDC target = ::CreateCompatibleDC(nullptr);
    const HGDIOBJ before = ::SelectObject(target, bitmap);
    const RECT all{0, 0, 32, 32};
    ::FillRect(target, &all,
               static_cast<HBRUSH>(::GetStockObject(ground == 0 ? BLACK_BRUSH : WHITE_BRUSH)));
    ::DrawIconEx(target, 0, 0, cursor, 32, 32, 0, nullptr, DI_NORMAL);
    ::GdiFlush();
    std::string pixels;
    for (int i = 0; i < 32 * 32; ++i) {
        pixels += (static_cast<const DWORD*>(bits)[i] & 0xFFFFFFU) == 0 ? '#' : 'o';
    }
    ::SelectObject(target, before);
    ::DeleteDC(target);
    ::DeleteObject(bitmap);
    return pixels;
}

TEST(Resource, TheStringsOfTheModule) {
    EXPECT_EQ(StringOf(1), L"VeyGrid Control");
    EXPECT_EQ(StringOf(2), L"VeyGrid Property Page");
    EXPECT_EQ(StringOf(102), L"Wizard");
    EXPECT_EQ(StringOf(200), L"General");
}

TEST(Resource, EveryCursorIsAPictureOfItsOwnSeenOnEveryGround) {
    std::set<std::string> pictures;
    for (const int id : Cursors) {
        const HCURSOR cursor = ::LoadCursorW(Ocx::Handle(), MAKEINTRESOURCEW(id));
        ASSERT_NE(cursor, nullptr) << id;
        const std::string white = PictureOf(cursor, 0xFFFFFF);
        const std::string black = PictureOf(cursor, 0);
        EXPECT_NE(white.find('#'), std::string::npos) << id;
        EXPECT_NE(black.find('o'), std::string::npos) << id;
        // See-through at its corners.
        EXPECT_EQ(white.front(), 'o') << id;
        EXPECT_EQ(black.back(), '#') << id;
        pictures.insert(white);
    }
    EXPECT_EQ(pictures.size(), Cursors.size());
}

TEST(Resource, TheHotSpotOfTheMoveCursorIsItsMiddle) {
    ICONINFO info{};
    ASSERT_TRUE(::GetIconInfo(::LoadCursorW(Ocx::Handle(), MAKEINTRESOURCEW(30987)), &info));
    EXPECT_EQ(info.xHotspot, 15U);
    EXPECT_EQ(info.yHotspot, 15U);
    EXPECT_FALSE(info.fIcon);
    ::DeleteObject(info.hbmMask);
    ::DeleteObject(info.hbmColor);
}

TEST(Resource, TheToolboxBitmapIsSixteenByFifteen) {
    const HANDLE bitmap = ::LoadImageW(Ocx::Handle(), MAKEINTRESOURCEW(2301), IMAGE_BITMAP, 0, 0,
                                       LR_CREATEDIBSECTION);
    ASSERT_NE(bitmap, nullptr);
    BITMAP told{};
    ::GetObjectW(bitmap, sizeof told, &told);
    EXPECT_EQ(told.bmWidth, 16);
    EXPECT_EQ(told.bmHeight, 15);
    const HDC source = ::CreateCompatibleDC(nullptr);
    const HGDIOBJ before = ::SelectObject(source, bitmap);
    // The border, the header and the chosen cell.
    EXPECT_EQ(::GetPixel(source, 0, 0), RGB(0, 0, 0));
    EXPECT_EQ(::GetPixel(source, 1, 1), RGB(0xC0, 0xC0, 0xC0));
    EXPECT_EQ(::GetPixel(source, 5, 4), RGB(0, 0, 0xFF));
    ::SelectObject(source, before);
    ::DeleteDC(source);
    ::DeleteObject(bitmap);
}

TEST(Resource, TheAboutBoxHoldsTwoTextLinesAndOneButton) {
    int texts = 0;
    int buttons = 0;
    const auto count = [&](HWND dialog) {
        for (HWND item = ::GetWindow(dialog, GW_CHILD); item != nullptr;
             item = ::GetWindow(item, GW_HWNDNEXT)) {
            wchar_t name[16] = {};
            ::GetClassNameW(item, name, 16);
            texts += ::lstrcmpiW(name, L"Static") == 0 ? 1 : 0;
            buttons += ::lstrcmpiW(name, L"Button") == 0 ? 1 : 0;
        }
        ::SendMessageW(::GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0);
    };
    OpenDialog dialog([](HWND) { return true; }, count);
    EXPECT_EQ(Late(Ocx::Make(VeyGridClassId)).Invoke(DISPID_ABOUTBOX, DISPATCH_METHOD, {}), S_OK);
    EXPECT_TRUE(dialog.WasSeen());
    EXPECT_EQ(texts, 2);
    EXPECT_EQ(buttons, 1);
}

TEST(Resource, TheModuleIsSmallerThanThreeMegabytes) {
    WIN32_FILE_ATTRIBUTE_DATA file{};
    ASSERT_TRUE(::GetFileAttributesExW(Ocx::Path().c_str(), GetFileExInfoStandard, &file));
    EXPECT_EQ(file.nFileSizeHigh, 0U);
    EXPECT_GT(file.nFileSizeLow, 0U);
    EXPECT_LT(file.nFileSizeLow, 3U * 1024 * 1024);
}

}  // namespace

}  // namespace veygrid
