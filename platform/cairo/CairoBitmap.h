// Pictures from device-independent bitmaps.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/Surface.h"
#include "platform/cairo/Owners.h"

namespace veygrid {

class CairoBitmap final : public SurfaceBitmap {
  public:
    explicit CairoBitmap(OwnedImage image) : m_image(std::move(image)) {}

    std::int32_t Width() const override { return cairo_image_surface_get_width(m_image.get()); }
    std::int32_t Height() const override { return cairo_image_surface_get_height(m_image.get()); }
    cairo_surface_t* Image() const { return m_image.get(); }

  private:
    OwnedImage m_image;
};

// Takes 1, 4, 8, 16, 24 and 32 bits for a pixel, with or without masks, from either end. Null for
// compressed pixels, for a side of 0 or above 32767 pixels, and where header or pixels end early.
std::unique_ptr<CairoBitmap> BitmapFromDib(std::span<const std::uint8_t> header,
                                           std::span<const std::uint8_t> bits);

}  // namespace veygrid
