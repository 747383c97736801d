' In RowMode a click with Alt ticks its row, and a second one takes the tick away.
' The colours in the row's header, off its borders.
Function Strip(row)
    Dim x, y
    For y = MiddleY(row) - 6 To MiddleY(row) + 6 Step 3
        For x = 13 To 37
            Strip = Strip & Hex(Host.Pixel(x, y)) & " "
        Next
    Next
End Function
Dim plain, ticked
EvenSheet 30, 12
Grid.RowMode = True
Host.Click MiddleX(2), MiddleY(2)
Host.Pump 0
plain = Strip(7)
Check "two rows without a tick look alike", Strip(8), plain
Host.Watch

Host.Click MiddleX(3), MiddleY(7), 4
Host.Pump 0
Told "a click with Alt moves no cell", Array( _
    "KeyDown(18, 4)", "grid WM_LBUTTONDOWN 200,150", "grid WM_LBUTTONUP 200,150", _
    "MouseUp(1, 4, 200, 150)", "KeyUp(18, 0)")
ticked = Strip(7)
Check "the tick is there", ticked <> plain, True
Check "in this row alone", Strip(8), plain
Check "the active cell stays, nothing is selected", Active() & Selected(), "2,2(2,2,2,2)"
Host.Click MiddleX(5), MiddleY(8), 4
Host.Pump 0
Check "another row has the same one", Strip(8), ticked
Check "beside it", Strip(7), ticked
Host.Story
Host.Click MiddleX(6), MiddleY(7), 4
Host.Pump 0
Told "a second click with Alt is told like the first", Array( _
    "KeyDown(18, 4)", "grid WM_LBUTTONDOWN 380,150", "grid WM_LBUTTONUP 380,150", _
    "MouseUp(1, 4, 380, 150)", "KeyUp(18, 0)")
Check "it takes the tick away", Strip(7), plain
Check "but not the other", Strip(8), ticked
Check "and moves nothing", Active() & Selected(), "2,2(2,2,2,2)"
Host.Click MiddleX(3), MiddleY(5)
Host.Pump 0
Check "a click without Alt ticks nothing", Strip(6) & Active(), plain & "5,3"
Check "and leaves the ticks", Strip(8), ticked
Grid.RowMode = False
Host.Pump 0
Host.Story
Host.Click MiddleX(3), MiddleY(9), 4
Host.Pump 0
Told "without RowMode Alt makes no difference", Array( _
    "KeyDown(18, 4)", "grid WM_LBUTTONDOWN 200,190", "CellSelChanging(9, 3, 1)", _
    "grid VeynorGrid_CellSelChange 9,3", "CellSelChanged", "grid WM_LBUTTONUP 200,190", _
    "MouseUp(1, 4, 200, 190)", "KeyUp(18, 0)")
Host.Log "end"
