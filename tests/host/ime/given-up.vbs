' A composition that Esc gives up leaves everything as it was, on the sheet and in the editor.
Dim events
Sub Grid_StartingEdit(row, col, allow)
    events = events & "starting " & row & "," & col & ";"
End Sub
Sub Grid_EndEdit(row, col, value, cancel)
    events = events & "end " & row & "," & col & "=" & value & ";"
End Sub

EvenSheet 20, 6
Grid.EnterGoDown = True
Grid.CellText(2, 2) = "old 中"
Grid.CellText(3, 2) = "edited"
Grid.CellText(4, 2) = "replaced"
Host.Click MiddleX(2), MiddleY(2)
UserLetters "nihao"
UserKeys "Escape Return"
CheckActiveSoon "the Enter behind it moves", "3,2"
Check "the text stands", Grid.CellText(2, 2), "old 中"
Check "nothing was changed", InStr(events, "end"), 0

Grid.StartEdit
UserKeys "End"
UserLetters "nihao"
UserKeys "Escape Return"
CheckActiveSoon "so in the editor", "4,2"
Check "its text stands", Grid.CellText(3, 2), "edited"
Check "and is not a changed one", InStr(events, "end"), 0

UserLetters "nihao"
UserKeys "Escape"
UserLetters "zhongguo"
UserKeys "space Return"
CheckActiveSoon "the next composition", "5,2"
Check "replaces the text", Grid.CellText(4, 2), "中国"
Check "with one commit", Mid(events, InStr(events, "end")), "end 4,2=中国;"

UserLetters "nihao"
UserKeys "space"
UserLetters "shijie"
UserKeys "Escape Return"
CheckActiveSoon "only what is given up goes", "6,2"
Check "what came before it stays", Grid.CellText(5, 2), "你好"
Host.Log "end"
