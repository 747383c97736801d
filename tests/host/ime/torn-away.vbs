' A press elsewhere in the middle of a composition. Where the editor shows the letters, they become its
' text; where the input method shows them in a window of its own, they stay there and come with it.
Dim events
Sub Grid_EndEdit(row, col, value, cancel)
    events = events & "end " & row & "," & col & "=" & value & ";"
End Sub
Sub EventsSoon(wanted)
    Dim turn
    For turn = 1 To 2400
        If events = wanted Then Exit For
        Host.Pump 25
    Next
    Check "events", events, wanted
End Sub
Dim style
style = Trim(Outside("printf %s ""$VEYHOST_STYLE"""))

EvenSheet 20, 6
Grid.EnterGoDown = True
Grid.CellText(2, 2) = "old"
Host.Click MiddleX(2), MiddleY(2)
Letters "nihao"
' The input method works through its keys in their order.
Host.Pump 1000
Host.Click MiddleX(3), MiddleY(6)
Check "the press is taken", Active(), "6,3"
Host.Log style & " events " & events & " cells " & Grid.CellText(2, 2)
Letters "zhongguo"
Keys "space Return"
CheckActiveSoon "and the next composition stands in its cell", "7,3"
Host.Log "events " & events & " cells " & Grid.CellText(2, 2) & "|" & Grid.CellText(6, 3)
Host.Log "end"
