// Widths of texts in a font of the system.
#pragma once

#include "grid/CellShow.h"
#include "platform/win32/GdiHandles.h"

namespace veygrid {

class GdiTextMeasure final : public TextMeasure {
  public:
    // Null stands for the system's own font. The font must outlive the measure.
    explicit GdiTextMeasure(HFONT font);

    std::int32_t TextWidth(std::string_view text) const override;

  private:
    MemoryDc m_target{nullptr};
    SavedDc m_saved{m_target.Get()};
};

}  // namespace veygrid
