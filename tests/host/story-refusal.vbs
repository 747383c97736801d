' A refused text holds the user in the cell: the box, the focus back, and the key, press or scroll
' that took the focus is dropped.
Dim vetoes
Sub Grid_EndEdit(row, col, value, cancel)
    If vetoes Then cancel = 1
End Sub
EvenSheet 100, 20
Dim number
Set number = Grid.CellFormat(3, 2)
number.DataType = 1
Grid.CellFormat(3, 2) = number
Grid.SetActiveCell 3, 2
Host.Pump 0
Host.Watch
Host.TypeText "x"
Host.Story

Host.Key 13
Told "Enter: one event, one box, no move", Array( _
    "grid VeynorGrid_CtrlKeyDown 13", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!")
Host.Key 9
Told "Tab: the same", Array( _
    "grid VeynorGrid_CtrlKeyDown 9", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!")
Host.Click MiddleX(4), MiddleY(6)
Told "a press on a cell is dropped", Array( _
    "grid WM_LBUTTONDOWN 260,130", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!", "grid WM_LBUTTONUP 260,130", "MouseUp(1, 0, 260, 130)")
Host.Click 10, MiddleY(6)
Told "a press on a row header is dropped", Array( _
    "grid WM_LBUTTONDOWN 10,130", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!", "grid WM_LBUTTONUP 10,130", "MouseUp(1, 0, 10, 130)")
Host.Click MiddleX(4), 8
Told "a press on a column header is dropped", Array( _
    "grid WM_LBUTTONDOWN 260,8", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!", "grid WM_LBUTTONUP 260,8", "MouseUp(1, 0, 260, 8)")
Host.Press 10, 20 + 60 - 1
Host.Move 10, 20 + 90
Host.Release 10, 20 + 90
Told "a press on a border sizes nothing", Array( _
    "grid WM_LBUTTONDOWN 10,79", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!", "grid WM_LBUTTONUP 10,110", "MouseUp(1, 0, 10, 110)")
Check "all stayed as it was", Active() & Selected() & Grid.RowHeight(3), "3,2(3,2,3,2)20"
Host.TypeText "y"
Told "the focus came back to the text", Array("edit WM_KEYDOWN 231", "edit WM_CHAR 121")

Host.Key 8
Host.Key 8
Host.TypeText "12"
Host.Story
Host.Key 13
Told "a good text is let go", Array( _
    "grid VeynorGrid_CtrlKeyDown 13", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, 12, 0)", "Modified", "edit WM_CLOSE", "CellSelChanging(4, 2, 1)", _
    "grid VeynorGrid_CellSelChange 4,2", "CellSelChanged", "KeyUp(13, 0)")
Check "and stored", Grid.CellText(3, 2), "12"

vetoes = True
Grid.EnterGoDown = True
Host.TypeText "7"
Host.Story
Host.Key 13
Told "a host that vetoes refuses in the same way", Array( _
    "grid VeynorGrid_CtrlKeyDown 13", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(4, 2, 7, 0)", "box 输入的数据非法!")
vetoes = False
Host.Key 13
Told "until it lets go", Array( _
    "grid VeynorGrid_CtrlKeyDown 13", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(4, 2, 7, 0)", "Modified", "edit WM_CLOSE", "CellSelChanging(5, 2, 1)", _
    "grid VeynorGrid_CellSelChange 5,2", "CellSelChanged", "KeyUp(13, 0)")
Host.Log "end"
