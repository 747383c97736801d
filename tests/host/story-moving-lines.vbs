' The frame of whole rows and columns: what is seen of the drag, moves, copies, and where they are off.
Dim clean, line
' The colours across the upper border of a row and across the left border of a column, far from the
' pointer.
Function RowRim(row)
    Dim y
    For y = 20 + (row - 1) * 20 - 2 To 20 + (row - 1) * 20 + 1
        RowRim = RowRim & Hex(Host.Pixel(MiddleX(7), y)) & " " & _
            Hex(Host.Pixel(MiddleX(7) + 1, y)) & " "
    Next
End Function
Function ColRim(col)
    Dim x
    For x = 50 + (col - 1) * 60 - 2 To 50 + (col - 1) * 60 + 1
        ColRim = ColRim & Hex(Host.Pixel(x, MiddleY(12))) & " " & _
            Hex(Host.Pixel(x, MiddleY(12) + 1)) & " "
    Next
End Function
Function FirstHalf(text)
    FirstHalf = Left(text, Len(text) \ 2)
End Function
Function SecondHalf(text)
    SecondHalf = Mid(text, Len(text) \ 2 + 1)
End Function
' The texts of the first lines of a column and of a row.
Function Down(col)
    For line = 1 To 9
        Down = Down & Right("-" & Grid.CellText(line, col), 1)
    Next
End Function
Function Across(row)
    For line = 1 To 9
        Across = Across & Right("-" & Grid.CellText(row, line), 1)
    Next
End Function
' How many colours of the second text are others than in the first. Of two lines of dots, each has
' one among two pixels beside one another.
Function Changed(before, after)
    Dim old, now, at
    old = Split(before)
    now = Split(after)
    Changed = 0
    For at = 0 To UBound(old)
        If old(at) <> now(at) Then Changed = Changed + 1
    Next
End Function
EvenSheet 30, 12
' Sizes alone paint nothing.
Grid.ClearRange -1, -1, -1, -1, 0
For line = 1 To 9
    Grid.CellText(line, 8) = line
Next

Host.Click 10, MiddleY(3)
Host.Pump 0
clean = RowRim(5) & RowRim(8)
Host.Watch "WM_SETCURSOR"
Host.Press MiddleX(1), MiddleY(3) - 9
Host.Move MiddleX(1), MiddleY(5)
Told "a frame of rows that is dragged tells nothing", Array( _
    "cursor 30987", "grid WM_LBUTTONDOWN 80,61", "cursor 32512")
Check "it is drawn over the width of the sheet", Changed(FirstHalf(clean), RowRim(5)), 2
Host.Move MiddleX(1), MiddleY(8)
Check "it follows and leaves the picture as it was", RowRim(5), FirstHalf(clean)
Check "and is seen there", Changed(SecondHalf(clean), RowRim(8)), 2
Host.Release MiddleX(1), MiddleY(8), 2
Host.Pump 0
Told "Ctrl at the release", Array( _
    "grid WM_KEYDOWN 17", "KeyDown(17, 2)", "grid WM_LBUTTONUP 80,170", "CellsMove(0)", _
    "CellSelChanging(8, 1, 1)", "grid VeynorGrid_CellSelChange 8,1", "CellSelChanged", _
    "Modified", "MouseUp(1, 2, 80, 170)", "KeyUp(17, 0)")
Check "copies the row in front of the eighth", Down(8), "123456738"
Check "and the copy is selected", Selected() & Active(), "(8,0,8,0)8,1"
Host.Click MiddleX(2), MiddleY(2)
Host.Pump 0
Check "the frame is gone", RowRim(8), SecondHalf(clean)

Grid.ClearRange -1, -1, -1, -1, 0
For line = 1 To 9
    Grid.CellText(8, line) = line
Next
Host.Click MiddleX(3), 8
Host.Pump 0
clean = ColRim(5) & ColRim(8)
Host.Story
Host.Press 50 + 2 * 60 + 1, MiddleY(1)
Host.Move MiddleX(5), MiddleY(1)
Told "a frame of columns tells nothing", Array( _
    "cursor 30987", "grid WM_LBUTTONDOWN 171,30", "cursor 32512")
Check "it is drawn over the height of the sheet", Changed(FirstHalf(clean), ColRim(5)), 2
Host.Move MiddleX(8), MiddleY(1)
Check "it too leaves the picture as it was", ColRim(5), FirstHalf(clean)
Check "and is seen further on", Changed(SecondHalf(clean), ColRim(8)), 2
Host.Release MiddleX(8), MiddleY(1), 2
Host.Pump 0
Told "Ctrl at its release", Array( _
    "grid WM_KEYDOWN 17", "KeyDown(17, 2)", "grid WM_LBUTTONUP 500,30", "CellsMove(1)", _
    "CellSelChanging(1, 8, 1)", "grid VeynorGrid_CellSelChange 1,8", "CellSelChanged", _
    "Modified", "MouseUp(1, 2, 500, 30)", "KeyUp(17, 0)")
Check "copies the column in front of the eighth", Across(8), "123456738"
Check "which is selected now", Selected() & Active(), "(0,8,0,8)1,8"

