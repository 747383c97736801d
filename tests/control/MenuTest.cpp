// The menu and its dialogs as the system shows them.
#include <gmock/gmock.h>

#include <cstring>
#include <string>
#include <vector>

#include "control/ClassIds.h"
#include "control/HeaderTextDialog.h"
#include "control/Translation.h"
#include "platform/win32/GdiFonts.h"
#include "platform/win32/ole/Module.h"
#include "tests/control/Container.h"
#include "tests/control/OpenDialog.h"

namespace veygrid {

namespace {

using ::testing::ElementsAre;

constexpr UINT MenuOfWindow = 0x01E1;  // MN_GETHMENU

// The items of a menu, as "command text"; those of a sub-pop-up stand behind it, one ">" deeper.
void AddItems(HMENU menu, const std::wstring& depth, std::vector<std::wstring>& items) {
    for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
        wchar_t text[100] = {};
        ::GetMenuStringW(menu, static_cast<UINT>(i), text, 100, MF_BYPOSITION);
        const HMENU inner = ::GetSubMenu(menu, i);
        const UINT id = ::GetMenuItemID(menu, i);
        items.push_back(depth + (inner != nullptr ? L"pop-up" : std::to_wstring(id)) +
                        (*text == 0 ? L"" : L" ") + text);
        if (inner != nullptr) {
            AddItems(inner, depth + L">", items);
        }
    }
}

std::vector<std::wstring> ItemsOfResource(int id) {
    const HMENU menu = ::LoadMenuW(Ocx::Handle(), MAKEINTRESOURCEW(id));
    std::vector<std::wstring> items;
    AddItems(menu, L"", items);
    ::DestroyMenu(menu);
    return items;
}

// Looks at the menu that a right click opens, and closes it.
class MenuLook {
  public:
    static HMENU Open(HWND window) {
        seen = nullptr;
        const UINT_PTR timer = ::SetTimer(nullptr, 0, 10, OnTimer);
        ::SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window),
                       MAKELPARAM(40, 60));
        ::KillTimer(nullptr, timer);
        return seen;
    }
    static inline std::vector<std::wstring> items;
    static inline UINT formMode = 0;
    static inline UINT designMode = 0;

  private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        const HWND shown = ::FindWindowW(L"#32768", nullptr);
        const auto menu = shown == nullptr
                              ? nullptr
                              : reinterpret_cast<HMENU>(::SendMessageW(shown, MenuOfWindow, 0, 0));
        if (menu != nullptr && seen == nullptr) {
            seen = menu;
            items.clear();
            AddItems(menu, L"", items);
            formMode = ::GetMenuState(menu, 42312, MF_BYCOMMAND);
            designMode = ::GetMenuState(menu, 42313, MF_BYCOMMAND);
        }
        ::EndMenu();
    }
    static inline HMENU seen = nullptr;
};

TEST(Menu, TheResourceHasOnePopUpWithItsItemsInTheirOrder) {
    EXPECT_THAT(
        ItemsOfResource(2307),
        ElementsAre(L"pop-up PopMenu", L">42302 对齐", L">42300 字体", L">42310 数据",
                    L">42301 边框", L">pop-up 编辑", L">>42303 插入行", L">>42304 删除行",
                    L">>42305 插入列", L">>42306 删除列", L">>0", L">>42307 复制", L">>42308 剪切",
                    L">>42309 粘贴", L">>0", L">>42324 清除全部格式", L">0", L">42312 界面模式",
                    L">42313 界面设计模式", L">42321 界面布局网格设置", L">42315 界面对象",
                    L">42314 设置对象顺序", L">42323 删除选定的对象", L">42320 OCX控件属性", L">0",
                    L">42311 查看/修改数据源", L">42316 参数设置", L">42317 执行查询", L">0",
                    L">42318 保存文件", L">42319 打开文件", L">0", L">42322 设置/取消关键列标志"));
}

TEST(Menu, TheSecondResourceIsACopy) {
    EXPECT_EQ(ItemsOfResource(2308), ItemsOfResource(2307));
}

TEST(Menu, ARightClickShowsEveryItemWithTheKeyColumnsTextAndTheMarksOfTheModes) {
    Container container;
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    ASSERT_EQ(container.Show(control), S_OK);
    const Late grid(control);
    const HWND window = Container::WindowOf(control);
    ASSERT_NE(MenuLook::Open(window), nullptr);
    std::vector<std::wstring> wanted = ItemsOfResource(2307);
    wanted.erase(wanted.begin());
    wanted.back() = L">42322 取消关键列";
    for (std::wstring& item : wanted) {
        item.erase(0, 1);
    }
    EXPECT_EQ(MenuLook::items, wanted);
    EXPECT_EQ(MenuLook::formMode & MF_CHECKED, 0U);
    EXPECT_EQ(MenuLook::designMode & MF_CHECKED, 0U);

    grid.Put(L"KeyColumnFlag", {1, 0});
    grid.Put(L"GuiMode", {true});
    grid.Put(L"GuiDesignMode", {true});
    ASSERT_NE(MenuLook::Open(window), nullptr);
    EXPECT_EQ(MenuLook::items.back(), L"42322 置为关键列");
    EXPECT_NE(MenuLook::formMode & MF_CHECKED, 0U);
    EXPECT_NE(MenuLook::designMode & MF_CHECKED, 0U);
}

TEST(Menu, WithAllowPopMenuOffNothingShows) {
    Container container;
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    ASSERT_EQ(container.Show(control), S_OK);
    Late(control).Put(L"AllowPopMenu", {false});
    EXPECT_EQ(MenuLook::Open(Container::WindowOf(control)), nullptr);
}

