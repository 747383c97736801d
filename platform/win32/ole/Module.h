// The module: its handle, the count of what keeps it loaded, and its type library.
#pragma once

#include <string>

#include "platform/win32/ole/AutomationTypes.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid::module {

// Told by the module's entry point before anything else.
void Attach(HINSTANCE instance);
HINSTANCE Instance();
// Path of the module's file.
std::wstring FileName();
// Text of a string resource; empty when there is none.
std::wstring String(UINT id);

// The window that owns dialogs which have no other owner: the control's that was made last. Null
// when it is gone.
void SetMainWindow(HWND window);
HWND MainWindow();

void Lock();
void Unlock();
bool IsLocked();

// Held by every object that hosts can hold.
class LockHolder {
  public:
    LockHolder() { Lock(); }
    LockHolder(const LockHolder&) = delete;
    LockHolder& operator=(const LockHolder&) = delete;
    ~LockHolder() { Unlock(); }
};

// From the module's own resources, without the registry; throws OleError.
ComPtr<ITypeLib> TypeLibrary();
ComPtr<ITypeInfo> TypeInfo(REFGUID guid);

}  // namespace veygrid::module
