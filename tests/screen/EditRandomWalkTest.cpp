// Users and hosts that do anything at any time: no state is left that the tables do not know.
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>
#include <stdexcept>

#include "EditDesk.h"

namespace veygrid {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr std::int32_t Events = 200'000;
#else
constexpr std::int32_t Events = 1'000'000;
#endif
constexpr std::int32_t EventsPerSheet = 500;
constexpr std::int32_t MostNested = 3;

struct HostError : std::runtime_error {
    HostError() : std::runtime_error("host") {}
};

class RandomWalk : public EditedSheet {
  public:
    explicit RandomWalk(std::uint32_t seed) : m_random(seed) {
        desk.onEvent = [this](DeskEvent) { InEvent(); };
        Refresh();
    }

    void Step() {
        try {
            AnyAction();
        } catch (const HostError&) {
        } catch (const std::length_error&) {
            // A copy that would not fit into memory.
        }
        desk.Take();
    }

    // A sheet of any shape, with an idle mouse and no edit.
    void Refresh() {
        m_isFriendly = true;
        desk.allowChange = desk.allowEdit = 1;
        desk.cancelEndEdit = 0;
        edit.holdsForeign = false;
        store.CellFormatMap.RemoveAll();
        store.DefCellFormat = {};
        EXPECT_EQ(editor.EndEdit(), 1);
        mouse.CancelDrag();
        properties = {};
        store.CellTextMap.RemoveAll();
        store.RowHeightMap.RemoveAll();
        store.ColWidthMap.RemoveAll();
        selection.SelectionList.clear();
        selection.CheckedRowList.clear();
        store.ActiveRow = store.ActiveCol = 1;
        layout.FirstVisibleRow = layout.FirstVisibleCol = 1;
        desk.postedKeys.clear();
        desk.designMode = desk.hasToolbox = false;
        if (Below(3) == 0) {
            MakeReadOnly(0, 2);
            SetDataType(3, 3, 1);
        }
        m_isFriendly = Below(3) == 0;
    }

    std::string Fault() const {
        const MouseState state = State();
        const bool selects =
            state >= MouseState::MouseSelectAll && state <= MouseState::MouseSelectCells;
        const bool confines = state == MouseState::MouseResizeRow ||
                              state == MouseState::MouseResizeCol ||
                              state == MouseState::MouseMoveCells;
        if (!selects && !confines && state != MouseState::MouseIdle &&
            state != MouseState::MouseMoveObjects) {
            return "unknown state";
        }
        if (!selects && !selection.DragRange.IsEmpty()) {
            return "a range is dragged";
        }
        if (!confines && desk.confined) {
            return "the cursor is confined";
        }
        if (state != MouseState::MouseMoveCells && !mouse.MoveFrame().IsEmpty()) {
            return "a frame is shown";
        }
        return desk.focus == Focus::Editor && !desk.editorExists ? "the focus is nowhere" : "";
    }

  private:
    std::uint32_t Below(std::uint32_t count) {
        return static_cast<std::uint32_t>((std::uint64_t{m_random()} * count) >> 32U);
    }
    bool Chance(std::uint32_t one) { return Below(one) == 0; }
    std::int32_t Number(std::int32_t from, std::int32_t to) {
        return from + static_cast<std::int32_t>(Below(static_cast<std::uint32_t>(to - from + 1)));
    }
    std::int32_t AnyLine(std::int32_t most) {
        constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
        constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
        return Chance(100)   ? Least + Number(0, 1)
               : Chance(100) ? Most - Number(0, 1)
                             : Number(-1, most);
    }
    Point AnyPoint() {
        switch (Below(4)) {
            case 0:  // row headers
                return {Number(0, 55), Number(0, 299)};
            case 1:  // column headers
                return {Number(0, 399), Number(0, 25)};
            case 2:  // the rim of the frame
                return {layout.m_rcSelFrame.left + Number(0, 3), layout.m_rcSelFrame.top + 3};
            default:
                return {Number(-5, 405), Number(-5, 305)};
        }
    }
    std::uint32_t AnyFlags() { return Chance(4) ? Below(16) : 0; }

    void AnyAction() {
        switch (Below(8)) {
            case 0:
            case 1:
            case 2:
            case 3:
                return AnyMouse();
            case 4:
            case 5:
                return AnyKey();
            case 6:
                return AnyHostCall();
            default:
                return AnyChange();
        }
    }

    void AnyMouse() {
        const Point point = AnyPoint();
        switch (Below(10)) {
            case 0:
            case 1:
            case 2:
                mouse.OnLButtonDown(AnyFlags() | MkLButton, point);
                break;
            case 3:
            case 4:
            case 5:
                desk.ticks += Below(150);
                mouse.OnMouseMove(Chance(8) ? 0U : std::uint32_t{MkLButton}, point);
                break;
            case 6:
            case 7:
                mouse.OnLButtonUp(AnyFlags(), point);
                DrawFrame();
                break;
            case 8:
                mouse.OnLButtonDblClk(point);
                break;
            default:
                mouse.OnSetCursor(point);
                break;
        }
    }

