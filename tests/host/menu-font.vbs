' The font dialog of the system takes over the selection.
Dim dialog
Function FontCaptions()
    FontCaptions = "Font|字体|选择字体|Fonts"
End Function
Grid.SetSelection 2, 1, 3, 2
Grid.AllowPopMenu = False
Grid.SendCommand 1001
Set dialog = Opened(FontCaptions())
Check "up", dialog Is Nothing, False
dialog.Press 1
Check "gone", Closed(FontCaptions()), True
Check "black", Grid.CellFormat(2, 1).Foreground & Grid.CellFormat(3, 2).Foreground, "00"
Check "others are not touched", Grid.CellFormat(1, 1).Foreground, -1

Grid.ShowFontDlg
Set dialog = Opened(FontCaptions())
dialog.Press 2
Check "cancelled", Closed(FontCaptions()), True
Grid.SetSelection 6, 6, 6, 6
Grid.ShowFontDlg
Set dialog = Opened(FontCaptions())
dialog.Press 2
Check "cancelled again", Closed(FontCaptions()), True
Check "nothing stored", Grid.CellFormat(6, 6).Foreground, -1
Host.Log "end"
