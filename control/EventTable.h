// The events of the control as hosts see them: numbers, names and types.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "platform/win32/ole/AutomationTypes.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

struct EventDescription {
    static constexpr std::size_t Most = 4;

    DISPID id;
    std::string_view name;
    // Separated by single blanks.
    std::string_view parameterNames{};
    std::array<ValueType, Most> parameters{};
    std::size_t count = 0;
};

// The control's own ones first, then the stock ones.
std::span<const EventDescription> VeyGridEvents();

}  // namespace veygrid
