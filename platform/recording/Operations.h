// The operations of a drawing surface as values, each of which prints as one line.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "grid/LogFont.h"
#include "platform/Surface.h"

namespace veygrid::recorded {

struct SetBkColor {
    Color color;
};
struct SetBkMode {
    BkMode mode;
};
struct SetTextColor {
    Color color;
};
struct SelectStockFont {};
struct SelectFont {
    LogFont font;
};
struct SelectFormerFont {};
struct SelectPen {
    Color color;
};
struct FillSolidRect {
    Rect rect;
    Color color;
};
struct Draw3dRect {
    Rect rect;
    Color topLeft;
    Color bottomRight;
};
struct DrawFrameControl {
    Rect rect;
    std::uint32_t type;
    std::uint32_t state;
};
struct DrawText {
    std::string text;  // code page 936
    Rect rect;         // as it was given
    std::uint32_t format;
    std::int32_t width;  // as it was measured
    std::int32_t height;
};
struct MoveTo {
    Point point;
};
struct LineTo {
    Point point;
};
struct SetPixel {
    Point point;
    Color color;
};
struct InvertRect {
    Rect rect;
};
struct DrawFocusRect {
    Rect rect;
};
struct CreateDIBitmap {
    std::int32_t width;
    std::int32_t height;
    std::size_t headerBytes;
    std::size_t bitsBytes;
};
struct BitBlt {
    Point to;
    std::int32_t width;
    std::int32_t height;
};

// What happened beside the surface, so that the order of all calls is seen.
struct Remark {
    std::string line;  // UTF-8
};

using Operation =
    std::variant<SetBkColor, SetBkMode, SetTextColor, SelectStockFont, SelectFont, SelectFormerFont,
                 SelectPen, FillSolidRect, Draw3dRect, DrawFrameControl, DrawText, MoveTo, LineTo,
                 SetPixel, InvertRect, DrawFocusRect, CreateDIBitmap, BitBlt, Remark>;

// One line without its end: the name of the operation, then positions as left,top,right,bottom or
// x,y, colours as 0xBBGGRR and texts in UTF-8 between quotes, with control characters as \n, \t
// and so on.
std::string Dump(const Operation& operation);

}  // namespace veygrid::recorded
