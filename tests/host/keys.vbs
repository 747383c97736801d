' Host.Key and Host.TypeText give real input to the control, modifiers included.
Dim keys
Sub Grid_KeyDown(code, shift)
    keys = keys & code & "/" & shift & ";"
End Sub
Host.Click 5, 5, 0
Host.Key 113, 0
Check "a key", keys, "113/0;"
keys = ""
Host.Key 113, 3
Check "with modifiers", Right(keys, 6), "113/3;"
keys = ""
Host.TypeText "a中"
Check "text", keys <> "", True
Host.Log "end"
