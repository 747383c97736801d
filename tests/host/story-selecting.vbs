' Selections by the mouse; from the press to the release nothing is painted.

' What is due is painted, however busy the machine is: a picture is taken of it.
Sub Settle()
    Host.Pump 0
    Host.Pixel 0, 0
End Sub
EvenSheet 30, 12
Settle
Host.Watch "WM_PAINT"

Host.Click MiddleX(2), MiddleY(3)
Settle
Told "a click on a cell moves the active cell", Array( _
    "grid WM_LBUTTONDOWN 140,70", "CellSelChanging(3, 2, 1)", "grid VeynorGrid_CellSelChange 3,2", _
    "CellSelChanged", "grid WM_LBUTTONUP 140,70", "MouseUp(1, 0, 140, 70)", "grid WM_PAINT")
Host.Click MiddleX(2), MiddleY(3)
Settle
Told "a click on the active cell", Array( _
    "grid WM_LBUTTONDOWN 140,70", "CellSelChanging(3, 2, 1)", "grid VeynorGrid_CellSelChange 3,2", _
    "CellSelChanged", "grid WM_LBUTTONUP 140,70", "MouseUp(1, 0, 140, 70)", "grid WM_PAINT")
Check "neither selects", Selected(), "(3,2,3,2)"
Host.Press MiddleX(3), MiddleY(4)
Settle
Told "the press of a drag", Array( _
    "grid WM_LBUTTONDOWN 200,90", "CellSelChanging(4, 3, 1)", "grid VeynorGrid_CellSelChange 4,3", _
    "CellSelChanged", "grid WM_PAINT")
Dim step
For step = 0 To 300 Step 6
    Host.Move MiddleX(3) + step, MiddleY(4) + step
Next
Settle
Told "a drag over the window tells nothing and paints nothing", Array()
Host.Release MiddleX(8), MiddleY(19)
Settle
Told "nor does its release", Array("grid WM_LBUTTONUP 500,390", "MouseUp(1, 0, 500, 390)")
Check "it selects", Selected(), "(4,3,19,8)"
Host.Click MiddleX(5), MiddleY(6), 1
Settle
Told "Shift reaches from the press before", Array( _
    "grid WM_KEYDOWN 16", "KeyDown(16, 1)", "grid WM_LBUTTONDOWN 320,130", _
    "grid WM_LBUTTONUP 320,130", "MouseUp(1, 1, 320, 130)", "KeyUp(16, 0)", "grid WM_PAINT")
Check "beside what was selected", Selected(), "(4,3,19,8)(4,3,6,5)"
Host.Click MiddleX(10), MiddleY(2), 2
Settle
Told "Ctrl adds a cell", Array( _
    "grid WM_KEYDOWN 17", "KeyDown(17, 2)", "grid WM_LBUTTONDOWN 620,50", _
    "grid WM_LBUTTONUP 620,50", "MouseUp(1, 2, 620, 50)", "KeyUp(17, 0)")
Check "behind the others", Selected(), "(4,3,19,8)(4,3,6,5)(2,10,2,10)"
Host.Click 10, MiddleY(5)
Settle
Told "a row header", Array( _
    "grid WM_LBUTTONDOWN 10,110", "CellSelChanging(5, 3, 1)", "grid VeynorGrid_CellSelChange 5,3", _
    "CellSelChanged", "grid WM_LBUTTONUP 10,110", "MouseUp(1, 0, 10, 110)", "grid WM_PAINT")
Check "selects its row", Selected(), "(5,0,5,0)"
Host.Press 10, MiddleY(5)
Host.Move 10, MiddleY(8)
Host.Release 10, MiddleY(8)
Settle
Told "a drag over row headers", Array( _
    "grid WM_LBUTTONDOWN 10,110", "CellSelChanging(5, 3, 1)", "grid VeynorGrid_CellSelChange 5,3", _
    "CellSelChanged", "grid WM_PAINT", "grid WM_LBUTTONUP 10,170", "MouseUp(1, 0, 10, 170)")
Check "selects rows", Selected(), "(5,0,8,0)"
Host.Click MiddleX(4), 8
Settle
Told "a column header", Array( _
    "grid WM_LBUTTONDOWN 260,8", "CellSelChanging(5, 4, 1)", "grid VeynorGrid_CellSelChange 5,4", _
    "CellSelChanged", "grid WM_LBUTTONUP 260,8", "MouseUp(1, 0, 260, 8)", "grid WM_PAINT")
