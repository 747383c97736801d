' Members of Host refuse arguments of the wrong type or number, in the script's own way.
On Error Resume Next
Host.Click "a", 1
Check "a text for a number", Err.Number, 13
Err.Clear
Host.Log
Check "too few arguments", Err.Number, 450
Err.Clear
Host.Missing
Check "no such member", Err.Number, 438
Err.Clear
Host.Answer "maybe"
Check "no such button", Err.Description, "no such button: maybe"
Err.Clear
Dim text
text = Host.File("missing.txt").Text
Check "no such file", Err.Description, "cannot read missing.txt"
Err.Clear
Host.Log "end"
