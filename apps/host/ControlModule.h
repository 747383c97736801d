// The control's module: loaded from beside the program, without any registration.
#pragma once

#include <windows.h>

#include "apps/host/ComObject.h"

namespace veygrid {

// {5B7A1E46-2C64-4D19-A3F0-7E21C94D6A10}, "VEYGRID.VeyGridCtrl.1".
inline constexpr CLSID VeyGridClass = {
    0x5B7A1E46, 0x2C64, 0x4D19, {0xA3, 0xF0, 0x7E, 0x21, 0xC9, 0x4D, 0x6A, 0x10}};

// Stays loaded until the process ends: objects of the module may outlive every owner here.
class ControlModule {
  public:
    // Loads VeyGrid.ocx from the program's folder; throws ComFault when that fails.
    ControlModule();

    // A new object of a class of the module; throws ComFault.
    ComPtr<IUnknown> Create(REFCLSID classId) const;

  private:
    HMODULE m_module = nullptr;
};

}  // namespace veygrid
