' The module's other classes can be created by name, although nothing is registered.
Dim format, form
Set format = CreateObject("VeyGrid.CellFormat")
format.Foreground = 255
Set Grid.CellFormat(2, 2) = format
Check "a cell format", Grid.CellFormat(2, 2).Foreground, 255
Set form = CreateObject("VeyGrid.FormObject")
Check "a form object", form Is Nothing, False
Host.Log "end"
