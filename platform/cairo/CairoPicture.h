// Pictures as files, and in memory, on Cairo.
#pragma once

#include <memory>

#include "platform/Picture.h"
#include "platform/cairo/CairoFont.h"
#include "platform/cairo/CairoSurface.h"
#include "platform/cairo/Owners.h"

namespace veygrid {

std::unique_ptr<PictureMaker> MakeCairoPictures();

// Pixels in memory, white at first. The fonts must outlive it.
class MemoryPicture {
  public:
    // Throws std::bad_alloc.
    MemoryPicture(CairoFonts& fonts, const SurfaceTraits& traits);

    CairoSurface& Canvas() { return m_canvas; }
    // Of the picture, with the scale of the fonts. 0x00BBGGRR; the place must lie on it.
    Color Pixel(std::int32_t x, std::int32_t y) const;
    cairo_surface_t* Image() const { return m_image.get(); }

  private:
    OwnedImage m_image;
    CairoSurface m_canvas;
};

}  // namespace veygrid
