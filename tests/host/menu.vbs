' The menu of a right click, picked from by its letters, and the road of the host's items.
Const KeyEscape = 27

Sub Pick(letter)
    Host.RightClick 200, 100
    Host.Key Asc(letter), 0
End Sub

MessagesWith "VeynorGrid_AskFor"
Grid.RemoveAllMenuItem
Grid.AppendMenuItem 33001, "审核凭证(&A)"
Grid.AppendMenuItem 1000, "not shown"
Grid.AppendMenuItem 50000, "过账(&G)"
Grid.AppendMenuItem 1004, "插入行(&I)"
Grid.AppendMenuItem 50001, "无(&N)"
Grid.AppendMenuItem 1002, "边框(&B)"
Pick "A"
Check "an item of the host", MessagesWith("33001"), "[WM_COMMAND, 33001, 0]"
Pick "G"
Check "50000 reaches the host", MessagesWith("50000"), "[WM_COMMAND, 50000, 0]"
Pick "I"
Grid.SendCommand 33004
Check "no message of a command of the control", MessagesWith("33004"), "[WM_COMMAND, 33004, 0]"
Check "which ran", Grid.MaxRow, 51
Pick "N"
Pick "B"
Check "50001 goes nowhere, the border is the host's", MessagesWith("42301"), "[WM_COMMAND, 42301, 0]"
Host.RightClick 200, 100
Host.Key KeyEscape, 0
Grid.SendCommand 33000
Check "left without a pick", MessagesWith("33000"), "[WM_COMMAND, 33000, 0]"

' Nothing opens while the menu is off.
Grid.AllowPopMenu = False
Pick "A"
Grid.SendCommand 33002
Check "the menu is off", MessagesWith("33002"), "[WM_COMMAND, 33002, 0]"
Grid.AllowPopMenu = True

' An empty menu can be shown.
Grid.RemoveAllMenuItem
Host.RightClick 200, 100
Host.Key KeyEscape, 0
Grid.AppendMenuItem 33003, "(&X)"
Pick "X"
Check "after an empty menu", MessagesWith("33003"), "[WM_COMMAND, 33003, 0]"
Host.Log "end"
