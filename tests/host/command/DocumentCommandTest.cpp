// Checking, printing, exporting and saving a document.
#include <pugixml.hpp>

#include "tests/host/command/ProgramFixture.h"

namespace {

class DocumentCommand : public ProgramFixture {
 protected:
  DocumentCommand() { makeSample(); }
};

TEST_F(DocumentCommand, checkWritesTheMessages) {
  const ProgramRun result = run({"--json", "check", "8"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.errors, "");
  const Json messages = Json::parse(result.output);
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(
      messages[0].dump(),
      R"({"key":"INVOICE_ITEMDATAQUANTITYMORETHAN","severity":"error","text":"Egyéb tételadatok: Az összmennyiség )"
      R"((5) több, mint a tétellistában megadott (4).","location":"Számla: Tételek listája\n[Kimenő számla )"
      R"((piszkozat), Kőszegi Általános Iskola, #8]\n"})");
  EXPECT_EQ(messages[1]["key"], "INVOICE_ITEMDATAWANTED");
  EXPECT_EQ(messages[1]["severity"], "notice");
}

TEST_F(DocumentCommand, checkWritesOneLineAMessage) {
  const ProgramRun result = run({"check", "14"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output,
            "INVOICE_ITEMDATAQUANTITYLESSTHAN\terror\tEgyéb tételadatok: Az összmennyiség (0) kevesebb, mint a "
            "tétellistában megadott (10).\tSzámla: Tételek listája\\n[Bejövő díjbekérő, Szikra Tűzvédelem Kft., "
            "#14]\\n\n");
}

TEST_F(DocumentCommand, checkSucceedsWithNoticesOnly) {
  const ProgramRun result = run({"check", "10"});
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.output.find("\tnotice\t"), std::string::npos);
}

TEST_F(DocumentCommand, checkSucceedsSilentlyWhenAllIsWell) {
  const ProgramRun result = run({"check", "6"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.errors, "");
}

TEST_F(DocumentCommand, keepsQuantitiesTypedWithACommaAsTheModuleReadsThem) {
  ASSERT_EQ(run({"record", "6", "2", "-"}, "Mennyiség;Lejárat\n2,5;2025.06.30\n").status, 0);
  const ProgramRun result = run({"check", "6"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.output.find("(20) több, mint a tétellistában megadott (2.5)"), std::string::npos);
}

TEST_F(DocumentCommand, textWritesOneLineAnItem) {
  EXPECT_EQ(run({"text", "6"}).output,
            "1\tNB14-5A01, 2028.03.31, B raktár, 3. polc; NB14-5A02, 2028.03.31, B raktár, 3. polc\n"
            "2\tpapír; 1.25 kg 2025.06.30; 1.25 kg 2025.07.15\n"
            "3\tM-2025/015, 2025.03.10\n"
            "4\tszemélyes átvétel; IM-2025-0007, 2027.03.31\n"
            "5\t\n"
            "6\t\n");
  const Json texts = runJson({"text", "6"});
  ASSERT_EQ(texts.size(), 6u);
  EXPECT_EQ(texts[2].dump(), R"({"n":3,"text":"M-2025/015, 2025.03.10"})");
}

TEST_F(DocumentCommand, xmlIsTheDocument) {
  const ProgramRun result = run({"xml", "6"});
  EXPECT_EQ(result.status, 0);
  pugi::xml_document document;
  ASSERT_TRUE(document.load_string(result.output.c_str()));
  const pugi::xml_node invoice = document.child("invoice");
  EXPECT_STREQ(invoice.attribute("xmlns").value(), "urn:quillane:invoice");
  EXPECT_EQ(std::distance(invoice.children("item").begin(), invoice.children("item").end()), 6);
  const pugi::xml_node data = invoice.child("item").child("itemdata:itemdata");
  EXPECT_STREQ(data.child("itemdata:itemdata").attribute("name").value(), "Mennyiség");
  EXPECT_STREQ(data.child("itemdata:itemdata").text().get(), "1");
}

TEST_F(DocumentCommand, xmlIsXmlAlsoWhenJsonIsAskedFor) {
  EXPECT_EQ(run({"--json", "xml", "6"}).output, run({"xml", "6"}).output);
}

TEST_F(DocumentCommand, saveStoresTheDocumentAgain) {
  const std::string values = "select * from t_invoiceitemdata order by 1";
  const Grid before = query(values);
  EXPECT_EQ(runJson({"save", "6"}), Json({{"id", 6}}));
  EXPECT_EQ(run({"save", "6"}).output, "6\n");
  EXPECT_EQ(query(values), before);
  EXPECT_EQ(query("select version from t_invoice where t_invoice_id=6"), Grid({{"3"}}));
}

TEST_F(DocumentCommand, saveRefusesAClosedDocument) {
  const std::string before = dump();
  const ProgramRun result = run({"save", "10"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors.find("Lezárt"), std::string::npos);
  EXPECT_EQ(dump(), before);
}

TEST_F(DocumentCommand, refusesADocumentThatDoesNotExist) {
  for (const char* command : {"check", "text", "xml", "save"}) {
    const ProgramRun result = run({command, "99"});
    EXPECT_EQ(result.status, 1) << command;
    EXPECT_EQ(result.output, "") << command;
    EXPECT_NE(result.errors.find("#99"), std::string::npos) << command;
    EXPECT_EQ(run({command, "six"}).status, 2) << command;
    EXPECT_EQ(run({command}).status, 2) << command;
  }
}

}  // namespace
