// The counts of handles that other tests rely on are real.
#include "tests/control/Handles.h"

#include <gtest/gtest.h>

#include <vector>

namespace veygrid {

namespace {

TEST(HandleCounts, EveryKindOfDrawingObjectIsCountedAndGoesFromTheCount) {
    const int before = Handles::GdiObjects();
    const HDC dc = ::CreateCompatibleDC(nullptr);
    const std::vector<HGDIOBJ> objects{
        ::CreateSolidBrush(RGB(1, 2, 3)), ::CreatePen(PS_SOLID, 1, RGB(4, 5, 6)),
        ::CreateBitmap(3, 3, 1, 1, nullptr), ::CreateRectRgn(0, 0, 3, 3),
        ::CreateFontW(9, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial")};
    EXPECT_EQ(Handles::GdiObjects(), before + 6);
    for (const HGDIOBJ object : objects) {
        ::DeleteObject(object);
    }
    ::DeleteDC(dc);
    EXPECT_EQ(Handles::GdiObjects(), before);
}

TEST(HandleCounts, WindowsTheirChildrenAndMenusAreCountedAndGoFromTheCount) {
    const auto make = [](HWND parent) {
        return ::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"",
                                 parent == nullptr ? WS_POPUP : WS_CHILD, 0, 0, 9, 9, parent,
                                 nullptr, nullptr, nullptr);
    };
    ::DestroyWindow(make(nullptr));
    const Handles before;
    const HWND window = make(nullptr);
    make(make(window));
    const HMENU menu = ::CreatePopupMenu();
    const Handles between;
    EXPECT_GE(between.windows, before.windows + 3);
    EXPECT_EQ(between.menus, before.menus + 1);
    ::DestroyMenu(menu);
    ::DestroyWindow(window);
    EXPECT_EQ(Handles(), before);
}

}  // namespace

}  // namespace veygrid
