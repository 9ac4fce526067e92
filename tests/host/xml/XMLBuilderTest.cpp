#include "plugin/contract/XMLBuilder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <pugixml.hpp>
#include <string>

#include "tests/host/xml/XmlLint.h"

using namespace FX;

namespace {

using Element = XMLBuilder::Element;

const std::string kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
const std::string kReplacement = "\xEF\xBF\xBD";

FXString fox(const std::string& text) { return FXString(text.data(), static_cast<FXint>(text.size())); }

std::string textOf(const XMLBuilder::Document& document) {
  const FXString text = document.toText();
  return std::string(text.text(), static_cast<std::size_t>(text.length()));
}

/// What a document that is no more than a root named r with this text looks like to a reader.
std::string readText(const std::string& text) {
  XMLBuilder::Document document("", "r");
  document.getRoot()->setText(fox(text));
  pugi::xml_document read;
  const pugi::xml_parse_result result =
      read.load_string(textOf(document).c_str(), pugi::parse_default | pugi::parse_ws_pcdata);
  EXPECT_TRUE(result) << result.description();
  return read.document_element().child_value();
}

std::string readAttribute(const std::string& value) {
  XMLBuilder::Document document("", "r");
  document.getRoot()->setAttribute("", "a", fox(value));
  pugi::xml_document read;
  const pugi::xml_parse_result result = read.load_string(textOf(document).c_str());
  EXPECT_TRUE(result) << result.description();
  return read.document_element().attribute("a").value();
}

TEST(XMLBuilder, putsTheRootIntoItsNamespaceAsTheDefault) {
  EXPECT_EQ(textOf(XMLBuilder::Document("urn:a", "root")), kHead + "<root xmlns=\"urn:a\"/>\n");
}

TEST(XMLBuilder, makesARootWithoutNamespace) {
  EXPECT_EQ(textOf(XMLBuilder::Document("", "root")), kHead + "<root/>\n");
}

TEST(XMLBuilder, writesElementsOfAModuleUnderItsPrefix) {
  XMLBuilder::Document document("urn:invoice", "invoice");
  Element* item = document.getRoot()->createElement("urn:invoice", "item");
  item->getDocument()->addNamespace("itemdata", "urn:data");
  Element* list = item->createElement("urn:data", "itemdata");
  Element* entry = list->createElement("urn:data", "itemdata");
  entry->setAttribute("", "row", "0");
  entry->setAttribute("", "name", "Szín");
  entry->setText("kék");
  list->createElement("urn:data", "itemdata");
  EXPECT_EQ(textOf(document), kHead +
                                  "<invoice xmlns=\"urn:invoice\" xmlns:itemdata=\"urn:data\">\n"
                                  "  <item>\n"
                                  "    <itemdata:itemdata>\n"
                                  "      <itemdata:itemdata row=\"0\" name=\"Szín\">kék</itemdata:itemdata>\n"
                                  "      <itemdata:itemdata/>\n"
                                  "    </itemdata:itemdata>\n"
                                  "  </item>\n"
                                  "</invoice>\n");
}

TEST(XMLBuilder, givesEveryNodeItsDocument) {
  XMLBuilder::Document document("", "root");
  EXPECT_EQ(document.getDocument(), &document);
  EXPECT_EQ(document.getRoot()->getDocument(), &document);
  EXPECT_EQ(document.getRoot()->createElement("", "child")->getDocument(), &document);
}

struct Written {
  std::string given;
  std::string text;       // as it stands in the document
  std::string attribute;  // likewise
};

TEST(XMLBuilder, escapesWhatHasAMeaningInXml) {
  const Written cases[] = {
      {"plain ő€\xF0\x9F\x98\x80", "plain ő€\xF0\x9F\x98\x80", "plain ő€\xF0\x9F\x98\x80"},
      {"a<b>c&d", "a&lt;b&gt;c&amp;d", "a&lt;b&gt;c&amp;d"},
      {"]]>", "]]&gt;", "]]&gt;"},
      {"'\"", "'\"", "'&quot;"},
      {"a\tb\nc\rd", "a\tb\nc&#13;d", "a&#9;b&#10;c&#13;d"},
      {"\r\n", "&#13;\n", "&#13;&#10;"},
      {"<![CDATA[x]]><!--y--><?z?>", "&lt;![CDATA[x]]&gt;&lt;!--y--&gt;&lt;?z?&gt;",
       "&lt;![CDATA[x]]&gt;&lt;!--y--&gt;&lt;?z?&gt;"},
      {"&#10;&amp;", "&amp;#10;&amp;amp;", "&amp;#10;&amp;amp;"},
  };
  for (const Written& written : cases) {
    SCOPED_TRACE(written.given);
    XMLBuilder::Document document("", "r");
    document.getRoot()->setAttribute("", "a", fox(written.given));
    document.getRoot()->setText(fox(written.given));
    EXPECT_EQ(textOf(document), kHead + "<r a=\"" + written.attribute + "\">" + written.text + "</r>\n");
    EXPECT_EQ(readText(written.given), written.given);
    EXPECT_EQ(readAttribute(written.given), written.given);
    EXPECT_EQ(lint(textOf(document)), "");
  }
}

TEST(XMLBuilder, keepsBlanksAtTheEndsOfTexts) {
  for (const char* text : {" ", "\n", "\t x \n", "  a  b  "}) {
    EXPECT_EQ(readText(text), text);
    EXPECT_EQ(readAttribute(text), text);
  }
}

TEST(XMLBuilder, replacesControlCharactersThatXmlCannotCarry) {
  for (int code = 0; code < 0x20; ++code) {
    SCOPED_TRACE(code);
    const std::string given = std::string("a") + static_cast<char>(code) + "b";
    const bool carried = code == '\t' || code == '\n' || code == '\r';
    const std::string expected = carried ? given : "a" + kReplacement + "b";
    EXPECT_EQ(readText(given), expected);
    EXPECT_EQ(readAttribute(given), expected);
  }
}

TEST(XMLBuilder, replacesWhatIsNoCharacter) {
  const std::string& r = kReplacement;
  const std::pair<std::string, std::string> cases[] = {
      {"\x7F", "\x7F"},                                          // carried, if discouraged
      {"\xC2\x80\xC2\x85", "\xC2\x80\xC2\x85"},                  // likewise
      {"\xEF\xBF\xBD", "\xEF\xBF\xBD"},                          // U+FFFD itself
      {"\xEF\xBF\xBE", r},                                       // U+FFFE
      {"\xEF\xBF\xBF", r},                                       // U+FFFF
      {"\xEF\xB7\x90", "\xEF\xB7\x90"},                          // U+FDD0: no character, but carried
      {"\xF0\x9F\xBF\xBE", "\xF0\x9F\xBF\xBE"},                  // U+1FFFE: likewise
      {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},                  // U+10FFFF
      {"\xF4\x90\x80\x80", r + r + r + r},                       // above
      {"\xED\x9F\xBF\xEE\x80\x80", "\xED\x9F\xBF\xEE\x80\x80"},  // around the surrogates
      {"\xED\xA0\x80", r + r + r},                               // a surrogate
      {"\xED\xBF\xBF", r + r + r},                               // the last one
      {"\xC0\x80", r + r},                                       // NUL, overlong
      {"\xC1\xBF", r + r},                                       // overlong
      {"\xE0\x9F\xBF", r + r + r},                               // overlong
      {"\xF0\x8F\xBF\xBF", r + r + r + r},                       // overlong
      {"\x80", r},                                               // alone
      {"a\xC3", "a" + r},                                        // cut off
      {"a\xE2\x82", "a" + r + r},                                // cut off
      {"\xC3(", r + "("},                                        // what follows survives
      {"\xF0\x9F\x98z", r + r + r + "z"},
      {"\xF8\x88\x80\x80\x80", r + r + r + r + r},  // five bytes
      {"\xFE\xFF", r + r},
      {"sz\xE9p", "sz" + r + "p"},  // Latin-1
  };
  for (const auto& [given, expected] : cases) {
    EXPECT_EQ(readText(given), expected);
    EXPECT_EQ(readAttribute(given), expected);
  }
}

TEST(XMLBuilder, isWellFormedWithEveryByteInEveryPlace) {
  std::string all;
  for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
  std::string backwards(all.rbegin(), all.rend());
  XMLBuilder::Document document(fox(all), fox(all));
  document.addNamespace(fox(all), fox(backwards));
  document.addNamespace(fox(all), "urn:b");
  Element* child = document.getRoot()->createElement(fox(backwards), fox(backwards));
  child->setAttribute(fox(backwards), fox(all), fox(all));
  child->setAttribute("", fox(all), fox(backwards));
  child->setText(fox(all));
  child->createElement("", fox(all))->setText(fox(backwards));
  EXPECT_EQ(lint(textOf(document)), "");
}

TEST(XMLBuilder, keepsTextsOf100KilobytesWhole) {
  std::string text;
  while (text.size() < 100000) text += "árvíztűrő \xF0\x9F\x98\x80 ]]>&<\"'\r\n\t";
  EXPECT_EQ(readText(text), text);
  EXPECT_EQ(readAttribute(text), text);
}

TEST(XMLBuilder, makesNamesOfTextsThatAreNone) {
  const std::pair<std::string, std::string> cases[] = {
      {"name", "name"},
      {"Egyéb-adat.1", "Egyéb-adat.1"},
      {"", "_"},
      {"a b", "a_b"},
      {"1st", "_1st"},
      {"-x", "_-x"},
      {"a:b", "a_b"},
      {"<&>", "___"},
      {"a\n", "a_"},
      {std::string("a\0b", 3), "a_b"},
      {"\xC3", "_"},
      {"\xC3\x97", "_"},          // U+00D7 is no letter
      {"\xC2\xB7", "_\xC2\xB7"},  // may not stand first
      {"\xF0\xA0\x80\x80", "\xF0\xA0\x80\x80"},
  };
  for (const auto& [given, expected] : cases) {
    SCOPED_TRACE(given);
    XMLBuilder::Document document("", fox(given));
    document.getRoot()->setAttribute("", fox(given), "v");
    document.getRoot()->createElement("", fox(given));
    EXPECT_EQ(textOf(document),
              kHead + "<" + expected + " " + expected + "=\"v\">\n  <" + expected + "/>\n</" + expected + ">\n");
    EXPECT_EQ(lint(textOf(document)), "");
  }
}

TEST(XMLBuilder, replacesAnAttributeThatIsSetAgain) {
  XMLBuilder::Document document("", "r");
  document.getRoot()->setAttribute("", "a", "1");
  document.getRoot()->setAttribute("", "b", "2");
  document.getRoot()->setAttribute("", "a", "3");
  EXPECT_EQ(textOf(document), kHead + "<r a=\"3\" b=\"2\"/>\n");
}

TEST(XMLBuilder, replacesATextThatIsSetAgainAndLeavesTheChildren) {
  XMLBuilder::Document document("", "r");
  document.getRoot()->createElement("", "c");
  document.getRoot()->setText("first");
  document.getRoot()->setText("second");
  EXPECT_EQ(textOf(document), kHead + "<r>second<c/></r>\n");
  document.getRoot()->setText("");
  EXPECT_EQ(textOf(document), kHead + "<r>\n  <c/>\n</r>\n");
  document.getRoot()->setText("");
  EXPECT_EQ(textOf(document), kHead + "<r>\n  <c/>\n</r>\n");
}

TEST(XMLBuilder, addsNoWhiteSpaceBesideATextOrInsideIt) {
  XMLBuilder::Document document("", "r");
  Element* mixed = document.getRoot()->createElement("", "m");
  mixed->setText(" text ");
  mixed->createElement("", "c")->createElement("", "d");
  mixed->createElement("", "e");
  EXPECT_EQ(textOf(document), kHead + "<r>\n  <m> text <c>\n      <d/>\n    </c><e/></m>\n</r>\n");
}

TEST(XMLBuilder, keepsTheFirstPrefixOfANamespace) {
  XMLBuilder::Document document("urn:a", "r");
  document.addNamespace("p", "urn:b");
  document.addNamespace("q", "urn:b");
  document.getRoot()->createElement("urn:b", "c");
  EXPECT_EQ(textOf(document), kHead + "<r xmlns=\"urn:a\" xmlns:p=\"urn:b\">\n  <p:c/>\n</r>\n");
}

TEST(XMLBuilder, changesAPrefixThatAnotherNamespaceHas) {
  XMLBuilder::Document document("urn:a", "r");
  document.addNamespace("p", "urn:b");
  document.addNamespace("p", "urn:c");
  document.addNamespace("p", "urn:d");
  document.addNamespace("p1", "urn:e");
  document.getRoot()->createElement("urn:d", "x");
  EXPECT_EQ(textOf(document), kHead +
                                  "<r xmlns=\"urn:a\" xmlns:p=\"urn:b\" xmlns:p1=\"urn:c\" xmlns:p2=\"urn:d\" "
                                  "xmlns:p11=\"urn:e\">\n  <p2:x/>\n</r>\n");
}

TEST(XMLBuilder, declaresNamespacesThatNobodyDeclared) {
  XMLBuilder::Document document("urn:a", "r");
  Element* child = document.getRoot()->createElement("urn:b", "c");
  child->setAttribute("urn:c", "d", "1");
  child->setAttribute("urn:b", "e", "2");
  child->createElement("urn:c", "f");
  EXPECT_EQ(textOf(document), kHead +
                                  "<r xmlns=\"urn:a\" xmlns:ns=\"urn:b\" xmlns:ns1=\"urn:c\">\n"
                                  "  <ns:c ns1:d=\"1\" ns:e=\"2\">\n    <ns1:f/>\n  </ns:c>\n</r>\n");
  EXPECT_EQ(lint(textOf(document)), "");
}

TEST(XMLBuilder, doesNotMixUpNamespacesWhenTheyTakeTurns) {
  XMLBuilder::Document document("urn:a", "r");
  for (int i = 0; i < 2; ++i) {
    document.getRoot()->createElement("urn:b", "x");
    document.getRoot()->createElement("urn:c", "x");
    document.getRoot()->createElement("urn:a", "x");
  }
  EXPECT_EQ(textOf(document), kHead +
                                  "<r xmlns=\"urn:a\" xmlns:ns=\"urn:b\" xmlns:ns1=\"urn:c\">\n"
                                  "  <ns:x/>\n  <ns1:x/>\n  <x/>\n  <ns:x/>\n  <ns1:x/>\n  <x/>\n</r>\n");
}

TEST(XMLBuilder, doesNotMixUpNamesWhenTheyTakeTurns) {
  XMLBuilder::Document document("urn:a", "r");
  for (const char* name : {"x", "y", "x", "", "1", ""}) {
    document.getRoot()->createElement("urn:b", name);
    document.getRoot()->createElement("urn:a", name);
  }
  EXPECT_EQ(textOf(document), kHead +
                                  "<r xmlns=\"urn:a\" xmlns:ns=\"urn:b\">\n"
                                  "  <ns:x/>\n  <x/>\n  <ns:y/>\n  <y/>\n  <ns:x/>\n  <x/>\n"
                                  "  <ns:_/>\n  <_/>\n  <ns:_1/>\n  <_1/>\n  <ns:_/>\n  <_/>\n</r>\n");
}

TEST(XMLBuilder, takesNoReservedPrefix) {
  XMLBuilder::Document document("", "r");
  document.addNamespace("xml", "urn:a");
  document.addNamespace("XMLNS", "urn:b");
  document.addNamespace("", "urn:c");
  document.addNamespace("a:b", "urn:d");
  document.addNamespace("p", "");
  document.addNamespace("p", "http://www.w3.org/2000/xmlns/");
  document.addNamespace("p", "http://www.w3.org/XML/1998/namespace");
  EXPECT_EQ(textOf(document),
            kHead + "<r xmlns:_xml=\"urn:a\" xmlns:_XMLNS=\"urn:b\" xmlns:ns=\"urn:c\" xmlns:a_b=\"urn:d\"/>\n");
  EXPECT_EQ(lint(textOf(document)), "");
}

TEST(XMLBuilder, knowsTheNamespacesThatXmlKeepsForItself) {
  XMLBuilder::Document document("http://www.w3.org/2000/xmlns/", "r");
  document.getRoot()->setAttribute("http://www.w3.org/XML/1998/namespace", "lang", "hu");
  document.getRoot()->setAttribute("http://www.w3.org/2000/xmlns/", "p", "urn:p");
  EXPECT_EQ(textOf(document), kHead + "<r xml:lang=\"hu\" p=\"urn:p\"/>\n");
}

TEST(XMLBuilder, doesNotLetAnAttributeChangeTheNamespace) {
  XMLBuilder::Document document("urn:a", "r");
  document.getRoot()->setAttribute("", "xmlns", "urn:b");
  document.getRoot()->setAttribute("", "xmlns:p", "urn:c");
  EXPECT_EQ(textOf(document), kHead + "<r xmlns=\"urn:a\" _xmlns=\"urn:b\" xmlns_p=\"urn:c\"/>\n");
}

TEST(XMLBuilder, putsAnElementWithoutNamespaceReallyIntoNone) {
  XMLBuilder::Document document("urn:a", "r");
  Element* none = document.getRoot()->createElement("", "none");
  none->createElement("", "none")->createElement("urn:a", "root")->createElement("urn:a", "root");
  none->createElement("urn:b", "other")->createElement("", "none");
  document.getRoot()->createElement("urn:a", "root");
  EXPECT_EQ(textOf(document), kHead +
                                  "<r xmlns=\"urn:a\" xmlns:ns=\"urn:b\">\n"
                                  "  <none xmlns=\"\">\n"
                                  "    <none>\n"
                                  "      <root xmlns=\"urn:a\">\n"
                                  "        <root/>\n"
                                  "      </root>\n"
                                  "    </none>\n"
                                  "    <ns:other>\n"
                                  "      <none/>\n"
                                  "    </ns:other>\n"
                                  "  </none>\n"
                                  "  <root/>\n"
                                  "</r>\n");
  EXPECT_EQ(lint(textOf(document)), "");
}

TEST(XMLBuilder, givesAttributesInTheRootsNamespaceAPrefix) {
  XMLBuilder::Document document("urn:a", "r");
  document.addNamespace("p", "urn:a");
  document.getRoot()->setAttribute("urn:a", "x", "1");
  document.getRoot()->createElement("urn:a", "c");
  EXPECT_EQ(textOf(document), kHead + "<r xmlns=\"urn:a\" xmlns:p=\"urn:a\" p:x=\"1\">\n  <c/>\n</r>\n");
}

TEST(XMLBuilder, writesDeepDocuments) {
  constexpr int depth = 10000;
  XMLBuilder::Document document("", "r");
  Element* element = document.getRoot();
  for (int i = 0; i < depth; ++i) element = element->createElement("", "d");
  element->setText("deep");
  const std::string text = textOf(document);
  EXPECT_NE(text.find("<d>deep</d>"), std::string::npos);
  EXPECT_EQ(text.substr(text.size() - 5), "</r>\n");
}

TEST(XMLBuilder, buildsFortyThousandElementsInNoTime) {
  const auto start = std::chrono::steady_clock::now();
  XMLBuilder::Document document("urn:invoice", "invoice");
  for (int i = 0; i < 40000; ++i) {
    Element* element = document.getRoot()->createElement("urn:data", "itemdata");
    element->setAttribute("", "row", FXStringVal(i));
    element->setAttribute("", "name", "Gyári szám");
    element->setText("érték");
  }
  const std::string text = textOf(document);
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  EXPECT_LT(seconds.count(), 5);  // takes a few hundredths
  EXPECT_NE(text.find("<ns:itemdata row=\"39999\" name=\"Gyári szám\">érték</ns:itemdata>\n</invoice>"),
            std::string::npos);
}

}  // namespace
