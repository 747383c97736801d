' Delete works by the first of what is selected, with no question.
Const DeleteKey = 46
Sub Fill()
    Dim row, col
    Grid.ClearRange -1, -1, -1, -1, 0
    For row = 1 To 6
        For col = 1 To 6
            Grid.CellText(row, col) = row & col
        Next
    Next
    Host.Pump 0
    Host.Story
End Sub
' The texts of the first rows.
Function Texts()
    Dim row, col
    For row = 1 To 6
        For col = 1 To 6
            Texts = Texts & Right("--" & Grid.CellText(row, col), 2) & " "
        Next
        Texts = Texts & "/"
    Next
End Function
Dim plain, red
EvenSheet 50, 8
Host.Pump 0
Host.Watch

Fill
Grid.SetActiveCell 2, 2
Host.Story
Host.Key DeleteKey
Told "the active cell", Array("Modified", "KeyUp(46, 0)")
Check "is cleared alone", Left(Texts(), 25), "11 12 13 14 15 16 /21 -- "
Fill
Host.Press MiddleX(2), MiddleY(1)
Host.Move MiddleX(3), MiddleY(4)
Host.Release MiddleX(3), MiddleY(4)
Host.Story
Host.Key DeleteKey
Told "a tall block", Array("Modified", "KeyUp(46, 0)")
Check "is cleared across", Texts(), "11 -- -- -- 15 16 /21 -- -- -- 25 26 /31 -- -- -- 35 36 /41 42 43 44 45 46 /51 52 53 54 55 56 /61 62 63 64 65 66 /"
Fill
Host.Click 10, MiddleY(2)
Host.Story
Host.Key DeleteKey
Told "a row", Array("Modified", "KeyUp(46, 0)")
Check "goes from the sheet", Texts(), "11 12 13 14 15 16 /31 32 33 34 35 36 /41 42 43 44 45 46 /51 52 53 54 55 56 /61 62 63 64 65 66 /-- -- -- -- -- -- /"
Fill
Host.Click MiddleX(3), 8
Host.Story
Host.Key DeleteKey
Told "a column", Array("Modified", "KeyUp(46, 0)")
Check "goes too", Texts(), "11 12 14 15 16 -- /21 22 24 25 26 -- /31 32 34 35 36 -- /41 42 44 45 46 -- /51 52 54 55 56 -- /61 62 64 65 66 -- /"
Fill
Grid.MaxRow = 40
Grid.MaxCol = 7
Set plain = Grid.CellFormat(4, 4)
Set red = Grid.CellFormat(4, 4)
red.Background = RGB(255, 0, 0)
red.ReadOnly = True
Grid.CellFormat(3, 3) = red
Host.Click 10, 8
Host.Pump 0
Check "a cell of its own format", Grid.CellFormat(3, 3).ReadOnly & Grid.CellFormat(3, 3).Background, "1255"
Host.Story
Host.Key DeleteKey
Told "the whole sheet", Array("Modified", "KeyUp(46, 0)")
Check "its texts go", Texts(), "-- -- -- -- -- -- /-- -- -- -- -- -- /-- -- -- -- -- -- /-- -- -- -- -- -- /-- -- -- -- -- -- /-- -- -- -- -- -- /"
Check "its formats too", Grid.CellFormat(3, 3).ReadOnly & Grid.CellFormat(3, 3).Background, _
    plain.ReadOnly & plain.Background
Check "its rows and columns stay", Grid.MaxRow & "," & Grid.MaxCol, "40,7"
Check "and so does its selection", Selected(), "(-1,-1,-1,-1)"
Fill
Host.Click MiddleX(1), MiddleY(1)
Host.Click MiddleX(3), MiddleY(3), 2
Host.Story
Host.Key DeleteKey
Told "of several the first", Array("Modified", "KeyUp(46, 0)")
Check "alone is cleared", Texts(), "11 12 13 14 15 16 /21 22 23 24 25 26 /31 32 -- 34 35 36 /41 42 43 44 45 46 /51 52 53 54 55 56 /61 62 63 64 65 66 /"
Fill
Host.TypeText "z"
Host.Story
Host.Key DeleteKey
Told "from an open editor", Array("Modified")
Check "the sheet changes and the text stays", Grid.CellText(1, 1) & Grid.EndEdit() & Grid.CellText(1, 1), "111z"
Fill
Grid.AllowEdit = False
Host.Story
Host.Key DeleteKey
Told "without AllowEdit the key goes on", Array( _
    "grid WM_KEYDOWN 46", "KeyDown(46, 0)", "KeyUp(46, 0)")
Check "and clears nothing", Grid.CellText(1, 1), "11"
Host.Log "end"
