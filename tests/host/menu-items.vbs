' The menu as it comes: its items in their order and its sub-pop-up.
Const KeyUp = 38
Const KeyDown = 40
Const KeyRight = 39
Const KeyEnter = 13
Const KeyF10 = 121

' By the keyboard, so that the menu is not under the mouse, which would choose as well.
Sub Open()
    Host.Key KeyF10, 1
End Sub
Sub Keys(code, times)
    Dim turn
    For turn = 1 To times
        Host.Key code, 0
    Next
End Sub

' What the sheet says as soon as it is the wanted, 20 s at most.
Function Soon(what, wanted)
    Dim turn
    For turn = 1 To 400
        If what = "text" Then Soon = Grid.CellText(2, 1)
        If what = "key" Then Soon = Grid.KeyColumnFlag(1)
        If what = "mode" Then Soon = Grid.GuiMode
        If CStr(Soon) = CStr(wanted) Then Exit Function
        Host.Pump 50
    Next
End Function

MessagesWith "VeynorGrid_AskFor"
Host.Click 300, 200
Grid.SetActiveCell 1, 1
Open
Keys KeyDown, 4
Host.Key KeyEnter, 0
Check "the fourth is the border", MessagesWith("42301"), "[WM_COMMAND, 42301, 0]"

Grid.CellText(1, 1) = "甲"
Open
Keys KeyDown, 5
Host.Key KeyRight, 0
Host.Key KeyEnter, 0
Check "the first of the sub-pop-up inserts a row", Soon("text", "甲"), "甲"

' The last item toggles the flag of the active column: a fresh one reads 4.
Check "before", Soon("key", 4), 4
Open
Host.Key KeyUp, 0
Host.Key KeyEnter, 0
Check "first", Soon("key", 0), 0
Open
Host.Key KeyUp, 0
Host.Key KeyEnter, 0
Check "second", Soon("key", 1), 1

Open
Keys KeyDown, 6
Host.Key KeyEnter, 0
Check "form mode on", Soon("mode", True), True
Open
Keys KeyDown, 6
Host.Key KeyEnter, 0
Check "form mode off", Soon("mode", False), False
Host.Log "end"
