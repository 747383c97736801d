' The alignment dialog, from the menu, by number and by its method.
Const Caption = "对齐"
Dim dialog
Set dialog = Nothing

Grid.ShowAlignDlg
Set dialog = Opened(Caption)
Check "its texts", dialog.GetText(1) & dialog.GetText(2) & dialog.GetText(1010) & _
    dialog.GetText(1016) & dialog.GetText(1012), "确定取消自动换行只读合并单元格"
Check "preset, horizontal", dialog.GetText(1005), "常规"
Check "preset, vertical", dialog.GetText(1008), "靠上"
dialog.Choose 1005, 3
dialog.Choose 1008, 2
dialog.Choose 1010, 1
Check "right", dialog.GetText(1005), "靠右"
Check "bottom", dialog.GetText(1008), "靠下"
dialog.Press 1
Check "gone", Closed(Caption), True
Check "HAlign", Grid.CellFormat(1, 1).HAlign, 4
Check "VAlign of the bottom", Grid.CellFormat(1, 1).VAlign, 512
Check "ReadOnly", Grid.CellFormat(1, 1).ReadOnly, 0

' Of a selection nothing is preset, and what is left so stays as it is in each cell.
Grid.SetSelection 1, 1, 2, 2
Grid.SendCommand 1003
Set dialog = Opened(Caption)
Check "nothing preset", dialog.GetText(1005) & dialog.GetText(1008), ""
dialog.Choose 1005, 2
dialog.Press 1
Check "gone again", Closed(Caption), True
Check "all centred", Grid.CellFormat(1, 1).HAlign & Grid.CellFormat(2, 2).HAlign, "22"
Check "vertical kept", Grid.CellFormat(1, 1).VAlign & "," & Grid.CellFormat(2, 2).VAlign, "512,0"

' Cancelled, it changes nothing.
Grid.SetSelection 5, 5, 5, 5
Grid.SendCommand 42302
Set dialog = Opened(Caption)
dialog.Choose 1005, 1
dialog.Press 2
Check "cancelled", Closed(Caption), True
Check "unchanged", Grid.CellFormat(5, 5).HAlign, 0

Grid.SendCommand 42324
Check "formats cleared", Grid.CellFormat(1, 1).HAlign & Grid.CellFormat(2, 2).HAlign, "00"
Host.Log "end"
