// The object Grid in JScript.
Grid.SetActiveCell(4, 5);
Check("property", Grid.MaxRow, 50);
Grid.MaxRow = 60;
Check("property put", Grid.MaxRow, 60);
Check("method with result", Grid.RunQuery(0), 1);
Host.Log("end");
