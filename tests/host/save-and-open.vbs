' The menu's keys save and open the sheet through the system's dialogs.
Grid.CellText(1, 1) = "文字"
Host.Key 83, 2
Fill SaveDialog(), "saved 文件.grd"
Check "saved", Host.File("saved 文件.grd").Exists, True
Check "no longer modified", Grid.Modified, False
Grid.CellText(1, 1) = "other"
Host.Answer "no"
Host.Key 79, 2
Check "asked about changes", InStr(Lines(Host.Boxes), "[VeyHost, 内容已修改,是否保存?, 35, no]") > 0, True
Fill OpenDialog(), "saved 文件.grd"
Check "opened", Grid.CellText(1, 1), "文字"
Check "not modified", Grid.Modified, False
Host.Log "end"

Sub Fill(dialog, path)
    dialog.SetText 1148, path
    dialog.Press 1
    Host.Pump 100
End Sub
Function SaveDialog()
    Set SaveDialog = Host.Dialog("Save As")
    If SaveDialog Is Nothing Then Set SaveDialog = Host.Dialog("Save as")
    If SaveDialog Is Nothing Then Set SaveDialog = Host.Dialog("另存为")
End Function
Function OpenDialog()
    Set OpenDialog = Host.Dialog("Open")
    If OpenDialog Is Nothing Then Set OpenDialog = Host.Dialog("打开")
End Function
