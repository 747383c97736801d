' The frame of the selection moves and copies what it holds; the sheet scrolls by itself near an edge.
' From the left rim of the frame that begins at the cell, up to the release.
Sub TakeFrame(row, col, toRow, toCol)
    Host.Press 50 + (col - 1) * 60 + 1, MiddleY(row)
    Host.Move MiddleX(toCol), MiddleY(toRow)
End Sub
Sub DropFrame(toRow, toCol, mods)
    Host.Release MiddleX(toCol), MiddleY(toRow), mods
    Host.Pump 0
End Sub
' The colours along the upper border of a cell.
Function Rim(row, col)
    Dim x, y
    For y = 20 + (row - 1) * 20 - 1 To 20 + (row - 1) * 20 + 1
        For x = MiddleX(col) - 5 To MiddleX(col) + 5
            Rim = Rim & Hex(Host.Pixel(x, y)) & " "
        Next
    Next
End Function
Dim clean
EvenSheet 30, 30
Grid.CellText(2, 2) = "a"
Grid.CellText(3, 3) = "b"
Grid.SetSelection 2, 2, 3, 3
Grid.SetActiveCell 2, 2
Host.Pump 0
clean = Rim(6, 5)
Host.Watch
TakeFrame 2, 2, 6, 5
Told "a frame that is dragged tells nothing", Array("grid WM_LBUTTONDOWN 111,50")
Check "it is drawn where the block would go", Rim(6, 5) <> clean, True
Host.Move MiddleX(5), MiddleY(9)
Check "it follows", Rim(9, 5) <> clean, True
Check "and leaves the picture as it was", Rim(6, 5), clean
DropFrame 9, 5, 0
Told "its release moves the block", Array( _
    "grid WM_LBUTTONUP 320,190", "CellsMove(2)", "CellSelChanging(9, 5, 1)", _
    "grid VeynorGrid_CellSelChange 9,5", "CellSelChanged", "Modified", "MouseUp(1, 0, 320, 190)")
Check "the frame is gone", Rim(12, 8), clean
Check "moved", Grid.CellText(9, 5) & Grid.CellText(10, 6) & Grid.CellText(2, 2), "ab"
Check "selected where it is", Selected() & Active(), "(9,5,10,6)9,5"
TakeFrame 9, 5, 12, 2
DropFrame 12, 2, 2
Told "Ctrl at the release copies", Array( _
    "grid WM_LBUTTONDOWN 291,190", "grid WM_KEYDOWN 17", "KeyDown(17, 2)", _
    "grid WM_LBUTTONUP 140,250", "CellsMove(2)", "CellSelChanging(12, 2, 1)", _
    "grid VeynorGrid_CellSelChange 12,2", "CellSelChanged", "Modified", "MouseUp(1, 2, 140, 250)", _
    "KeyUp(17, 0)")
Check "copied", Grid.CellText(12, 2) & Grid.CellText(9, 5), "aa"
TakeFrame 12, 2, 12, 2
DropFrame 12, 2, 0
Told "onto itself", Array( _
    "grid WM_LBUTTONDOWN 111,250", "grid WM_LBUTTONUP 140,250", "CellsMove(2)", _
    "CellSelChanging(12, 2, 1)", "grid VeynorGrid_CellSelChange 12,2", "CellSelChanged", _
    "Modified", "MouseUp(1, 0, 140, 250)")
Check "nothing is lost", Grid.CellText(12, 2), "a"
Grid.AllowMoveCell = False
Host.Story
TakeFrame 12, 2, 4, 4
DropFrame 4, 4, 0
Told "without AllowMoveCell", Array( _
    "grid WM_LBUTTONDOWN 111,250", "grid WM_LBUTTONUP 260,90", "MouseUp(1, 0, 260, 90)")
Check "nothing moves", Grid.CellText(12, 2), "a"
Grid.AllowMoveCell = True

Host.Click 10, MiddleY(12)
Host.Pump 0
Host.Story
Host.Press MiddleX(1), MiddleY(12) - 9
Host.Move MiddleX(1), MiddleY(4)
DropFrame 4, 1, 0
Told "a row", Array( _
    "grid WM_LBUTTONDOWN 80,241", "grid WM_LBUTTONUP 80,90", "CellsMove(0)", _
    "CellSelChanging(4, 1, 1)", "grid VeynorGrid_CellSelChange 4,1", "CellSelChanged", "Modified", _
    "MouseUp(1, 0, 80, 90)")
Check "moves", Grid.CellText(4, 2) & Selected(), "a(4,0,4,0)"
Host.Click MiddleX(2), 8
Host.Pump 0
Host.Story
Host.Press 50 + 60 + 1, MiddleY(1)
Host.Move MiddleX(6), MiddleY(1)
DropFrame 1, 6, 0
Told "a column", Array( _
    "grid WM_LBUTTONDOWN 111,30", "grid WM_LBUTTONUP 380,30", "CellsMove(1)", _
    "CellSelChanging(1, 6, 1)", "grid VeynorGrid_CellSelChange 1,6", "CellSelChanged", "Modified", _
    "MouseUp(1, 0, 380, 30)")
Check "moves", Grid.CellText(4, 6) & Selected(), "a(0,6,0,6)"

' The sheet scrolls to the right and back, a column at a time, at most every fifth of a second.
Function ScrollAt(x)
    Dim turn, got
    For turn = 1 To 800
        Host.Move x + turn Mod 2, MiddleY(6)
        got = Lines(Host.Story)
        ScrollAt = got
        If got <> "" Then Exit Function
        Host.Pump 25
    Next
End Function
Host.Click MiddleX(5), MiddleY(6)
Host.Pump 0
Host.Press 50 + 4 * 60 + 1, MiddleY(6)
Host.Story
Check "at the right edge", ScrollAt(775), "[grid WM_HSCROLL 1]"
Check "once more", ScrollAt(775), "[grid WM_HSCROLL 1]"
Check "at the row headers", ScrollAt(55), "[grid WM_HSCROLL 0]"
Host.Release 600, MiddleY(6)
Host.Log "end"
