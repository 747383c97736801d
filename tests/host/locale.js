// The locale of the command line is the script's own.
// args: /locale zh-CN
Check("a date", new Date(2020, 0, 5).toLocaleDateString(), "2020年1月5日星期日");
Host.Log("end");
