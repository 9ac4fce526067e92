#pragma once

namespace Quillane::Commands {

/// One kind of article: what it is called on the command line and in the database.
struct ArticleKind {
  int code;                     // as items have it
  const char* name;             // "product"
  const char* option;           // "--product"
  const char* table;            // "t_product"
  const char* reference;        // "t_product_1"
  const char* assignmentTable;  // "t_productitemdata"
};

constexpr ArticleKind kArticleKinds[] = {
    {1, "product", "--product", "t_product", "t_product_1", "t_productitemdata"},
    {2, "service", "--service", "t_service", "t_service_1", "t_serviceitemdata"},
    {3, "suite", "--suite", "t_suite", "t_suite_1", "t_suiteitemdata"},
};

constexpr int kArticleKindCount = 3;

}  // namespace Quillane::Commands
