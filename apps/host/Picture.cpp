// Pictures of windows: taking them, reading their pixels, writing them as PNG.
#include "apps/host/Picture.h"

#include <wincodec.h>

#include "apps/host/Automation.h"

namespace veygrid {

namespace {

BITMAPINFO Format(int width, int height) {
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = width;
    format.bmiHeader.biHeight = -height;  // rows from the top
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    format.bmiHeader.biCompression = BI_RGB;
    return format;
}

ComPtr<IWICBitmapFrameEncode> BeginPng(IWICImagingFactory* factory, IWICStream* stream,
                                       ComPtr<IWICBitmapEncoder>& encoder) {
    Check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder), L"PNG");
    Check(encoder->Initialize(stream, WICBitmapEncoderNoCache), L"PNG");
    ComPtr<IWICBitmapFrameEncode> frame;
    Check(encoder->CreateNewFrame(&frame, nullptr), L"PNG");
    Check(frame->Initialize(nullptr), L"PNG");
    return frame;
}

}  // namespace

Picture TakePicture(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    // From the first client pixel on, with the scroll bars, which stand right and below.
    RECT whole{};
    GetWindowRect(window, &whole);
    POINT client{};
    ClientToScreen(window, &client);
    const int border = static_cast<int>(client.x - whole.left);
    const int top = static_cast<int>(client.y - whole.top);
    Picture picture{static_cast<int>(whole.right - whole.left) - 2 * border,
                    static_cast<int>(whole.bottom - whole.top) - 2 * top,
                    {}};
    const BITMAPINFO format = Format(picture.width, picture.height);
    // Without the clipping of child windows, so that they are in the picture.
    const HDC source = GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE);
    const HDC memory = CreateCompatibleDC(source);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(memory, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap != nullptr) {
        const HGDIOBJ before = SelectObject(memory, bitmap);
        BitBlt(memory, 0, 0, picture.width, picture.height, source, border, top, SRCCOPY);
        GdiFlush();
        const auto* first = static_cast<const UINT32*>(bits);
        picture.pixels.assign(first, first + picture.width * picture.height);
        SelectObject(memory, before);
        DeleteObject(bitmap);
    }
    DeleteDC(memory);
    ReleaseDC(window, source);
    for (UINT32& pixel : picture.pixels) {
        pixel &= 0xFFFFFF;  // the fourth byte means nothing
    }
    return picture;
}

long PixelColor(const Picture& picture, long x, long y) {
    if (x < 0 || y < 0 || x >= picture.width || y >= picture.height || picture.pixels.empty()) {
        return -1;
    }
    const UINT32 pixel = picture.pixels[static_cast<std::size_t>(y * picture.width + x)];
    return static_cast<long>((pixel & 0xFF) << 16 | (pixel & 0xFF00) | pixel >> 16);
}

void WritePng(const Picture& picture, const std::wstring& path) {
    const auto width = static_cast<UINT>(picture.width);
    const auto height = static_cast<UINT>(picture.height);
    ComPtr<IWICImagingFactory> factory;
    Check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                           IID_IWICImagingFactory, &factory),
          L"WIC");
    ComPtr<IWICStream> stream;
    Check(factory->CreateStream(&stream), path);
    Check(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE), path);
    ComPtr<IWICBitmapEncoder> encoder;
    const ComPtr<IWICBitmapFrameEncode> frame = BeginPng(factory.Get(), stream.Get(), encoder);
    ComPtr<IWICBitmap> bitmap;
    Check(factory->CreateBitmapFromMemory(
              width, height, GUID_WICPixelFormat32bppBGR, width * 4, width * height * 4,
              reinterpret_cast<BYTE*>(const_cast<UINT32*>(picture.pixels.data())), &bitmap),
          path);
    Check(frame->SetSize(width, height), path);
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    Check(frame->SetPixelFormat(&format), path);
    Check(frame->WriteSource(bitmap.Get(), nullptr), path);
    Check(frame->Commit(), path);
    Check(encoder->Commit(), path);
}

}  // namespace veygrid
