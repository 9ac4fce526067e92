// The item data dialog on a display, run as its callers run it, with real keys and clicks.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <functional>
#include <string>

#include "fxext/FXComboBox.h"
#include "fxext/FXDateInput.h"
#include "fxext/FXDatePicker.h"
#include "fxext/FXDatePickerLabel.h"
#include "plugin/contract/Tarnwell.h"
#include "tests/support/FakeInput.h"
#include "tests/support/ToolkitApplication.h"
#include "tests/ui/DialogFixture.h"
#include "tests/ui/ExtraKeys.h"

using namespace FX;
using TestSupport::click;
using TestSupport::isOnScreen;
using TestSupport::runEvents;
using TestSupport::typeKey;
using TestSupport::waitUntil;

#define EXPECT_SOON(condition) EXPECT_TRUE(waitUntil([&] { return (condition); })) << "never true: " #condition
#define ASSERT_SOON(condition) ASSERT_TRUE(waitUntil([&] { return (condition); })) << "never true: " #condition

namespace Quillane::Plugin::ItemData {
namespace {

constexpr int kRight = 3;

// Milliseconds. The toolkit loses a key that comes while a cell's editor, which had the keyboard, is being deleted.
constexpr int kEditorsEnd = 100;

/// Does something once when the time for it has come, also in the loop of a modal window or menu.
class Meanwhile : public FXObject {
 public:
  Meanwhile(std::function<bool()> timeHasCome, std::function<void()> doing)
      : when(std::move(timeHasCome)), work(std::move(doing)) {
    wait();
  }
  ~Meanwhile() override { testAccount().removeTimeout(this, 0); }

  long handle(FXObject*, FXSelector, void*) override {
    if (when())
      work();
    else
      wait();
    return 1;
  }

 private:
  void wait() { testAccount().addTimeout(this, 0, 5); }

  std::function<bool()> when;
  std::function<void()> work;
};

class ItemDataDialogWindow : public DialogTest {
 protected:
  void SetUp() override {
    std::setlocale(LC_CTYPE, "C.UTF-8");  // as the programs choose it: without it the display gives no such letters
    ASSERT_TRUE(TestSupport::openToolkitDisplay()) << TestSupport::kNoDisplay;
    window->create();
    windowsBefore = testAccount().getRootWindow()->numChildren();
  }

  void TearDown() override {
    dialog.reset();
    runEvents(20);
    EXPECT_EQ(testAccount().getRootWindow()->numChildren(), windowsBefore) << "a pop-up was left behind";
    EXPECT_EQ(testAccount().getPopupWindow(), nullptr);
  }

  /// Runs the dialog as its callers do; `steps` happens meanwhile, and has to close the dialog (or it is closed for
  /// it).
  void run(ItemDataList* list, const std::function<void()>& steps) {
    open(list);
    bool ended = false;
    const Meanwhile meanwhile([&] { return isOnScreen(*dialog); },
                              [&] {
                                activate();
                                steps();
                                if (!waitUntil([&] { return !dialog->shown(); }, 2000)) {
                                  ADD_FAILURE() << "the dialog is still open";
                                  dialog->handle(nullptr, FXSEL(SEL_COMMAND, FXDialogBox::ID_CANCEL), nullptr);
                                }
                                ended = true;
                              });
    dialog->execute(PLACEMENT_SCREEN);
    EXPECT_TRUE(ended);
  }

  /// What a window manager does with a window that comes up.
  void activate() {
    dialog->setFocus();
    EXPECT_SOON(testAccount().getActiveWindow() == dialog.get());
  }

  void screenshot(const char* name) const {
    runEvents(100);
    const std::string call = std::string("import -window root " QUILLANE_SCREENSHOTS "/") + name + ".png";
    EXPECT_EQ(std::system(call.c_str()), 0) << call;
  }

  FXButton* okButton() const { return widgetsIn<FXButton>(*dialog->getFirst()->getLast()).at(0); }

  void clickCell(FXint row, FXint column, int button = 1) const {
    const FXTablePos place = cellAt(row, column);
    click(*table(), button, place.col, place.row);
  }

