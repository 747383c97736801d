' The menu of a right click, picked from by keys, and the road of the host's items.
' Arrow keys as the menu takes them.
Const KeyDown = 40
Const KeyRight = 39
Const KeyEnter = 13
Const KeyEscape = 27

Sub Pick(times)
    Dim turn
    Host.RightClick 200, 100
    For turn = 1 To times
        Host.Key KeyDown, 0
    Next
    Host.Key KeyEnter, 0
End Sub

' A host's own menu: a separator is passed over by the keys.
Grid.RemoveAllMenuItem
Grid.AppendMenuItem 33001, "审核凭证"
Grid.AppendMenuItem 1000, "not shown"
Grid.AppendMenuItem 50000, "过账(&G)"
Grid.AppendMenuItem 1004, "插入行"
Grid.AppendMenuItem 50001, "无"
Grid.AppendMenuItem 1002, "边框"
MessagesWith "VeynorGrid_AskFor"
Pick 1
Check "the first item", MessagesWith("33001"), "[WM_COMMAND, 33001, 0]"
Pick 2
Check "50000 reaches the host", MessagesWith("50000"), "[WM_COMMAND, 50000, 0]"
Host.RightClick 200, 100
Host.Key 71, 0
Check "by its letter", MessagesWith("50000"), "[WM_COMMAND, 50000, 0]"
Pick 3
Check "a command of the control", Grid.MaxRow, 51
Pick 4
Pick 5
Check "50001 goes nowhere, the border is the host's", MessagesWith("42301"), "[WM_COMMAND, 42301, 0]"
Host.RightClick 200, 100
Host.Key KeyEscape, 0
Grid.SendCommand 33000
Check "left without a pick", MessagesWith("33000"), "[WM_COMMAND, 33000, 0]"

' Nothing opens while the menu is off, so the keys are those of the sheet.
Grid.AllowPopMenu = False
Pick 1
Grid.SendCommand 33002
Check "the menu is off", MessagesWith("33002"), "[WM_COMMAND, 33002, 0]"
Grid.AllowPopMenu = True

' An empty menu can be shown.
Grid.RemoveAllMenuItem
Host.RightClick 200, 100
Host.Key KeyEscape, 0
Grid.AppendMenuItem 33003, "x"
Pick 1
Check "after an empty menu", MessagesWith("33003"), "[WM_COMMAND, 33003, 0]"
Host.Log "end"
