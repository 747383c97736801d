' A typed value goes the whole road: the first key opens the editor and replaces the text, Enter takes
' the focus from it, the commit checks and stores, and the active cell moves.
Dim events, cancelNext
Sub Grid_StartingEdit(row, col, allow)
    events = events & "starting " & row & "," & col & ";"
End Sub
Sub Grid_EndEdit(row, col, value, cancel)
    events = events & "end " & row & "," & col & "=" & value & ";"
    If cancelNext Then cancel = 1
    cancelNext = False
End Sub
Sub Grid_CellSelChanging(row, col, allow)
    events = events & "changing " & row & "," & col & ";"
End Sub
Sub Grid_CellSelChanged()
    events = events & "changed;"
End Sub
Function Taken()
    Taken = events
    events = ""
End Function

Grid.MaxRow = 20
Grid.MaxCol = 6
Grid.EnterGoDown = True
Grid.CellText(2, 2) = "old"
Grid.SetActiveCell 2, 2
Taken
Host.TypeText "n"
Check "the first key opens", Taken(), "starting 2,2;"
Check "the cell keeps its text meanwhile", Grid.CellText(2, 2), "old"
Host.TypeText "ew 中文~"
Host.Key 13
Check "Enter commits, then moves", Taken(), "end 2,2=new 中文~;changing 3,2;changed;"
Check "stored", Grid.CellText(2, 2), "new 中文~"
Check "moved down", Active(), "3,2"
Grid.EnterGoDown = False
Host.TypeText "a"
Host.Key 13
Check "moved right", Active(), "3,3"
Host.TypeText "b"
Host.Key 9
Check "Tab moves right", Active(), "3,4"
Check "Tab committed", Grid.CellText(3, 3), "b"
Taken

Host.TypeText "one"
Host.Key 13, 2
Host.TypeText "two"
Host.Key 9, 2
Host.TypeText "x"
Check "Ctrl+Enter and Ctrl+Tab stay in the editor", Taken(), "starting 3,4;"
Host.Key 13
Check "a new line and a tab in the cell", Grid.CellText(3, 4), "one" & vbCrLf & "two" & Chr(9) & "x"
Taken

Grid.SetActiveCell 2, 2
Taken
Check "EndEdit without an edit", Grid.EndEdit(), 1
Check "StartEdit", Grid.StartEdit(), 1
Check "EndEdit", Grid.EndEdit(), 1
Check "an untouched text is not checked", Taken(), "starting 2,2;"
Grid.ResetModifiedLog
Grid.ModifiedLog = 3
Grid.StartEdit
Host.Key 36
Host.Key 46
Check "Delete does not reach the editor, it clears the cell", Grid.CellText(2, 2), ""
Check "the editor is still open", Grid.EndEdit(), 1
Grid.CellText(2, 2) = "same"
Grid.StartEdit
Host.TypeText "s"
Host.Key 8
Host.Click 400, 300
Check "a retyped text counts as a change", Left(Taken(), 44), _
    "starting 2,2;starting 2,2;end 2,2=same;chang"
Check "and is logged", Grid.GetFirstModifiedLogPos() <> 0, True

Grid.AllowEdit = False
Host.TypeText "q"
Check "AllowEdit off: no edit on a key", Taken(), ""
Check "the text is not touched", Grid.CellText(2, 2), "same"
Check "AllowEdit off: the method opens", Grid.StartEdit(), 1
Grid.EndEdit
Host.Log "end"
