#include <string>
#include <tuple>
#include <utility>

#include "support/ModelFixture.h"
#include "support/SameLayout.h"
#include "support/TempFolder.h"
#include "tables/NumericText.h"

namespace pescavo {
namespace {

using C = ControlId;

// Four substances on five components. Residue (s, i) = s + i / 10, except component 3, which
// has none for substance 2; basis code (s, i) = (s + i) % 2.
class EditingTest : public ModelFixture {
 protected:
  void SetUp() override {
    for (const char* name : {"Alpha", "Beta", "Gamma", "Delta"}) table.addSubstance(name);
    for (const char* crop : {"Wheat", "Maize", "Oats", "Soybean", "Rape"})
      table.addComponent(
          {"By-Products", crop, "feed", std::string("IFN ") + crop, 12, 3, 88, 40, 20});
    for (int s = 1; s <= 4; ++s) {
      for (int i = 1; i <= 5; ++i) {
        table.setResidue(s, i, s == 2 && i == 3 ? 0 : s + i / 10.0);
        table.setBasis(s, i, static_cast<std::int16_t>((s + i) % 2));
      }
    }
    load();
  }
  // The substances' names, then the current one's position.
  std::string names() const {
    std::string out;
    for (int s = 1; s <= model.database().table().substanceCount(); ++s)
      out += model.database().table().substanceName(s) + ";";
    return out + " " + std::to_string(model.substancePosition());
  }
  std::string column(int c) {
    std::string out;
    for (int r = 1; r < editor().grid().rowCount(); ++r) out += editor().grid().text(r, c) + ";";
    return out;
  }
  // Residue/basis of substance s of the model's table (or of `from`), component by component.
  std::string stored(int s, const ComponentTable* from = nullptr) const {
    const ComponentTable& t = from ? *from : model.database().table();
    std::string out;
    for (int i = 1; i <= 5; ++i)
      out += generalForm(t.residue(s, i), '.') + "/" + std::to_string(t.basis(s, i)) + " ";
    return out;
  }
  // Substance s of the model's table has the residues and codes of substance from of `table`.
  void expectSubstances(std::initializer_list<std::pair<int, int>> pairs) const {
    for (const auto& [s, from] : pairs) EXPECT_EQ(stored(s), stored(from, &table)) << s;
  }
  // A click into column 5 of row and the edit box placed there.
  void openEditBox(int row) {
    editor().setGridCursor(row, 5, row);
    ASSERT_EQ(editor().schadstoffwerte_Click(), SubstanceEditing::GridEditor::EditBox);
    editor().Eingabefeld_platzieren(240, 600, {0, 240 * row, 1500, 240});
  }
  void type(const std::string& keys) {
    for (char key : keys) editor().EingabeSchadstoff_KeyPress(key);
  }
  bool visible(ControlId id) const { return model.layout().at(id).visible; }
  SubstanceEditing& edit() { return model.substances(); }
  ResidueEditor& editor() { return edit().editor(); }
};

// Deleting marks the database, copying does not.
TEST_F(EditingTest, DeletingAndCopyingKeepEverySubstanceWithItsValuesAndCodes) {
  model.selectSubstance(3);
  edit().Loeschen_Click();
  EXPECT_EQ(names(), "Alpha;Beta;Gamma; 2");  // the new last one
  EXPECT_TRUE(model.database().modified());

  load();
  model.selectSubstance(2);
  edit().Kopieren_Click();
  EXPECT_EQ(names(), "Alpha;Beta;Gamma;Delta;Gamma; 4");
  edit().Schadstoffliste_KeyDown(VirtualKey::kKeyC, true);
  edit().Schadstoffliste_KeyDown(VirtualKey::kKeyC, false);  // C alone does nothing
  EXPECT_FALSE(model.database().modified());

  model.selectSubstance(1);
  edit().Schadstoffliste_KeyDown(VirtualKey::kDelete, false);
  EXPECT_EQ(names() + model.substanceName(), "Alpha;Gamma;Delta;Gamma;Gamma; 1Gamma");
  expectSubstances({{1, 1}, {2, 3}, {3, 4}, {4, 3}, {5, 3}});
  EXPECT_EQ(model.selection().workingSet()[2].residue, 3.3);  // the lists follow
  for (int k = 0; k < 4; ++k) edit().Loeschen_Click();
  EXPECT_FALSE(model.enabled(C::Loeschen));
  edit().Loeschen_Click();  // refused
  EXPECT_EQ(names(), "Alpha; 0");
}

// "Done" after "Add" stores the new substance last and selects it.
TEST_F(EditingTest, AddCancelAddStartsAFreshSubstance) {
  const auto fresh = [this] { return editor().nameText() + "|" + column(5) + column(4); };
  const std::string kFresh = "New substance|0;0;0;0;0;STMR;STMR;STMR;STMR;STMR;";
  edit().Add_Click();
  EXPECT_EQ(fresh(), kFresh);
  editor().setNameText("Typed");
  editor().setGridCursor(2, 4, 4);
  edit().ArtSchadstoffwertCombo_Click(1);
  edit().schadstoffwerte_KeyDown('9', false);
  edit().Abbrechen_Click();
  EXPECT_EQ(editor().nameText() + model.layout().at(C::Ende).caption, "Exit");
  EXPECT_FALSE(model.database().modified());

  edit().Add_Click();
  EXPECT_EQ(fresh(), kFresh);
  editor().setNameText("Epsilon");
  openEditBox(3);
  editor().EingabeSchadstoff_Paste("0.25\r\n1.5\r\n");
  editor().setGridCursor(4, 4, 3);
  edit().ArtSchadstoffwertCombo_Click(1);
  ASSERT_TRUE(edit().leaveEditing());
  EXPECT_EQ(names(), "Alpha;Beta;Gamma;Delta;Epsilon; 4");
  EXPECT_EQ(stored(5), "0/0 0/0 0.25/1 1.5/1 0/0 ");
}

TEST_F(EditingTest, EditTwoValuesThenDoneThenTheExitAsks) {
  model.selectSubstance(1);
  edit().Schadstoffliste_DblClick();
  EXPECT_EQ(editor().nameText() + "|" + column(5) + column(4),
            "Beta|2.1;2.2;0;2.4;2.5;STMR-P;STMR;STMR-P;STMR;STMR-P;");

  openEditBox(2);
  EXPECT_EQ(editor().grid().editBox().text(), "2.2");
  type("1,5");
  editor().EingabeSchadstoff_Enter();
  editor().setGridCursor(4, 1, 4);  // typing on the grid goes to column 5
  for (int key : {VirtualKey::kDelete, 96 + 3, 190, 53}) edit().schadstoffwerte_KeyDown(key, false);
  editor().setNameText("Beta (new)");

  EXPECT_FALSE(edit().Ende_Click());  // "Done": no question
  EXPECT_EQ(names(), "Alpha;Beta (new);Gamma;Delta; 1");
  EXPECT_EQ(stored(2), "2.1/1 1.5/0 0/1 3.5/0 2.5/1 ");
  EXPECT_EQ(model.selection().workingSet()[1].residue, 1.5);

  EXPECT_TRUE(edit().Ende_Click());
  EXPECT_EQ(dialogs.questions,
            std::vector<std::string>{"You modified the substance database. Do you want to save?"});
}

// Editing says "Done"; "Cancel" puts every control back as it was (the hidden grid keeps its
// editing size). The simple layout makes way for the editing and comes back with its options.
TEST_F(EditingTest, EditingLayoutAndBack) {
  const MainWindowLayout before = model.layout();
  edit().Add_Click();
  EXPECT_EQ(model.layout().at(C::Ende).caption + "|" + editor().searchText(), "Done|Search...");
  EXPECT_TRUE(visible(C::schadstoffwerte) && !visible(C::Fischfutter1));
  edit().Abbrechen_Click();
  MainWindowLayout after = model.layout();
  EXPECT_FALSE(after.at(C::schadstoffwerte).visible);
  after.at(C::schadstoffwerte) = before.at(C::schadstoffwerte);
  EXPECT_TRUE(sameLayout(after, before));

  load(true);
  model.options().setPseudoComponents({false, false, false});
  edit().Edit_Click();
  EXPECT_EQ(model.layout().width(), MainWindowLayout::kFullWidth);
  ASSERT_FALSE(edit().Ende_Click());
  const MainWindowLayout& l = model.layout();
  // After editing the chooser sits lower than at start-up, as it always has, and the list ends
  // above its caption.
  EXPECT_EQ(std::tuple(l.width(), l.at(C::Ende).left, l.at(C::Fischmehl).top,
                       l.at(C::Fischfutter1).height, visible(C::Fischmehl),
                       model.options().fishmealGrade(), model.options().pseudoComponents().pc),
            std::tuple(MainWindowLayout::kSimpleWidth, 7000, 3600, 2350, true, 1, true));
}

TEST_F(EditingTest, WhatTheTableCannotHoldIsRefused) {
  edit().Edit_Click();
  editor().setGridCursor(2, 5, 2);
  editor().EingabeSchadstoff_Paste("2000000\r\n");
  EXPECT_FALSE(edit().Ende_Click());
  EXPECT_EQ(dialogs.messages,
            std::vector<std::string>{"Residue values above 1000000 mg/kg can't be "
                                     "stored; they are marked green. Please "
                                     "check your changes."});
  EXPECT_TRUE(editor().editing() && editor().grid().marked(2, 5));  // nothing stored, nothing lost
  EXPECT_FALSE(model.database().modified());
  editor().EingabeSchadstoff_Paste("1000000\r\n");
  ASSERT_TRUE(edit().leaveEditing());
  EXPECT_EQ(model.database().table().residue(1, 2), 1000000);

  // A full database takes no further substance, but its substances can still be edited.
  for (int s = 5; s <= ComponentTable::kMaxSubstances; ++s) table.addSubstance("S");
  load();
  dialogs.messages.clear();
  edit().Add_Click();
  edit().Kopieren_Click();
  EXPECT_FALSE(editor().editing());
  EXPECT_EQ(model.database().table().substanceCount(), ComponentTable::kMaxSubstances);
  EXPECT_EQ(dialogs.messages, std::vector<std::string>(2,
                                                       "The substance database holds 998 "
                                                       "substances, as many as it can hold."));
  edit().Edit_Click();
  EXPECT_TRUE(edit().leaveEditing());
}

TEST_F(EditingTest, ListKeysWhileEditingKeepTheCopyOfTheCodes) {
  // Editing Alpha, the (covered) list takes Delete: Alpha goes, Beta becomes current, and
  // "Done" stores the grid and the codes as copied when editing began over Beta.
  edit().Edit_Click();
  edit().Schadstoffliste_KeyDown(VirtualKey::kDelete, false);
  ASSERT_TRUE(edit().leaveEditing());
  EXPECT_EQ(names(), "Alpha;Gamma;Delta; 0");
  expectSubstances({{1, 1}, {2, 3}});
}

// Each in-place editor sits inside the grid's border over its cell and opening one hides the
// other; Ctrl+C gives the clipboard text, Escape cancels.
TEST_F(EditingTest, TheEditorsSitOnTheirCellAndHideEachOther) {
  edit().Edit_Click();
  editor().setGridCursor(1, 5, 1);
  ASSERT_EQ(editor().schadstoffwerte_Click(), ResidueEditor::GridEditor::EditBox);
  editor().Eingabefeld_platzieren(240, 600, {1200, 480, 1500, 240});
  const ControlState& box = model.layout().at(C::EingabeSchadstoff);
  EXPECT_EQ(TwipsRect({box.left, box.top, box.width, box.height}),
            TwipsRect({1455, 1095, 1500, 240}));

  editor().setGridCursor(2, 4, 2);
  EXPECT_EQ(editor().schadstoffwerte_Click(), ResidueEditor::GridEditor::BasisChooser);
  EXPECT_FALSE(box.visible);
  EXPECT_EQ(editor().grid().basisChoice(), 1);  // row 2 reads STMR-P
  editor().Auswahlfeld_platzieren(240, 600, {1000, 480, 1200, 240});
  edit().ArtSchadstoffwertCombo_Click(0);
  EXPECT_EQ(editor().grid().text(2, 4), "STMR");
  EXPECT_FALSE(visible(C::ArtSchadstoffwertCombo) || visible(C::EingabeSchadstoff));

  editor().setGridCursor(1, 5, 1);
  edit().schadstoffwerte_KeyDown('7', false);
  EXPECT_EQ(edit().schadstoffwerte_KeyDown(VirtualKey::kKeyC, true), "1.17");
  EXPECT_EQ(edit().schadstoffwerte_KeyDown(VirtualKey::kEscape, false), std::nullopt);
  EXPECT_FALSE(editor().editing() || edit().editMode() || model.database().modified());
}

// The edit box's text is kept by Enter, which closes the box on the last row, by a double
// click, by a click on another cell and by "Done".
TEST_F(EditingTest, TheEditBoxKeepsItsTextHoweverItCloses) {
  edit().Edit_Click();
  openEditBox(5);
  type("7");
  EXPECT_EQ(editor().EingabeSchadstoff_Enter(), std::nullopt);
  EXPECT_FALSE(visible(C::EingabeSchadstoff));
  openEditBox(3);
  type("6");
  editor().EingabeSchadstoff_DblClick();
  EXPECT_FALSE(visible(C::EingabeSchadstoff));
  openEditBox(2);
  type("8");
  openEditBox(4);
  type("3.5");
  ASSERT_TRUE(edit().leaveEditing());
  EXPECT_EQ(stored(1), "1.1/0 8/1 6/0 3.5/1 7/0 ");
}

// "&save" while editing writes the table as it was, then takes the grid over; a new substance
// is stored once, and "Done" then stores into it again rather than adding a copy.
TEST_F(EditingTest, ASaveWhileEditingTakesTheGridOverAfterWriting) {
  const TempFolder folder;
  std::filesystem::copy(PESCAVO_SAMPLE_INPUT, folder.path(),
                        std::filesystem::copy_options::recursive);
  const std::string file = folder.file("feedstuff.tab");
  model.startUp(folder.file());
  const int substances = model.database().table().substanceCount();
  const double before = model.database().table().residue(1, 1);
  edit().save();  // outside editing: the file alone
  edit().Edit_Click();
  editor().setGridCursor(1, 5, 1);
  editor().EingabeSchadstoff_Paste("7.25\r\n");
  edit().save();
  EXPECT_TRUE(editor().editing() && model.database().modified());
  EXPECT_EQ(model.database().table().residue(1, 1), 7.25);
  EXPECT_EQ(readComponentTable(file).residue(1, 1), before);
  edit().Abbrechen_Click();

  edit().Add_Click();
  editor().setNameText("Added");
  editor().setGridCursor(1, 5, 1);
  editor().EingabeSchadstoff_Paste("0.5\r\n");
  edit().save();
  ASSERT_EQ(model.database().table().substanceCount(), substances + 1);
  editor().setGridCursor(1, 5, 1);
  editor().EingabeSchadstoff_Paste("0.75\r\n");
  ASSERT_TRUE(edit().leaveEditing());
  edit().save();
  const ComponentTable saved = readComponentTable(file);
  EXPECT_EQ(saved.substanceCount(), substances + 1);
  EXPECT_EQ(
      saved.substanceName(substances + 1) + generalForm(saved.residue(substances + 1, 1), '.'),
      "Added0.75");
}

}  // namespace
}  // namespace pescavo
