// The menu that a right click opens, and the items that hosts put into it.
#pragma once

#include <cstdint>
#include <string_view>

#include "grid/GridStore.h"
#include "platform/PopupMenu.h"
#include "screen/MenuHost.h"

namespace veygrid {

// The menu is loaded when it is first needed, and stays: with the host's items, or empty.
class ContextMenu {
  public:
    static constexpr std::int32_t Resource = 2307;
    static constexpr std::int32_t SeparatorItem = 1000;

    // All must outlive the menu.
    ContextMenu(PopupMenu& menu, const GridStore& store, MenuHost& host)
        : m_menu(menu), m_store(store), m_host(host) {}

    // Handler of WM_CONTEXTMENU: shows the menu with its upper left corner at a point of the
    // screen, the same in every mode. Nothing while `AllowPopMenu` is off.
    void OnContextMenu(Point point);
    // Takes every item away, sub-pop-ups included.
    void RemoveAllMenuItem();
    // Puts an item behind the last one: a separator for SeparatorItem, the mapped command for a
    // number of CommandIdMap, else the number itself.
    void AppendMenuItem(std::int32_t item, std::string_view text);

  private:
    void Load();

    PopupMenu& m_menu;
    const GridStore& m_store;
    MenuHost& m_host;
};

}  // namespace veygrid
