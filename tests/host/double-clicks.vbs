' A double click opens the editor with the caret where the click was, or asks for the text of a header.
Dim events, vetoes
Sub Grid_DblClick()
    events = events & "double;"
End Sub
Sub Grid_StartingEdit(row, col, allow)
    events = events & "starting " & row & "," & col & ";"
    If vetoes Then allow = 0
End Sub
Sub Grid_BeginLabelEdit(kind, index, cancel)
    events = events & "label " & kind & "," & index & ";"
    cancel = True
End Sub
Function Taken()
    Taken = events
    events = ""
End Function
Dim format
EvenSheet 20, 10
Grid.CellText(3, 2) = "iiiiii"
Host.Pump 0
Host.DoubleClick 50 + 60 + 2, MiddleY(3)
Check "opens", Taken(), "double;starting 3,2;"
Host.TypeText "A"
Grid.EndEdit
Check "with the caret at the click", Grid.CellText(3, 2), "Aiiiiii"
Host.DoubleClick 50 + 120 - 8, MiddleY(3)
Host.TypeText "Z"
Grid.EndEdit
Check "or behind the text", Grid.CellText(3, 2), "AiiiiiiZ"
Taken

Set format = Grid.CellFormat(5, 2)
format.ReadOnly = True
Grid.CellFormat(5, 2) = format
Host.DoubleClick MiddleX(2), MiddleY(5)
Check "not on a read-only cell", Taken(), "double;"
vetoes = True
Host.DoubleClick MiddleX(3), MiddleY(5)
Check "nor against the host", Taken(), "double;starting 5,3;"
vetoes = False
Grid.AllowEdit = False
Host.DoubleClick MiddleX(3), MiddleY(6)
Check "nor without AllowEdit", Taken(), "double;"

Host.DoubleClick 10, MiddleY(4)
Check "a row header", Taken(), "double;label 0,4;"
Host.DoubleClick MiddleX(3), 8
Check "a column header", Taken(), "double;label 1,3;"
Host.DoubleClick 10, 8
Check "the corner", Taken(), "double;"
Host.Log "end"
