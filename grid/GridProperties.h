// The plain properties of the control that hosts set and files carry, at their defaults.
#pragma once

#include <cstdint>
#include <string>

#include "grid/LogFont.h"

namespace veygrid {

// System colour 15, the button face, as a colour property names it.
inline constexpr std::uint32_t ButtonFaceColor = 0x8000000FU;
inline constexpr std::uint32_t WindowTextColor = 0x80000008U;

// Properties in the order in which they are exchanged. Some have no effect on the sheet and are
// only stored: the four `Fixed...`, `AutoMaxRC`, `ShowZeroValues`, `AllowEditHeader` and
// `SingleRowSelection`.
struct GridProperties {
    bool ShowRowHeaders = true;
    bool ShowColHeaders = true;
    bool ShowDefRowHeader = true;
    bool ShowDefColHeader = true;
    bool ShowHGridLines = true;
    bool ShowVGridLines = true;
    bool ShowHScrollBar = true;
    bool ShowVScrollBar = true;
    bool ShowZeroValues = true;
    bool AllowResize = true;
    bool AllowEdit = true;
    bool AllowEditHeader = true;
    bool AllowSelections = true;
    bool AllowPopMenu = true;
    bool AlwaysOnEdit = false;
    bool EnterGoDown = true;
    bool SingleRowSelection = true;
    bool RowMode = false;
    bool GuiMode = false;
    bool AutoMaxRC = true;
    std::int32_t MaxRow = 50;
    std::int32_t MaxCol = 20;
    std::int32_t FixedRow = 1;
    std::int32_t FixedRows = 0;
    std::int32_t FixedCol = 1;
    std::int32_t FixedCols = 0;
    std::int32_t DefCellWidth = 60;     // pixels
    std::int32_t DefCellHeight = 18;    // pixels
    std::int32_t RowHeaderWidth = 50;   // pixels
    std::int32_t ColHeaderHeight = 20;  // pixels
    // High-water marks: raised by every setter, lowered by nothing but a host.
    std::int32_t LastRow = 0;
    std::int32_t LastCol = 0;
    std::int16_t ModifiedLog = 0;
    std::uint32_t GridLinesColor = ButtonFaceColor;
    std::string DataSource;
    std::string BkImage;
    std::uint32_t BackColor = 0xFFFFFF;
    bool AllowMoveRow = true;
    bool AllowMoveCol = true;
    bool AllowMoveCell = true;
    bool FormObjectNotifyToParent = false;

    friend bool operator==(const GridProperties&, const GridProperties&) = default;
};

// Stock properties of the platform's control and its extent, exchanged in front of the others.
struct StockProperties {
    std::int32_t ExtentWidth = 0;   // HIMETRIC
    std::int32_t ExtentHeight = 0;  // HIMETRIC
    std::int16_t BorderStyle = 0;
    bool Enabled = true;
    std::uint32_t ForeColor = WindowTextColor;
    // lfWeight -1: the container's ambient font.
    LogFont Font{.lfWeight = -1};

    friend bool operator==(const StockProperties&, const StockProperties&) = default;
};

// Switches that hosts set and property exchange leaves out; the grid file carries the first three.
struct GridSwitches {
    bool CanWriteTable = false;
    bool AutoCommit = false;
    bool RunQueryAfterSerialize = true;
    std::int16_t GuiDesignSnapToX = 5;
    std::int16_t GuiDesignSnapToY = 5;

    friend bool operator==(const GridSwitches&, const GridSwitches&) = default;
};

}  // namespace veygrid
