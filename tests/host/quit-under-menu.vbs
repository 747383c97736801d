' A script may end while a menu is up.
' exit: 7
' stdout: up
Host.Key 70, 4
Host.Log "up"
Host.Quit 7
