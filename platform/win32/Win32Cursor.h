// The cursors that the control shows.
#pragma once

#include <windows.h>

#include <map>
#include <utility>

#include "platform/ControlWindow.h"

namespace veygrid {

// A cursor that was loaded for us alone. It must not be shown any more when its owner goes.
class OwnedCursor {
  public:
    explicit OwnedCursor(HCURSOR cursor) : m_cursor(cursor) {}
    OwnedCursor(OwnedCursor&& other) noexcept : m_cursor(std::exchange(other.m_cursor, nullptr)) {}
    OwnedCursor& operator=(OwnedCursor&&) = delete;
    ~OwnedCursor();

    HCURSOR Get() const { return m_cursor; }

  private:
    HCURSOR m_cursor;
};

// Each cursor of the control's resources is loaded at its first use and kept.
class Win32Cursors {
  public:
    // `module` holds the resources.
    explicit Win32Cursors(HINSTANCE module) : m_module(module) {}

    // Stays the collection's, or the system's. Null when there is no such resource.
    HCURSOR Find(CursorId cursor);

  private:
    HINSTANCE m_module;
    std::map<CursorId, OwnedCursor> m_loaded;
};

}  // namespace veygrid
