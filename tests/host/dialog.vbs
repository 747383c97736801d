' Host.Dialog drives a dialog that is up while the script goes on.
Dim dialog
Check "none", Host.Dialog("No such caption") Is Nothing, True
Host.Key 79, 2
Set dialog = Opened(OpenCaptions())
dialog.SetText 1148, "文件.grd"
Check "text", dialog.GetText(1148), "文件.grd"
dialog.Choose 1136, 1
Check "choice", InStr(dialog.GetText(1136), "*.*") > 0, True
On Error Resume Next
dialog.Press 31999
Check "no such control", Err.Description, "the dialog has no control 31999"
On Error Goto 0
dialog.Press 2
Check "gone", Closed(OpenCaptions()), True
Host.Log "end"
