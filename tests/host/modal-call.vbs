' A call that opens a dialog returns while the dialog is up, and the script drives it.
Dim about
Grid.AboutBox
Set about = Opened("Veynor Grid Control")
Check "a button", about.GetText(1), "OK"
Check "another call meanwhile", Grid.MaxRow, 50
about.Press 1
Check "gone", Closed("Veynor Grid Control"), True
Check "no message box", Lines(Host.Boxes), ""
Grid.AboutBox
Check "up again", Opened("Veynor Grid Control") Is Nothing, False
Host.Key 27, 0
Check "gone by a key", Closed("Veynor Grid Control"), True
Grid.AboutBox
Host.Log "end"
