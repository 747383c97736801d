// The menu that a right click opens, and the items that hosts put into it.
#include "screen/ContextMenu.h"

#include "resources/Texts.h"
#include "screen/MenuCommands.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

// What the item does next to the active column.
std::string KeyColumnText(std::int16_t flag) {
    static const std::string clear = CodePage936FromUtf16(u"取消关键列");
    static const std::string set = CodePage936FromUtf16(u"置为关键列");
    return GetMsg(flag != 0 ? clear : set);
}

}  // namespace

void ContextMenu::Load() {
    if (!m_menu.HasMenu()) {
        m_menu.LoadMenu(Resource);
        m_menu.TranslateMenu();
    }
}

void ContextMenu::OnContextMenu(Point point) {
    if (!m_store.Properties.AllowPopMenu) {
        return;
    }
    Load();
    m_menu.ModifyMenu(command::KeyColumn, KeyColumnText(m_store.KeyColumnFlag(m_store.ActiveCol)));
    m_menu.CheckMenuItem(command::GuiMode, m_store.Properties.GuiMode);
    m_menu.CheckMenuItem(command::GuiDesignMode, m_host.GuiDesignMode());
    m_menu.TrackPopupMenu(point);
}

void ContextMenu::RemoveAllMenuItem() {
    Load();
    for (std::int32_t left = m_menu.GetMenuItemCount(); left > 0; --left) {
        m_menu.DeleteMenu(0);
    }
}

void ContextMenu::AppendMenuItem(std::int32_t item, std::string_view text) {
    Load();
    if (item == SeparatorItem) {
        m_menu.AppendSeparator();
    } else {
        m_menu.AppendMenu(CommandOfItem(item), text);
    }
}

}  // namespace veygrid
