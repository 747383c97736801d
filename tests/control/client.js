// Members with texts, objects and numbers through the script host in its other language.
var step = 0;
function expect(isTrue) {
    step += 1;
    if (!isTrue) {
        WScript.Echo("client.js: failed at " + step);
        WScript.Quit(1);
    }
}
var grid = new ActiveXObject("VEYGRID.VeyGridCtrl.1");
// Escapes are the same characters whatever the code page is; the last ones have a brace, a bar and a
// backslash as their second byte.
var chinese = "\u501F\u65B9 |~ \u4E82\u4E97\u4E81\u4E85";
grid.ModifyCellText(3, 2, chinese);
expect(grid.CellText(3, 2) == chinese);
expect(grid.GetRangeText(3, 2, 3, 2).indexOf(chinese) >= 0);
grid.SetTabbedText(5, 1, chinese + "\t1\r\n2\t" + chinese);
expect(grid.CellText(5, 1) == chinese && grid.CellText(6, 2) == chinese);
grid.SetRowData(7, 1, chinese + "\t" + chinese, 9);
expect(grid.CellText(7, 2) == chinese);
grid.DataSource = "SELECT " + "\u501F\u65B9" + " FROM t";
expect(grid.GetDSColumns().indexOf("\u501F\u65B9") >= 0);
grid.MaxRow = 2147483647;
expect(grid.MaxRow == 2147483647);
grid.SetActiveCell(2147483647, 1);
grid.ShowHGridLines = false;
expect(grid.ShowHGridLines === false);
var format = new ActiveXObject("VeyGrid.CellFormat");
format.Background = 255;
format.ShowFormat = chinese;
expect(format.Background == 255 && format.ShowFormat == chinese);
grid.DefCellFormat = format;
expect(grid.DefCellFormat.Background == 255 && grid.CellFormat(50, 5).Background == 255);
var form = new ActiveXObject("VeyGrid.FormObject");
form.Label = chinese;
form.CanNull = false;
expect(form.Label == chinese && form.CanNull === false);
expect(grid.FormObject(1) == null);
var caught = false;
try {
    grid.SetActiveCell("no number", 1);
} catch (error) {
    caught = true;
}
expect(caught);
// Its own null is no object of automation.
grid.BindDataset(null);
expect(grid.MaxRow == 1 && grid.MaxCol == 20);
expect(grid.SaveFile("C:\\client-\u501F\u65B9.grd"));
var other = new ActiveXObject("VEYGRID.VeyGridCtrl.1");
expect(other.OpenFile("C:\\client-\u501F\u65B9.grd", 0) == 1);
expect(other.CellText(3, 2) == chinese && !other.Modified);
new ActiveXObject("Scripting.FileSystemObject").DeleteFile("C:\\client-\u501F\u65B9.grd");
WScript.Echo("client.js: success");
WScript.Quit(0);
