// The texts that item data must send to the database, to the letter: other programs and the statement cache know them.
#pragma once

namespace Quillane::Plugin::ItemData {

// An entry of a stored item, or of one that is not derived.
inline constexpr const char* kLoadSql =
    "select value, t_invoiceitemdata_id from t_invoiceitemdata where t_invoiceitem_1=%t_invoiceitem_1 and "
    "t_itemvariable_1=%t_itemvariable_1 and row=%row";

inline constexpr const char* kLoadWithoutVariableSql =
    "select value, t_invoiceitemdata_id from t_invoiceitemdata where t_invoiceitem_1=%t_invoiceitem_1 and "
    "t_itemvariable_1 is NULL and row=%row";

// An entry of an item that is being derived.
inline constexpr const char* kCopySql =
    "select value, 0 from t_invoiceitemdata where t_invoiceitem_1=%t_invoiceitem_1 and "
    "t_itemvariable_1=%t_itemvariable_1 and row=%row";

inline constexpr const char* kCopyWithoutVariableSql =
    "select value, 0 from t_invoiceitemdata where t_invoiceitem_1=%t_invoiceitem_1 and t_itemvariable_1 is NULL "
    "and row=%row";

// The quantity entry of an item that is being derived.
inline constexpr const char* kRemainingQuantitySql =
    "select iid.value-ifnull(rst.value,0) as value, 0 from t_invoiceitemdata iid left join ( select "
    "(ifnull(n.value,0)+ifnull(s.value,0)) as value, %t_invoiceitem_1 as item from ( select sum(value) value, row "
    "from t_invoiceitemdata iid where  t_itemvariable_1=%t_itemvariable_1 and iid.row=%row and iid.t_invoiceitem_1 "
    "in ( select t_invoiceitem_id from t_invoiceitem ii join t_invoice i on ii.t_invoice_1=i.t_invoice_id and "
    "i.t_invoicestatus_1=%closed and ii.t_invoiceitem_1=%t_invoiceitem_1) ) n left join ( select sum(-1*value) "
    "value, row  from t_invoiceitemdata iid where t_itemvariable_1=%t_itemvariable_1 and row=%row and "
    "iid.t_invoiceitem_1 in (select t_invoiceitem_id from t_invoiceitem ii join t_invoice i on "
    "ii.t_invoice_1=i.t_invoice_id and i.t_invoicestatus_1=%storno and ii.t_invoiceitem_1=%t_invoiceitem_1) ) s on "
    "(s.row=n.row) ) rst on iid.t_invoiceitem_1=rst.item where t_itemvariable_1=%t_itemvariable_1 and "
    "t_invoiceitem_1=%t_invoiceitem_1 and row=%row";

// The settings, by the kind of the article.
inline constexpr const char* kProductSettingsSql =
    "select type,null,t_itemvariable_1,name,mandatory,process,vvalue from t_productitemdata join t_itemvariable on "
    " t_itemvariable_1= t_itemvariable_id where direction=%direction and t_product_1=%id order by process, position";

inline constexpr const char* kServiceSettingsSql =
    "select type,null,t_itemvariable_1,name,mandatory,process,vvalue from t_serviceitemdata join t_itemvariable on "
    " t_itemvariable_1= t_itemvariable_id where direction=%direction and t_service_1=%id order by process, position";

inline constexpr const char* kSuiteSettingsSql =
    "select type,null,t_itemvariable_1,name,mandatory,process,vvalue from t_suiteitemdata join t_itemvariable on  "
    "t_itemvariable_1= t_itemvariable_id where direction=%direction and t_suite_1=%id order by process, position";

// The rows of a list.
inline constexpr const char* kStoredDataSql =
    "select type,t_invoiceitemdata_id,t_itemvariable_1,name,mandatory,row,value from t_invoiceitemdata left join "
    "t_itemvariable on t_itemvariable_1=t_itemvariable_id where t_invoiceitem_1=%id order by row, "
    "t_invoiceitemdata_id";

inline constexpr const char* kSourceDataSql =
    "select type,0,t_itemvariable_1,name,mandatory,row,value from t_invoiceitemdata left join t_itemvariable on "
    "t_itemvariable_1=t_itemvariable_id where t_invoiceitem_1=%id order by row, t_invoiceitemdata_id";

}  // namespace Quillane::Plugin::ItemData
