' A script that is no program is told with the line of its fault.
' exit: 3
' stderr: error-syntax.vbs(4,
Dim 1
Host.Log "FAILED: ran"
