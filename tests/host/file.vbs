' Host.File reads and writes files.
Dim file
Set file = Host.File("文件.txt")
Check "not yet", file.Exists, False
Check "no size", file.Size, -1
file.Text = "中 |~"
Check "text", file.Text, "中 |~"
Check "as the object's value", Host.File("文件.txt"), "中 |~"
Check "size", file.Size, 6
Dim bytes
bytes = file.Bytes
Check "bytes", bytes(0) & " " & bytes(5), "228 126"
Check "path", file.Path, "文件.txt"
file.Delete
Check "deleted", file.Exists, False
Host.Log "end"
