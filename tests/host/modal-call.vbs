' A call that opens a dialog returns while the dialog is up, and the script drives it.
Dim about
Grid.AboutBox
Set about = Host.Dialog("Veynor Grid Control")
Check "a button", about.GetText(1), "OK"
Check "another call meanwhile", Grid.MaxRow, 50
about.Press 1
Check "gone", Host.Dialog("Veynor Grid Control") Is Nothing, True
Check "no message box", Lines(Host.Boxes), ""
Grid.AboutBox
Host.Key 27, 0
Check "gone by a key", Host.Dialog("Veynor Grid Control") Is Nothing, True
Grid.AboutBox
Host.Log "end"
