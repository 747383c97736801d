// Pictures of windows: taking them, reading their pixels, writing them as PNG.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace veygrid {

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<UINT32> pixels;  // 0x00RRGGBB, rows from the top
};

// The client area of a window with its child windows, as it stands on the screen after what was
// due has been painted.
Picture TakePicture(HWND window);

// The colour as OLE_COLOR has it (0x00BBGGRR); -1 outside the picture.
long PixelColor(const Picture& picture, long x, long y);

// Throws ComFault.
void WritePng(const Picture& picture, const std::wstring& path);

}  // namespace veygrid
