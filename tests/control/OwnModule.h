// Controls of the test program itself, whose inside a test can look at.
#pragma once

#include "platform/win32/ole/Module.h"

namespace veygrid {

// The window classes and resources of this program, or of another module, stand for those of the
// control's own while it lives. This program has no dialogs.
class OwnModule {
  public:
    explicit OwnModule(HINSTANCE instance = ::GetModuleHandleW(nullptr)) {
        module::Attach(instance);
    }
    OwnModule(const OwnModule&) = delete;
    OwnModule& operator=(const OwnModule&) = delete;
    ~OwnModule() { module::Attach(m_before); }

  private:
    HINSTANCE m_before = module::Instance();
};

}  // namespace veygrid