Check "selects its column", Selected(), "(0,4,0,4)"
Host.Click MiddleX(6), 8, 1
Host.Click MiddleX(9), 8, 2
Settle
Told "Shift and Ctrl on column headers", Array( _
    "grid WM_KEYDOWN 16", "KeyDown(16, 1)", "grid WM_LBUTTONDOWN 380,8", _
    "grid WM_LBUTTONUP 380,8", "MouseUp(1, 1, 380, 8)", "KeyUp(16, 0)", "grid WM_PAINT", _
    "grid WM_KEYDOWN 17", "KeyDown(17, 2)", "grid WM_LBUTTONDOWN 560,8", _
    "grid WM_LBUTTONUP 560,8", "MouseUp(1, 2, 560, 8)", "KeyUp(17, 0)")
Check "add columns", Selected(), "(0,4,0,4)(0,4,0,6)(0,9,0,9)"
Host.Click 10, MiddleY(4)
Settle
Host.Story
Host.Click 10, MiddleY(6), 1
Host.Click 10, MiddleY(9), 2
Settle
Told "Shift and Ctrl on row headers", Array( _
    "grid WM_KEYDOWN 16", "KeyDown(16, 1)", "grid WM_LBUTTONDOWN 10,130", _
    "grid WM_LBUTTONUP 10,130", "MouseUp(1, 1, 10, 130)", "KeyUp(16, 0)", "grid WM_PAINT", _
    "grid WM_KEYDOWN 17", "KeyDown(17, 2)", "grid WM_LBUTTONDOWN 10,190", _
    "grid WM_LBUTTONUP 10,190", "MouseUp(1, 2, 10, 190)", "KeyUp(17, 0)")
Check "add rows", Selected() & Active(), "(4,0,4,0)(4,0,6,0)(9,0,9,0)4,4"
Host.Click 10, 8, 1
Settle
Told "Shift on the corner", Array( _
    "grid WM_KEYDOWN 16", "KeyDown(16, 1)", "grid WM_LBUTTONDOWN 10,8", _
    "grid WM_LBUTTONUP 10,8", "MouseUp(1, 1, 10, 8)", "KeyUp(16, 0)")
Check "is a press on the corner", Selected() & Active(), "(-1,-1,-1,-1)4,4"
Host.Click MiddleX(2), MiddleY(2)
Settle
Host.Story
Host.Click 10, 8, 2
Settle
Told "Ctrl on the corner", Array( _
    "grid WM_KEYDOWN 17", "KeyDown(17, 2)", "grid WM_LBUTTONDOWN 10,8", _
    "grid WM_LBUTTONUP 10,8", "MouseUp(1, 2, 10, 8)", "KeyUp(17, 0)", "grid WM_PAINT")
Check "is one too", Selected() & Active(), "(-1,-1,-1,-1)2,2"
Host.Click 10, 8, 3
Settle
Check "and both", Selected(), "(-1,-1,-1,-1)"
Host.Story
Host.Click 10, 8
Settle
Told "the corner moves no cell", Array( _
    "grid WM_LBUTTONDOWN 10,8", "grid WM_LBUTTONUP 10,8", "MouseUp(1, 0, 10, 8)")
Check "and selects the sheet", Selected(), "(-1,-1,-1,-1)"
Grid.AllowSelections = False
Settle
Host.Story
Host.Click MiddleX(2), MiddleY(2)
Host.Click 10, MiddleY(2)
Host.Click MiddleX(2), 8
Host.Click 10, 8
Settle
Told "without AllowSelections a press does nothing", Array( _
    "grid WM_LBUTTONDOWN 140,50", "grid WM_LBUTTONUP 140,50", "MouseUp(1, 0, 140, 50)", _
    "grid WM_LBUTTONDOWN 10,50", "grid WM_LBUTTONUP 10,50", "MouseUp(1, 0, 10, 50)", _
    "grid WM_LBUTTONDOWN 140,8", "grid WM_LBUTTONUP 140,8", "MouseUp(1, 0, 140, 8)", _
    "grid WM_LBUTTONDOWN 10,8", "grid WM_LBUTTONUP 10,8", "MouseUp(1, 0, 10, 8)")
Grid.AllowSelections = True

Grid.RowMode = True
Host.Click MiddleX(2), MiddleY(2)
Settle
Host.Story
Host.Click MiddleX(3), MiddleY(7), 4
Settle
Told "in RowMode a click with Alt ticks the row and paints its strip", Array( _
    "KeyDown(18, 4)", "grid WM_LBUTTONDOWN 200,150", "grid WM_LBUTTONUP 200,150", _
    "MouseUp(1, 4, 200, 150)", "KeyUp(18, 0)", "grid WM_PAINT")
Check "the active cell stays, nothing is selected", Active() & Selected(), "2,2(2,2,2,2)"
Host.Log "end"
