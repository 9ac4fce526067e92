// The document of a window, from its loading to its going.
//
//  1. Messages hold items of the document. They go before an item does, and before the document is loaded anew.
//  2. Modules change what they attached without telling anybody: it is compared, as text, with how it was.
//  3. Whatever works on stored data works on the newest copy; unsaved changes were stored or given up before.
#include "host/desktop/DocumentSession.h"

#include "host/desktop/XmlFile.h"
#include "host/document/DocumentLife.h"
#include "host/document/DocumentStore.h"
#include "host/document/IssueDate.h"
#include "host/xml/DocumentXml.h"

using namespace FX;

namespace Quillane::Desktop {

namespace {

void writeInput(Host::DocumentItem& item, const ItemInput& input) {
  item.setName(input.name);
  item.setUnit(input.unit);
  item.setQuantityText(input.quantity);
  item.setPriceText(input.price);
}

/// Whether two inputs for one article say the same.
bool isSame(const ItemInput& left, const ItemInput& right) {
  return left.name == right.name && left.quantity == right.quantity && left.unit == right.unit &&
         left.price == right.price;
}

bool hasArticle(const Host::DocumentItem& item, const ItemInput& input) {
  return item.getArticleKind() == input.articleKind && item.getArticleId() == input.articleId;
}

}  // namespace

DocumentSession::DocumentSession(Host::Company& openCompany, std::unique_ptr<Host::Document> edited)
    : company(openCompany), document(std::move(edited)) {
  company.getPlugins().addHooksTo(check);
  if (!isStored() && document->getIssueDate().empty()) document->setIssueDate(Host::todayAsIssueDate());
  rememberAttachedData();
}

DocumentSession::~DocumentSession() = default;

// ---- changes ----

bool DocumentSession::isChanged() const {
  return !isReadOnly() && (changed || describeAttachedData() != knownAttachedData);
}

void DocumentSession::noticeChanges() {
  if (isChanged()) changed = true;
  rememberAttachedData();
}

std::vector<FXString> DocumentSession::describeAttachedData() const {
  std::vector<FXString> texts;
  for (int i = 0; i < countItems(); ++i)
    texts.push_back(Host::attachedDataToXml(*document->getItem(i), company.getHooks()));
  return texts;
}

// ---- items ----

ItemInput DocumentSession::getInput(int index) const {
  const Host::DocumentItem& item = *document->getItem(index);
  ItemInput input;
  input.articleKind = item.getArticleKind();
  input.articleId = item.getArticleId();
  input.name = item.getName();
  input.quantity = item.getQuantityText();
  input.unit = item.getUnit();
  input.price = item.getPriceText();
  return input;
}

void DocumentSession::insertItem(int index, const ItemInput& input) {
  noticeChanges();
  Host::DocumentItem& item = *document->insertItem(index);
  item.setArticle(input.articleKind, input.articleId);
  writeInput(item, input);
  company.getDocuments().loadAttached(item);
  markChanged();
  rememberAttachedData();
}

void DocumentSession::changeItem(int index, const ItemInput& input) {
  Host::DocumentItem& item = *document->getItem(index);
  if (!hasArticle(item, input)) {
    removeItem(index);
    insertItem(index, input);
    return;
  }
  if (isSame(getInput(index), input)) return;
  writeInput(item, input);
  markChanged();
}

bool DocumentSession::wouldLoseValues(int index, const ItemInput& input) const {
  Host::DocumentItem& item = *document->getItem(index);
  if (hasArticle(item, input)) return false;
  if (!getAttachedText(index).empty()) return true;
  Host::DocumentItem fresh(document.get());
  fresh.setArticle(item.getArticleKind(), item.getArticleId());
  writeInput(fresh, getInput(index));
  company.getDocuments().loadAttached(fresh);
  return Host::attachedDataToXml(item, company.getHooks()) != Host::attachedDataToXml(fresh, company.getHooks());
}

void DocumentSession::removeItem(int index) {
  noticeChanges();
  check.clear();
  document->removeItem(index);
  markChanged();
  rememberAttachedData();
}

void DocumentSession::moveItem(int index, int to) {
  noticeChanges();
  document->moveItem(index, to);
  markChanged();
  rememberAttachedData();
}

FXString DocumentSession::getAttachedText(int index) const {
  return company.getHooks().toString(document->getItem(index));
}

// ---- the stored document ----

void DocumentSession::take(std::unique_ptr<Host::Document> loaded) {
  check.clear();
  document = std::move(loaded);
  changed = false;
  rememberAttachedData();
}

bool DocumentSession::save(bool& stored, FXString& error) {
  stored = company.getDocuments().save(*document, error);
  return stored && loadAnew(error);
}

bool DocumentSession::loadAnew(FXString& error) {
  std::unique_ptr<Host::Document> loaded = company.getDocuments().load(document->getId(), error);
  if (!loaded) return false;
  take(std::move(loaded));
  return true;
}

bool DocumentSession::changeStatus(int status, FXString& error) {
  check.clear();
  Host::DocumentCheck closingCheck;
  if (!company.getDocumentLife(closingCheck).changeStatus(*document, status, error)) return false;
  changed = false;
  rememberAttachedData();
  return true;
}

int DocumentSession::derive(int status, FXString& error) const {
  Host::DocumentCheck closingCheck;
  return company.getDocumentLife(closingCheck).derive(document->getId(), status, error);
}

bool DocumentSession::deleteDocument(FXString& error) {
  Host::DocumentCheck closingCheck;
  if (!company.getDocumentLife(closingCheck).remove(document->getId(), error)) return false;
  release();
  return true;
}

bool DocumentSession::exportXml(const FXString& file, FXString& error) const {
  return XmlFile::write(company, document->getId(), document->getDisplayText(), file, error);
}

// ---- the check ----

void DocumentSession::runCheck(FXWindow* window) { check.run(*document, Host::DocumentCheck::kKeyPrefix, window); }

void DocumentSession::release() { take(std::make_unique<Host::Document>()); }

}  // namespace Quillane::Desktop
