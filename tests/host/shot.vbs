' Host.Shot writes the control's picture as PNG.
' args: /size 320 200
Dim bytes
Host.Shot "shot.png"
Check "there", Host.File("shot.png").Exists, True
bytes = Host.File("shot.png").Bytes
Check "signature", bytes(0) & " " & bytes(1) & " " & bytes(2) & " " & bytes(3), "137 80 78 71"
Check "width", BigEndian(bytes, 16, 4), 320
Check "height", BigEndian(bytes, 20, 4), 200
Host.Log "end"
