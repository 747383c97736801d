// Keys and mouse through the system's input queue, as a user's hands give them.
#include "apps/host/RealInput.h"

#include <iterator>

namespace veygrid {

namespace {

struct Modifier {
    InputModifier bit;
    WORD key;
};
constexpr Modifier Modifiers[] = {
    {ModShift, VK_SHIFT}, {ModControl, VK_CONTROL}, {ModAlt, VK_MENU}};

// Keys that stand twice on a keyboard: the ones beside the number pad are the extended ones.
bool IsExtended(WORD key) {
    constexpr WORD keys[] = {VK_PRIOR, VK_NEXT, VK_END,    VK_HOME,   VK_LEFT,   VK_UP,
                             VK_RIGHT, VK_DOWN, VK_INSERT, VK_DELETE, VK_DIVIDE, VK_APPS};
    for (const WORD extended : keys) {
        if (key == extended) {
            return true;
        }
    }
    return false;
}

void SendKey(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags | (IsExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0);
    SendInput(1, &input, sizeof input);
}

void SendCharacter(wchar_t character) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = character;
    input.ki.dwFlags = KEYEVENTF_UNICODE;
    SendInput(1, &input, sizeof input);
    input.ki.dwFlags |= KEYEVENTF_KEYUP;
    SendInput(1, &input, sizeof input);
}

void SendMouse(DWORD action, LONG x, LONG y) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = x;
    input.mi.dy = y;
    input.mi.dwFlags = action;
    SendInput(1, &input, sizeof input);
}

// Absolute positions are told in 65536 parts of the screen; the middle of the pixel survives every
// rounding.
LONG InScreenParts(LONG pixel, int screenSize) {
    return static_cast<LONG>((static_cast<LONGLONG>(pixel) * 65536 + 32768) / screenSize);
}

}  // namespace

void RealInput::Key(long virtualKey, long modifiers) {
    const long before = m_held;
    Hold(before | modifiers);
    SendKey(static_cast<WORD>(virtualKey), 0);
    SendKey(static_cast<WORD>(virtualKey), KEYEVENTF_KEYUP);
    Hold(before);
}

void RealInput::Type(std::wstring_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        const wchar_t character = text[at];
        const bool isSecondOfPair = character == L'\n' && at > 0 && text[at - 1] == L'\r';
        if (character == L'\r' || (character == L'\n' && !isSecondOfPair)) {
            Key(VK_RETURN, 0);
        } else if (character == L'\t') {
            Key(VK_TAB, 0);
        } else if (!isSecondOfPair) {
            SendCharacter(character);
        }
    }
}

void RealInput::MoveTo(POINT point) {
    SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE,
              InScreenParts(point.x, GetSystemMetrics(SM_CXSCREEN)),
              InScreenParts(point.y, GetSystemMetrics(SM_CYSCREEN)));
}

void RealInput::Button(DWORD action) {
    SendMouse(action, 0, 0);
}

// A key that stays held is pressed again, as a keyboard repeats it: the system may have let go of
// what no real keyboard holds.
void RealInput::Hold(long modifiers) {
    for (const Modifier& modifier : Modifiers) {
        const bool isHeld = (m_held & modifier.bit) != 0;
        const bool isWanted = (modifiers & modifier.bit) != 0;
        if (isHeld || isWanted) {
            SendKey(modifier.key, isWanted ? 0 : KEYEVENTF_KEYUP);
        }
    }
    m_held = modifiers;
}

}  // namespace veygrid
