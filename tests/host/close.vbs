' A window that is told to close stays while a script runs, and the script learns of it.
Host.Messages
Host.Key 115, 4
Check "told", MessagesWith("WM_CLOSE"), "[WM_CLOSE, 0, 0]"
Check "still there", Grid.MaxRow, 50
Host.Log "end"
