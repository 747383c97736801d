' Host.Messages lists what the host window got since the last call, from the control's creation on.
Check "at creation", Lines(Host.Messages), "[VeynorGrid_AskFor, 2, 0]"
Check "nothing since", Lines(Host.Messages), ""
Grid.SendCommand 33000
Grid.SendCommand 33001
Check "in their order", MessagesWith("33001"), "[WM_COMMAND, 33000, 0][WM_COMMAND, 33001, 0]"
Host.Log "end"
