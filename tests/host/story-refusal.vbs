' A refused text holds the user in the cell: the box, the focus back, and the key, press or scroll
' that took the focus is dropped.
Dim vetoes
Sub Grid_EndEdit(row, col, value, cancel)
    If vetoes Then cancel = 1
End Sub
' What comes from outside of the script takes its time; 20 s at most.
Sub AwaitBox()
    Dim turn
    For turn = 1 To 400
        If Lines(Host.Boxes) <> "" Then Exit Sub
        Host.Pump 50
    Next
End Sub
EvenSheet 100, 20
Dim number
Set number = Grid.CellFormat(3, 2)
number.DataType = 1
Grid.CellFormat(3, 2) = number
Grid.SetActiveCell 3, 2
Grid.SetSelection 10, 4, 12, 5
Host.Pump 0
Host.Watch "WM_SETCURSOR"
Host.Move 50 + 180 + 1, MiddleY(11)
Told "the rim that is pressed later on", Array("cursor 30987")
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
Host.Click 10, 8
Told "a press on the corner is dropped", Array( _
    "grid WM_LBUTTONDOWN 10,8", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!", "grid WM_LBUTTONUP 10,8", "MouseUp(1, 0, 10, 8)")
Host.Press 50 + 120 - 1, 8
Host.Move 50 + 150, 8
Host.Release 50 + 150, 8
Told "a press on a column's border sizes nothing", Array( _
    "grid WM_LBUTTONDOWN 169,8", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!", "grid WM_LBUTTONUP 200,8", "MouseUp(1, 0, 200, 8)")
Host.Press 50 + 180 + 1, MiddleY(11)
Host.Move MiddleX(6), MiddleY(6)
Host.Release MiddleX(6), MiddleY(6)
Told "a press on the rim of the selection moves nothing", Array( _
    "grid WM_LBUTTONDOWN 231,230", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!", "grid WM_LBUTTONUP 380,130", "MouseUp(1, 0, 380, 130)")
Host.Click 792, 470
Told "a line down by the scroll bar is dropped", Array( _
    "grid WM_VSCROLL 1", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!")
Host.Click 792, 300
Told "a page down by the scroll bar is dropped", Array( _
    "grid WM_VSCROLL 3", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!")
Host.Click 770, 491
Told "a column to the right is dropped", Array( _
    "grid WM_HSCROLL 1", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!")
Host.Click 500, 491
Told "a page to the right is dropped", Array( _
    "grid WM_HSCROLL 3", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, x, 0)", "box 输入的数据非法!")
Host.Move MiddleX(5), MiddleY(5)
Host.Boxes
Outside "xdotool click 5"
AwaitBox
Told "a turn of the wheel is dropped", Array( _
    "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", "EndEdit(3, 2, x, 0)", _
    "box 输入的数据非法!")
Host.Key 34
Host.Key 33
Told "page keys are the editor's", Array("edit WM_KEYDOWN 34", "edit WM_KEYDOWN 33")
Check "all stayed as it was", Active() & Selected() & Grid.RowHeight(3) & "," & Grid.ColWidth(2), _
    "3,2(10,4,12,5)20,60"
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
Host.Click MiddleX(4), MiddleY(6)
Check "and nothing had scrolled", Active(), "6,4"
Grid.SetActiveCell 4, 2
Host.Story

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
