#include "host/xml/DocumentXml.h"

#include <gtest/gtest.h>

#include <string>

#include "plugin/contract/XMLBuilder.h"
#include "tests/host/document/RecordingHook.h"
#include "tests/host/xml/XmlLint.h"

using namespace FX;

namespace Quillane::Host {
namespace {

const std::string kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
const std::string kInvoiceSchema = QUILLANE_DATA_FOLDER "/invoice.xsd";

/// Writes one element with the text of the item's name, as the module for item data does.
class ItemDataHook : public RecordingHook {
 public:
  explicit ItemDataHook(const char* nameSpace, const char* elementName = "itemdata")
      : RecordingHook("x", {1, 1, 1, 1, 1}), uri(nameSpace), name(elementName) {}

  int toXml(Entity* entity, XMLBuilder::Element* element) const override {
    element->getDocument()->addNamespace("itemdata", uri);
    XMLBuilder::Element* entry = element->createElement(uri, name)->createElement(uri, name);
    entry->setAttribute("", "row", "1");
    entry->setAttribute("", "name", static_cast<DocumentItem*>(entity)->getName());
    entry->setText(static_cast<DocumentItem*>(entity)->getName());
    return 1;
  }

 private:
  FXString uri;
  FXString name;
};

std::string xmlOf(const Document& document, const EntityHooks& hooks = {}) {
  return documentToXml(document, hooks).text();
}

TEST(DocumentXml, ofANewDocumentHasItsStatusAndNoMore) {
  Document document;
  document.setStatus(101, false);
  EXPECT_EQ(xmlOf(document), kHead + "<invoice xmlns=\"urn:quillane:invoice\" status=\"101\" version=\"0\"/>\n");
  EXPECT_EQ(lint(xmlOf(document), kInvoiceSchema), "");
}

TEST(DocumentXml, hasEveryField) {
  Document document;
  document.setId(12);
  document.setNumber("2026/3");
  document.setPartnerNumber("SZ-9");
  document.setStatus(152, true);
  document.setIssueDate("2026-02-03");
  document.setPartner(4, "Kovács és Tsa. \"Bt.\"");
  document.setCancelledDocumentId(11);
  document.setVersion(3);
  DocumentItem* first = document.addItem();
  first->setArticle(InvoiceItem::ARTICLE_PRODUCT, 5);
  first->setName("Kábel <3 × 1,5>");
  first->setQuantityText("1 234,50");
  first->setUnit("m");
  first->setPriceText("689.5");
  document.addItem();
  EXPECT_EQ(xmlOf(document),
            kHead +
                "<invoice xmlns=\"urn:quillane:invoice\" id=\"12\" number=\"2026/3\" partnernumber=\"SZ-9\" "
                "status=\"152\" issuedate=\"2026-02-03\" partner=\"4\" partnername=\"Kovács és Tsa. &quot;Bt.&quot;\" "
                "cancels=\"11\" version=\"3\">\n"
                "  <item n=\"1\" articlekind=\"1\" articleid=\"5\" name=\"Kábel &lt;3 × 1,5&gt;\" quantity=\"1234.5\" "
                "unit=\"m\" price=\"689.5\"/>\n"
                "  <item n=\"2\" articlekind=\"0\" quantity=\"0\"/>\n"
                "</invoice>\n");
  EXPECT_EQ(lint(xmlOf(document), kInvoiceSchema), "");
}

TEST(DocumentXml, leavesOutAPriceThatIsNoNumber) {
  Document document;
  document.addItem()->setPriceText("megegyezés szerint");
  EXPECT_EQ(xmlOf(document).find("price"), std::string::npos);
}

TEST(DocumentXml, holdsWhatModulesAddToTheirItems) {
  Document document;
  document.addItem()->setName("A");
  document.addItem()->setName("B");
  const ItemDataHook hook("urn:quillane:plugin:itemdata");
  EntityHooks hooks;
  hooks.add(&hook);
  EXPECT_EQ(xmlOf(document, hooks), kHead +
                                        "<invoice xmlns=\"urn:quillane:invoice\" status=\"0\" version=\"0\" "
                                        "xmlns:itemdata=\"urn:quillane:plugin:itemdata\">\n"
                                        "  <item n=\"1\" articlekind=\"0\" name=\"A\" quantity=\"0\">\n"
                                        "    <itemdata:itemdata>\n"
                                        "      <itemdata:itemdata row=\"1\" name=\"A\">A</itemdata:itemdata>\n"
                                        "    </itemdata:itemdata>\n"
                                        "  </item>\n"
                                        "  <item n=\"2\" articlekind=\"0\" name=\"B\" quantity=\"0\">\n"
                                        "    <itemdata:itemdata>\n"
                                        "      <itemdata:itemdata row=\"1\" name=\"B\">B</itemdata:itemdata>\n"
                                        "    </itemdata:itemdata>\n"
                                        "  </item>\n"
                                        "</invoice>\n");
  EXPECT_EQ(lint(xmlOf(document, hooks), kInvoiceSchema), "");
}

TEST(AttachedDataXml, holdsWhatModulesAddAndNothingElse) {
  Document document;
  DocumentItem& item = *document.addItem();
  item.setName("A");
  const ItemDataHook hook("urn:quillane:plugin:itemdata");
  EntityHooks hooks;
  hooks.add(&hook);
  const FXString text = attachedDataToXml(item, hooks);
  EXPECT_NE(text.find(">A</itemdata:itemdata>"), -1);
  item.setPriceText("5");
  item.setQuantityText("7");
  EXPECT_EQ(attachedDataToXml(item, hooks), text);
  item.setName("B");  // which this module repeats
  EXPECT_NE(attachedDataToXml(item, hooks), text);
  EXPECT_EQ(attachedDataToXml(item, EntityHooks()).find("itemdata"), -1);
}

TEST(DocumentXml, letsAnyModuleAddWhatTheSchemaDoesNotKnow) {
  Document document;
  document.addItem();
  const ItemDataHook hook("urn:somebody:else", "extra");
  EntityHooks hooks;
  hooks.add(&hook);
  EXPECT_EQ(lint(xmlOf(document, hooks), kInvoiceSchema), "");
}

TEST(DocumentXml, isValidWithHostileTexts) {
  std::string all;
  for (int code = 1; code < 256; ++code) all += static_cast<char>(code);
  const FXString hostile = all.c_str() + FXString("]]> %name '; drop table t_invoice; -- \xEF\xBF\xBE\xF0\x9F\x98\x80");
  Document document;
  document.setNumber(hostile);
  document.setPartnerNumber(hostile);
  document.setIssueDate(hostile);
  document.setPartner(1, hostile);
  DocumentItem* item = document.addItem();
  item->setName(hostile);
  item->setUnit(hostile);
  item->setQuantityText(hostile);
  item->setPriceText(hostile);
  const ItemDataHook hook("urn:quillane:plugin:itemdata");
  EntityHooks hooks;
  hooks.add(&hook);
  EXPECT_EQ(lint(xmlOf(document, hooks), kInvoiceSchema), "");
}

TEST(DocumentXmlSchemas, refuseWhatIsNoExportedDocument) {
  const std::string invoice = "<invoice xmlns=\"urn:quillane:invoice\" status=\"101\" version=\"0\"";
  EXPECT_EQ(lint(kHead + invoice + "/>", kInvoiceSchema), "");
  EXPECT_NE(lint(kHead + "<invoice status=\"101\" version=\"0\"/>", kInvoiceSchema), "");
  EXPECT_NE(lint(kHead + invoice + " colour=\"red\"/>", kInvoiceSchema), "");
  EXPECT_NE(lint(kHead + invoice + " id=\"0\"/>", kInvoiceSchema), "");
  EXPECT_NE(lint(kHead + invoice + "><item n=\"1\" articlekind=\"0\" quantity=\"1,5\"/></invoice>", kInvoiceSchema),
            "");
  EXPECT_NE(lint(kHead + invoice + "><other/></invoice>", kInvoiceSchema), "");
  const std::string item = invoice + "><item n=\"1\" articlekind=\"0\" quantity=\"1\">";
  const std::string end = "</item></invoice>";
  const std::string data = "<d:itemdata xmlns:d=\"urn:quillane:plugin:itemdata\">";
  EXPECT_EQ(
      lint(kHead + item + data + "<d:itemdata row=\"0\" name=\"n\">v</d:itemdata></d:itemdata>" + end, kInvoiceSchema),
      "");
  EXPECT_NE(lint(kHead + item + data + "<d:itemdata row=\"0\">v</d:itemdata></d:itemdata>" + end, kInvoiceSchema), "");
  EXPECT_NE(lint(kHead + item + data + "<d:other/></d:itemdata>" + end, kInvoiceSchema), "");
}

TEST(DocumentXmlSchemas, ofItemDataStandsAlone) {
  const std::string schema = QUILLANE_DATA_FOLDER "/itemdata.xsd";
  const std::string open = "<itemdata xmlns=\"urn:quillane:plugin:itemdata\">";
  EXPECT_EQ(lint(kHead + open + "<itemdata row=\"1\" name=\"\"/></itemdata>", schema), "");
  EXPECT_NE(lint(kHead + open + "<itemdata row=\"a\" name=\"\"/></itemdata>", schema), "");
}

}  // namespace
}  // namespace Quillane::Host
