' A changed text is stored as soon as the focus goes to another window: one that the mouse presses or
' one that comes up over the sheet. A refused text holds the focus against them.
EvenSheet 20, 6
Dim second, number, dialog
Set second = Host.NewControl()
Set number = Grid.CellFormat(6, 2)
number.DataType = 1
Grid.CellFormat(6, 2) = number
Grid.SetActiveCell 2, 2
Host.Pump 0
Host.Watch

Host.TypeText "a"
Host.Story
Host.Click 600, 210
Told "a press in another control stores the text; no cell moves here but there", Array( _
    "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", "EndEdit(2, 2, a, 0)", _
    "Modified", "edit WM_CLOSE", "CellSelChanging(11, 3, 1)", "CellSelChanged", _
    "MouseUp(1, 0, 200, 210)")
Check "stored", Grid.CellText(2, 2) & Active(), "a2,2"
Host.Click MiddleX(2), MiddleY(3)
Host.TypeText "中"
Host.Story
second.StartEdit
Told "an editor of another control stores it too", Array( _
    "StartingEdit(11, 3, 1)", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, 中, 0)", "Modified", "edit WM_CLOSE")
Check "stored as well", Grid.CellText(3, 2), "中"
Host.TypeText "b"
Host.Story
Host.Click MiddleX(2), MiddleY(4)
Told "and the other way round", Array( _
    "grid WM_LBUTTONDOWN 140,90", "EndEdit(11, 3, b, 0)", "Modified", _
    "CellSelChanging(4, 2, 1)", "grid VeynorGrid_CellSelChange 4,2", "CellSelChanged", _
    "grid WM_LBUTTONUP 140,90", "MouseUp(1, 0, 140, 90)")
Host.Story

Host.TypeText "c"
Host.Story
Host.Key 67, 4
Told "the menu of the window alone takes no focus", Array()
Host.Key 65
Set dialog = Opened("Veynor Grid Control")
Told "a dialog of it does", Array( _
    "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", "EndEdit(4, 2, c, 0)", _
    "Modified", "edit WM_CLOSE")
Check "stored under the dialog", Grid.CellText(4, 2), "c"
dialog.Press 1
Check "the dialog goes", Closed("Veynor Grid Control"), True

Grid.SetActiveCell 5, 2
Grid.StartEdit
Host.Story
Host.Click 600, 210
Told "an untouched text is not stored", Array( _
    "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", "edit WM_CLOSE", _
    "CellSelChanging(11, 3, 1)", "CellSelChanged", "MouseUp(1, 0, 200, 210)")
Host.Click MiddleX(2), MiddleY(6)
Host.TypeText "x"
Host.Story
Host.Click 600, 210
Told "a refused text stays, whatever the other control makes of the press", Array( _
    "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", "EndEdit(6, 2, x, 0)", _
    "box 输入的数据非法!", "CellSelChanging(11, 3, 1)", "CellSelChanged", "MouseUp(1, 0, 200, 210)")
Check "not stored", Grid.CellText(6, 2), ""
Host.TypeText "y"
Told "the focus is back in its editor", Array("edit WM_KEYDOWN 231", "edit WM_CHAR 121")
Host.Key 8
Host.Key 8
Host.Log "end"
