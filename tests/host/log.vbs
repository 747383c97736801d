' Host.Log writes one line for a value of any simple kind.
' stdout: 文字 |~
' stdout: 12
' stdout: 1.5
' stdout: True
Host.Log "文字 |~"
Host.Log 12
Host.Log 1.5
Host.Log True
Host.Log "end"
