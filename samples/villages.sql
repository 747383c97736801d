-- 示例数据库：全国村级区划。Sample database: the villages of China, 620,573 of them.
CREATE TABLE 村 (
    代码   TEXT PRIMARY KEY,
    名称   TEXT NOT NULL,
    街道代码 TEXT,
    省代码 TEXT,
    市代码 TEXT,
    区代码 TEXT
) WITHOUT ROWID;
