-- 示例数据库：记账凭证的分录。每张凭证借贷相等。
-- Sample database: the lines of half a year's accounting vouchers; each voucher balances.
CREATE TABLE 凭证 (
    序号     INTEGER PRIMARY KEY,
    日期     DATE NOT NULL,
    凭证号   TEXT NOT NULL,
    摘要     TEXT NOT NULL CHECK (摘要 <> ''),
    科目     TEXT NOT NULL,
    -- 金额按文本保存，两位小数原样不变。
    借方金额 TEXT CHECK (借方金额 IS NULL OR CAST(借方金额 AS REAL) > 0),
    贷方金额 TEXT CHECK (贷方金额 IS NULL OR CAST(贷方金额 AS REAL) > 0),
    制单     TEXT
);

CREATE TEMP TABLE 业务 (号 INTEGER, 摘要 TEXT, 借方 TEXT, 税 TEXT, 贷方 TEXT, 基数 INTEGER);
INSERT INTO 业务 VALUES
    (0, '报销差旅费', '管理费用—差旅费', NULL, '库存现金', 86050),
    (1, '购入服务器', '固定资产—电子设备', '应交税费—进项税额', '银行存款', 2860000),
    (2, '销售商品收款', '银行存款', NULL, '主营业务收入', 5431275),
    (3, '支付货款', '应付账款—维诺', NULL, '银行存款', 1960000),
    (4, '购买办公用品', '管理费用—办公费', '应交税费—进项税额', '银行存款', 124500),
    (5, '计提本月工资', '管理费用—工资', NULL, '应付职工薪酬', 37243500),
    (6, '冲销出差借款', '管理费用—差旅费', NULL, '其他应收款', 492550),
    (7, '采购原材料', '原材料', '应交税费—进项税额', '应付账款—维诺', 1875030),
    (8, '提取备用金', '库存现金', NULL, '银行存款', 500000);

-- 金额以分计算。
CREATE TEMP TABLE 单 AS
WITH RECURSIVE 序(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM 序 WHERE n < 143)
SELECT n, 业务.*, date('2026-01-04', '+' || (n * 5 / 4) || ' days') AS 日,
       基数 + n * 7919 % 50021 AS 分,
       CASE WHEN 税 IS NULL THEN 0 ELSE (基数 + n * 7919 % 50021) * 13 / 100 END AS 税分,
       CASE n % 3 WHEN 0 THEN '慕容雪' WHEN 1 THEN '司徒远' ELSE '夏侯青' END AS 人
FROM 序 JOIN 业务 ON 业务.号 = n % 9;

INSERT INTO 凭证 (日期, 凭证号, 摘要, 科目, 借方金额, 贷方金额, 制单)
SELECT 日, printf('记-%s-%04d', substr(日, 1, 7), 月号), 摘要, 科目,
       CASE WHEN 借 IS NOT NULL THEN printf('%.2f', 借 / 100.0) END,
       CASE WHEN 贷 IS NOT NULL THEN printf('%.2f', 贷 / 100.0) END, 人
FROM (
    SELECT n, 0 AS 行, 日, 摘要, 借方 AS 科目, 分 AS 借, NULL AS 贷, 人 FROM 单
    UNION ALL
    SELECT n, 1, 日, 摘要, 税, 税分, NULL, 人 FROM 单 WHERE 税 IS NOT NULL
    UNION ALL
    SELECT n, 2, 日, 摘要, 贷方, NULL, 分 + 税分, 人 FROM 单)
JOIN (SELECT n AS 单号, row_number() OVER (PARTITION BY substr(日, 1, 7) ORDER BY n) AS 月号 FROM 单)
    ON 单号 = n
ORDER BY n, 行;
