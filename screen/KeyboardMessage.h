// One message of the host's loop as the keyboard machine sees it, and where it goes.
#pragma once

#include <cstdint>
#include <string>

#include "platform/InputMessage.h"

namespace veygrid {

// The window that a message is addressed to.
enum class MessageTarget {
    Control,
    Editor,
    TabOrderCanvas,
    Descendant,  // another child or grandchild of the control
    Elsewhere,
};

enum class MessageRoad {
    GoOn,       // to the base class, as it is
    UsedUp,     // nobody sees it any more
    ToEditor,   // readdressed to the editor, then on
    ToControl,  // its point mapped into the control and readdressed to it, then on
};

struct KeyboardMessage {
    std::uint32_t number = 0;
    MessageTarget target = MessageTarget::Control;
    // Of WM_KEYDOWN: wParam and lParam.
    std::uint32_t key = 0;
    std::int32_t keyData = 0;
    // Of WM_CHAR and WM_IME_CHAR: the character in code page 936, one or two bytes, or one byte of
    // two where they come one by one. Empty for a character that the code page lacks.
    std::string text{};
};

// Text of a message that carries a UTF-16 unit. Half of a surrogate pair is no character of the
// code page.
std::string TypedText(char16_t unit);

}  // namespace veygrid