TEST(Menu, TheHostsItemsShowWithTheirTextsAndGoWithTheControl) {
    HMENU shown = nullptr;
    {
        Container container;
        const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
        const Late grid(control);
        grid.Call(L"RemoveAllMenuItem");
        grid.Call(L"AppendMenuItem", {33001, L"审核\x8BAF凭证|~"});
        grid.Call(L"AppendMenuItem", {1000, L"text"});
        grid.Call(L"AppendMenuItem", {1008, L"复制(&C)"});
        ASSERT_EQ(container.Show(control), S_OK);
        shown = MenuLook::Open(Container::WindowOf(control));
        ASSERT_NE(shown, nullptr);
        EXPECT_THAT(MenuLook::items,
                    ElementsAre(L"33001 审核\x8BAF凭证|~", L"0", L"42307 复制(&C)"));
        EXPECT_TRUE(::IsMenu(shown));
    }
    EXPECT_FALSE(::IsMenu(shown));
    EXPECT_TRUE(Ocx::CanUnload());
}

bool HasCaption(HWND window, const std::wstring& caption) {
    return WindowText(window) == caption;
}

TEST(Menu, TheHeaderDialogShowsTheOldTextAndGivesTheNewOne) {
    module::Attach(reinterpret_cast<HINSTANCE>(Ocx::Handle()));
    std::vector<std::wstring> texts;
    const OpenDialog dialog([](HWND window) { return HasCaption(window, L"设置行列标题"); },
                            [&](HWND window) {
                                for (const int id : {1003, IDOK, IDCANCEL}) {
                                    texts.push_back(WindowText(::GetDlgItem(window, id)));
                                }
                                ::SetDlgItemTextW(window, 1003, L"金额 龘|");
                                ::PostMessageW(window, WM_COMMAND, IDOK, 0);
                            });
    EXPECT_EQ(AskHeaderText(nullptr, TextFromWide(L"单价")), TextFromWide(L"金额 龘|"));
    EXPECT_THAT(texts, ElementsAre(L"单价", L"确定", L"取消"));
}

TEST(Menu, ACancelledHeaderDialogGivesNothing) {
    module::Attach(reinterpret_cast<HINSTANCE>(Ocx::Handle()));
    const OpenDialog dialog([](HWND window) { return HasCaption(window, L"设置行列标题"); },
                            [](HWND window) {
                                ::SetDlgItemTextW(window, 1003, L"x");
                                ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
                            });
    EXPECT_EQ(AskHeaderText(nullptr, "old"), std::nullopt);
    EXPECT_TRUE(dialog.WasSeen());
}

// The font record of a cell, as hosts read it.
LogFont FontOf(const Late& grid, int row, int col) {
    const Late format = grid.Object(L"CellFormat", {row, col});
    OwnedVariant bytes;
    EXPECT_EQ(format.Invoke(format.IdOf(L"Font"), DISPATCH_PROPERTYGET, {}, &bytes), S_OK);
    LogFont font;
    EXPECT_EQ(bytes->vt, VT_ARRAY | VT_UI1);
    if (bytes->vt == (VT_ARRAY | VT_UI1)) {
        std::memcpy(&font, bytes->parray->pvData, sizeof font);
    }
    return font;
}

TEST(Menu, TheFontDialogBeginsWithTheControlsFontAndItsChoiceGoesToEveryCellSelected) {
    constexpr int FaceList = 1136;
    constexpr int StrikeOutBox = 1040;
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    const Late grid(control);
    grid.Call(L"SetSelection", {2, 1, 3, 1});
    const OpenDialog dialog([](HWND window) { return ::GetDlgItem(window, FaceList) != nullptr; },
                            [](HWND window) {
                                ::SendMessageW(::GetDlgItem(window, StrikeOutBox), BM_CLICK, 0, 0);
                                ::PostMessageW(window, WM_COMMAND, IDOK, 0);
                            });
    EXPECT_EQ(grid.Call(L"ShowFontDlg"), S_OK);
    EXPECT_TRUE(dialog.WasSeen());
    const LogFont font = FontOf(grid, 2, 1);
    EXPECT_EQ(font.lfStrikeOut, 1);
    EXPECT_EQ(font.lfWeight, FW_NORMAL);
    EXPECT_NE(font.lfHeight, 0);
    EXPECT_EQ(FontOf(grid, 3, 1), font);
    EXPECT_EQ(FontOf(grid, 1, 1).lfWeight, -1);
    EXPECT_EQ(grid.Object(L"CellFormat", {3, 1}).Number(L"Foreground"), 0);
}

TEST(Menu, AFontRecordGoesToTheSystemAndBackUnchanged) {
    LogFont record{.lfHeight = -20, .lfWeight = 700, .lfItalic = 1, .lfCharSet = 134};
    SetFaceName(record, TextFromWide(L"宋体"));
    EXPECT_EQ(NarrowRecord(WideRecord(record)), record);
}

TEST(Menu, AFaceNameThatIsTooLongIsCutBetweenTwoCharacters) {
    LogFont record;
    record.lfFaceName.fill('x');
    SetFaceName(record, "a" + TextFromWide(std::wstring(16, L'汉')));
    EXPECT_EQ(std::string(record.lfFaceName.data()), "a" + TextFromWide(std::wstring(15, L'汉')));
    SetFaceName(record, TextFromWide(std::wstring(16, L'汉')));
    EXPECT_EQ(std::string(record.lfFaceName.data()), TextFromWide(std::wstring(15, L'汉')));
    EXPECT_EQ(record.lfFaceName[31], '\0');
}

}  // namespace

}  // namespace veygrid
