// Recording item data from tables: what is stored, and everything that is refused with nothing changed.
#include <filesystem>

#include "tests/host/command/ProgramFixture.h"

namespace {

/// Documents of the sample: 6 is a draft whose items are 1 a product with per-unit fields (Gyári szám, Garancia vége,
/// Tárolási hely), 2 a product with a list for the item (Csomagolás) and a date for the unit (Lejárat), 3 a service
/// with per-item fields only (Szerződésszám, Teljesítés napja), 5 a product without fields, 6 an item without article.
class RecordCommand : public ProgramFixture {
 protected:
  RecordCommand() { makeSample(); }

  Json record(const std::string& document, const std::string& place, const std::string& table) const {
    return runJson({"record", document, place, writeFile("table.csv", table)});
  }

  /// Variable, row and value of what is stored for an item, in the order of storing.
  Grid stored(int item) const {
    return query("select t_itemvariable_1, row, value from t_invoiceitemdata where t_invoiceitem_1=" +
                 std::to_string(item) + " order by t_invoiceitemdata_id");
  }

  /// Expects that table is refused with this sentence, and that nothing changed.
  void expectRefused(const std::string& document, const std::string& place, const std::string& table,
                     const std::string& sentence) const {
    ProgramFixture::expectRefused({"record", document, place, writeFile("table.csv", table)}, sentence);
  }
};

TEST_F(RecordCommand, replacesWhatIsStored) {
  EXPECT_EQ(record("6", "1",
                   "Mennyiség,Tárolási hely,Gyári szám,Garancia vége\n"
                   "1,Á polc,N-1,2030-01-01\n"
                   "1,,N-2,\n"),
            Json({{"rows", 2}, {"values", 8}}));
  EXPECT_EQ(stored(7), Grid({{"-1", "1", "1"},
                             {"1", "1", "N-1"},
                             {"4", "1", "2030-01-01"},
                             {"2", "1", "Á polc"},
                             {"-1", "2", "1"},
                             {"1", "2", "N-2"},
                             {"4", "2", ""},
                             {"2", "2", ""}}));
}

TEST_F(RecordCommand, touchesNoOtherItem) {
  const std::string others = "select * from t_invoiceitemdata where t_invoiceitem_1<>7 order by 1";
  const Grid before = query(others);
  record("6", "1", "Gyári szám\nN-1\n");
  EXPECT_EQ(query(others), before);
}

TEST_F(RecordCommand, writesPlainCounts) {
  const ProgramRun result = run({"record", "6", "1", "-"}, "Gyári szám\nN-1\nN-2\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "2\t8\n");
  EXPECT_EQ(result.errors, "");
}

TEST_F(RecordCommand, countsEveryRowAsOneWithoutAQuantityColumn) {
  record("6", "1", "Gyári szám\nN-1\nN-2\n");
  EXPECT_EQ(
      query("select row, value from t_invoiceitemdata where t_invoiceitem_1=7 and t_itemvariable_1=-1 order by 1"),
      Grid({{"1", "1"}, {"2", "1"}}));
}

TEST_F(RecordCommand, takesFieldsOfTheItemFromTheFirstLine) {
  EXPECT_EQ(record("6", "2", "Csomagolás;Mennyiség;Lejárat\npapír;2;2025-01-01\nfólia;0.5;2025-02-02\n"),
            Json({{"rows", 2}, {"values", 5}}));
  EXPECT_EQ(stored(8), Grid({{"12", "0", "papír"},
                             {"-1", "1", "2"},
                             {"3", "1", "2025-01-01"},
                             {"-1", "2", "0.5"},
                             {"3", "2", "2025-02-02"}}));
}

TEST_F(RecordCommand, storesAnEmptyValueForEveryFieldThatIsNotInTheTable) {
  record("6", "2", "Mennyiség\n2.5\n");
  EXPECT_EQ(stored(8), Grid({{"12", "0", ""}, {"-1", "1", "2.5"}, {"3", "1", ""}}));
  EXPECT_EQ(run({"check", "6"}).status, 1);
}

TEST_F(RecordCommand, recordsAnItemWithFieldsForTheWholeItemOnly) {
  EXPECT_EQ(record("6", "3", "Teljesítés napja\tSzerződésszám\n2025-04-01\tM-7\n"), Json({{"rows", 0}, {"values", 2}}));
  EXPECT_EQ(stored(9), Grid({{"7", "0", "M-7"}, {"9", "0", "2025-04-01"}}));
}

TEST_F(RecordCommand, recordsFieldsOfTheDocumentsDirection) {
  EXPECT_EQ(record("14", "1", "Gyári szám;Lejárat\nA;2030-01-01\n"), Json({{"rows", 1}, {"values", 3}}));
  EXPECT_EQ(stored(24), Grid({{"-1", "1", "1"}, {"1", "1", "A"}, {"3", "1", "2030-01-01"}}));
  expectRefused("14", "1", "Szállítás módja\nfutár\n", "1. sor: a tételnek nincs „Szállítás módja” nevű mezője");
}

TEST_F(RecordCommand, recordsOnAnOrderAndOnADeliveryNoteWhatIsAskedForOnOutgoingDocuments) {
  EXPECT_EQ(record("1", "1", "Gyári szám;Garancia vége;Tárolási hely\nA;B;C\n")["values"], 4);
  EXPECT_EQ(record("2", "1", "Csomagolás;Lejárat\npapír;B\n")["values"], 3);
}

TEST_F(RecordCommand, recordsServicesAndSuites) {
  EXPECT_EQ(record("6", "4", "Szállítás módja,Gyári szám\nfutár,X\n")["values"], 4);
  EXPECT_EQ(stored(10), Grid({{"11", "0", "futár"}, {"-1", "1", "1"}, {"1", "1", "X"}, {"4", "1", ""}}));
}

TEST_F(RecordCommand, keepsValuesExactlyAsTyped) {
  record("6", "1", "Mennyiség;Gyári szám;Garancia vége;Tárolási hely\n 1 234,50 ; két szóköz ;holnap;00\n");
  EXPECT_EQ(stored(7),
            Grid({{"-1", "1", " 1 234,50 "}, {"1", "1", " két szóköz "}, {"4", "1", "holnap"}, {"2", "1", "00"}}));
}

TEST_F(RecordCommand, doesNotWriteAZero) {
  EXPECT_EQ(record("6", "1", "Mennyiség;Gyári szám;Garancia vége;Tárolási hely\n0;A;0;0\n1;0;0.0; 0\n"),
            Json({{"rows", 2}, {"values", 4}}));
  EXPECT_EQ(stored(7), Grid({{"1", "1", "A"}, {"-1", "2", "1"}, {"4", "2", "0.0"}, {"2", "2", " 0"}}));
}

TEST_F(RecordCommand, storesTheChoiceOfAListWithoutTheBlanksAroundIt) {
  record("8", "1", "Szín;Kiszerelés\n fehér ;  2.5 l\nkék; \n");
  EXPECT_EQ(stored(15), Grid({{"-1", "1", "1"},
                              {"5", "1", "fehér"},
                              {"6", "1", "2.5 l"},
                              {"-1", "2", "1"},
                              {"5", "2", "kék"},
                              {"6", "2", ""}}));
}

TEST_F(RecordCommand, whatItRecordsIsWhatASaveStores) {
  record("8", "1", "Mennyiség;Szín;Kiszerelés\n1;fehér;2.5 l\n3;zöld;\n");
  const std::string values =
      "select t_invoiceitem_1, t_itemvariable_1, row, value from t_invoiceitemdata order by 1, 3, 2";
  const Grid before = query(values);
  EXPECT_EQ(run({"save", "8"}).status, 0);
  EXPECT_EQ(query(values), before);
  EXPECT_EQ(run({"check", "8"}).status, 0);
}

TEST_F(RecordCommand, letsTheVersionGrow) {
  record("6", "1", "Gyári szám\nN-1\n");
  EXPECT_EQ(query("select version from t_invoice where t_invoice_id=6"), Grid({{"2"}}));
}

TEST_F(RecordCommand, acceptsAByteOrderMarkAndCarriageReturns) {
  record("6", "1", "\xEF\xBB\xBFGyári szám;Tárolási hely\r\nN-1;\"két\r\nsor\"\r\n\r\nN-2;B\r\n");
  EXPECT_EQ(stored(7), Grid({{"-1", "1", "1"},
                             {"1", "1", "N-1"},
                             {"4", "1", ""},
                             {"2", "1", "két\r\nsor"},
                             {"-1", "2", "1"},
                             {"1", "2", "N-2"},
                             {"4", "2", ""},
                             {"2", "2", "B"}}));
}

TEST_F(RecordCommand, readsStandardInput) {
  EXPECT_EQ(runJson({"record", "6", "1", "-"}, "Gyári szám\nN-1"), Json({{"rows", 1}, {"values", 4}}));
}

TEST_F(RecordCommand, aHeaderAloneLeavesNoUnitRows) {
  EXPECT_EQ(record("6", "2", "Mennyiség;Lejárat\n"), Json({{"rows", 0}, {"values", 1}}));
  EXPECT_EQ(stored(8), Grid({{"12", "0", ""}}));
}

TEST_F(RecordCommand, aLineWithFewerCellsLeavesTheRestEmpty) {
  record("6", "1", "Gyári szám;Garancia vége;Tárolási hely\nN-1\n");
  EXPECT_EQ(stored(7), Grid({{"-1", "1", "1"}, {"1", "1", "N-1"}, {"4", "1", ""}, {"2", "1", ""}}));
}

TEST_F(RecordCommand, acceptsTheNameThatTheQuantityWasGiven) {
  change("update t_itemvariable set name='Darab' where t_itemvariable_id=-1");
  record("6", "1", "Darab;Gyári szám\n3;A\n");
  EXPECT_EQ(stored(7)[0], std::vector<std::string>({"-1", "1", "3"}));
  record("6", "1", "Mennyiség;Gyári szám\n4;A\n");
  EXPECT_EQ(stored(7)[0], std::vector<std::string>({"-1", "1", "4"}));
  expectRefused("6", "1", "Mennyiség;Darab\n4;4\n", "többször szerepel");
}

TEST_F(RecordCommand, asksOnceForAFieldThatIsAssignedTwice) {
  change("insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) values (1, 1, 9, 100)");
  EXPECT_EQ(record("6", "1", "Gyári szám\nN-1\n"), Json({{"rows", 1}, {"values", 4}}));
}

TEST_F(RecordCommand, passesOverFieldsOfUnknownTypes) {
  change(
      "insert into t_itemvariable (t_itemvariable_id, name, type, process) values (50, 'ismeretlen', 4, 1);"
      "insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) values (1, 50, 9, 100)");
  EXPECT_EQ(record("6", "1", "Gyári szám\nN-1\n")["values"], 4);
  expectRefused("6", "1", "ismeretlen\nx\n", "nincs „ismeretlen” nevű mezője");
}

TEST_F(RecordCommand, storesHostileValuesAsTheyAre) {
  const std::vector<std::string> values = {"it's \"quoted\"",
                                           "%t_invoiceitem_1 %row %s %n",
                                           "a;b,c\td",
                                           "back\\slash\\n",
                                           "first\nsecond\r\nthird",
                                           "'); drop table t_invoice; --",
                                           "😀🇭🇺 árvíztűrő tükörfúrógép",
                                           "\xFF\xFE latin2 \xE9\xF5",
                                           "\x01\x1F control",
                                           std::string(100 * 1024, 'x') + "é"};
  for (const std::string& value : values) {
    std::string quoted;
    for (char byte : value) quoted += byte == '"' ? std::string("\"\"") : std::string(1, byte);
    ASSERT_EQ(record("6", "1", "Gyári szám;Tárolási hely\n\"" + quoted + "\";x\n")["rows"], 1);
    EXPECT_EQ(stored(7)[1][2], value);

    ASSERT_EQ(run({"save", "6"}).status, 0);
    EXPECT_EQ(stored(7)[1][2], value);
    const Json shown = runJson({"show", "6"});
    ASSERT_EQ(shown["items"][0]["values"][1]["name"], "Gyári szám");
    if (value[0] != '\xFF') {
      EXPECT_EQ(shown["items"][0]["values"][1]["value"], value);
    }
    EXPECT_EQ(run({"xml", "6"}).status, 0);
    const ProgramRun text = run({"text", "6"});
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(std::count(text.output.begin(), text.output.end(), '\n'), 6);
  }
}

TEST_F(RecordCommand, writesBytesThatAreNoUtf8AsReplacementCharactersInJson) {
  record("6", "1",
         "Gyári szám\na\xFF"
         "b\n");
  EXPECT_EQ(runJson({"show", "6"})["items"][0]["values"][1]["value"],
            "a\xEF\xBF\xBD"
            "b");
}

TEST_F(RecordCommand, refusesUnknownColumns) {
  expectRefused("6", "1", "Gyári szám;Szín\nA;kék\n",
                "1. sor: a tételnek nincs „Szín” nevű mezője. A mezői: Mennyiség, Gyári szám, Garancia vége, Tárolási "
                "hely.");
  expectRefused("6", "1", "gyári szám\nA\n", "nincs „gyári szám” nevű mezője");
  expectRefused("6", "1", "Gyári szám;\nA;\n", "nincs „” nevű mezője");
  expectRefused("6", "3", "Mennyiség;Szerződésszám\n1;X\n", "nincs „Mennyiség” nevű mezője");
}

TEST_F(RecordCommand, namesTheLineOfTheHeader) {
  expectRefused("6", "1", "\n\nSzín\nkék\n", "3. sor: a tételnek nincs „Szín” nevű mezője");
}

TEST_F(RecordCommand, refusesDoubledColumns) {
  expectRefused("6", "1", "Gyári szám;Mennyiség;Gyári szám \nA;1;B\n",
                "1. sor: a(z) „Gyári szám” oszlop többször szerepel.");
  expectRefused("6", "1", "Mennyiség;Mennyiség\n1;1\n", "1. sor: a(z) „Mennyiség” oszlop többször szerepel.");
}

TEST_F(RecordCommand, refusesAColumnWhoseNameSeveralFieldsHave) {
  change("update t_itemvariable set name='Gyári szám' where t_itemvariable_id=2");
  expectRefused("6", "1", "Gyári szám\nA\n", "1. sor: a tételnek több „Gyári szám” nevű mezője is van");
  change("update t_itemvariable set name='Mennyiség' where t_itemvariable_id=2");
  expectRefused("6", "1", "Mennyiség\n1\n", "1. sor: a tételnek több „Mennyiség” nevű mezője is van");
}

TEST_F(RecordCommand, refusesTooManyCells) {
  expectRefused("6", "1", "Gyári szám;Tárolási hely\nA;B\nC;D;E\n",
                "3. sor: több cella van benne (3), mint oszlop a fejlécben (2).");
}

TEST_F(RecordCommand, refusesTextsThatAreNoChoice) {
  expectRefused(
      "8", "1", "Szín\nfehér\n\nlila\n",
      "4. sor: a(z) „Szín” mezőben nem választható ez: „lila”. Választható: fehér, fekete, piros, kék, zöld.");
  expectRefused("6", "2", "Csomagolás\nzsák\n", "2. sor: a(z) „Csomagolás” mezőben nem választható ez: „zsák”.");
  expectRefused("8", "1", "Szín\n\"fehér, fekete\"\n", "2. sor: a(z) „Szín” mezőben nem választható");
  expectRefused("8", "1", "Szín\n0\n", "2. sor: a(z) „Szín” mezőben nem választható");
}

TEST_F(RecordCommand, countsLinesInsideQuotedCells) {
  expectRefused("8", "1", "Kiszerelés;Szín\n0.75 l;\"\n\n\"\n;lila\n", "5. sor: a(z) „Szín” mezőben nem választható");
}

TEST_F(RecordCommand, refusesBrokenQuotes) {
  expectRefused("6", "1", "Gyári szám\nA\n\"B\n", "3. sor: az idézőjelek nem párosak");
  expectRefused("6", "1", "Gyári szám\nA\"B\n", "2. sor: az idézőjelek nem párosak");
  expectRefused("6", "1", "Gyári szám\n\"A\"B\n", "2. sor: az idézőjelek nem párosak");
}

TEST_F(RecordCommand, refusesATableWithoutAHeader) {
  expectRefused("6", "1", "", "A táblázat üres");
  expectRefused("6", "1", "\n\r\n\n", "A táblázat üres");
  expectRefused("6", "1", "\xEF\xBB\xBF", "A táblázat üres");
}

TEST_F(RecordCommand, refusesATableThatIsNoUtf8Text) {
  expectRefused("6", "1", std::string("\xFF\xFEG\0y\0\n\0", 8), "nem UTF-8");
}

TEST_F(RecordCommand, refusesFurtherLinesWhenTheItemHasNoFieldsForTheUnit) {
  expectRefused("6", "3", "Szerződésszám\nA\nB\n", "3. sor: a tételnek nincsenek egységenként rögzített mezői");
  expectRefused("6", "3", "Szerződésszám\n", "1. sor: a fejléc után nincs sor");
}

TEST_F(RecordCommand, refusesAnItemThatAsksForNoData) {
  expectRefused("6", "5", "Gyári szám\nA\n", "A #6 bizonylat 5. tételéhez nem tartozik egyéb tételadat.");
  expectRefused("6", "6", "Gyári szám\nA\n", "A #6 bizonylat 6. tételéhez nem tartozik egyéb tételadat.");
}

TEST_F(RecordCommand, refusesClosedDocuments) {
  for (const char* document : {"3", "5", "10", "12", "15", "17"}) {
    expectRefused(document, "1", "Gyári szám\nA\n", "le van zárva");
  }
}

TEST_F(RecordCommand, refusesDocumentsAndItemsThatDoNotExist) {
  expectRefused("99", "1", "Gyári szám\nA\n", "Nincs #99 azonosítójú bizonylat.");
  expectRefused("6", "7", "Gyári szám\nA\n", "A #6 bizonylatnak nincs 7. tétele, 6 tétele van.");
}

TEST_F(RecordCommand, refusesAFileThatCannotBeRead) {
  const std::string before = dump();
  const ProgramRun missing = run({"record", "6", "1", path("missing.csv")});
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.errors.find(path("missing.csv")), std::string::npos);
  const ProgramRun aFolder = run({"record", "6", "1", folder});
  EXPECT_EQ(aFolder.status, 1);
  EXPECT_NE(aFolder.errors.find("A táblázat nem olvasható"), std::string::npos);
  EXPECT_EQ(dump(), before);
}

TEST_F(RecordCommand, needsWholeNumbers) {
  const std::string table = writeFile("table.csv", "Gyári szám\nA\n");
  EXPECT_EQ(run({"record", "x", "1", table}).status, 2);
  EXPECT_EQ(run({"record", "6", "0", table}).status, 2);
  EXPECT_EQ(run({"record", "6", "first", table}).status, 2);
  EXPECT_EQ(run({"record", "6", "1"}).status, 2);
}

TEST_F(RecordCommand, changesNothingWhenAStatementFails) {
  change(
      "create trigger full before insert on t_invoiceitemdata when new.row=2 "
      "begin select raise(abort, 'out of luck'); end");
  expectRefused("6", "1", "Gyári szám\nA\nB\n", "out of luck");
}

}  // namespace
