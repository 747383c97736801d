// Registering the classes of a module, for the machine or for one user.
#pragma once

#include <string>

#include "platform/win32/ole/AutomationTypes.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

enum class RegistrationScope { Machine, User };

struct TypeLibraryId {
    const GUID& id;
    WORD major;
    WORD minor;
};

// One class as the registry knows it. Texts outlive the entry.
struct ClassEntry {
    const CLSID& clsid;
    const wchar_t* progId;  // null for none
    std::wstring name;
    bool isControl = false;
    WORD toolboxBitmap = 0;  // resource number of a control's picture
    DWORD miscStatus = 0;
    const TypeLibraryId* library = nullptr;
};

std::wstring GuidText(REFGUID guid);

HRESULT RegisterLibrary(RegistrationScope scope, const TypeLibraryId& library);
// A library that is not registered counts as gone.
HRESULT UnregisterLibrary(RegistrationScope scope, const TypeLibraryId& library);
// Apartment-threaded, served by this module. False when a key could not be written.
bool RegisterClass(RegistrationScope scope, const ClassEntry& entry);
// Removes the keys of the class and of its prog id, unless that belongs to another class.
bool UnregisterClass(RegistrationScope scope, const ClassEntry& entry);

}  // namespace veygrid
