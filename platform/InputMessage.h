// Numbers of the platform's keyboard and mouse messages, keys and button flags.
#pragma once

#include <cstdint>

namespace veygrid {

enum MessageNumber : std::uint32_t {
    WmKeyDown = 0x0100,
    WmKeyUp = 0x0101,
    WmChar = 0x0102,
    WmImeStartComposition = 0x010D,
    WmImeEndComposition = 0x010E,
    WmImeComposition = 0x010F,
    WmMouseMove = 0x0200,
    WmLButtonDown = 0x0201,
    WmLButtonUp = 0x0202,
    WmLButtonDblClk = 0x0203,
    WmRButtonDown = 0x0204,
    WmRButtonUp = 0x0205,
    WmImeChar = 0x0286,
};

enum VirtualKey : std::int32_t {
    VkTab = 9,
    VkReturn = 13,
    VkControl = 17,
    VkMenu = 18,
    VkPrior = 33,
    VkNext = 34,
    VkEnd = 35,
    VkHome = 36,
    VkLeft = 37,
    VkUp = 38,
    VkRight = 39,
    VkDown = 40,
    VkDelete = 46,
};

// What a mouse message says of the buttons and keys.
enum MouseFlag : std::uint32_t { MkLButton = 1, MkShift = 4, MkControl = 8 };

}  // namespace veygrid
