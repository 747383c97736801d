// The module's classes by name, without registration.
#pragma once

#include "tests/control/Support.h"

namespace veygrid {

// While it lives, the manifest beside the module stands in for registration.
class ManifestInUse {
  public:
    ManifestInUse() {
        Ocx::Handle();
        const std::wstring module = Ocx::Path();
        const std::wstring manifest = module.substr(0, module.size() - 4) + L".manifest";
        ACTCTXW description{};
        description.cbSize = sizeof description;
        description.lpSource = manifest.c_str();
        m_context = ::CreateActCtxW(&description);
        EXPECT_NE(m_context, INVALID_HANDLE_VALUE);
        EXPECT_TRUE(::ActivateActCtx(m_context, &m_cookie));
    }
    ManifestInUse(const ManifestInUse&) = delete;
    ManifestInUse& operator=(const ManifestInUse&) = delete;
    ~ManifestInUse() {
        ::DeactivateActCtx(0, m_cookie);
        ::ReleaseActCtx(m_context);
    }

  private:
    HANDLE m_context = nullptr;
    ULONG_PTR m_cookie = 0;
};

}  // namespace veygrid
