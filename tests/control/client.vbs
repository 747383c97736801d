' Every member through the script host; what stands at the end shows that nothing went wrong.
Dim grid, format, form, row, col, kind, pos, name, value, row2, col2, step, chinese
step = 0
Sub Expect(isTrue)
    step = step + 1
    If Not isTrue Then
        WScript.Echo "client.vbs: failed at " & step
        WScript.Quit 1
    End If
End Sub

Set grid = CreateObject("VEYGRID.VeyGridCtrl.1")
' Switches and numbers, each read, changed and read again.
grid.ShowHGridLines = False: Expect grid.ShowHGridLines = False
grid.ShowVGridLines = False: Expect grid.ShowVGridLines = False
grid.ShowRowHeaders = False: Expect grid.ShowRowHeaders = False
grid.ShowColHeaders = False: Expect grid.ShowColHeaders = False
grid.ShowHScrollBar = False: Expect grid.ShowHScrollBar = False
grid.ShowVScrollBar = False: Expect grid.ShowVScrollBar = False
grid.AllowResize = False: Expect grid.AllowResize = False
grid.AllowEdit = False: Expect grid.AllowEdit = False
grid.AllowEditHeader = False: Expect grid.AllowEditHeader = False
grid.AllowSelections = False: Expect grid.AllowSelections = False
grid.AllowSelections = True: Expect grid.AllowSelections = True
grid.AllowPopMenu = False: Expect grid.AllowPopMenu = False
grid.AlwaysOnEdit = True: Expect grid.AlwaysOnEdit = True
grid.ShowZeroValues = False: Expect grid.ShowZeroValues = False
grid.EnterGoDown = False: Expect grid.EnterGoDown = False
grid.MaxRow = 100: Expect grid.MaxRow = 100
grid.MaxCol = 40: Expect grid.MaxCol = 40
grid.FixedRow = 2: Expect grid.FixedRow = 2
grid.FixedRows = 1: Expect grid.FixedRows = 1
grid.FixedCol = 2: Expect grid.FixedCol = 2
grid.FixedCols = 1: Expect grid.FixedCols = 1
grid.DefCellWidth = 70: Expect grid.DefCellWidth = 70
grid.DefCellHeight = 21: Expect grid.DefCellHeight = 21
grid.RowHeaderWidth = 44: Expect grid.RowHeaderWidth = 44
grid.ColHeaderHeight = 33: Expect grid.ColHeaderHeight = 33
grid.SingleRowSelection = False: Expect grid.SingleRowSelection = False
grid.GridLinesColor = &H332211: Expect grid.GridLinesColor = &H332211
grid.RowMode = True: Expect grid.RowMode = True
grid.ModifiedLog = 3: Expect grid.ModifiedLog = 3
grid.AutoMaxRC = False: Expect grid.AutoMaxRC = False
grid.ShowDefRowHeader = False: Expect grid.ShowDefRowHeader = False
grid.ShowDefColHeader = False: Expect grid.ShowDefColHeader = False
grid.RunQueryAfterSerialize = False: Expect grid.RunQueryAfterSerialize = False
grid.GuiDesignSnapToX = 7: Expect grid.GuiDesignSnapToX = 7
grid.GuiDesignSnapToY = 8: Expect grid.GuiDesignSnapToY = 8
grid.CanWriteTable = True: Expect grid.CanWriteTable = True
grid.AutoCommit = True: Expect grid.AutoCommit = True
grid.AllowMoveRow = False: Expect grid.AllowMoveRow = False
grid.AllowMoveCol = False: Expect grid.AllowMoveCol = False
grid.AllowMoveCell = False: Expect grid.AllowMoveCell = False
grid.FormObjectNotifyToParent = True: Expect grid.FormObjectNotifyToParent = True
Expect grid.Modified
grid.Modified = False: Expect Not grid.Modified
grid.ForeColor = 255: Expect grid.ForeColor = 255
grid.BackColor = 128: Expect grid.BackColor = 128
grid.BorderStyle = 1: Expect grid.BorderStyle = 1
grid.Enabled = True: Expect grid.Enabled
Expect Not grid.Font Is Nothing
grid.BkImage = "": Expect grid.BkImage = ""
' Cells, headers, names, sizes.
grid.CellText(3, 2) = "abc": Expect grid.CellText(3, 2) = "abc"
Expect grid.LastRow = 3 And grid.LastCol = 2
grid.LastRow = 4: Expect grid.LastRow = 4
grid.LastCol = 4: Expect grid.LastCol = 4
grid.ColWidth(2) = 99: Expect grid.ColWidth(2) = 99
grid.RowHeight(2) = 31: Expect grid.RowHeight(2) = 31
grid.RowHeader(2) = "r": Expect grid.RowHeader(2) = "r"
grid.ColHeader(2) = "c": Expect grid.ColHeader(2) = "c"
grid.RowName(2) = "rn": Expect grid.RowName(2) = "rn"
grid.ColName(2) = "cn": Expect grid.ColName(2) = "cn"
grid.ColType(2) = 1: Expect grid.ColType(2) = 1
grid.KeyColumnFlag(2) = 1: Expect grid.KeyColumnFlag(2) = 1
grid.CellShowFormat(3, 2) = "[CB_TEXT]": Expect grid.CellShowFormat(3, 2) = "[CB_TEXT]"
grid.SetColAutoWidth 3
Expect grid.GetCellTextByColName(3, "cn") = "abc"
grid.ModifyCellTextByColName 3, "cn", "abd": Expect grid.CellText(3, 2) = "abd"
grid.ModifyCellText 3, 2, "abe": Expect grid.CellText(3, 2) = "abe"
Expect grid.GetCellFormatText(3, 2) = "abe"
grid.SetRowData 5, 1, "x,y,z", Asc(","): Expect grid.CellText(5, 3) = "z"
grid.SetTabbedText 6, 1, "p" & Chr(9) & "q": Expect grid.CellText(6, 2) = "q"
Expect InStr(grid.GetRangeText(5, 1, 6, 3), "x" & Chr(9) & "y" & Chr(9) & "z") > 0
' The active cell and the selection.
grid.SetActiveCell 4, 5
grid.GetActiveCell row, col: Expect row = 4 And col = 5
grid.SetSelection 1, 1, 2, 2: Expect grid.GetSelectionCount >= 1
Expect grid.GetSelection(0, row, col, row2, col2)
Expect row2 = 2 And col2 = 2
grid.MakeCellVisible 1, 1
grid.ScreenPosToRC 10, 10, row, col
' Rows and columns.
grid.InsertRows 1, 1: Expect grid.CellText(6, 3) = "z"
grid.DeleteRows 1, 1: Expect grid.CellText(5, 3) = "z"
grid.InsertCols 1, 1: Expect grid.CellText(5, 4) = "z"
grid.DeleteCols 1, 1: Expect grid.CellText(5, 3) = "z"
grid.ClearRange 5, 3, 5, 3, 1: Expect grid.CellText(5, 1) = "x"
' The log of changes.
pos = grid.GetFirstModifiedLogPos: Expect pos <> 0
grid.GetNextModifiedLog pos, row, col, kind: Expect row > 0
Expect grid.SaveToDB = 1
grid.ResetModifiedLog: Expect grid.SaveToDB = 0
' Parameters.
grid.Param("a") = "b": Expect grid.Param("a") = "b"
Expect grid.ParamExist("a") And grid.FindParam("a") <> 0
pos = grid.GetFirstParamPos
Expect grid.GetNextParam(pos, name, value)
Expect name = "a" And value = "b" And pos = 0
Expect grid.RemoveParam("a")
Expect Not grid.ParamExist("a")
' The statement of the data source.
grid.DataSource = "SELECT a FROM t WHERE a=1": Expect grid.DataSource = "SELECT a FROM t WHERE a=1"
Expect InStr(grid.GetDSColumns, "a") > 0 And InStr(grid.GetDSTables, "t") > 0
Expect InStr(grid.GetDSWhere, "a=1") > 0
grid.SetDSWhere "a=2": Expect InStr(grid.GetDSWhere, "a=2") > 0
Expect grid.RunQuery(0) = 1
' Formats and form objects.
Set format = grid.CellFormat(1, 1)
Expect format.Background = -1
format.HAlign = 2: format.VAlign = 256: format.DataType = 1: format.ReadOnly = 1
format.Foreground = 1: format.Background = 2: format.ShowFormat = "M/YY"
Set grid.CellFormat(1, 1) = format
Set format = grid.CellFormat(1, 1)
Expect format.HAlign = 2 And format.VAlign = 256 And format.DataType = 1
Expect format.Foreground = 1 And format.Background = 2 And format.ShowFormat = "M/YY"
Set grid.DefCellFormat = format
Expect grid.DefCellFormat.Background = 2
Set form = CreateObject("VeyGrid.FormObject")
form.Name = "n": form.PosLeft = 3: form.LableLocate = 1
Expect form.Name = "n" And form.PosLeft = 3 And form.LableLocate = 1
Expect grid.FormObject(1) Is Nothing
' Commands that need no window.
grid.RemoveAllMenuItem
grid.AppendMenuItem 33000, "item"
grid.SendCommand 42303
grid.BindDataset Nothing: Expect grid.MaxRow = 1 And grid.MaxCol = 20
On Error Resume Next
grid.BindDataset 5: row = Err.Number: Err.Clear
grid.BindDataset Empty: row2 = Err.Number: Err.Clear
On Error Goto 0
Expect row = 13 And row2 = 13 And grid.MaxCol = 20
grid.EditCopy
grid.EditCut
grid.EditPaste
Expect grid.OpenFile("C:\no such file.grd", 0) = 0
' The bytes of this literal are two characters only where the code page is 936.
chinese = "中文"
If Len(chinese) = 2 Then
    grid.CellText(9, 9) = chinese: Expect grid.CellText(9, 9) = chinese
    grid.Param(chinese) = chinese: Expect grid.Param(chinese) = chinese
End If
WScript.Echo "client.vbs: success"
WScript.Quit 0
