// The usual colours of the system, for pictures that are drawn where there is no such system.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/Geometry.h"

namespace veygrid {

// Numbers of GetSysColor.
enum SysColorIndex : std::int32_t {
    ColorBackground = 1,
    ColorActiveCaption = 2,
    ColorBtnFace = 15,
    ColorBtnShadow = 16,
    ColorBtnText = 18,
    ColorBtnHighlight = 20,
    Color3dDkShadow = 21,
    Color3dLight = 22,
};

// By the number that GetSysColor takes; white for a number that it does not know.
constexpr Color UsualSystemColor(std::int32_t index) {
    constexpr std::array<Color, 25> colors{
        0xC8D0D4,  // scroll bar
        0xA56E3A,  // desktop
        0x6A240A,  // caption of the active window
        0x808080,  // caption of another window
        0xC8D0D4,  // menu
        0xFFFFFF,  // window
        0x000000,  // frame of a window
        0x000000,  // text in a menu
        0x000000,  // text in a window
        0xFFFFFF,  // text in the active caption
        0xC8D0D4,  // border of the active window
        0xC8D0D4,  // border of another window
        0x808080,  // ground behind windows
        0x6A240A,  // what is selected
        0xFFFFFF,  // text that is selected
        0xC8D0D4,  // face of a button
        0x808080,  // shadow of a button
        0x808080,  // text that is greyed
        0x000000,  // text on a button
        0xC8D0D4,  // text in another caption
        0xFFFFFF,  // lit edge of a button
        0x404040,  // dark shadow
        0xC8D0D4,  // lit edge inside of the other one
        0x000000,  // text of a hint
        0xE1FFFF,  // ground of a hint
    };
    const auto place = static_cast<std::size_t>(index);
    return place < colors.size() ? colors[place] : White;
}

// A colour as properties hold it: 0x00BBGGRR, or with the top bit set the number of a system
// colour.
constexpr Color UsualColor(std::uint32_t property) {
    return (property & 0x80000000U) != 0
               ? UsualSystemColor(static_cast<std::int32_t>(property & 0xFFU))
               : property & 0xFFFFFFU;
}

}  // namespace veygrid
