// The picture behind the form: its file, its bytes and its tiles.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "persist/FileSystem.h"
#include "platform/Surface.h"

namespace veygrid {

class BackgroundImage {
  public:
    // The bytes are those of the document, a bitmap file without its 14-byte file header; empty
    // where there is no picture. They must outlive the object.
    explicit BackgroundImage(std::string& bkImageBits) : m_bits(bkImageBits) {}

    // Takes the bitmap file at the path, in code page 936, in place of the former picture; an empty
    // path only frees that. A file that cannot be read whole, or is no bitmap file, leaves the
    // former picture, with no word about it.
    void LoadBkImage(FileSystem& files, std::string_view path);
    // To be called when something else changed the bytes.
    void BitsChanged() { m_pBkBitmap.reset(); }

    // Tiles the bounds with the picture. Without one, or with bytes that make none, they are filled
    // with the colour.
    void DrawBkImage(Surface& surface, const Rect& bounds, Color backColor);

  private:
    std::string& m_bits;
    // Made at the first paint.
    std::unique_ptr<SurfaceBitmap> m_pBkBitmap;
};

}  // namespace veygrid
