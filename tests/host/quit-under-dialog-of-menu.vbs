' A script may come to its end while a dialog that a key opened is up.
Host.Key 79, 2
Check "up", Opened(OpenCaptions()) Is Nothing, False
Host.Log "end"