' Where a flag is off, the press on the rim begins nothing: the cursors go on with what lies under
' the mouse, as they do while no button is down.
Grid.AllowMoveCol = False
Host.Pump 0
Host.Story
Host.Move 50 + 7 * 60 + 1, MiddleY(1)
Host.Press 50 + 7 * 60 + 1, MiddleY(1)
Host.Move 10, MiddleY(6)
Host.Move MiddleX(5), MiddleY(1)
Check "no frame is drawn", ColRim(5), FirstHalf(clean)
Host.Release MiddleX(5), MiddleY(1)
Told "columns without AllowMoveCol", Array( _
    "cursor 30987", "grid WM_LBUTTONDOWN 471,30", "cursor 1027", "cursor 32512", _
    "grid WM_LBUTTONUP 320,30", "MouseUp(1, 0, 320, 30)")
Check "stay", Across(8) & Selected() & Active(), "123456738(0,8,0,8)1,8"
Host.Click 10, MiddleY(8)
Grid.AllowMoveRow = False
Host.Pump 0
Host.Story
Host.Move MiddleX(1), MiddleY(8) - 9
Host.Press MiddleX(1), MiddleY(8) - 9
Host.Move 10, MiddleY(6)
Host.Release MiddleX(1), MiddleY(4)
Told "rows without AllowMoveRow", Array( _
    "cursor 30987", "grid WM_LBUTTONDOWN 80,161", "cursor 1027", "cursor 32512", _
    "grid WM_LBUTTONUP 80,90", "MouseUp(1, 0, 80, 90)")
Check "stay as well", Across(8) & Selected() & Active(), "123456738(8,0,8,0)8,8"
Host.Click MiddleX(2), MiddleY(8)
Grid.AllowMoveCell = False
Host.Pump 0
Host.Story
Host.Move 50 + 60 + 1, MiddleY(8)
Host.Press 50 + 60 + 1, MiddleY(8)
Host.Move 10, MiddleY(6)
Host.Release MiddleX(4), MiddleY(4)
Told "cells without AllowMoveCell", Array( _
    "cursor 30987", "grid WM_LBUTTONDOWN 111,170", "cursor 1027", "cursor 32512", _
    "grid WM_LBUTTONUP 260,90", "MouseUp(1, 0, 260, 90)")
Check "stay too", Across(8) & Selected() & Active(), "123456738(8,2,8,2)8,2"
Grid.AllowMoveCell = True
Grid.AllowMoveRow = True
Grid.AllowMoveCol = True

' The sheet ends at row 10 and column 9 here; the window goes on.
Grid.MaxRow = 10
Grid.MaxCol = 9
Grid.CellText(2, 2) = "a"
Grid.SetSelection 2, 2, 2, 2
Grid.SetActiveCell 2, 2
Host.Pump 0
Host.Story
Host.Press 50 + 60 + 1, MiddleY(2)
Host.Move 700, 400
Host.Release 700, 400
Host.Pump 0
Told "a drop outside of the sheet", Array( _
    "cursor 30987", "grid WM_LBUTTONDOWN 111,50", "cursor 32512", "grid WM_LBUTTONUP 700,400", _
    "CellsMove(2)", "CellSelChanging(10, 9, 1)", "grid VeynorGrid_CellSelChange 10,9", _
    "CellSelChanged", "Modified", "MouseUp(1, 0, 700, 400)")
Check "goes to its last cell", Grid.CellText(10, 9) & Grid.CellText(2, 2) & Selected() & Active(), _
    "a(10,9,10,9)10,9"
Grid.CellText(3, 2) = "b"
Grid.SetSelection 3, 2, 3, 2
Grid.SetActiveCell 3, 2
Host.Pump 0
Host.Story
Host.Press 50 + 60 + 1, MiddleY(3)
Host.Move 700, MiddleY(5)
Host.Release 700, MiddleY(5)
Check "beside it, to the end of the row", Grid.CellText(5, 9) & Active(), "b5,9"
Host.Pump 0
Host.Press 50 + 8 * 60 + 1, MiddleY(5)
Host.Move MiddleX(4), 400
Host.Release MiddleX(4), 400
Check "below it, to the end of the column", Grid.CellText(10, 4) & Active(), "b10,4"
Host.Click 10, MiddleY(4)
Grid.CellText(4, 6) = "c"
Host.Pump 0
Host.Press MiddleX(1), MiddleY(4) - 9
Host.Move MiddleX(1), 400
Host.Release MiddleX(1), 400
Check "a row below the sheet becomes its last", Grid.CellText(10, 6) & Grid.CellText(9, 4) & Selected(), _
    "cb(10,0,10,0)"
Host.Click MiddleX(4), 8
Grid.CellText(6, 4) = "d"
Host.Pump 0
Host.Press 50 + 3 * 60 + 1, MiddleY(1)
Host.Move 700, MiddleY(1)
Host.Release 700, MiddleY(1)
Check "and a column beside it the last column", Grid.CellText(6, 9) & Grid.CellText(9, 9) & Selected(), _
    "db(0,9,0,9)"
Host.Log "end"
