' The data dialog: of the active cell, of a selection, and what of it goes into the records.
Const Caption = "数据控制"
Const KeyDown = 40
Const KeyEnter = 13
Const KeyTab = 9
Const KeyBack = 8
Dim dialog, format, turn

' Opened from the menu, of whose items it is the third.
Set format = Grid.CellFormat(1, 1)
format.DataType = 3
format.ShowFormat = "YYYY-MM-DD"
Grid.CellFormat(0, 1) = format
Grid.CellText(1, 1) = "2003-8-14"
Host.RightClick 300, 150
For turn = 1 To 3
    Host.Key KeyDown, 0
Next
Host.Key KeyEnter, 0
Set dialog = Opened(Caption)
Check "its buttons", dialog.GetText(1) & "|" & dialog.GetText(2), "确  定|取  消"
Check "preset", dialog.GetText(1014) & "|" & dialog.GetText(1018) & "|" & dialog.GetText(1020), _
    "日期值|YYYY-MM-DD|"
dialog.Press 1
Check "gone", Closed(Caption), True
Grid.CellShowFormat(0, 1) = "General"
Check "the cell has its own record", Grid.CellShowFormat(1, 1) & Grid.CellShowFormat(2, 1), _
    "YYYY-MM-DDGeneral"
Check "of the same type", Grid.CellFormat(1, 1).DataType, 3

' The lists, and Chinese typed into the fields.
Grid.SetActiveCell 3, 3
Grid.CellText(3, 3) = "2003-8-14"
Grid.SendCommand 42310
Set dialog = Opened(Caption)
Dim index, seen
For index = 0 To 4
    dialog.Choose 1014, index
    seen = seen & dialog.GetText(1014) & ";"
Next
Check "the types", seen, "自动;整数;浮点数;日期值;字符型;"
seen = ""
For index = 0 To 9
    dialog.Choose 1018, index
    Host.Pump 0
    seen = seen & dialog.GetText(1018) & ";"
Next
Check "the formats", seen, "General;0;0.00;#,##0;#,##0.00;YYYY年MM月DD日;YYYY年M月D日;" & _
    "YYYY-MM-DD;[CB_TEXT];[RMB_UPPER];"
dialog.Choose 1018, 6
dialog.SetText 1020, ""
Host.Key KeyTab, 0
Host.Key KeyTab, 0
Host.TypeText "大于零>0|龘"
Check "typed", dialog.GetText(1020), "大于零>0|龘"
Host.Key KeyEnter, 0
Check "gone by Enter", Closed(Caption), True
Check "stored", Grid.CellFormat(3, 3).DataType & "|" & Grid.CellShowFormat(3, 3), "4|YYYY年M月D日"
Check "shown so", Grid.GetCellFormatText(3, 3), "2003年8月14日"
Grid.SendCommand 1011
Set dialog = Opened(Caption)
Check "the rule came back", dialog.GetText(1020), "大于零>0|龘"
dialog.Press 2
Check "cancelled", Closed(Caption), True

' Three cells of differing formats: blank, and what is not touched stays.
Grid.CellShowFormat(5, 1) = "0"
Grid.CellShowFormat(5, 2) = "0.00"
Grid.CellShowFormat(5, 3) = "#,##0"
Grid.SetSelection 5, 1, 5, 3
Grid.SendCommand 1011
Set dialog = Opened(Caption)
Check "blank", dialog.GetText(1014) & dialog.GetText(1018) & dialog.GetText(1020), ""
dialog.Press 1
Check "gone again", Closed(Caption), True
Check "255 in each", Grid.CellFormat(5, 1).DataType & "," & Grid.CellFormat(5, 2).DataType & "," & _
    Grid.CellFormat(5, 3).DataType, "255,255,255"
Check "formats kept", Grid.CellShowFormat(5, 1) & Grid.CellShowFormat(5, 2) & _
    Grid.CellShowFormat(5, 3), "00.00#,##0"

' Typed and typed back, it counts as a change.
Grid.SendCommand 1011
Set dialog = Opened(Caption)
dialog.Choose 1014, 1
Host.Key KeyTab, 0
Host.TypeText "x"
Host.Key KeyBack, 0
Check "typed back", dialog.GetText(1018), ""
Host.Key KeyEnter, 0
Check "gone a third time", Closed(Caption), True
Check "emptied", Grid.CellShowFormat(5, 1) & Grid.CellShowFormat(5, 2) & Grid.CellShowFormat(5, 3), ""
Check "integers", Grid.CellFormat(5, 1).DataType & Grid.CellFormat(5, 3).DataType, "11"

' Cancelled, it changes nothing.
Grid.SendCommand 1011
Set dialog = Opened(Caption)
dialog.Choose 1014, 2
dialog.SetText 1018, "0"
Host.Key 27, 0
Check "gone by Esc", Closed(Caption), True
Check "unchanged", Grid.CellFormat(5, 1).DataType & Grid.CellShowFormat(5, 1), "1"
Host.Log "end"
