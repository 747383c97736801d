// The host's menu, its command numbers and its keys.
#include "apps/host/MainMenu.h"

#include <initializer_list>
#include <iterator>

namespace veygrid {

namespace {

struct Item {
    UINT command;  // 0 for a line between items
    const wchar_t* caption;
};

void AddSubMenu(HMENU bar, const wchar_t* caption, std::initializer_list<Item> items) {
    const HMENU menu = CreatePopupMenu();
    for (const Item& item : items) {
        AppendMenuW(menu, item.command == 0 ? MF_SEPARATOR : MF_STRING, item.command, item.caption);
    }
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), caption);
}

ACCEL ControlKey(WORD key, Command command) {
    return {FVIRTKEY | FCONTROL, key, static_cast<WORD>(command)};
}

}  // namespace

HMENU MakeMainMenu() {
    const HMENU bar = CreateMenu();
    AddSubMenu(bar, L"文件(&F)",
               {{CommandNew, L"新建(&N)\tCtrl+N"},
                {CommandOpen, L"打开(&O)…\tCtrl+O"},
                {CommandSave, L"保存(&S)\tCtrl+S"},
                {CommandSaveAs, L"另存为(&A)…"},
                {0, nullptr},
                {CommandPrint, L"打印(&P)…\tCtrl+P"},
                {CommandPreview, L"打印预览(&V)"},
                {0, nullptr},
                {CommandClose, L"退出(&X)"}});
    AddSubMenu(bar, L"视图(&V)",
               {{CommandFormView, L"表单视图(&F)"}, {CommandDesignMode, L"设计模式(&D)"}});
    AddSubMenu(bar, L"数据(&D)",
               {{CommandConnect, L"连接(&C)…"},
                {CommandRunQuery, L"执行查询(&Q)\tF5"},
                {0, nullptr},
                {CommandAddRecord, L"增加记录(&A)"},
                {CommandDeleteRecord, L"删除记录(&D)"},
                {0, nullptr},
                {CommandSaveRecords, L"保存(&S)"},
                {CommandRollBack, L"放弃修改(&R)"}});
    AddSubMenu(bar, L"控件(&C)", {{CommandProperties, L"属性(&P)…"}, {CommandAbout, L"关于(&A)…"}});
    return bar;
}

HACCEL MakeMenuKeys() {
    ACCEL keys[] = {ControlKey('N', CommandNew),
                    ControlKey('O', CommandOpen),
                    ControlKey('S', CommandSave),
                    ControlKey('P', CommandPrint),
                    {FVIRTKEY, VK_F5, CommandRunQuery}};
    return CreateAcceleratorTableW(keys, static_cast<int>(std::size(keys)));
}

}  // namespace veygrid
