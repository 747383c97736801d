' A double click on a cell opens the editor with the caret at the click; over a form it is told twice,
' by the control and then by its base.
EvenSheet 20, 10
Grid.CellText(3, 2) = "iiiiii"
Host.Pump 0
Host.Watch
Host.DoubleClick 50 + 60 + 2, MiddleY(3)
Told "on a cell", Array( _
    "grid WM_LBUTTONDOWN 112,70", "CellSelChanging(3, 2, 1)", "grid VeynorGrid_CellSelChange 3,2", _
    "CellSelChanged", "grid WM_LBUTTONUP 112,70", "MouseUp(1, 0, 112, 70)", _
    "grid WM_LBUTTONDBLCLK 112,70", "DblClick", "StartingEdit(3, 2, 1)", "edit EM_CHARFROMPOS", _
    "edit EM_SETSEL 0,0", "edit EM_SCROLLCARET", "edit WM_LBUTTONUP 2,10")
Host.TypeText "A"
Grid.EndEdit
Check "the caret was at the click", Grid.CellText(3, 2), "Aiiiiii"
Grid.AllowEdit = False
Host.Story
Host.DoubleClick MiddleX(3), MiddleY(5)
Told "without AllowEdit", Array( _
    "grid WM_LBUTTONDOWN 200,110", "CellSelChanging(5, 3, 1)", _
    "grid VeynorGrid_CellSelChange 5,3", "CellSelChanged", "grid WM_LBUTTONUP 200,110", _
    "MouseUp(1, 0, 200, 110)", "grid WM_LBUTTONDBLCLK 200,110", "DblClick", _
    "grid WM_LBUTTONUP 200,110", "MouseUp(1, 0, 200, 110)")
Grid.GuiMode = True
Host.Story
Host.DoubleClick 300, 200
Told "over a form DblClick comes twice", Array( _
    "grid WM_LBUTTONDOWN 300,200", "MouseDown(1, 0, 300, 200)", "grid WM_LBUTTONUP 300,200", _
    "MouseUp(1, 0, 300, 200)", "Click", "grid WM_LBUTTONDBLCLK 300,200", "DblClick", "DblClick", _
    "grid WM_LBUTTONUP 300,200", "MouseUp(1, 0, 300, 200)")
Host.Log "end"
