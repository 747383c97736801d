' Each region of the sheet shows a cursor of its own, and a drag keeps its own.
EvenSheet 20, 10
Grid.SetSelection 4, 3, 6, 5
Host.Pump 0
Host.Move MiddleX(9), MiddleY(9)
Host.Watch "WM_SETCURSOR"
Host.Move 10, MiddleY(4)
Told "a row header", Array("cursor 1027")
Host.Move 10, 20 + 80 - 1
Told "a row's border", Array("cursor 32645")
Host.Move 10, 8
Told "the corner", Array("cursor 1028")
Host.Move MiddleX(3), 8
Told "a column header", Array("cursor 1026")
Host.Move 50 + 120 - 1, 8
Told "a column's border", Array("cursor 32644")
Host.Move MiddleX(8), MiddleY(8)
Told "a cell", Array("cursor 32512")
Host.Move 50 + 120 + 1, MiddleY(5)
Told "the rim of the selection", Array("cursor 30987")
Host.Move MiddleX(4), MiddleY(5)
Told "inside it", Array("cursor 32512")
Host.Press 10, 20 + 80 - 1
Host.Story
Host.Move MiddleX(8), MiddleY(8)
Host.Move 10, 8
Told "while a row is sized it stays", Array()
Host.Release 10, 20 + 80 - 1
Host.Move MiddleX(8), MiddleY(8)
Told "and goes with the release", Array( _
    "grid WM_LBUTTONUP 10,99", "MouseUp(1, 0, 10, 99)", "cursor 32512")
Host.Press 50 + 120 - 1, 8
Host.Move MiddleX(8), MiddleY(8)
Host.Release 50 + 120 - 1, 8
Told "a column's in the same way", Array( _
    "cursor 32644", "grid WM_LBUTTONDOWN 169,8", "grid WM_LBUTTONUP 169,8", _
    "MouseUp(1, 0, 169, 8)")
Grid.AllowMoveCell = False
Host.Move 50 + 120 + 1, MiddleY(5)
Told "the rim shows its cursor though nothing may be moved", Array("Modified", "cursor 30987")
Grid.GuiMode = True
Host.Move 10, MiddleY(4)
Told "a form has the arrow alone", Array("Modified", "cursor 32512")
Host.Log "end"
