// Messages that the control, its windows and its host know by name.
#pragma once

#include "platform/win32/ole/Platform.h"

namespace veygrid {

// In the order in which they are registered; hosts that know the names reach the same numbers.
enum class Message {
    AskFor,
    CtrlKeyDown,
    CellSelChange,
    GuiObjSelChange,
    SizeParentWindow,
    ComboBoxAskForExternFill,
    SaveRecord,
    InsertRecord,
    DeleteRecord,
    CloseParent,
    NextRecord,
    PriorRecord,
    FirstRecord,
    LastRecord,
    OpenFile,
    CtrlKeyMsg,
    AddItem,
    DragOver,
    Drop,
    InPlaceButtonClick,
    ItemTextChange,
};

// Number of the message in this session of the system. The first call registers all names, those
// without a use here too.
UINT NumberOf(Message message);

}  // namespace veygrid
