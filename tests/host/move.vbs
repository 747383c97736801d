' Host.Move moves the pointer: a menu follows it from item to item.
Host.Key 70, 4
Host.Move 20, 10
Host.Move 20, 30
Host.Key 13, 0
Check "the item under the pointer", OpenDialog() Is Nothing, False
Host.Key 27, 0
Host.Log "end"

' The system names it in its own language.
Function OpenDialog()
    Set OpenDialog = Host.Dialog("Open")
    If OpenDialog Is Nothing Then Set OpenDialog = Host.Dialog("打开")
End Function
