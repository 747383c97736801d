' An error is told with its line.
' exit: 3
' stderr: error-line.vbs(6, 1)
Dim nothingHere
Set nothingHere = Nothing
nothingHere.Member = 1
