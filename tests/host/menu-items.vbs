' The menu as it comes: its items in their order, its sub-pop-up, its marks.
Const KeyUp = 38
Const KeyDown = 40
Const KeyRight = 39
Const KeyEnter = 13

Sub Keys(code, times)
    Dim turn
    For turn = 1 To times
        Host.Key code, 0
    Next
End Sub

MessagesWith "VeynorGrid_AskFor"
Host.RightClick 200, 100
Keys KeyDown, 4
Host.Key KeyEnter, 0
Check "the fourth is the border", MessagesWith("42301"), "[WM_COMMAND, 42301, 0]"

Grid.CellText(1, 1) = "甲"
Host.RightClick 200, 100
Keys KeyDown, 5
Host.Key KeyRight, 0
Host.Key KeyEnter, 0
Check "the first of the sub-pop-up inserts a row", Grid.CellText(2, 1), "甲"

' The last item toggles the flag of the active column: a fresh one reads 4.
Check "before", Grid.KeyColumnFlag(1), 4
Host.RightClick 200, 100
Host.Key KeyUp, 0
Host.Key KeyEnter, 0
Check "first", Grid.KeyColumnFlag(1), 0
Host.RightClick 200, 100
Host.Key KeyUp, 0
Host.Key KeyEnter, 0
Check "second", Grid.KeyColumnFlag(1), 1

Host.RightClick 200, 100
Keys KeyDown, 6
Host.Key KeyEnter, 0
Check "form mode on", Grid.GuiMode, True
Host.RightClick 200, 100
Keys KeyDown, 6
Host.Key KeyEnter, 0
Check "form mode off", Grid.GuiMode, False
Host.Log "end"
