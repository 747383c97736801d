' Keys go to the control that was clicked last.
Dim keys, second
Sub Grid_KeyDown(code, shift)
    keys = keys & "first " & code & ";"
End Sub
Sub Grid2_KeyDown(code, shift)
    keys = keys & "second " & code & ";"
End Sub
Sub Grid2_MouseDown(button, shift, x, y)
    keys = keys & "at " & x & "," & y & ";"
End Sub
Set second = Host.NewControl()
second.GuiMode = True
Host.Click 500, 50, 0
Host.Key 113, 0
Check "the second", keys, "at 100,50;second 113;"
keys = ""
Host.Click 50, 50, 0
Host.Key 113, 0
Check "the first", keys, "first 113;"
Host.Log "end"
