' The object Grid is the control itself.
Dim row, column
Grid.CellText(2, 3) = "甲 |~"
Check "indexed property", Grid.CellText(2, 3), "甲 |~"
Grid.SetActiveCell 4, 5
Grid.GetActiveCell row, column
Check "results through arguments", row & "," & column, "4,5"
Check "names in any case", Grid.maxrow, 50
On Error Resume Next
Grid.NoSuchMember
Check "no such member", Err.Number, 438
Host.Log "end"
