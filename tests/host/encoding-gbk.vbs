' A script in this encoding is read as it was written.
' encoding: GBK
' stdout: 中文 |~
Host.Log "中文 |~"
Check "length", Len("中文 |~"), 5
Host.Log "end"
