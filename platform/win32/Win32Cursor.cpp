// The cursors that the control shows.
#include "platform/win32/Win32Cursor.h"

namespace veygrid {

namespace {

constexpr bool IsOfSystem(CursorId cursor) {
    return cursor >= CursorId::Arrow;
}

}  // namespace

// A cursor that is shown still gives way to the arrow first.
OwnedCursor::~OwnedCursor() {
    if (m_cursor == nullptr) {
        return;
    }
    if (::GetCursor() == m_cursor) {
        ::SetCursor(::LoadCursorW(nullptr, IDC_ARROW));
    }
    ::DestroyCursor(m_cursor);
}

HCURSOR Win32Cursors::Find(CursorId cursor) {
    const wchar_t* const name = MAKEINTRESOURCEW(static_cast<WORD>(cursor));
    if (IsOfSystem(cursor)) {
        return ::LoadCursorW(nullptr, name);
    }
    const auto found = m_loaded.find(cursor);
    if (found != m_loaded.end()) {
        return found->second.Get();
    }
    OwnedCursor loaded(
        static_cast<HCURSOR>(::LoadImageW(m_module, name, IMAGE_CURSOR, 0, 0, LR_DEFAULTSIZE)));
    return m_loaded.emplace(cursor, std::move(loaded)).first->second.Get();
}

}  // namespace veygrid
