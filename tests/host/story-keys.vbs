' Keys of the sheet go by the road of a posted message, each with its moves, scrolls and events.
Const PageUp = 33, PageDown = 34, EndKey = 35, HomeKey = 36, LeftKey = 37, UpKey = 38, RightKey = 39, _
    DownKey = 40, DeleteKey = 46
Sub Lock(row, col)
    Dim format
    Set format = Grid.CellFormat(row, col)
    format.ReadOnly = True
    Grid.CellFormat(row, col) = format
End Sub
EvenSheet 100, 8
Grid.SetActiveCell 3, 3
Host.Pump 0
Host.Watch

Host.Key DownKey
Told "down", Array( _
    "grid VeynorGrid_CtrlKeyDown 40", "CellSelChanging(4, 3, 1)", _
    "grid VeynorGrid_CellSelChange 4,3", "CellSelChanged", "KeyUp(40, 0)")
Host.Key UpKey, 1
Told "up; Shift makes no difference", Array( _
    "grid WM_KEYDOWN 16", "KeyDown(16, 1)", "grid VeynorGrid_CtrlKeyDown 38", _
    "CellSelChanging(3, 3, 1)", "grid VeynorGrid_CellSelChange 3,3", "CellSelChanged", _
    "KeyUp(38, 1)", "KeyUp(16, 0)")
Host.Key RightKey
Told "right", Array( _
    "grid VeynorGrid_CtrlKeyDown 39", "CellSelChanging(3, 4, 1)", _
    "grid VeynorGrid_CellSelChange 3,4", "CellSelChanged", "KeyUp(39, 0)")
Host.Key LeftKey
Told "left", Array( _
    "grid VeynorGrid_CtrlKeyDown 37", "CellSelChanging(3, 3, 1)", _
    "grid VeynorGrid_CellSelChange 3,3", "CellSelChanged", "KeyUp(37, 0)")
Host.Key HomeKey
Host.Key EndKey
Told "Home and End do nothing", Array( _
    "grid VeynorGrid_CtrlKeyDown 36", "KeyUp(36, 0)", "grid VeynorGrid_CtrlKeyDown 35", _
    "KeyUp(35, 0)")
Host.Key PageDown
Told "a page down scrolls and leaves the cell", Array( _
    "grid VeynorGrid_CtrlKeyDown 34", "grid WM_VSCROLL 3", "KeyUp(34, 0)")
Host.Key DownKey
Told "a key that moves a cell above the view scrolls one line", Array( _
    "grid VeynorGrid_CtrlKeyDown 40", "CellSelChanging(4, 3, 1)", _
    "grid VeynorGrid_CellSelChange 4,3", "CellSelChanged", "grid WM_VSCROLL 0", "KeyUp(40, 0)")
Host.Key PageUp
Told "a page up", Array("grid VeynorGrid_CtrlKeyDown 33", "grid WM_VSCROLL 2", "KeyUp(33, 0)")
Grid.SetActiveCell 1, 1
Host.Story
Host.Key UpKey
Host.Key LeftKey
Told "the edges stop at once", Array( _
    "grid VeynorGrid_CtrlKeyDown 38", "KeyUp(38, 0)", "grid VeynorGrid_CtrlKeyDown 37", _
    "KeyUp(37, 0)")
Grid.SetActiveCell 1, 8
Host.Story
Host.Key RightKey
Host.Key 9
Told "and so does the last column, for Tab too", Array( _
    "grid VeynorGrid_CtrlKeyDown 39", "KeyUp(39, 0)", "grid VeynorGrid_CtrlKeyDown 9", _
    "KeyUp(9, 0)")
Grid.EnterGoDown = False
Host.Key 13
Told "Enter there goes on with the same cell", Array( _
    "Modified", "grid VeynorGrid_CtrlKeyDown 13", "CellSelChanging(1, 8, 1)", _
    "grid VeynorGrid_CellSelChange 1,8", "CellSelChanged", "KeyUp(13, 0)")
Lock 1, 4
Grid.SetActiveCell 1, 3
Host.Story
Host.Key 9
Told "Tab skips a read-only cell", Array( _
    "grid VeynorGrid_CtrlKeyDown 9", "CellSelChanging(1, 5, 1)", _
    "grid VeynorGrid_CellSelChange 1,5", "CellSelChanged", "KeyUp(9, 0)")
Host.Key LeftKey
Told "left does not", Array( _
    "grid VeynorGrid_CtrlKeyDown 37", "CellSelChanging(1, 4, 1)", _
    "grid VeynorGrid_CellSelChange 1,4", "CellSelChanged", "KeyUp(37, 0)")
Host.TypeText "x"
Told "a key on it opens nothing", Array( _
    "grid WM_KEYDOWN 231", "KeyDown(231, 0)", "grid WM_CHAR 120", "KeyUp(231, 0)")
Host.Key 65, 4
Told "a key with Alt is no character", Array( _
    "KeyDown(18, 4)", "KeyDown(65, 4)", "KeyUp(65, 4)", "KeyUp(18, 0)")

Grid.EnterGoDown = True
Grid.AlwaysOnEdit = True
Grid.SetActiveCell 5, 2
Host.Story
Host.Key DownKey
Told "AlwaysOnEdit opens after a move", Array( _
    "grid VeynorGrid_CtrlKeyDown 40", "CellSelChanging(6, 2, 1)", _
    "grid VeynorGrid_CellSelChange 6,2", "CellSelChanged", "StartingEdit(6, 2, 1)")
Host.TypeText "q"
Host.Key 13
Told "Enter commits, moves and opens", Array( _
    "edit WM_KEYDOWN 231", "edit WM_CHAR 113", "grid VeynorGrid_CtrlKeyDown 13", _
    "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", "EndEdit(6, 2, q, 0)", "Modified", _
    "edit WM_CLOSE", "CellSelChanging(7, 2, 1)", "grid VeynorGrid_CellSelChange 7,2", _
    "CellSelChanged", "StartingEdit(7, 2, 1)")
Host.Click MiddleX(3), MiddleY(4)
Told "a press opens as well", Array( _
    "grid WM_LBUTTONDOWN 200,90", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "edit WM_CLOSE", "CellSelChanging(4, 3, 1)", "grid VeynorGrid_CellSelChange 4,3", _
    "CellSelChanged", "CellSelChanging(4, 3, 1)", "grid VeynorGrid_CellSelChange 4,3", _
    "CellSelChanged", "StartingEdit(4, 3, 1)", "edit WM_LBUTTONUP 30,10")
Grid.EndEdit
Grid.SetActiveCell 100, 2
Host.Story
Host.Key 13
Told "Enter in the last row stays and opens", Array( _
    "grid VeynorGrid_CtrlKeyDown 13", "CellSelChanging(100, 2, 1)", _
    "grid VeynorGrid_CellSelChange 100,2", "CellSelChanged", "grid WM_VSCROLL 1", _
    "StartingEdit(100, 2, 1)", "grid WM_VSCROLL 1")
Grid.EndEdit
Grid.SetActiveCell 4, 8
Host.Story
Host.Key RightKey
Told "right in the last column does not", Array("grid VeynorGrid_CtrlKeyDown 39", "KeyUp(39, 0)")
Host.Log "end"
