' Keys move the active cell and the view, and Delete works by what is selected.
Dim starts
Sub Grid_StartingEdit(row, col, allow)
    starts = starts & row & "," & col & ";"
End Sub
Function TakenStarts()
    TakenStarts = starts
    starts = ""
End Function
Sub Lock(row, col)
    Dim format
    Set format = Grid.CellFormat(row, col)
    format.ReadOnly = True
    Grid.CellFormat(row, col) = format
End Sub
' Rows and columns numbered, so that what went can be seen.
Sub Fill()
    Dim row, col
    Grid.ClearRange -1, -1, -1, -1, 0
    Grid.MaxRow = 100
    Grid.MaxCol = 8
    For row = 1 To 6
        For col = 1 To 6
            Grid.CellText(row, col) = row & col
        Next
    Next
End Sub
Const PageUp = 33, PageDown = 34, EndKey = 35, HomeKey = 36, LeftKey = 37, UpKey = 38, RightKey = 39, _
    DownKey = 40, DeleteKey = 46

Fill
Grid.SetActiveCell 3, 3
Host.Pump 0
Host.Key RightKey
Check "right", Active(), "3,4"
Host.Key DownKey, 1
Check "down, Shift or not", Active(), "4,4"
Host.Key LeftKey
Host.Key UpKey
Check "left, up", Active(), "3,3"
Check "keys select nothing", Grid.GetSelectionCount(), 1
Host.Key HomeKey
Host.Key EndKey
Check "Home and End do nothing", Active(), "3,3"
Host.Key PageDown
Host.Key PageDown
Host.Key PageUp
Check "page keys leave the active cell", Active(), "3,3"
Grid.SetActiveCell 1, 1
Host.Key UpKey
Host.Key LeftKey
Check "the edges stop", Active(), "1,1"
Grid.MakeCellVisible 1, 1

Lock 3, 4
Grid.SetActiveCell 3, 3
Host.Key RightKey
Check "right skips what is read-only", Active(), "3,5"
Host.Key LeftKey
Check "left does not", Active(), "3,4"
Host.TypeText "x"
Check "a key on a read-only cell opens nothing", TakenStarts() & Grid.CellText(3, 4), "34"
For col = 6 To 8
    Lock 2, col
Next
Grid.SetActiveCell 2, 5
Host.Key 9
Check "with all later ones read-only the next one", Active(), "2,6"

Fill
Grid.AlwaysOnEdit = True
Grid.EnterGoDown = True
Grid.SetActiveCell 100, 2
Host.Key 13
Check "Enter in the last row stays, and opens again", Active() & " " & TakenStarts(), "100,2 100,2;"
Grid.EndEdit
Grid.SetActiveCell 5, 8
Host.Key RightKey
Check "right in the last column opens nothing", Active() & TakenStarts(), "5,8"
Grid.MakeCellVisible 1, 1
Host.Pump 0
Host.Click 80, 30
Check "a press opens", Active() & " " & TakenStarts(), "1,1 1,1;"
Host.TypeText "q"
Host.Key 13
Check "Enter commits, moves and opens", Active() & " " & TakenStarts(), "2,1 2,1;"
Grid.EndEdit
Grid.AlwaysOnEdit = False

Fill
Grid.SetActiveCell 2, 2
Host.Key DeleteKey
Check "Delete of the active cell", Grid.CellText(2, 2) & "," & Grid.CellText(2, 3), ",23"
Grid.SetSelection 2, 0, 3, 0
Host.Key DeleteKey
Check "Delete of rows takes them out", Grid.CellText(2, 1), "41"
Fill
Grid.SetSelection 0, 2, 0, 3
Host.Key DeleteKey
Check "Delete of columns takes them out", Grid.CellText(1, 2), "14"
Fill
Grid.SetSelection -1, -1, -1, -1
Host.Key DeleteKey
Check "Delete of the whole sheet keeps its size", Grid.CellText(1, 1) & Grid.MaxRow, "100"
Fill
Grid.SetSelection 1, 2, 3, 2
Host.Key DeleteKey
Check "Delete of a tall block clears across", Grid.CellText(1, 2) & "," & Grid.CellText(3, 2) & "," & _
    Grid.CellText(2, 3), ",32,"
Fill
Grid.AllowEdit = False
Grid.SetActiveCell 1, 1
Host.Key DeleteKey
Check "not without AllowEdit", Grid.CellText(1, 1), "11"
Host.Log "end"
