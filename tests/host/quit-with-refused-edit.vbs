' The end of the script with an edit open that is refused: the program ends all the same.
Host.Click 100, 50
Host.TypeText "a😀"
Check "refused", Grid.EndEdit(), 0
Host.Log "end"
