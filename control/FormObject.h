// The automation object that describes a form object to be made.
#pragma once

#include <cstdint>
#include <string>

#include "platform/win32/ole/DispatchPart.h"

namespace veygrid {

// Plain values, of which each property stores and gives one. The type and the position must be set
// by the host; until then they are 0.
struct FormObjectDescription {
    std::string Name;
    std::int16_t DataType = 0;
    std::int32_t Style = 0;
    std::int32_t StyleEx = 0;
    std::string BindSource;
    std::string ShowFormat;
    std::string Label;
    std::int32_t LableLocate = 0;
    std::int32_t LabelWidth = 0;
    std::int32_t LabelGap = 0;
    bool LabelAutoWidth = false;
    std::string DataClass;
    std::string Data;
    bool CanNull = true;
    std::int16_t ObjectType = 0;
    std::int32_t PosLeft = 0;
    std::int32_t PosTop = 0;
    std::int32_t PosRight = 0;
    std::int32_t PosBottom = 0;
    std::int32_t CtrlID = 0;
};

class CFormObject final : public OleObject {
  public:
    explicit CFormObject(IUnknown* outer);

    static IUnknown* Make(IUnknown* outer);

    FormObjectDescription Description;

  private:
    IUnknown* FindInterface(REFIID iid) override { return m_automation.Find(iid); }

    AutomationParts m_automation;
};

}  // namespace veygrid
