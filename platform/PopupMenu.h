// The control's menu, as the menu logic builds and shows it.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Geometry.h"

// The system's headers make these names macros.
#undef LoadMenu
#undef AppendMenu
#undef ModifyMenu

namespace veygrid {

// The operations bear the platform's names and do what the platform's do. All but HasMenu, LoadMenu
// and TranslateMenu work on the menu's first pop-up, the by-command ones on its sub-pop-ups too;
// without a menu they do nothing. Texts are in code page 936.
class PopupMenu {
  public:
    virtual ~PopupMenu() = default;

    virtual bool HasMenu() const = 0;
    // Takes the menu of a resource; none when there is no such resource.
    virtual void LoadMenu(std::int32_t resource) = 0;
    // Gives every item the text of the running language.
    virtual void TranslateMenu() = 0;

    virtual std::int32_t GetMenuItemCount() const = 0;
    virtual void DeleteMenu(std::int32_t position) = 0;
    virtual void AppendSeparator() = 0;
    virtual void AppendMenu(std::int32_t command, std::string_view text) = 0;
    // Changes the text of the item with the command.
    virtual void ModifyMenu(std::int32_t command, std::string_view text) = 0;
    virtual void CheckMenuItem(std::int32_t command, bool checked) = 0;
    // Returns when the menu is closed; the command that was picked comes behind that, posted to the
    // control. Screen pixels.
    virtual void TrackPopupMenu(Point point) = 0;
};

}  // namespace veygrid
