// What the user is told of a change that was not saved.
#pragma once

#include <string_view>

namespace veygrid::SaveTexts {

inline constexpr std::u16string_view RowBegin = u"第 ";
inline constexpr std::u16string_view RowEnd = u" 行: ";
inline constexpr std::u16string_view DeletedBegin = u"删除的记录 (";
inline constexpr std::u16string_view DeletedEnd = u"): ";
inline constexpr std::u16string_view ColumnBegin = u"列 ";
inline constexpr std::u16string_view ColumnEnd = u" ";

inline constexpr std::u16string_view Changed = u"记录已被他人修改或删除,请重新读取后再改";
inline constexpr std::u16string_view NotUnique = u"关键列不能唯一确定记录";
inline constexpr std::u16string_view Refused = u"数据库拒绝保存: ";
inline constexpr std::u16string_view CommitRefused = u"提交失败: ";
inline constexpr std::u16string_view ConnectionLost = u"与数据库的连接已中断: ";
inline constexpr std::u16string_view NoKey = u"没有关键列,表也没有主键,不能保存";
inline constexpr std::u16string_view KeyNotShown = u"语句中没有主键列,不能保存";
inline constexpr std::u16string_view EmptyKey = u"关键列为空,不能保存";
inline constexpr std::u16string_view ReadOnly = u"语句不是单个表的简单查询,只能读,不能保存";
inline constexpr std::u16string_view ReadOnlyColumn = u"不是表中的列,不能修改";
inline constexpr std::u16string_view BinaryColumn = u"是二进制数据,不能修改";
inline constexpr std::u16string_view NoSuchCell = u"不在数据集之内";
inline constexpr std::u16string_view ColumnMode =
    u"列方式的修改记录不能保存,请用行方式或单元格方式";
inline constexpr std::u16string_view OpenTransaction = u"还有未结束的事务,请先提交或回滚";
inline constexpr std::u16string_view SeveralStatements = u"一次只能执行一条语句";

}  // namespace veygrid::SaveTexts
