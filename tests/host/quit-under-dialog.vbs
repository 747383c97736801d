' A script may end while a dialog is up.
' exit: 7
' stdout: True
Grid.AboutBox
Host.Log Not Opened("Veynor Grid Control") Is Nothing
Host.Quit 7
