' The mouse selects cells, rows, columns and all; a drag repaints nothing.
Dim painted, changes
Sub Grid_RequestCellFormat(row, col, format)
    painted = painted + 1
End Sub
Sub Grid_CellSelChanged()
    changes = changes + 1
End Sub

EvenSheet 20, 10
Host.Pump 0

Host.Click MiddleX(2), MiddleY(3)
Check "a click moves the active cell", Active(), "3,2"
Check "and selects nothing", Selected(), "(3,2,3,2)"
Host.Click MiddleX(2), MiddleY(3)
Check "nor does a click on the active cell", Selected(), "(3,2,3,2)"

Host.Press MiddleX(2), MiddleY(3)
Host.Pump 0
painted = 0
Host.Move MiddleX(3), MiddleY(4)
Host.Move MiddleX(5), MiddleY(9)
Host.Move MiddleX(4), MiddleY(6)
Check "a drag repaints nothing", painted, 0
Host.Release MiddleX(4), MiddleY(6)
Grid.CellText(1, 1) = "x"
Host.Pump 0
Check "as it would be told", painted > 0, True
Check "a drag", Selected(), "(3,2,6,4)"
Check "backwards", Active(), "3,2"
Host.Press MiddleX(5), MiddleY(8)
Host.Move MiddleX(4), MiddleY(7)
Host.Release MiddleX(3), MiddleY(6)
Check "a drag backwards is put in order", Selected(), "(6,3,8,5)"

Host.Click MiddleX(2), MiddleY(2)
Host.Click MiddleX(4), MiddleY(5), 1
Check "Shift reaches from the press before", Selected(), "(2,2,5,4)"
Host.Click MiddleX(6), MiddleY(7), 1
Check "the second Shift from the first one", Selected(), "(2,2,5,4)(5,4,7,6)"

Host.Click MiddleX(1), MiddleY(1)
Host.Click MiddleX(3), MiddleY(3), 2
Host.Click MiddleX(5), MiddleY(2), 2
Check "Ctrl gathers in the order of the clicks, behind it the active cell", Selected(), _
    "(3,3,3,3)(1,1,1,1)(2,5,2,5)"
Check "which has not moved", Active(), "1,1"

Host.Click 10, MiddleY(4)
Check "a row header", Selected() & Active(), "(4,0,4,0)4,1"
Host.Press 10, MiddleY(4)
Host.Move 10, MiddleY(6)
Host.Release 10, MiddleY(6)
Check "a drag over row headers", Selected(), "(4,0,6,0)"
Host.Click MiddleX(3), 8
Check "a column header", Selected() & Active(), "(0,3,0,3)4,3"
Host.Press MiddleX(3), 8
Host.Move MiddleX(5), 8
Host.Release MiddleX(5), 8
Check "a drag over column headers", Selected(), "(0,3,0,5)"
Host.Click MiddleX(7), 8, 1
Check "Shift on a column header", Selected(), "(0,3,0,5)(0,3,0,7)"
Host.Click 10, 8
Check "the corner", Selected(), "(-1,-1,-1,-1)"
Host.Press 10, MiddleY(2)
Host.Move MiddleX(3), MiddleY(4)
Host.Release MiddleX(3), MiddleY(4)
Check "a row drag that strays over the cells", Selected(), "(2,0,4,3)"

Host.Click MiddleX(2), MiddleY(2)
Grid.RowMode = True
Host.Click MiddleX(3), MiddleY(5), 4
Check "RowMode with Alt leaves the active cell and the list", Active() & Selected(), "2,2(2,2,2,2)"
Grid.RowMode = False

Grid.AllowSelections = False
Host.Click MiddleX(5), MiddleY(5)
Check "AllowSelections off: a click moves nothing", Active() & Selected(), "2,2(2,2,2,2)"
Host.Click 10, MiddleY(3)
Check "nor does a header", Selected(), "(2,2,2,2)"
Host.Log "end"
