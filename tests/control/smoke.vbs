' The control through the script host: what stands at the end shows that nothing went wrong.
Dim grid
Set grid = CreateObject("VEYGRID.VeyGridCtrl.1")
If grid.MaxRow <> 50 Or grid.MaxCol <> 20 Then WScript.Quit 1
grid.MaxRow = 100
If grid.maxrow <> 100 Then WScript.Quit 2
grid.CellText(3, 2) = "abc"
If grid.CellText(3, 2) <> "abc" Or grid.LastRow <> 3 Then WScript.Quit 3
Dim row, col
grid.SetActiveCell 4, 5
grid.GetActiveCell row, col
If row <> 4 Or col <> 5 Then WScript.Quit 4
Dim format
Set format = grid.CellFormat(1, 1)
If format.Background <> -1 Then WScript.Quit 5
format.HAlign = 2
Set grid.CellFormat(1, 1) = format
If grid.CellFormat(1, 1).HAlign <> 2 Then WScript.Quit 6
Dim pos, name, value
grid.Param("a") = "b"
pos = grid.GetFirstParamPos
If Not grid.GetNextParam(pos, name, value) Then WScript.Quit 7
If name <> "a" Or value <> "b" Or pos <> 0 Then WScript.Quit 8
WScript.Echo "smoke.vbs: success"
WScript.Quit 0
