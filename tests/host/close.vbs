' A window that is told to close stays while a script runs, and the script learns of it.
Host.Messages
Host.Key 115, 4
Host.Pump 50
Check "told", Lines(Host.Messages), "[WM_CLOSE, 0, 0]"
Check "still there", Grid.MaxRow, 50
Host.Log "end"
