// The registered messages that the control and its host speak, by name and number.
#pragma once

#include <windows.h>

#include <string>

namespace veygrid {

// Numbers that the system gave to the names; they are the same for every program of the session.
struct RegisteredMessages {
    UINT AskFor = RegisterWindowMessageW(L"VeynorGrid_AskFor");
    UINT SizeParentWindow = RegisterWindowMessageW(L"VeynorGrid_SizeParentWindow");
    UINT ComboBoxAskForExternFill = RegisterWindowMessageW(L"VeynorGrid_ComboBoxAskForExternFill");
};

// The numbers, asked for once.
const RegisteredMessages& Registered();

// The name of a message as its documentation spells it, else its number.
std::wstring MessageName(UINT message);

}  // namespace veygrid
