' What the control copies, a program outside of Wine reads whole, under every code page.
Function Outsiders()
    Outsiders = Outside("timeout 60 xclip -o -selection clipboard -t UTF8_STRING")
End Function
' The system takes over what is copied in its own time.
Sub CheckOutsiders(what, wanted)
    Dim turn
    For turn = 1 To 300
        If Outsiders() = wanted Then Exit For
        Host.Pump 100
    Next
    Check what, Outsiders(), wanted
End Sub

Grid.MaxRow = 50000
Grid.MaxCol = 6
Grid.CellText(1, 1) = "凭证"
Grid.CellText(1, 2) = "~|\ {乗} 龘"
Grid.CellText(2, 1) = "a"
Grid.SetActiveCell 1, 1
Grid.EditCopy
CheckOutsiders "a cell alone", "凭证"
Host.Press MiddleX(1), 30
Host.Move MiddleX(2), 50
Host.Release MiddleX(2), 50
Check "selected", Selected(), "(1,1,2,2)"
Grid.EditCopy
CheckOutsiders "a range has its header, tabs and line ends", _
    "A" & vbTab & "B" & vbLf & "凭证" & vbTab & "~|\ {乗} 龘" & vbLf & "a" & vbTab
Grid.CellText(2, 2) = "菜单"
Grid.SendCommand 1008
CheckOutsiders "the menu's command copies the same", _
    "A" & vbTab & "B" & vbLf & "凭证" & vbTab & "~|\ {乗} 龘" & vbLf & "a" & vbTab & "菜单"
Grid.SendCommand 1009
Check "the menu's cut clears", Grid.CellText(1, 1) & Grid.CellText(2, 2), ""
CheckOutsiders "and what it cut is there", _
    "A" & vbTab & "B" & vbLf & "凭证" & vbTab & "~|\ {乗} 龘" & vbLf & "a" & vbTab & "菜单"

' The editor has the system's own keys.
Host.Click MiddleX(3), 30
Grid.CellText(1, 3) = "编辑中的字"
Grid.StartEdit
Host.Key 36
Host.Key 35, 1
Host.Key 67, 2
CheckOutsiders "Ctrl+C in the editor", "编辑中的字"
Host.Key 88, 2
Host.Key 13
Check "Ctrl+X in the editor", Grid.CellText(1, 3), ""

' A megabyte.
Dim row
For row = 1 To 40000
    Grid.CellText(row, 1) = "第" & row & "行的文字在这里"
Next
Host.Click MiddleX(1), 10
Grid.EditCopy
CheckOutsiders "a megabyte", Replace(Grid.GetRangeText(1, 1, 40000, 1), vbCrLf, vbLf)
Check "which it is", CLng(Outside("xclip -o -selection clipboard -t UTF8_STRING | wc -c")) > 1048576, True
Host.Log "end"
