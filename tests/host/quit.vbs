' Host.Quit ends the script where it stands, with the code that it is given.
' exit: 42
' stdout: before
Host.Log "before"
Host.Quit 42
Host.Log "FAILED: went on after Quit"
