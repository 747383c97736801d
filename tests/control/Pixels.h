// Pictures in memory, to draw on and to look at.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "platform/win32/GdiHandles.h"

namespace veygrid {

// A white bitmap that can be drawn on.
class Canvas {
  public:
    Canvas(int width, int height) : m_width(width), m_height(height) {
        BITMAPINFO format{};
        format.bmiHeader.biSize = sizeof format.bmiHeader;
        format.bmiHeader.biWidth = width;
        format.bmiHeader.biHeight = -height;  // rows from the top
        format.bmiHeader.biPlanes = 1;
        format.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        m_bitmap =
            OwnedBitmap(::CreateDIBSection(m_dc.Get(), &format, DIB_RGB_COLORS, &bits, nullptr, 0));
        m_bits = static_cast<const std::uint32_t*>(bits);
        ::SelectObject(m_dc.Get(), m_bitmap.Get());
        Clear();
    }

    void Clear() { ::PatBlt(m_dc.Get(), 0, 0, m_width, m_height, WHITENESS); }
    HDC Dc() const { return m_dc.Get(); }
    // 0x00BBGGRR.
    COLORREF At(int x, int y) const {
        ::GdiFlush();
        const std::uint32_t pixel = m_bits[y * m_width + x];
        return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
    }
    std::vector<std::uint32_t> Pixels() const {
        ::GdiFlush();
        std::vector<std::uint32_t> pixels(m_bits, m_bits + m_width * m_height);
        for (std::uint32_t& pixel : pixels) {
            pixel &= 0xFFFFFFU;
        }
        return pixels;
    }
    // Pixels of any other colour in a rectangle.
    int Count(const RECT& area, COLORREF notThis) const {
        int count = 0;
        for (int y = area.top; y < area.bottom; ++y) {
            for (int x = area.left; x < area.right; ++x) {
                count += At(x, y) != notThis ? 1 : 0;
            }
        }
        return count;
    }

  private:
    int m_width;
    int m_height;
    OwnedBitmap m_bitmap;
    MemoryDc m_dc{nullptr};
    const std::uint32_t* m_bits;
};

}  // namespace veygrid
