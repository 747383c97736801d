' Notepad, a program of the system's own in a process of its own, reads what the control copied and is
' read by it.
Function FocusedName()
    FocusedName = Outside("xdotool getwindowname $(xdotool getwindowfocus)")
End Function
Function IsNotepadUp()
    IsNotepadUp = InStr(Outside("xwininfo -root -tree"), """notepad.exe"" ""notepad.exe""") > 0
End Function
' Its window covers the host's and is larger: the click is beyond the host.
Sub OpenNotepad(file)
    Dim turn
    Outside "wine notepad " & file & " >notepad.log 2>&1 &"
    Outside "timeout 60 xdotool search --sync --onlyvisible --name " & file & " >windows.log"
    For turn = 1 To 600
        Outside "xdotool mousemove 300 640 click 1"
        If InStr(FocusedName(), file) > 0 Then Exit For
        Host.Pump 100
    Next
    Check "notepad has the keys", InStr(FocusedName(), file) > 0, True
End Sub
Sub CloseNotepad()
    Dim turn
    UserKeys "alt+F4"
    For turn = 1 To 600
        If Not IsNotepadUp() Then Exit For
        Host.Pump 100
    Next
    Check "notepad has gone", IsNotepadUp(), False
End Sub

Dim turn, wanted
Grid.MaxRow = 30
Grid.MaxCol = 6
Grid.CellText(1, 1) = "凭证 ~龘"
Grid.CellText(1, 2) = "{丙}"
Grid.CellText(2, 1) = "乗|"
Host.Press MiddleX(1), 30
Host.Move MiddleX(2), 50
Host.Release MiddleX(2), 50
Grid.EditCopy
Outside "printf '\357\273\277' >pasted.txt"
OpenNotepad "pasted.txt"
UserKeys "ctrl+v ctrl+s"
wanted = "A" & vbTab & "B" & vbCrLf & "凭证 ~龘" & vbTab & "{丙}" & vbCrLf & "乗|" & vbTab
For turn = 1 To 600
    If Host.File("pasted.txt").Text = wanted Then Exit For
    Host.Pump 100
Next
Check "notepad pasted and saved all of it", Host.File("pasted.txt").Text, wanted
CloseNotepad

Outside "printf '\357\273\277甲\t乙 龘\r\n丁\t~{}\r\n' >copied.txt"
OpenNotepad "copied.txt"
UserKeys "ctrl+a ctrl+c"
Grid.SetActiveCell 4, 1
For turn = 1 To 600
    Grid.EditPaste
    If Grid.CellText(5, 2) = "~{}" Then Exit For
    Host.Pump 100
Next
Check "what notepad copied is pasted", Grid.CellText(4, 1) & "|" & Grid.CellText(4, 2) & "|" & _
    Grid.CellText(5, 1) & "|" & Grid.CellText(5, 2), "甲|乙 龘|丁|~{}"
CloseNotepad
Host.Log "end"
