' Host.Move moves the pointer: a menu follows it from item to item.
Host.Key 70, 4
Host.Move 20, 10
Host.Move 20, 30
Host.Key 13, 0
Check "the item under the pointer", Opened(OpenCaptions()) Is Nothing, False
Host.Key 27, 0
Check "Esc", Closed(OpenCaptions()), True
Host.Log "end"
