' The mouse reaches the control at its client pixels. Over a form the control raises the stock events;
' over the sheet a press raises none.
Dim seen
Sub Grid_MouseDown(button, shift, x, y)
    seen = seen & "down " & button & "/" & shift & " " & x & "," & y & ";"
End Sub
Sub Grid_MouseUp(button, shift, x, y)
    seen = seen & "up " & button & "/" & shift & " " & x & "," & y & ";"
End Sub
Sub Grid_DblClick()
    seen = seen & "double;"
End Sub
Function Taken()
    Taken = seen
    seen = ""
End Function

Host.Click 300, 200, 0
Check "no press of the sheet is told", Taken(), "up 1/0 300,200;"
Grid.GuiMode = True
Host.Click 300, 200, 0
Check "click", Taken(), "down 1/0 300,200;up 1/0 300,200;"
Host.Click 300, 200, 1
Check "click again with Shift, no double click", Taken(), "down 1/1 300,200;up 1/1 300,200;"
Host.Click 301, 200, 2
Check "with Ctrl", Taken(), "down 1/2 301,200;up 1/2 301,200;"
Host.DoubleClick 120, 130, 0
Check "double click", InStr(Taken(), "double;") > 0, True
Host.RightClick 310, 210
Check "right click", InStr(Taken(), "down 2/0 310,210;") > 0, True
Host.Key 27, 0
seen = ""
Host.Press 320, 220, 2
Check "press", Taken(), "down 1/2 320,220;"
Host.Move 340, 240
Check "still pressed", Taken(), ""
Host.Release 330, 230, 2
Check "release", Taken(), "up 1/2 330,230;"
Host.Log "end"
