' Message boxes are kept and answered: by the queue, else by their default button.
Host.Answer "no"
Host.Answer "Cancel"
Check "queued", MsgBox("甲, 乙", 36, "Caption"), 7
Check "queued second, in any case", MsgBox("b", 1 + 16, "C"), 2
Check "default", MsgBox("c", 36, "D"), 6
Check "second button as default", MsgBox("d", 4 + 256, "E"), 7
Check "one button", MsgBox("e", 64, "F"), 1
Check "kept", Lines(Host.Boxes), "[Caption, 甲, 乙, 36, no][C, b, 17, cancel][D, c, 36, yes]" & _
    "[E, d, 260, no][F, e, 64, ok]"
Check "taken", Lines(Host.Boxes), ""
Host.Answer "yes"
Check "an answer that the box has not", MsgBox("f", 1, "G"), 1
Host.Log "end"
