// Reckons what is still open of the items of a document.
//
// Stored quantities have at most 15 digits, so that each of them fits into a decimal. What several of them make may
// not, when one is huge and another has many decimals: such a sum is refused before it wraps around, and so is a result
// with more digits than a stored quantity can have.
#include "host/document/OpenQuantities.h"

#include <libintl.h>

#include "host/document/ExactNumber.h"
#include "host/document/ResultRows.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Host {

namespace {

using FXExt::FXDecimal;

constexpr char kTakenSql[] =
    "select taken.t_invoiceitem_1, taken.quantity, i.t_invoicestatus_1 from t_invoiceitem item "
    "join t_invoiceitem taken on taken.t_invoiceitem_1=item.t_invoiceitem_id "
    "join t_invoice i on i.t_invoice_id=taken.t_invoice_1 "
    "where item.t_invoice_1=%document and i.t_invoicestatus_1 in (%closed, %cancelling)";

constexpr int kStoredDigits = 15;  // of a quantity that can be stored

bool readTaken(TarnwellDatabase& database, int document, const DocumentRules::Family& family, ResultRows& rows) {
  Statement query(&database, kTakenSql);
  query.setInt("document", document);
  query.setInt("closed", family.closed);
  query.setInt("cancelling", family.cancelling);
  return query.execute(&rows, 1);
}

const DocumentItem* findItem(const Document& document, int id) {
  for (FXint i = 0; i < document.getItems().no(); ++i)
    if (document.getItem(i)->getId() == id) return document.getItem(i);
  return nullptr;
}

FXString tooManyDigits(const Document& source, int item) {
  const DocumentItem* inexact = findItem(source, item);
  return FXStringFormat(
      dgettext("quillane",
               "A(z) „%s” tétel maradéka nem számítható ki pontosan, mert a mennyiségeknek túl sok számjegye van."),
      inexact ? inexact->getName().text() : "");
}

int signOf(const FXDecimal& number) { return number.value < 0 ? -1 : number.value > 0; }

}  // namespace

bool OpenQuantities::read(TarnwellDatabase& database, const Document& source, const DocumentRules::Family& family,
                          FXString& error) {
  open.clear();
  for (FXint i = 0; i < source.getItems().no(); ++i)
    open.emplace(source.getItem(i)->getId(), readStoredNumber(source.getItem(i)->getQuantityText()));

  ResultRows taken;
  if (!readTaken(database, source.getId(), family, taken)) {
    error = database.getLastError();
    return false;
  }
  for (int row = 0; row < taken.getNumRows(); ++row) {
    const int item = taken.getInt(row, 0);
    FXDecimal& rest = open[item];
    const FXDecimal quantity = readStoredNumber(taken.getText(row, 1));
    if (!isSumExact(rest, quantity)) {
      error = tooManyDigits(source, item);
      return false;
    }
    rest = taken.getInt(row, 2) == family.closed ? rest - quantity : rest + quantity;
  }
  for (const auto& [item, rest] : open) {
    if (countWholeDigits(rest) + countDecimals(rest) <= kStoredDigits) continue;
    error = tooManyDigits(source, item);
    return false;
  }
  return true;
}

bool OpenQuantities::hasOpen(const DocumentItem& item) const {
  const auto rest = open.find(item.getId());
  if (rest == open.end()) return false;
  const int sign = signOf(readStoredNumber(item.getQuantityText()));
  return sign != 0 && signOf(rest->second) == sign;
}

FXString OpenQuantities::getOpen(const DocumentItem& item) const {
  const auto rest = open.find(item.getId());
  return rest == open.end() ? FXString("0") : rest->second.toString();
}

}  // namespace Quillane::Host
