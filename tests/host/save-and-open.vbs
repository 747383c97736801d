' The menu's keys save and open the sheet through the system's dialogs.
Dim path
path = InWork("saved 文件.grd")
Check "not there yet", Host.File(path).Exists, False
Grid.CellText(1, 1) = "文字"
Check "modified before", Grid.Modified, True
Host.Key 83, 2
Fill SaveCaptions(), path
Check "saved", Host.File(path).Exists, True
Check "no longer modified", Grid.Modified, False
Grid.CellText(1, 1) = "other"
Check "modified again", Grid.Modified, True
Host.Answer "no"
Host.Key 79, 2
Fill OpenCaptions(), path
Check "asked about changes", Lines(Host.Boxes), "[VeyHost, 内容已修改,是否保存?, 35, no]"
Check "opened", Grid.CellText(1, 1), "文字"
Check "not modified", Grid.Modified, False
Host.Log "end"

Sub Fill(captions, path)
    Dim dialog
    Set dialog = Opened(captions)
    Check "a dialog", dialog Is Nothing, False
    dialog.SetText 1148, path
    dialog.Press 1
    Check "done with it", Closed(captions), True
End Sub
