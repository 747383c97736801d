' Events arrive with their arguments; what a handler assigns goes back to the control.
Dim order, row, column
Sub Grid_CellSelChanging(newRow, newColumn, allow)
    order = order & "changing " & newRow & "," & newColumn & "," & allow & ";"
    If newRow = 9 Then allow = 0
End Sub
Sub Grid_CellSelChanged()
    order = order & "changed;"
End Sub
Grid.SetActiveCell 3, 2
Check "order and arguments", order, "changing 3,2,1;changed;"
Grid.SetActiveCell 9, 9
Grid.GetActiveCell row, column
Check "a refusal reaches the control", row & "," & column, "3,2"
Host.Log "end"
