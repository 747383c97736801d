' Where the application shows the composition, its letters stand in the cell that it is for.
Function IsPlain(row, col)
    Dim x
    IsPlain = True
    For x = MiddleX(col) - 24 To MiddleX(col) - 6 Step 6
        If Host.Pixel(x, 20 + row * 18 - 9) <> RGB(255, 255, 255) Then IsPlain = False
    Next
End Function
Dim showsInCell, turn
showsInCell = InStr(Outside("printf ""$VEYHOST_STYLE"""), "onthespot") = 1

' The sheet of a new control: rows of 18, columns of 60 pixels.
Grid.EnterGoDown = True
Host.Click MiddleX(3), 20 + 5 * 18 - 9
Check "an empty cell", IsPlain(5, 3), True
UserLetters "nihao"
If showsInCell Then
    For turn = 1 To 600
        If Not IsPlain(5, 3) Then Exit For
        Host.Pump 100
    Next
    Check "letters", IsPlain(5, 3), False
    Check "in no cell beside it", IsPlain(5, 2) And IsPlain(5, 4) And IsPlain(4, 3) And IsPlain(6, 3), True
End If
UserKeys "space Return"
CheckActiveSoon "committed", "6,3"
Check "the text", Grid.CellText(5, 3), "你好"
Host.Log "end"
