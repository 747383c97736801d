// Owners of the system's drawing objects.
#pragma once

#include <windows.h>

// A name of the drawing surface.
#undef DrawText

#include <utility>

namespace veygrid {

// A font, pen, brush or bitmap. It must not be selected anywhere any more when its owner goes.
template <class Handle>
class OwnedGdi {
  public:
    OwnedGdi() = default;
    explicit OwnedGdi(Handle handle) : m_handle(handle) {}
    OwnedGdi(OwnedGdi&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    OwnedGdi& operator=(OwnedGdi&& other) noexcept {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~OwnedGdi() {
        if (m_handle != nullptr) {
            ::DeleteObject(m_handle);
        }
    }

    Handle Get() const { return m_handle; }

  private:
    Handle m_handle = nullptr;
};

using OwnedFont = OwnedGdi<HFONT>;
using OwnedPen = OwnedGdi<HPEN>;
using OwnedBrush = OwnedGdi<HBRUSH>;
using OwnedBitmap = OwnedGdi<HBITMAP>;

// A device context in memory.
class MemoryDc {
  public:
    explicit MemoryDc(HDC like) : m_dc(::CreateCompatibleDC(like)) {}
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;
    ~MemoryDc() { ::DeleteDC(m_dc); }

    HDC Get() const { return m_dc; }

  private:
    HDC m_dc;
};

// Everything that is changed in a context while this lives is put back at its end.
class SavedDc {
  public:
    explicit SavedDc(HDC dc) : m_dc(dc), m_level(::SaveDC(dc)) {}
    SavedDc(const SavedDc&) = delete;
    SavedDc& operator=(const SavedDc&) = delete;
    ~SavedDc() { ::RestoreDC(m_dc, m_level); }

  private:
    HDC m_dc;
    int m_level;
};

}  // namespace veygrid
