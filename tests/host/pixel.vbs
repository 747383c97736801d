' Host.Pixel gives a colour of the control as RGB makes it.
' args: /size 900 400
Grid.BackColor = RGB(16, 32, 48)
Check "background", Hex(Host.Pixel(700, 300)), Hex(RGB(16, 32, 48))
Check "outside", Host.Pixel(900, 0) & Host.Pixel(0, 400) & Host.Pixel(-1, 0), "-1-1-1"
Host.Log "end"
