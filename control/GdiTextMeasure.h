// Widths of texts in a font of the system.
#pragma once

#include "grid/CellShow.h"
#include "platform/win32/ole/AutomationTypes.h"

namespace veygrid {

class GdiTextMeasure final : public TextMeasure {
  public:
    // `font` is an automation font; null, or another object, stands for the system's own.
    explicit GdiTextMeasure(IDispatch* font);
    GdiTextMeasure(const GdiTextMeasure&) = delete;
    GdiTextMeasure& operator=(const GdiTextMeasure&) = delete;
    ~GdiTextMeasure() override;

    std::int32_t TextWidth(std::string_view text) const override;

  private:
    ComPtr<IFont> m_font;
    HDC m_target;
    HGDIOBJ m_before = nullptr;
};

}  // namespace veygrid
