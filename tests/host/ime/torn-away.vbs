' A press elsewhere in the middle of a composition. Where the editor shows the letters, they become its
' text; where the input method shows them in a window of its own, they stay there and come with it.
Dim starts, ends
Sub Grid_StartingEdit(row, col, allow)
    starts = starts & "starting " & row & "," & col & ";"
End Sub
Sub Grid_EndEdit(row, col, value, cancel)
    ends = ends & "end " & row & "," & col & ";"
End Sub
Dim showsInCell, turn
showsInCell = InStr(Outside("printf ""$VEYHOST_STYLE"""), "onthespot") = 1

EvenSheet 20, 6
Grid.EnterGoDown = True
Grid.CellText(2, 2) = "old"
Host.Click MiddleX(2), MiddleY(2)
UserLetters "nihao"
For turn = 1 To 2400
    If Not showsInCell Or starts <> "" Then Exit For
    Host.Pump 25
Next
Host.Click MiddleX(3), MiddleY(6)
Check "the press is taken", Active(), "6,3"
If showsInCell Then
    Check "the letters are the text", Left(Grid.CellText(2, 2), 1) & ends, "nend 2,2;"
Else
    Check "the cell is untouched", Grid.CellText(2, 2) & ends, "old"
End If
UserLetters "zhongguo"
UserKeys "space Return"
CheckActiveSoon "the next composition", "7,3"
Check "stands in its cell", Right(Grid.CellText(6, 3), 2), "中国"
Host.Log "end"
