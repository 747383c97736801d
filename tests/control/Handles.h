// Counts of the handles that this process has, by which tests see what was left behind.
#pragma once

#include <ostream>

#include "platform/win32/ole/Platform.h"

namespace veygrid {

// Wine answers 0 to GetGuiResources, so the handles are counted where they stand: what draws in the
// table that the system shows each process, windows and menus by asking for each.
struct Handles {
    int gdi = GdiObjects();
    int windows = Windows();
    int menus = Menus();

    bool operator==(const Handles&) const = default;

    static int GdiObjects() {
        const DWORD told = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
        return told != 0 ? static_cast<int>(told) : GdiEntries();
    }

  private:
    struct GdiEntry {
        ULONGLONG object;
        ULONG owner;
        USHORT unique;
        UCHAR type;
        UCHAR flags;
        ULONGLONG user;
    };
    static constexpr int MostGdiEntries = 0x4000;
    static constexpr int GdiTableOffset = sizeof(void*) == 8 ? 0xF8 : 0x94;

    static int GdiEntries() {
        // The process's own block, which no header declares whole.
        const auto blockOf = reinterpret_cast<const char*(WINAPI*)()>(reinterpret_cast<void*>(
            ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb")));
        const auto* const table =
            *reinterpret_cast<const GdiEntry* const*>(blockOf() + GdiTableOffset);
        int count = 0;
        for (int at = 0; table != nullptr && at < MostGdiEntries; ++at) {
            count += table[at].type != 0 ? 1 : 0;
        }
        return count;
    }

    static BOOL CALLBACK AddWindow(HWND, LPARAM count) {
        ++*reinterpret_cast<int*>(count);
        return TRUE;
    }
    static BOOL CALLBACK AddWindowAndChildren(HWND window, LPARAM count) {
        ::EnumChildWindows(window, AddWindow, count);
        return AddWindow(window, count);
    }
    // Of this thread. The input method's own come and go with the first and last of the others.
    static int Windows() {
        int count = 0;
        ::EnumThreadWindows(::GetCurrentThreadId(), AddWindowAndChildren,
                            reinterpret_cast<LPARAM>(&count));
        return count;
    }

    static int Menus() {
        constexpr UINT_PTR First = 0x20;
        constexpr UINT_PTR Last = 0xFFEE;
        int count = 0;
        for (UINT_PTR handle = First; handle <= Last; handle += 2) {
            count += ::IsMenu(reinterpret_cast<HMENU>(handle)) ? 1 : 0;
        }
        return count;
    }
};

inline std::ostream& operator<<(std::ostream& out, const Handles& handles) {
    return out << handles.gdi << " GDI objects, " << handles.windows << " windows, "
               << handles.menus << " menus";
}

}  // namespace veygrid
