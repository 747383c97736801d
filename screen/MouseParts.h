// What the gestures of the mouse work with, and what they keep between two messages.
#pragma once

#include <cstdint>

#include "grid/Axis.h"
#include "grid/CellPos.h"
#include "grid/GridStore.h"
#include "grid/RowColumnOperations.h"
#include "grid/Selection.h"
#include "platform/ControlWindow.h"
#include "platform/Geometry.h"
#include "screen/CellEditor.h"
#include "screen/Layout.h"
#include "screen/MouseHost.h"

namespace veygrid {

enum class MouseState : std::int32_t {
    MouseIdle = 0,
    MouseSelectAll = 1,
    MouseSelectCols = 2,
    MouseSelectRows = 3,
    MouseSelectCells = 4,
    MouseResizeRow = 7,
    MouseResizeCol = 9,
    MouseMoveObjects = 14,
    MouseMoveCells = 23,
};

struct MouseParts {
    GridStore& store;
    Selection& selection;
    RowColumnOperations& operations;
    Layout& layout;
    CellEditor& editor;
    ControlWindow& control;
    MouseHost& host;
    DesignMouse& design;
};

// Between a press and its release.
struct MouseTrack {
    MouseState m_nMouseState = MouseState::MouseIdle;
    Point m_ptPress;
    Point m_ptLast;
    // The cell of the last press, from which Shift extends; 0 in a field for none.
    std::int32_t m_nPressRow = 1;
    std::int32_t m_nPressCol = 1;
    // The cursor may not leave.
    bool isConfined = false;
};

// The part of a point that crosses the lines of an axis.
constexpr std::int32_t Across(Point point, Axis axis) {
    return axis == Axis::Rows ? point.y : point.x;
}

}  // namespace veygrid
