// The working copy of a cell's format that the host may change while the cell is painted.
#pragma once

#include <cstdint>

#include "control/CellFormatObject.h"

namespace veygrid {

class CVeyOleControl;

// One automation object serves all cells of all paints, as long as no host keeps it.
class RequestedFormat {
  public:
    // Fires the event; what the host writes lands in `format`. A host that keeps the object keeps
    // what stood in it, and writes to nothing of the sheet any more.
    void Fire(CVeyOleControl& control, std::int32_t row, std::int32_t col, CCellFormat& format);

  private:
    // Gives up its reference at the end.
    class Owned {
      public:
        Owned() = default;
        explicit Owned(CellFormatObject* object) : m_object(object) {}
        Owned(Owned&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
        Owned& operator=(Owned&& other) noexcept {
            std::swap(m_object, other.m_object);
            return *this;
        }
        ~Owned() {
            if (m_object != nullptr) {
                m_object->Inner()->Release();
            }
        }
        CellFormatObject* operator->() const { return m_object; }
        explicit operator bool() const { return m_object != nullptr; }

      private:
        CellFormatObject* m_object = nullptr;
    };

    Owned m_idle;
};

}  // namespace veygrid
