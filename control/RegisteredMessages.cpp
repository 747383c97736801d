// Messages that the control, its windows and its host know by name.
#include "control/RegisteredMessages.h"

#include <array>

namespace veygrid {

namespace {

constexpr std::array Names{
    L"VeynorGrid_AskFor",
    L"VeynorGrid_CtrlKeyDown",
    L"VeynorGrid_CellSelChange",
    L"VeynorGrid_GuiObjSelChange",
    L"VeynorGrid_SizeParentWindow",
    L"VeynorGrid_ComboBoxAskForExternFill",
    L"VeynorGrid_SaveRecord",
    L"VeynorGrid_InsertRecord",
    L"VeynorGrid_DeleteeRecord",  // hosts know it spelled so
    L"VeynorGrid_CloseParent",
    L"VeynorGrid_NextRecord",
    L"VeynorGrid_PriorRecord",
    L"VeynorGrid_FirstRecord",
    L"VeynorGrid_LastRecord",
    L"VeynorGrid_OpenFile",
    L"VeynorGrid_CtrlKeyMsg",
    L"_WM_KVT_RUI_ADDITEM_",
    L"MSG_DRAGOVER",
    L"MSG_DROP",
    L"CListCtrlEx_InPlaceButtonClick",
    L"CListCtrlEx_ItemTextChange",
};

// Registered for hosts alone.
constexpr std::array UnusedNames{
    L"MSG_SETVALUE",
    L"MSG_GETVALUE",
    L"MSG_UPDATE_BATCH_FILES",
    L"MSG_UPDATE_MENU",
    L"MSG_REFRESH",
    L"MSG_UPDATE_DATA",
    L"MSG_RCLICK",
    L"MSG_MDICHILD_ACTIVATED",
    L"MSG_DATA_CHANGED",
    L"MSG_EXPORT_TO_REPORT",
    L"MSG_EXPORT_TO_OLAP",
    L"EXPR_OBJEDIT_OK",
    L"EXPR_OBJEDIT_CANCEL",
};
constexpr std::array UnusedFormats{
    L"QueryItem", L"QueryItems", L"Table", L"Field", L"Dataset", L"ReportItem",
};

std::array<UINT, Names.size()> RegisterAll() {
    std::array<UINT, Names.size()> numbers{};
    for (std::size_t i = 0; i < Names.size(); ++i) {
        numbers[i] = ::RegisterWindowMessageW(Names[i]);
    }
    for (const wchar_t* const name : UnusedNames) {
        ::RegisterWindowMessageW(name);
    }
    for (const wchar_t* const name : UnusedFormats) {
        ::RegisterClipboardFormatW(name);
    }
    return numbers;
}

}  // namespace

UINT NumberOf(Message message) {
    static const std::array numbers = RegisterAll();
    return numbers[static_cast<std::size_t>(message)];
}

}  // namespace veygrid
