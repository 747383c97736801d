' Compositions while the editor is open, also where every movement opens it.
Dim events
Sub Grid_StartingEdit(row, col, allow)
    events = events & "starting " & row & "," & col & ";"
End Sub
Sub Grid_EndEdit(row, col, value, cancel)
    events = events & "end " & row & "," & col & "=" & value & ";"
End Sub
Function Taken()
    Taken = events
    events = ""
End Function

EvenSheet 20, 6
Grid.EnterGoDown = True
Grid.CellText(2, 2) = "ab"
Grid.SetActiveCell 2, 2
Host.DoubleClick MiddleX(2) + 25, MiddleY(2)
UserLetters "nihao"
UserKeys "space Home Right"
UserLetters "zhongguo"
UserKeys "space Return"
CheckCellSoon "the characters come in at the caret", 2, 2, "a中国b你好"
CheckActiveSoon "moved", "3,2"
Check "one edit", Taken(), "starting 2,2;end 2,2=a中国b你好;"

Grid.CellText(4, 2) = "old"
Grid.AlwaysOnEdit = True
Host.Click MiddleX(2), MiddleY(3)
UserLetters "nihao"
UserKeys "space Return End"
CheckActiveSoon "moved to the next open editor", "4,2"
UserLetters "zhongguo"
UserKeys "space Return"
CheckActiveSoon "and on", "5,2"
Check "AlwaysOnEdit: into the cell", Grid.CellText(3, 2), "你好"
Check "AlwaysOnEdit: behind the text", Grid.CellText(4, 2), "old中国"
Check "each opened once", Taken(), "starting 3,2;end 3,2=你好;starting 4,2;end 4,2=old中国;starting 5,2;"
UserLetters "nihao"
UserKeys "Escape Return"
CheckActiveSoon "AlwaysOnEdit: Esc, then Enter", "6,2"
Check "nothing was changed", Grid.CellText(5, 2) & Taken(), "starting 6,2;"
Host.Log "end"
