' A character outside the basic plane comes whole into the editor, and the sheet, which cannot hold it,
' refuses it with its box.
Dim events
Sub Grid_EndEdit(row, col, value, cancel)
    events = events & "end " & row & "," & col & "=" & value & ";"
End Sub
Const Box = "[Veynor Grid Control, 输入的数据非法!, 64, ok]"
Dim shown
Sub BoxSoon(what)
    Dim turn
    shown = ""
    For turn = 1 To 2400
        shown = shown & Lines(Host.Boxes)
        If shown <> "" Then Exit For
        Host.Pump 25
    Next
    Check what, shown, Box
End Sub

EvenSheet 20, 6
Grid.EnterGoDown = True
Grid.CellText(2, 2) = "old"
Host.Click MiddleX(2), MiddleY(2)
UserLetters "nihao"
UserKeys "space ctrl+shift+u"
UserLetters "20000"
UserKeys "space Return"
BoxSoon "a rare character is refused"
Check "no cell was moved to", Active(), "2,2"
Check "the cell keeps its text", Grid.CellText(2, 2) & events, "old"
' Whole: two steps back over its two units, and the text is good again.
UserKeys "BackSpace BackSpace Return"
CheckCellSoon "without it the rest is taken", 2, 2, "你好"
CheckActiveSoon "moved", "3,2"

UserKeys "ctrl+shift+u"
UserLetters "1f600"
UserKeys "space Return"
BoxSoon "an emoji alone is refused too"
Check "still there", Active(), "3,2"
UserKeys "BackSpace BackSpace"
UserLetters "nihao"
UserKeys "space Return"
CheckCellSoon "and typing goes on", 3, 2, "你好"
Host.Log "end"
