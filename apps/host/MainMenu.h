// The host's menu, its command numbers and its keys.
#pragma once

#include <windows.h>

namespace veygrid {

// Commands of the host itself. They lie above the numbers that a control's own menu items and
// form objects send to their parent.
enum Command : UINT {
    CommandFirst = 60000,
    CommandNew = CommandFirst,
    CommandOpen,
    CommandSave,
    CommandSaveAs,
    CommandPrint,
    CommandPreview,
    CommandClose,
    CommandFormView,
    CommandDesignMode,
    CommandConnect,
    CommandRunQuery,
    CommandAddRecord,
    CommandDeleteRecord,
    CommandSaveRecords,
    CommandRollBack,
    CommandProperties,
    CommandAbout,
    CommandLast = CommandAbout,
};

// The menu belongs to the window that it is given to.
HMENU MakeMainMenu();

// Ctrl+N, Ctrl+O, Ctrl+S, Ctrl+P, F5. Lives as long as the program.
HACCEL MakeMenuKeys();

}  // namespace veygrid
