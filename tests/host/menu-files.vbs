' Saving and opening by the menu's commands, under a Chinese name.
Dim dialog, path
Sub Choose(item, captions, path)
    Grid.SendCommand item
    Set dialog = Opened(captions)
    dialog.SetText 1148, path
    dialog.Press 1
    Check "gone " & item, Closed(captions), True
End Sub

path = InWork("菜单 凭证.grd")
Grid.CellText(3, 4) = "甲乙丙"
Choose 1019, SaveCaptions(), path
Check "no message", Lines(Host.Boxes), ""
Check "written", Host.File(path).Exists, True
Grid.CellText(3, 4) = "x"
Choose 1020, OpenCaptions(), path
Check "read", Grid.CellText(3, 4), "甲乙丙"

' A name without an extension gets one.
Choose 1019, SaveCaptions(), InWork("菜单二")
Check "with the extension", Host.File(InWork("菜单二.grd")).Exists, True

Grid.SendCommand 42318
Set dialog = Opened(SaveCaptions())
dialog.Press 2
Check "cancelled", Closed(SaveCaptions()), True
Check "still no message", Lines(Host.Boxes), ""
Host.Log "end"