    void AnyKey() {
        static constexpr std::array<std::uint32_t, 12> Keys{VkTab,  VkReturn, VkPrior,  VkNext,
                                                            VkEnd,  VkHome,   VkLeft,   VkUp,
                                                            VkDown, VkRight,  VkDelete, 65};
        static const std::array<std::string, 4> Texts{"1", "\x81\x7C", "\x81", ""};
        desk.ctrlDown = Chance(4);
        desk.altDown = Chance(4);
        switch (Below(6)) {
            case 0:
            case 1:
                KeyDown(Keys[Below(12)]);
                break;
            case 2:
                Type(Texts[Below(4)]);
                break;
            case 3:
                Pass({.number = WmImeStartComposition + Below(3), .target = FocusedTarget()});
                break;
            case 4:
                keyboard.OnCtrlKeyMsg(Keys[Below(12)], 0);
                break;
            default:
                Pump();
                break;
        }
    }

    // What hosts do by automation.
    void AnyHostCall() {
        const std::int32_t row = AnyLine(20);
        const std::int32_t col = AnyLine(12);
        switch (Below(12)) {
            case 0:
                return selection.SetActiveCell(row, col);
            case 1:
                editor.StartEdit();
                return;
            case 2:
                editor.EndEdit();
                return;
            case 3:
                return selection.SetSelection(row, col, AnyLine(20), AnyLine(12));
            case 4:
                return operations.InsertRows(row, Number(0, 3));
            case 5:
                return operations.DeleteRows(row, Number(0, 3));
            case 6:
                return operations.InsertCols(col, Number(0, 2));
            case 7:
                return scrolling.MakeCellVisible(row, col);
            case 8:
                return store.SetCellText(row, col, "7");
            case 9:
                scrolling.OnVScroll(static_cast<ScrollRequest>(Below(8)), Number(0, 50));
                return;
            case 10:
                desk.MoveFocus(Chance(2) ? Focus::Elsewhere : Focus::Control);
                return;
            default:
                return mouse.CancelDrag();
        }
    }

    void AnyChange() {
        static constexpr std::array<bool GridProperties::*, 10> Switches{
            &GridProperties::AllowSelections, &GridProperties::AllowEdit,
            &GridProperties::AlwaysOnEdit,    &GridProperties::RowMode,
            &GridProperties::AllowResize,     &GridProperties::AllowMoveCell,
            &GridProperties::AllowMoveRow,    &GridProperties::EnterGoDown,
            &GridProperties::ShowRowHeaders,  &GridProperties::ShowColHeaders};
        switch (Below(9)) {
            case 0:
                properties.GuiMode = Chance(4);
                break;
            case 1:
                desk.designMode = Chance(4);
                desk.designPress = {Chance(2), Chance(2)};
                break;
            case 2:
                desk.hasToolbox = Chance(8);
                break;
            case 3:
                edit.holdsForeign = Chance(8);
                edit.makesWindow = !Chance(16);
                break;
            case 4:
                properties.MaxRow = Chance(2) ? AnyLine(50) : 50;
                properties.MaxCol = Chance(2) ? AnyLine(20) : 20;
                break;
            case 5:
                desk.headerAnswer = Chance(2) ? std::nullopt : std::optional<std::string>("h");
                break;
            default:
                properties.*Switches[Below(10)] = !Chance(4);
                break;
        }
    }

    // In an event a host vetoes, calls back, lets the user act in a loop of its own, or fails.
    void InEvent() {
        if (m_isFriendly || m_nested == MostNested) {
            return;
        }
        desk.allowChange = Chance(4) ? 0 : 1;
        desk.allowEdit = Chance(4) ? 0 : 1;
        desk.cancelEndEdit = Chance(4) ? 1 : 0;
        desk.cancelBeginLabel = Chance(4);
        desk.cancelEndLabel = Chance(4);
        if (!Chance(3)) {
            return;
        }
        if (Chance(10)) {
            throw HostError();
        }
        ++m_nested;
        try {
            AnyAction();
        } catch (...) {
            --m_nested;
            throw;
        }
        --m_nested;
    }

    std::mt19937 m_random;
    bool m_isFriendly = false;
    std::int32_t m_nested = 0;
};

TEST(EditRandomWalkTest, NoEventLeavesAnUnknownStateAConfinedCursorOrADraggedRange) {
    RandomWalk walk(20030805);
    std::array<std::int32_t, 24> seen{};
    for (std::int32_t event = 0; event < Events; ++event) {
        if (event % EventsPerSheet == 0) {
            walk.Refresh();
            ASSERT_EQ(walk.State(), MouseState::MouseIdle) << event;
        }
        walk.Step();
        ASSERT_EQ(walk.Fault(), "") << "after event " << event;
        ++seen[static_cast<std::size_t>(walk.State())];
    }
    walk.Refresh();
    EXPECT_EQ(walk.editor.StartEdit(), 1);
    // The walk came through every state of the table.
    for (const std::size_t state : {0, 1, 2, 3, 4, 7, 9, 14, 23}) {
        EXPECT_GT(seen[state], 0) << state;
    }
}

}  // namespace
}  // namespace veygrid
