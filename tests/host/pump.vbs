' Host.Pump runs messages that long.
Dim start, took, seen
Sub Grid_MouseMove(button, shift, x, y)
    seen = seen + 1
End Sub
start = Timer
Host.Pump 300
took = Timer - start
If took < 0 Then took = took + 86400
Check "not shorter", took >= 0.29, True
Check "not much longer", took < 20, True
Grid.SendCommand 33005
Host.Pump 0
Check "posted messages arrive", InStr(Lines(Host.Messages), "[WM_COMMAND, 33005, 0]") > 0, True
Host.Log "end"
