// A VARIANT with an owner.
#pragma once

#include "platform/win32/ole/Platform.h"

namespace veygrid {

class OwnedVariant {
  public:
    OwnedVariant() { ::VariantInit(&m_value); }
    OwnedVariant(const OwnedVariant&) = delete;
    OwnedVariant& operator=(const OwnedVariant&) = delete;
    ~OwnedVariant() { ::VariantClear(&m_value); }

    VARIANT& Get() { return m_value; }
    const VARIANT& Get() const { return m_value; }
    VARIANT* operator&() { return &m_value; }
    const VARIANT* operator->() const { return &m_value; }
    VARIANT* operator->() { return &m_value; }
    // The value without its owner.
    VARIANT Release() {
        const VARIANT value = m_value;
        ::VariantInit(&m_value);
        return value;
    }

  private:
    VARIANT m_value;
};

}  // namespace veygrid
