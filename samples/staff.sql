-- 示例数据库：员工表。Sample database: the staff of a company.
CREATE TABLE 员工 (
    工号     INTEGER PRIMARY KEY,
    姓名     TEXT NOT NULL CHECK (姓名 <> ''),
    性别     TEXT CHECK (性别 IN ('男', '女')),
    部门     TEXT NOT NULL,
    职务     TEXT,
    入职日期 DATE,
    -- 金额按文本保存，两位小数原样不变。
    月薪     TEXT CHECK (月薪 IS NULL OR CAST(月薪 AS REAL) > 0),
    备注     TEXT
);

WITH RECURSIVE
    姓(号, 字) AS (VALUES
        (0, '欧阳'), (1, '王'), (2, '司徒'), (3, '李'), (4, '东方'), (5, '张'), (6, '上官'),
        (7, '刘'), (8, '夏侯'), (9, '陈'), (10, '慕容'), (11, '杨'), (12, '诸葛')),
    名(号, 字, 性) AS (VALUES
        (0, '静', '女'), (1, '明', '男'), (2, '远', '男'), (3, '秀兰', '女'), (4, '志强', '男'),
        (5, '雪', '女'), (6, '建国', '男'), (7, '云', '女'), (8, '海涛', '男'), (9, '丽华', '女'),
        (10, '青', '女')),
    部(号, 名称, 职) AS (VALUES
        (0, '财务部', '会计'), (1, '仓储部', '库管员'), (2, '信息中心', '工程师'),
        (3, '销售部', '业务员'), (4, '人事部', '专员')),
    序(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM 序 WHERE n < 47)
INSERT INTO 员工
SELECT 1001 + n, 姓.字 || 名.字, 名.性, 部.名称,
       CASE WHEN n < 5 THEN '经理' ELSE 部.职 END,
       date('2003-08-14', '+' || (n * 173) || ' days'),
       printf('%.2f', 5200 + n * 7919 % 6100 + CASE WHEN n < 5 THEN 6000.5 ELSE 0 END),
       CASE WHEN n % 16 = 7 THEN '借调' END
FROM 序
JOIN 姓 ON 姓.号 = n % 13
JOIN 名 ON 名.号 = n % 11
JOIN 部 ON 部.号 = n % 5;
