// A chain of documents from an empty company on, made with nothing but the command line.
#include "tests/host/command/ProgramFixture.h"

namespace {

class Chain : public ProgramFixture {
 protected:
  Chain() { makeEmpty(); }

  int derive(int source, const std::string& status) const {
    return runJson({"derive", std::to_string(source), status})["id"].get<int>();
  }

  /// Closes a document and returns its number.
  std::string close(int document, const std::string& status) const {
    return runJson({"status", std::to_string(document), status})["number"].get<std::string>();
  }

  void record(int document, const std::string& place, const std::string& table) const {
    const ProgramRun result = run({"record", std::to_string(document), place, "-"}, table);
    EXPECT_EQ(result.status, 0) << result.errors;
  }

  /// The items of a document with the quantities of their rows: "Kazán 5: 1=3 2=2".
  std::vector<std::string> quantitiesOf(int document) const {
    std::vector<std::string> lines;
    const Json shown = runJson({"show", std::to_string(document)});
    for (const Json& item : shown["items"]) {
      std::string line = item["name"].get<std::string>() + " " + item["quantity"].get<std::string>() + ":";
      for (const Json& value : item["values"]) {
        if (value["name"] != "Mennyiség") continue;
        line += " " + std::to_string(value["row"].get<int>()) + "=" + value["value"].get<std::string>();
      }
      lines.push_back(line);
    }
    return lines;
  }

  /// What can still be derived; the draft that was made to find out is deleted again.
  std::vector<std::string> openOf(int source, const std::string& status = "101") const {
    const int draft = derive(source, status);
    const std::vector<std::string> quantities = quantitiesOf(draft);
    EXPECT_EQ(run({"delete", std::to_string(draft)}).status, 0);
    return quantities;
  }

  void expectNothingOpen(int source, const std::string& status) const {
    const ProgramRun result = run({"derive", std::to_string(source), status});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find("Egyetlen tételének sincs nyitott mennyisége"), std::string::npos);
  }

  using Lines = std::vector<std::string>;
};

TEST_F(Chain, fromTheOrderToTheCancelledInvoiceAndOn) {
  add({"partner", "--name", "Vevő Kft."});
  add({"variable", "--name", "Gyári szám", "--type", "text", "--per-unit", "--mandatory"});
  add({"product", "--name", "Kazán", "--unit", "db", "--price", "100000"});
  add({"product", "--name", "Cső", "--unit", "m", "--price", "900"});
  for (const char* product : {"1", "2"})
    add({"assignment", "--product", product, "--variable", "1", "--direction", "out"});

  const int order = add({"document", "--status", "801", "--partner", "1"});
  add({"item", "--document", std::to_string(order), "--product", "1", "--quantity", "5"});
  const int note = derive(order, "401");
  EXPECT_EQ(run({"status", std::to_string(note), "451"}).status, 1) << "no serial numbers yet";
  record(note, "1", "Mennyiség,Gyári szám\n3,A\n2,B\n");

  // Invoiced before the delivery note is complete: the pipe is added to it afterwards.
  const int first = derive(note, "101");
  EXPECT_EQ(quantitiesOf(first), Lines({"Kazán 5: 1=3 2=2"}));
  EXPECT_EQ(openOf(note), Lines({"Kazán 5: 1=3 2=2"})) << "a draft takes nothing";
  EXPECT_EQ(close(first, "151"), "1");
  expectNothingOpen(note, "101");

  add({"item", "--document", std::to_string(note), "--product", "2", "--quantity", "0,3"});
  record(note, "2", "Mennyiség,Gyári szám\n0.1,C\n0.2,D\n");
  EXPECT_EQ(close(note, "451"), "1");
  expectNothingOpen(order, "401");

  const int second = derive(note, "101");
  EXPECT_EQ(quantitiesOf(second), Lines({"Cső 0.3: 1=0.1 2=0.2"}));
  EXPECT_EQ(close(second, "151"), "2");
  expectNothingOpen(note, "101");

  const int cancelling = derive(first, "152");
  EXPECT_EQ(quantitiesOf(cancelling), quantitiesOf(first));
  EXPECT_EQ(runJson({"show", std::to_string(cancelling)})["number"], "1");
  EXPECT_EQ(run({"derive", std::to_string(first), "152"}).status, 1);

  const int third = derive(note, "101");
  EXPECT_EQ(quantitiesOf(third), Lines({"Kazán 5: 1=3 2=2"}));
  EXPECT_EQ(close(third, "151"), "3");
  expectNothingOpen(note, "101");

  EXPECT_EQ(run({"delete", std::to_string(order)}).status, 1);
  EXPECT_EQ(run({"delete", std::to_string(third)}).status, 1);
}

TEST_F(Chain, goesOnFromASampleInvoiceThatTookAPart) {
  ASSERT_EQ(run({"init", "--sample"}).status, 0);
  const Lines rest = {"Zománcfesték, selyemfényű 3: 1=1 2=2", "Porral oltó tűzoltó készülék, 6 kg 1: 2=1"};
  EXPECT_EQ(openOf(19), rest);
  EXPECT_EQ(quantitiesOf(21), rest) << "the sample's own draft with the rest";

  EXPECT_EQ(close(21, "151"), "5");
  expectNothingOpen(19, "101");
  derive(20, "152");
  EXPECT_EQ(openOf(19), Lines({"Zománcfesték, selyemfényű 2: 1=2", "Porral oltó tűzoltó készülék, 6 kg 1: 1=1"}));
  derive(21, "152");
  EXPECT_EQ(openOf(19),
            Lines({"Zománcfesték, selyemfényű 5: 1=3 2=2", "Porral oltó tűzoltó készülék, 6 kg 2: 1=1 2=1"}));
}

}  // namespace
