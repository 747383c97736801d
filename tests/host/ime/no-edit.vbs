' Where nothing may be typed, an input method changes nothing.
Dim events
Sub Grid_StartingEdit(row, col, allow)
    events = events & "starting;"
    allow = 0
End Sub
Sub Grid_EndEdit(row, col, value, cancel)
    events = events & "end;"
End Sub

EvenSheet 20, 6
Grid.EnterGoDown = True
Grid.CellText(2, 2) = "old"
Grid.CellText(3, 2) = "kept"
Grid.CellText(4, 2) = "read-only"
Dim locked
Set locked = Grid.CellFormat(4, 2)
locked.ReadOnly = True
Grid.CellFormat(4, 2) = locked
Grid.AllowEdit = False
Host.Click MiddleX(2), MiddleY(2)
UserLetters "nihao"
UserKeys "space comma Return"
CheckActiveSoon "AllowEdit off: Enter moves", "3,2"
Check "AllowEdit off: no edit", Grid.CellText(2, 2) & events, "old"
Grid.AllowEdit = True
UserLetters "nihao"
UserKeys "space Return"
CheckActiveSoon "a veto: Enter moves", "4,2"
Check "a veto was asked for", InStr(events, "starting;") > 0, True
Check "a veto: no edit", Grid.CellText(3, 2) & InStr(events, "end"), "kept0"
events = ""
UserLetters "nihao"
UserKeys "space Return"
CheckActiveSoon "a read-only cell: Enter moves", "5,2"
Check "a read-only cell: no edit", Grid.CellText(4, 2) & events, "read-only"
Host.Log "end"
