// The commands of the menu: their numbers, and what each does.
#pragma once

#include <array>
#include <cstdint>
#include <utility>

#include "grid/GridStore.h"
#include "grid/RowColumnOperations.h"
#include "grid/Selection.h"
#include "screen/MenuHost.h"

namespace veygrid {

namespace command {

inline constexpr std::int32_t Font = 42300;
inline constexpr std::int32_t Border = 42301;  // left to the host
inline constexpr std::int32_t Align = 42302;
inline constexpr std::int32_t InsertRows = 42303;
inline constexpr std::int32_t DeleteRows = 42304;
inline constexpr std::int32_t InsertCols = 42305;
inline constexpr std::int32_t DeleteCols = 42306;
inline constexpr std::int32_t Copy = 42307;
inline constexpr std::int32_t Cut = 42308;
inline constexpr std::int32_t Paste = 42309;
inline constexpr std::int32_t Data = 42310;
inline constexpr std::int32_t DataSource = 42311;
inline constexpr std::int32_t GuiMode = 42312;
inline constexpr std::int32_t GuiDesignMode = 42313;
inline constexpr std::int32_t TabOrder = 42314;
inline constexpr std::int32_t Toolbox = 42315;
inline constexpr std::int32_t Params = 42316;
inline constexpr std::int32_t RunQuery = 42317;
inline constexpr std::int32_t SaveFile = 42318;
inline constexpr std::int32_t OpenFile = 42319;
inline constexpr std::int32_t Properties = 42320;
inline constexpr std::int32_t LayoutGrid = 42321;
inline constexpr std::int32_t KeyColumn = 42322;
inline constexpr std::int32_t DeleteObjects = 42323;
inline constexpr std::int32_t ClearFormats = 42324;
inline constexpr std::int32_t Print = 57607;

// A command in this range that the control has no handler for goes to the host.
inline constexpr std::int32_t FirstOfHost = 33000;
inline constexpr std::int32_t LastOfHost = 50000;

}  // namespace command

// From the item numbers that hosts know to commands. The last four commands have no such number.
inline constexpr std::array CommandIdMap{
    std::pair{1001, command::Font},       std::pair{1002, command::Border},
    std::pair{1003, command::Align},      std::pair{1004, command::InsertRows},
    std::pair{1005, command::DeleteRows}, std::pair{1006, command::InsertCols},
    std::pair{1007, command::DeleteCols}, std::pair{1008, command::Copy},
    std::pair{1009, command::Cut},        std::pair{1010, command::Paste},
    std::pair{1011, command::Data},       std::pair{1012, command::DataSource},
    std::pair{1013, command::GuiMode},    std::pair{1014, command::GuiDesignMode},
    std::pair{1015, command::TabOrder},   std::pair{1016, command::Toolbox},
    std::pair{1017, command::Params},     std::pair{1018, command::RunQuery},
    std::pair{1019, command::SaveFile},   std::pair{1020, command::OpenFile},
    std::pair{1021, command::Properties},
};

// The command of an item number; a number without one stands for itself.
std::int32_t CommandOfItem(std::int32_t item);

class MenuCommands {
  public:
    // All must outlive the commands.
    MenuCommands(GridStore& store, Selection& selection, RowColumnOperations& operations,
                 MenuHost& host)
        : m_store(store), m_selection(selection), m_operations(operations), m_host(host) {}

    // Runs a command, or hands it to the host's window; false for one that is nobody's.
    bool OnCommand(std::int32_t command);

    // The format commands, over everything selected; refused dialogs change nothing.
    void ShowFontDlg();
    void ShowAlignDlg();

  private:
    struct Entry {
        std::int32_t command;
        void (*handler)(MenuCommands&);
    };
    static const Entry Entries[];

    // What a format dialog is preset with.
    template <class Choice>
    Choice ShownChoice(Choice (*ofFormat)(const CCellFormat&)) const;
    void ShowDataCtrlDlg();
    void SaveFile();
    void OpenFile();
    void ToggleKeyColumn();

    GridStore& m_store;
    Selection& m_selection;
    RowColumnOperations& m_operations;
    MenuHost& m_host;
};

}  // namespace veygrid
