' The mouse drags the borders of rows, columns and headers.
Dim modifications
Sub Grid_Modified()
    modifications = modifications + 1
End Sub
Sub Drag(x1, y1, x2, y2)
    Host.Press x1, y1
    Host.Move x1, (y1 + y2) \ 2
    Host.Release x2, y2
End Sub
EvenSheet 20, 10
Host.Pump 0

Drag 10, 20 + 60 - 1, 10, 20 + 75
Check "a row's own bottom border", Grid.RowHeight(3), 35
Grid.RowHeight(3) = 20
Host.Pump 0
Drag 10, 20 + 60 + 1, 10, 20 + 70
Check "the top border belongs to the row above", Grid.RowHeight(3), 30
Check "and leaves the row itself", Grid.RowHeight(4), 20
Grid.RowHeight(3) = 20
Host.Pump 0
modifications = 0
Host.Press 10, 20 + 60 - 1
Host.Release 10, 20 + 60 - 1
Check "a press and release at one point changes nothing", Grid.RowHeight(3) & "," & modifications, "20,0"
Drag 10, 20 + 60 - 1, 10, 25
Check "up past the top: height 0", Grid.RowHeight(3), 0
Check "Modified fires", modifications > 0, True
Grid.RowHeight(3) = 20
Host.Pump 0

Drag 50 + 120 - 1, 8, 50 + 150, 8
Check "a column's own border", Grid.ColWidth(2), 90
Grid.ColWidth(2) = 60
Host.Pump 0
Drag 50 + 120 + 1, 8, 50 + 100, 8
Check "the left border belongs to the column before", Grid.ColWidth(2), 40
Drag 50 + 1, 8, 70, 8
Check "the first column's left border sizes the row headers", Grid.RowHeaderWidth, 70
Drag 10, 20 + 1, 10, 32
Check "the first row's top border sizes the column headers", Grid.ColHeaderHeight, 32
Grid.AllowResize = False
Drag 10, 32 + 20 - 1, 10, 32 + 40
Check "AllowResize off", Grid.RowHeight(1), 20
Host.Log "end"
