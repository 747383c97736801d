// Entry points of the module: class objects, registration and unloading.
#include <array>
#include <cwchar>

#include "control/CellFormatObject.h"
#include "control/ClassIds.h"
#include "control/FormObject.h"
#include "control/GridPropPage.h"
#include "control/VeyGridCtrl.h"
#include "platform/win32/ole/ClassFactory.h"
#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/Module.h"
#include "platform/win32/ole/Platform.h"
#include "platform/win32/ole/Registration.h"

namespace veygrid {

namespace {

constexpr HRESULT TypeLibraryStepFailed = SELFREG_E_TYPELIB;
constexpr HRESULT ClassStepFailed = SELFREG_E_CLASS;
static_assert(static_cast<unsigned>(TypeLibraryStepFailed) == 0x80040200U);
static_assert(static_cast<unsigned>(ClassStepFailed) == 0x80040201U);

constexpr UINT ControlNameId = 1;
constexpr UINT PropertyPageNameId = 2;
constexpr WORD ToolboxBitmapId = 2301;
constexpr TypeLibraryId Library{LibraryId, LibraryMajor, LibraryMinor};

struct ModuleClass {
    const CLSID& clsid;
    ObjectMaker make;
};

constexpr std::array Classes{
    ModuleClass{VeyGridClassId, CVeyGridCtrl::Make},
    ModuleClass{CellFormatClassId, CellFormatObject::Make},
    ModuleClass{FormObjectClassId, CFormObject::Make},
    ModuleClass{PropertyPageClassId, CVeyGridPropPage::Make},
};

std::array<ClassEntry, Classes.size()> ClassEntries() {
    return {
        ClassEntry{.clsid = VeyGridClassId,
                   .progId = L"VEYGRID.VeyGridCtrl.1",
                   .name = module::String(ControlNameId),
                   .isControl = true,
                   .toolboxBitmap = ToolboxBitmapId,
                   .miscStatus = CVeyGridCtrl::MiscStatus,
                   .library = &Library},
        ClassEntry{.clsid = CellFormatClassId,
                   .progId = L"VeyGrid.CellFormat",
                   .name = L"VeyGrid.CellFormat"},
        ClassEntry{.clsid = FormObjectClassId,
                   .progId = L"VeyGrid.FormObject",
                   .name = L"VeyGrid.FormObject"},
        ClassEntry{.clsid = PropertyPageClassId,
                   .progId = L"VEYGRID.VeyGridPropPage.1",
                   .name = module::String(PropertyPageNameId)},
    };
}

HRESULT RegisterModule(RegistrationScope scope) {
    return Guarded([scope] {
        if (FAILED(RegisterLibrary(scope, Library))) {
            return TypeLibraryStepFailed;
        }
        for (const ClassEntry& entry : ClassEntries()) {
            if (!RegisterClass(scope, entry)) {
                return ClassStepFailed;
            }
        }
        return S_OK;
    });
}

HRESULT UnregisterModule(RegistrationScope scope) {
    return Guarded([scope] {
        if (FAILED(UnregisterLibrary(scope, Library))) {
            return TypeLibraryStepFailed;
        }
        for (const ClassEntry& entry : ClassEntries()) {
            if (!UnregisterClass(scope, entry)) {
                return ClassStepFailed;
            }
        }
        return S_OK;
    });
}

}  // namespace

}  // namespace veygrid

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        veygrid::module::Attach(instance);
        ::DisableThreadLibraryCalls(instance);
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** target) {
    for (const veygrid::ModuleClass& known : veygrid::Classes) {
        if (known.clsid == clsid) {
            return veygrid::MakeClassFactory(known.make, iid, target);
        }
    }
    if (target != nullptr) {
        *target = nullptr;
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return veygrid::module::IsLocked() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
    return veygrid::RegisterModule(veygrid::RegistrationScope::Machine);
}

STDAPI DllUnregisterServer() {
    return veygrid::UnregisterModule(veygrid::RegistrationScope::Machine);
}

// The command line "user" registers for the present user alone.
STDAPI DllInstall(BOOL install, PCWSTR commandLine) {
    using veygrid::RegistrationScope;
    const bool forUser = commandLine != nullptr && ::_wcsicmp(commandLine, L"user") == 0;
    const RegistrationScope scope = forUser ? RegistrationScope::User : RegistrationScope::Machine;
    return install != FALSE ? veygrid::RegisterModule(scope) : veygrid::UnregisterModule(scope);
}

}  // extern "C"
