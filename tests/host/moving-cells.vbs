' The mouse moves and copies the selection by the rim of its frame.
Dim moves, lowest
' The lowest column that was painted.
Sub Grid_RequestCellFormat(row, col, format)
    If col > 0 And col < lowest Then lowest = col
End Sub
Sub Grid_CellsMove(kind)
    moves = moves & kind & ";"
End Sub
Function TakenMoves()
    TakenMoves = moves
    moves = ""
End Function
' From the left rim of the frame that begins at the cell.
Sub DragFrame(row, col, toRow, toCol, mods)
    Host.Press 50 + (col - 1) * 60 + 1, MiddleY(row)
    Host.Move MiddleX(toCol), MiddleY(toRow)
    Host.Release MiddleX(toCol), MiddleY(toRow), mods
    Host.Pump 0
End Sub
EvenSheet 30, 30
Grid.CellText(2, 2) = "a"
Grid.CellText(3, 3) = "b"

Grid.SetSelection 2, 2, 3, 3
Grid.SetActiveCell 2, 2
Host.Pump 0
DragFrame 2, 2, 6, 5, 0
Check "a block", Grid.CellText(6, 5) & Grid.CellText(7, 6) & Grid.CellText(2, 2), "ab"
Check "its event", TakenMoves(), "2;"
Check "the selection goes along", Selected(), "(6,5,7,6)"
DragFrame 6, 5, 10, 2, 2
Check "Ctrl at the release copies", Grid.CellText(10, 2) & Grid.CellText(6, 5), "aa"
Check "its event too", TakenMoves(), "2;"
Host.Click MiddleX(9), MiddleY(1)
Host.Click MiddleX(5), MiddleY(6)
DragFrame 6, 5, 12, 8, 0
Check "a single cell", Grid.CellText(12, 8) & Grid.CellText(6, 5), "a"
TakenMoves
DragFrame 12, 8, 12, 8, 0
Check "onto itself: nothing is lost", Grid.CellText(12, 8), "a"

Grid.AllowMoveCell = False
TakenMoves
DragFrame 12, 8, 3, 3, 0
Check "AllowMoveCell off", Grid.CellText(12, 8) & TakenMoves(), "a"
Grid.AllowMoveCell = True

Host.Click 10, MiddleY(12)
Host.Pump 0
Grid.CellText(12, 9) = "row"
' The frame of rows and columns can be taken in the first column or row on view.
Host.Press MiddleX(1), MiddleY(12) - 9
Host.Move MiddleX(1), MiddleY(3)
Host.Release MiddleX(1), MiddleY(3)
Check "rows move", Grid.CellText(3, 9), "row"
Check "rows", TakenMoves(), "0;"
Host.Click MiddleX(2), 8
Host.Pump 0
Grid.CellText(20, 2) = "col"
Host.Press 50 + 60 + 1, MiddleY(1)
Host.Move MiddleX(6), MiddleY(1)
Host.Release MiddleX(6), MiddleY(1)
Check "columns move", Grid.CellText(20, 6), "col"
Check "columns", TakenMoves(), "1;"

' Near the right edge the sheet scrolls by itself, at most every fifth of a second.
Dim turn
Host.Click MiddleX(5), MiddleY(6)
Host.Press 50 + 4 * 60 + 1, MiddleY(6)
For turn = 1 To 200
    lowest = 100
    Host.Move 775 + turn Mod 2, MiddleY(6)
    Host.Pump 50
    If lowest >= 3 And lowest < 100 Then Exit For
Next
Check "automatic scroll", lowest >= 3 And lowest < 100, True
Host.Release 600, MiddleY(6)
Host.Log "end"