  /// Where a cell is in the table, in pixels.
  FXTablePos cellAt(FXint row, FXint column) const {
    FXTablePos place{0, 0};
    while (place.row < table()->getHeight() && table()->rowAtY(place.row) != row) ++place.row;
    while (place.col < table()->getWidth() && table()->colAtX(place.col) != column) ++place.col;
    place.row += 5;
    place.col += 20;
    return place;
  }

  /// The list that is dropped down.
  FXList* openList() const {
    for (FXList* list : widgetsIn<FXList>(*testAccount().getRootWindow())) {
      if (waitUntil([&] { return isOnScreen(*list); }, 200)) return list;
    }
    return nullptr;
  }

  void type(const std::string& letters) {
    for (const char letter : letters) {
      if (letter == '-')
        typeKey("minus");
      else if (letter == '.')
        typeKey("period");
      else
        typeKey(std::string(1, letter));
    }
  }

  FXint windowsBefore = 0;
};

// ---- the keyboard

TEST_F(ItemDataDialogWindow, recordsThreeSerialNumbersByTheKeyboardAlone) {
  ItemDataList* list = store({13}, {});
  static_cast<InvoiceItem*>(list->getOwner())->setQuantity(FXExt::FXDecimal("3", 4));
  run(list, [&] {
    EXPECT_SOON(table()->hasFocus());
    type("1");
    typeKey("Tab");
    type("SN-1");
    typeKey("Return");
    EXPECT_SOON(text(table()->getItemText(0, 1)) == "SN-1");
    typeKey("Insert");
    EXPECT_SOON(table()->getNumRows() == 2);
    type("SN-2");
    typeKey("Up");
    typeKey("Down");
    typeKey("Home");
    type("1");
    typeKey("Return");
    EXPECT_SOON(text(list->at(2)->value) == "1");
    typeKey("Insert");
    EXPECT_SOON(table()->getNumRows() == 3);
    typeKey("Tab");
    type("SN-3");
    screenshot("dialog-three-serial-numbers");
    typeKey("o", "Alt_L");
  });
  EXPECT_EQ(lines(*list), (Lines{"1 -1 '1'", "1 13 'SN-1'", "2 -1 '1'", "2 13 'SN-2'", "3 -1 '1'", "3 13 'SN-3'"}));
}

TEST_F(ItemDataDialogWindow, choosesInACellByTheFirstLetters) {
  ItemDataList* list = store({13, 14}, {"1 -1 '1'", "1 13 'A'", "1 14 ''", "2 -1 '1'", "2 13 'B'", "2 14 ''"});
  run(list, [&] {
    const auto shownChoice = [this] {
      const auto editors = widgetsIn<FXComboBox>(*table());
      return editors.empty() ? "no editor" : text(editors.at(0)->getText());
    };
    EXPECT_SOON(table()->hasFocus());
    table()->setCurrentItem(0, 2);
    type("hib");
    EXPECT_SOON(shownChoice() == "hibás");
    EXPECT_EQ(text(list->at(2)->value), "") << "it is not taken yet";
    typeKey("Return");
    EXPECT_SOON(shownChoice() == "no editor");
    EXPECT_EQ(text(list->at(2)->value), "hibás");

    // One letter again and again goes through its choices; Tab takes the last one and goes on.
    typeKey("h");
    EXPECT_SOON(shownChoice() == " használt");
    typeKey("h");
    EXPECT_SOON(shownChoice() == "hibás");
    typeKey("h");
    EXPECT_SOON(shownChoice() == " használt");
    typeKey("x");  // no choice begins with it
    runEvents(50);
    EXPECT_EQ(shownChoice(), " használt");
    typeKey("Tab");
    EXPECT_SOON(table()->getCurrentRow() == 1 && table()->getCurrentColumn() == 0);
    EXPECT_EQ(text(list->at(2)->value), " használt");

    table()->setCurrentItem(1, 2);
    typeKey("h");
    EXPECT_SOON(shownChoice() == " használt");
    typeKey("Escape");
    EXPECT_SOON(shownChoice() == "no editor");
    EXPECT_EQ(text(list->at(5)->value), "");
    typeKey("h");
    typeKey("Tab", "Shift_L");
    EXPECT_SOON(table()->getCurrentColumn() == 1);
    EXPECT_EQ(text(list->at(5)->value), " használt");
    typeKey("Right");
    typeKey("space");  // the blank
    EXPECT_SOON(shownChoice() == " ");
    typeKey("o", "Alt_L");
  });
  EXPECT_EQ(text(list->at(2)->value), " használt");
  EXPECT_EQ(text(list->at(5)->value), " ");
}

TEST_F(ItemDataDialogWindow, addsAndDeletesRowsByKeysInTheTable) {
  ItemDataList* list = store({13}, {"1 -1 '1' #1", "1 13 'A' #2"});
  run(list, [&] {
    EXPECT_SOON(table()->hasFocus());
    typeKey("Insert");
    EXPECT_SOON(table()->getNumRows() == 2);
    typeKey("Delete");
    EXPECT_SOON(table()->getNumRows() == 1);
    EXPECT_EQ(text(table()->getItemText(0, 1)), "A");
    typeKey("Delete");
    EXPECT_SOON(table()->getNumRows() == 0);
    typeKey("Delete");
    typeKey("F2");
    typeKey("Return");
    type("x");
    runEvents(50);
    EXPECT_EQ(table()->getNumRows(), 0);
    typeKey("Insert");
    EXPECT_SOON(table()->getNumRows() == 1);
    typeKey("Escape");
  });
  EXPECT_EQ(lines(*list), (Lines{"1 -1 '' #1 marked", "1 13 '' #2 marked", "1 -1 '5'", "1 13 ''"}));
}

TEST_F(ItemDataDialogWindow, keepsDeletingTheCurrentRowWhileTheButtonHasTheFocus) {
  ItemDataList* list = store({13}, {"1 -1 '1'", "1 13 'A'", "2 -1 '1'", "2 13 'B'"});
  run(list, [&] {
    okButton()->setFocus();
    typeKey("Delete");
    EXPECT_SOON(table()->getNumRows() == 1);
    typeKey("Insert");
    EXPECT_SOON(table()->getNumRows() == 2);
    okButton()->setFocus();
    typeKey("Return");
  });
  EXPECT_EQ(lines(*list), (Lines{"2 -1 '1'", "2 13 'B'", "3 -1 '4'", "3 13 ''"}));
}

TEST_F(ItemDataDialogWindow, leavesTheKeysToAFieldThatIsBeingEdited) {
  ItemDataList* list = store({11, 13}, {"0 11 'R' #3", "1 -1 '1'", "1 13 'A'"});
  run(list, [&] {
    FXTextField* field = widgetsIn<FXTextField>(*dialog).at(0);
    EXPECT_SOON(field->hasFocus());
    typeKey("Home");
    typeKey("Delete");
    typeKey("Insert");
    EXPECT_SOON(field->getText().empty());
    clickCell(0, 1);
    type("BC");
    typeKey("Home");
    typeKey("Delete");
    typeKey("Return");
    EXPECT_SOON(text(table()->getItemText(0, 1)) == "C");
    runEvents(kEditorsEnd);
    typeKey("Escape");
  });
  EXPECT_EQ(lines(*list), (Lines{"0 11 '' #3", "1 -1 '1'", "1 13 'C'"}));
}

TEST_F(ItemDataDialogWindow, goesThroughTheCellsAndOutOfTheTableByTab) {
  ItemDataList* list = store({11, 13}, {"0 11 ''", "1 -1 '1'", "1 13 'A'", "2 -1 '1'", "2 13 'B'"});
  run(list, [&] {
    FXTextField* field = widgetsIn<FXTextField>(*dialog).at(0);
    EXPECT_SOON(field->hasFocus());
    typeKey("Tab");
    EXPECT_SOON(table()->hasFocus());
    typeKey("Tab");
    EXPECT_SOON(cellLabel() == "Gyári szám, 1. sor *");
    type("X");
    typeKey("Tab");
    EXPECT_SOON(cellLabel() == "Mennyiség, 2. sor *");
    typeKey("Tab");
    type("Y");
    typeKey("Tab");
    EXPECT_SOON(okButton()->hasFocus());
    typeKey("Tab", "Shift_L");
    EXPECT_SOON(table()->hasFocus());
    typeKey("Tab", "Shift_L");
    typeKey("Tab", "Shift_L");
    EXPECT_SOON(cellLabel() == "Gyári szám, 1. sor *");
    typeKey("Tab", "Shift_L");
    typeKey("Tab", "Shift_L");
    EXPECT_SOON(field->hasFocus());
    okButton()->setFocus();
    typeKey("space");
  });
  EXPECT_EQ(lines(*list), (Lines{"0 11 ''", "1 -1 '1'", "1 13 'X'", "2 -1 '1'", "2 13 'Y'"}));
}

TEST_F(ItemDataDialogWindow, takesHungarianLetters) {
  ItemDataList* list = store({11, 13}, {"0 11 ''", "1 -1 '1'", "1 13 ''"});
  const ExtraKeys keys({"odoubleacute", "udoubleacute", "eacute"});
  run(list, [&] {
    FXTextField* field = widgetsIn<FXTextField>(*dialog).at(0);
    EXPECT_SOON(field->hasFocus());
    keys.type("udoubleacute");
    typeKey("r");
    keys.type("odoubleacute");
    EXPECT_SOON(text(field->getText()) == "űrő");
    clickCell(0, 1);
    for (const char* key : {"odoubleacute", "udoubleacute", "eacute"}) keys.type(key);
    typeKey("Return");
    EXPECT_SOON(text(table()->getItemText(0, 1)) == "őűé");
    runEvents(kEditorsEnd);
    typeKey("Escape");
  });
  EXPECT_EQ(lines(*list), (Lines{"0 11 'űrő'", "1 -1 '1'", "1 13 'őűé'"}));
}

TEST_F(ItemDataDialogWindow, choosesAndDatesByTheKeyboardAlone) {
  ItemDataList* list = store({15, 12}, {"0 15 'kék'", "0 12 '2024.09.18'"});
  run(list, [&] {
    FXExt::FXComboBox* combo = widgetsIn<FXExt::FXComboBox>(*dialog).at(0);
    FXExt::FXDateInput* date = widgetsIn<FXExt::FXDateInput>(*dialog).at(0);
    EXPECT_SOON(combo->hasFocus());
    EXPECT_SOON(text(combo->getText()) == "kék");
    type("p");
    EXPECT_SOON(text(list->at(0)->value) == "piros");
    typeKey("Up");
    EXPECT_SOON(text(list->at(0)->value) == "zöld");
    typeKey("Tab");
    typeKey("Tab");
    EXPECT_SOON(date->getTextField()->hasFocus());
    typeKey("End");
    typeKey("BackSpace");
    type("9");
    EXPECT_SOON(text(list->at(1)->value) == "2024.09.19");
    typeKey("Tab");
    EXPECT_SOON(date->getDropButton()->hasFocus());
    typeKey("space");
    EXPECT_SOON(isOnScreen(*date->getPicker()));
    screenshot("dialog-calendar");
    typeKey("Down");
    typeKey("Return");
    EXPECT_SOON(text(list->at(1)->value) == "2024.09.26");
    typeKey("o", "Alt_L");
  });
  EXPECT_EQ(lines(*list), (Lines{"0 15 'zöld'", "0 12 '2024.09.26'"}));
}

TEST_F(ItemDataDialogWindow, choosesInACellByTheArrowKeys) {
  ItemDataList* list = store({14}, {"1 -1 '1'", "1 14 ''"});
  run(list, [&] {
    table()->setCurrentItem(0, 1);
    table()->setFocus();
    const auto step = [&](const char* arrow, const char* expected) {
      runEvents(kEditorsEnd);
      typeKey("F2");
      EXPECT_SOON(!widgetsIn<FXComboBox>(*table()).empty());
      typeKey(arrow);
      EXPECT_SOON(text(list->at(1)->value) == expected);
    };
    step("Down", "új");
    step("Down", " használt");
    step("Up", "új");
    typeKey("o", "Alt_L");
  });
  EXPECT_EQ(text(list->at(1)->value), "új");
}

// The activation of a window can come before the first idle moment, in which fields take over the texts of entries.
TEST_F(ItemDataDialogWindow, showsWhatIsRecordedInTheFieldThatGetsTheKeyboardAtOnce) {
  for (const int variable : {11, 12, 15}) {
    const std::string value = variable == 12 ? "2024.09.18" : variable == 15 ? "kék" : "R-1";
    open(store({variable}, {"0 " + std::to_string(variable) + " '" + value + "'"}));
    dialog->create();
    FXEvent event{};
    event.type = SEL_FOCUSIN;
    dialog->handle(&testAccount(), FXSEL(SEL_FOCUSIN, 0), &event);
    const FXTextField* field = widgetsIn<FXTextField>(*dialog).at(0);
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(text(field->getText()), value);
  }
}

// ---- the mouse

TEST_F(ItemDataDialogWindow, recordsByTheMouseAlone) {
  ItemDataList* list = store({15, 12, 13, 14}, {"0 15 ''", "0 12 '2024.09.18'", "1 -1 '1'", "1 13 'A'", "1 14 ''"});
  run(list, [&] {
    FXExt::FXComboBox* combo = widgetsIn<FXExt::FXComboBox>(*dialog).at(0);
    click(*combo);
    EXPECT_SOON(combo->isPaneShown());
    FXList* choices = openList();
    ASSERT_NE(choices, nullptr);
    FXint y = 0;
    while (y < choices->getHeight() && choices->getItemAt(10, y) != 2) ++y;
    screenshot("dialog-choice-in-a-field");
    TestSupport::movePointer(*choices, 10, y + 2);  // the list follows movements
    click(*choices, 1, 10, y + 5);
    EXPECT_SOON(text(list->at(0)->value) == "zöld");

    FXExt::FXDateInput* date = widgetsIn<FXExt::FXDateInput>(*dialog).at(0);
    click(*date->getDropButton());
    EXPECT_SOON(isOnScreen(*date->getPicker()));
    for (FXint i = 0; i < date->getPicker()->getNumCells(); ++i) {
      if (date->getPicker()->getCell(i)->getDay() != 5) continue;
      click(*date->getPicker()->getCell(i));
      break;
    }
    EXPECT_SOON(text(list->at(1)->value) == "2024.09.05");

    clickCell(0, 2);
    clickCell(0, 2);
    EXPECT_SOON(!widgetsIn<FXComboBox>(*table()).empty());
    FXComboBox* editor = widgetsIn<FXComboBox>(*table()).at(0);
    EXPECT_SOON(isOnScreen(*editor));
    click(*editor);
    EXPECT_SOON(editor->isPaneShown());
    screenshot("dialog-choice-in-a-cell");
    editor->setCurrentItem(2);
    click(*okButton());
    if (dialog->shown()) click(*okButton());
  });
  EXPECT_EQ(text(list->at(0)->value), "zöld");
  EXPECT_EQ(text(list->at(4)->value), " használt");
}

TEST_F(ItemDataDialogWindow, addsAndDeletesRowsByItsMenu) {
  ItemDataList* list = store({13}, {"1 -1 '1'", "1 13 'A'", "2 -1 '1'", "2 13 'B'", "3 -1 '1'", "3 13 'C'"});
  run(list, [&] {
    const auto entries = widgetsIn<FXMenuCommand>(*table()->getMenu());
    const auto isOpen = [&] { return isOnScreen(*entries[1]); };
    {
      const Meanwhile inMenu(isOpen, [&] {
        screenshot("dialog-menu");
        click(*entries[1]);
      });
      clickCell(1, 1, kRight);
    }
    EXPECT_SOON(table()->getNumRows() == 2);
    EXPECT_EQ(text(table()->getItemText(1, 1)), "C") << "the row that was clicked is deleted";
    {
      const Meanwhile inMenu(isOpen, [&] { click(*entries[0]); });
      clickCell(0, 1, kRight);
    }
    EXPECT_SOON(table()->getNumRows() == 3);
    {
      const Meanwhile inMenu(isOpen, [&] { click(*dialog, 1, 2, 2); });
      clickCell(0, 1, kRight);
    }
    EXPECT_FALSE(table()->getMenu()->shown());
    click(*okButton());
  });
  EXPECT_EQ(lines(*list), (Lines{"1 -1 '1'", "1 13 'A'", "3 -1 '1'", "3 13 'C'", "4 -1 '3'", "4 13 ''"}));
}

TEST_F(ItemDataDialogWindow, opensItsMenuAtTheMouse) {
  run(store({13}, {"1 -1 '1'", "1 13 'A'"}), [&] {
    const FXMenuPane* menu = table()->getMenu();
    FXTablePos opened{-1, -1};
    {
      const Meanwhile inMenu([&] { return isOnScreen(*menu->getLast()); },
                             [&] {
                               opened = {menu->getY(), menu->getX()};
                               click(*dialog, 1, 2, 2);
                             });
      clickCell(0, 1, kRight);
    }
    const FXTablePos clicked = cellAt(0, 1);
    FXint x = 0;
    FXint y = 0;
    table()->translateCoordinatesTo(x, y, table()->getRoot(), clicked.col, clicked.row);
    EXPECT_EQ(opened.col, x);
    EXPECT_EQ(opened.row, y);
    click(*okButton());
  });
}

TEST_F(ItemDataDialogWindow, leavesAndUsesItsMenuByKeys) {
  ItemDataList* list = store({13}, {"1 -1 '1'", "1 13 'A'"});
  run(list, [&] {
    const auto entries = widgetsIn<FXMenuCommand>(*table()->getMenu());
    const auto isOpen = [&] { return isOnScreen(*entries[1]); };
    {
      const Meanwhile inMenu(isOpen, [&] {
        typeKey("Escape");
        EXPECT_SOON(!table()->getMenu()->shown());
        if (table()->getMenu()->shown()) click(*dialog, 1, 2, 2);
      });
      clickCell(0, 1, kRight);
    }
    EXPECT_TRUE(dialog->shown());
    {
      const Meanwhile inMenu(isOpen, [&] {
        typeKey("Down");
        typeKey("Return");
        EXPECT_SOON(!table()->getMenu()->shown());
        if (table()->getMenu()->shown()) click(*dialog, 1, 2, 2);
      });
      clickCell(0, 1, kRight);
    }
    EXPECT_SOON(table()->getNumRows() == 2);
    click(*okButton());
  });
}

TEST_F(ItemDataDialogWindow, showsNoMenuAfterADragAndDoesNotSwallowTheNextClick) {
  ItemDataList* list = store({13}, {"1 -1 '1'", "1 13 'A'", "2 -1 '1'", "2 13 'B'"});
  run(list, [&] {
    const FXTablePos from = cellAt(0, 1);
    TestSupport::drag(*table(), kRight, from.col, from.row, from.col + 40, from.row + 30);
    EXPECT_FALSE(table()->getMenu()->shown());
    clickCell(1, 1);
    EXPECT_SOON(cellLabel() == "Gyári szám, 2. sor *");
    click(*okButton());
  });
}

TEST_F(ItemDataDialogWindow, keepsTheSelectionThatIsClickedForTheMenu) {
  ItemDataList* list = store({13}, {"1 -1 '1'", "1 13 'A'", "2 -1 '1'", "2 13 'B'", "3 -1 '1'", "3 13 'C'"});
  run(list, [&] {
    const FXTablePos from = cellAt(0, 0);
    const FXTablePos to = cellAt(1, 1);
    TestSupport::drag(*table(), 1, from.col, from.row, to.col, to.row);
    EXPECT_TRUE(table()->isRowSelected(1));
    const auto entries = widgetsIn<FXMenuCommand>(*table()->getMenu());
    const Meanwhile inMenu([&] { return isOnScreen(*entries[0]); }, [&] { click(*dialog, 1, 2, 2); });
    clickCell(0, 0, kRight);
    EXPECT_TRUE(table()->isRowSelected(0));
    EXPECT_TRUE(table()->isRowSelected(1));
    click(*okButton());
  });
}

// Cells of several rows can be selected without their rows being selected; the menu's commands are about rows.
TEST_F(ItemDataDialogWindow, goesToTheClickedRowAmongSelectedCells) {
  ItemDataList* list = store({13}, {"1 -1 '1'", "1 13 'A'", "2 -1 '1'", "2 13 'B'", "3 -1 '1'", "3 13 'C'"});
  run(list, [&] {
    const FXTablePos from = cellAt(0, 1);
    const FXTablePos to = cellAt(2, 1);
    TestSupport::drag(*table(), 1, from.col, from.row, to.col, to.row);
    EXPECT_TRUE(table()->isItemSelected(1, 1));
    const auto entries = widgetsIn<FXMenuCommand>(*table()->getMenu());
    const Meanwhile inMenu([&] { return isOnScreen(*entries[1]); }, [&] { click(*entries[1]); });
    clickCell(0, 1, kRight);
    EXPECT_SOON(table()->getNumRows() == 2);
    click(*okButton());
  });
  EXPECT_EQ(lines(*list), (Lines{"2 -1 '1'", "2 13 'B'", "3 -1 '1'", "3 13 'C'"}));
}

// ---- what is being typed when the dialog closes

TEST_F(ItemDataDialogWindow, takesOverWhatIsTypedInACellHoweverItCloses) {
  const std::pair<const char*, std::function<void()>> ways[] = {
      {"a click on the button", [&] { click(*okButton()); }},
      {"the button's key", [&] { typeKey("o", "Alt_L"); }},
      {"the window's close button", [&] { dialog->handle(nullptr, FXSEL(SEL_CLOSE, 0), nullptr); }},
      {"the end of the modal loop", [&] { testAccount().stopModal(dialog.get()); }},
      {"the cancel command", [&] { dialog->handle(nullptr, FXSEL(SEL_COMMAND, FXDialogBox::ID_CANCEL), nullptr); }},
  };
  for (const auto& [name, close] : ways) {
    ItemDataList* list = store({13}, {"1 -1 '1'", "1 13 ''"});
    open(list);
    const auto isShown = [&] { return isOnScreen(*dialog); };
    const Meanwhile meanwhile(isShown, [&, &closing = close] {
      activate();
      clickCell(0, 1);
      type("SN-1");
      EXPECT_SOON(!widgetsIn<FXTextField>(*table()).empty() &&
                  widgetsIn<FXTextField>(*table()).at(0)->getText() == "SN-1");
      closing();
    });
    dialog->execute(PLACEMENT_SCREEN);
    if (!dialog->shown()) {
      EXPECT_EQ(text(list->at(1)->value), "SN-1") << name << ", before the dialog is gone";
    }
    dialog.reset();
    EXPECT_EQ(lines(*list), (Lines{"1 -1 '1'", "1 13 'SN-1'"})) << name;
  }
}

TEST_F(ItemDataDialogWindow, forgetsWhatIsTypedInACellByEscapeAndClosesByTheNext) {
  ItemDataList* list = store({13}, {"1 -1 '1'", "1 13 'A'"});
  run(list, [&] {
    clickCell(0, 1);
    type("SN-1");
    EXPECT_SOON(!widgetsIn<FXTextField>(*table()).empty());
    typeKey("Escape");
    EXPECT_SOON(widgetsIn<FXTextField>(*table()).empty());
    EXPECT_TRUE(dialog->shown());
    runEvents(kEditorsEnd);
    typeKey("Escape");
  });
  EXPECT_EQ(lines(*list), (Lines{"1 -1 '1'", "1 13 'A'"}));
}

TEST_F(ItemDataDialogWindow, commitsACellBeforeARowIsAddedOrDeleted) {
  ItemDataList* list = store({13}, {"1 -1 '1'", "1 13 'A'"});
  run(list, [&] {
    const auto entries = widgetsIn<FXMenuCommand>(*table()->getMenu());
    clickCell(0, 1);
    type("B");
    EXPECT_SOON(!widgetsIn<FXTextField>(*table()).empty());
    entries[0]->handle(nullptr, FXSEL(SEL_COMMAND, FXMenuCommand::ID_ACCEL), nullptr);
    EXPECT_EQ(text(list->at(1)->value), "B");
    EXPECT_EQ(table()->getNumRows(), 2);
    clickCell(1, 1);
    type("C");
    EXPECT_SOON(!widgetsIn<FXTextField>(*table()).empty());
    entries[1]->handle(nullptr, FXSEL(SEL_COMMAND, FXMenuCommand::ID_ACCEL), nullptr);
    EXPECT_EQ(table()->getNumRows(), 1);
    click(*okButton());
  });
  EXPECT_EQ(lines(*list), (Lines{"1 -1 '1'", "1 13 'B'"}));
}

// ---- the clipboard

TEST_F(ItemDataDialogWindow, pastesFiveHundredSerialNumbersFromTheClipboard) {
  FXString copied;
  for (int number = 1; number <= 500; ++number) copied += FXStringFormat("SN-%04d\n", number);
  FXText source(window.get());
  source.create();
  source.setText(copied);
  source.selectAll();
  source.handle(nullptr, FXSEL(SEL_COMMAND, FXText::ID_COPY_SEL), nullptr);

  for (const bool whileEditing : {false, true}) {
    ItemDataList* list = store({13, 14}, {});
    static_cast<InvoiceItem*>(list->getOwner())->setQuantity(FXExt::FXDecimal("500", 4));
    run(list, [&] {
      clickCell(0, 1);
      if (whileEditing) typeKey("F2");
      typeKey("v", "Control_L");
      EXPECT_SOON(table()->getNumRows() == 500);
      EXPECT_TRUE(waitUntil([&] { return text(table()->getItemText(499, 1)) == "SN-0500"; }));
      if (!whileEditing) screenshot("dialog-five-hundred-serial-numbers");
      runEvents(kEditorsEnd);
      typeKey("Escape");
    });
    EXPECT_EQ(list->getRowNum(), 500);
    EXPECT_EQ(list->getSumQuantity().toString(), "500");
    EXPECT_EQ(lines(*list).at(0), "1 -1 '1'");
  }
}

TEST_F(ItemDataDialogWindow, cutsAndPastesBackByKeys) {
  ItemDataList* list = store({13}, {"1 -1 '1'", "1 13 'őű'"});
  run(list, [&] {
    clickCell(0, 1);
    typeKey("x", "Control_L");
    EXPECT_SOON(text(list->at(1)->value).empty());
    typeKey("v", "Control_L");
    EXPECT_SOON(text(list->at(1)->value) == "őű");
    typeKey("Escape");
  });
}

// ---- the looks

TEST_F(ItemDataDialogWindow, isPhotographedInItsShapes) {
  const Lines fields = {"0 11 'R-2024/117' #1", "0 12 '2024.09.18' #2", "0 15 'kék' #3"};
  Lines both = fields;
  for (int row = 1; row <= 3; ++row) {
    const std::string number = std::to_string(row);
    both.push_back(number + " -1 '1' #" + number + "1");
    both.push_back(number + " 13 'GY-00" + number + "' #" + number + "2");
    both.push_back(number + " 14 'új' #" + number + "3");
    both.push_back(number + " 16 'kőműves' #" + number + "4");
  }
  const Lines perUnit(both.begin() + 3, both.end());
  const auto photograph = [&](const char* name, ItemDataList* list) {
    run(list, [&] {
      if (dialog->getTable()) dialog->getTable()->setCurrentItem(1, 1);
      screenshot(name);
      dialog->handle(nullptr, FXSEL(SEL_COMMAND, FXDialogBox::ID_CANCEL), nullptr);
    });
  };
  photograph("dialog-per-item", store({11, 12, 15}, fields));
  photograph("dialog-per-unit", store({13, 14, 16}, perUnit));
  photograph("dialog-both", store({11, 12, 15, 13, 14, 16}, both));
  photograph("dialog-both-no-rows", store({11, 12, 15, 13, 14, 16}, {}));
  photograph("dialog-nothing", store({}, {}));
  invoice.setStatus(151, true);
  photograph("dialog-closed", store({11, 12, 15, 13, 14, 16}, both));
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
