// Keys and mouse through the system's input queue, as a user's hands give them.
#pragma once

#include <windows.h>

#include <string_view>

namespace veygrid {

// Modifier keys, as a sum.
enum InputModifier : long { ModShift = 1, ModControl = 2, ModAlt = 4 };

class RealInput {
  public:
    // One press and release with the modifiers held around it.
    void Key(long virtualKey, long modifiers);
    // Characters as such; line ends and tabs as the keys Enter and Tab.
    void Type(std::wstring_view text);

    // Screen pixels.
    void MoveTo(POINT point);
    // A button of the mouse: MOUSEEVENTF_LEFTDOWN and the like.
    void Button(DWORD action);
    // Presses and releases modifier keys until exactly these are held.
    void Hold(long modifiers);

  private:
    long m_held = 0;
};

}  // namespace veygrid
