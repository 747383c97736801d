' Text arrives character by character, Chinese included, in whatever has the focus.
Dim dialog
Host.Key 79, 2
Set dialog = Opened(OpenCaptions())
Host.TypeText "a 中文 |~龘"
Check "text", dialog.GetText(1148), "a 中文 |~龘"
Host.Key 36, 1
Host.TypeText "b"
Check "a key with Shift", dialog.GetText(1148), "b"
Host.Key 27, 0
Check "Esc", Closed(OpenCaptions()), True
Host.Log "end"
