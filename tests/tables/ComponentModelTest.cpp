#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "tables/ComponentTable.h"
#include "tables/ComponentViews.h"

namespace pescavo {
namespace {

// Three substances over four components; residue (s, i) = 10 s + i, basis = (s + i) odd.
ComponentTable numberedTable() {
  ComponentTable table;
  for (int s = 1; s <= 3; ++s) table.addSubstance("S" + std::to_string(s));
  for (int i = 1; i <= 4; ++i) {
    table.addComponent({"Cat" + std::to_string(i), "Crop" + std::to_string(i),
                        "Commodity" + std::to_string(i), "IFN" + std::to_string(i), 10.0 * i,
                        1.0 * i, 80.0 + i, 5.0 * i, 2.0 * i});
    for (int s = 1; s <= 3; ++s) {
      table.setResidue(s, i, 10 * s + i);
      table.setBasis(s, i, static_cast<std::int16_t>((s + i) % 2));
    }
  }
  return table;
}

TEST(ComponentTable, SubstancesAddCopyAndDelete) {
  ComponentTable table = numberedTable();
  EXPECT_EQ(table.addSubstance("New"), 4);
  EXPECT_EQ(table.residue(4, 3), 0);
  EXPECT_EQ(table.basis(4, 3), 0);
  EXPECT_EQ(table.copySubstance(2, "Copy of S2"), 5);
  for (int i = 1; i <= 4; ++i) {
    EXPECT_EQ(table.residue(5, i), table.residue(2, i));
    EXPECT_EQ(table.basis(5, i), table.basis(2, i));
  }
  table.setResidue(5, 1, 99);
  EXPECT_EQ(table.residue(2, 1), 21);  // a copy, not a view

  table.deleteSubstance(2);  // later substances move down with their values and codes
  ASSERT_EQ(table.substanceCount(), 4);
  EXPECT_EQ(table.substanceName(2), "S3");
  EXPECT_EQ(table.residue(2, 4), 34);
  EXPECT_EQ(table.basis(2, 4), 1);
  EXPECT_EQ(table.substanceName(4), "Copy of S2");
  EXPECT_EQ(table.residue(4, 1), 99);
}

TEST(ComponentTable, ComponentsAddAndDelete) {
  ComponentTable table = numberedTable();
  table.deleteComponent(2);  // later components move up with their values
  ASSERT_EQ(table.componentCount(), 3);
  EXPECT_EQ(table.component(2).crop, "Crop3");
  EXPECT_EQ(table.residue(3, 2), 33);
  EXPECT_EQ(table.basis(1, 2), 0);
  EXPECT_EQ(table.addComponent({"Fat", "Palm", "oil", "", 0, 99, 99, 5, 5}), 4);
  EXPECT_EQ(table.residue(1, 4), 0);
  EXPECT_EQ(table.basis(3, 4), 0);
}

TEST(ComponentTable, LimitsAreGuarded) {
  ComponentTable one;
  one.addSubstance("Only");
  EXPECT_THROW(one.deleteSubstance(1), std::logic_error);
  EXPECT_THROW(one.residue(1, 1), std::out_of_range);
  for (int s = 2; s <= ComponentTable::kMaxSubstances; ++s) one.addSubstance("S");
  EXPECT_THROW(one.addSubstance("Too many"), std::length_error);
  for (int i = 1; i <= ComponentTable::kMaxComponents; ++i) one.addComponent({});
  EXPECT_THROW(one.addComponent({}), std::length_error);
}

TEST(ComponentViews, AvailableComponentsHavePositiveResidues) {
  ComponentTable table = numberedTable();
  table.setResidue(2, 1, 0);
  table.setResidue(2, 3, -0.5);
  table.setBasis(2, 2, 1);
  const AvailableComponents available = Futterliste_aktualisieren(table, 2);
  ASSERT_EQ(available.entries.size(), 2u);
  ASSERT_EQ(available.working.size(), 2u);
  const ListEntry& entry = available.entries[1];
  EXPECT_EQ(entry.text, "Crop4 (Commodity4)");
  EXPECT_EQ(entry.commodity, "Commodity4");
  EXPECT_EQ(entry.kategorie, "Cat4");
  EXPECT_EQ(entry.artSchadstoffwert, "0");
  EXPECT_EQ(available.entries[0].artSchadstoffwert, "1");
  const WorkingSetEntry& w = available.working[1];
  EXPECT_EQ(std::vector<double>({w.lipid, w.protein, w.residue, w.maxCarp, w.maxTrout, w.dm}),
            std::vector<double>({4, 40, 24, 20, 8, 84}));
  EXPECT_EQ(w.ifnCode, "IFN4");
}

TEST(ComponentViews, ResidueGridRows) {
  const auto rows = lade_Schadstoffwerte(numberedTable(), 3);
  ASSERT_EQ(rows.size(), 5u);
  EXPECT_EQ(rows[0], (std::array<std::string, 6>{"Category", "Crop", "Commodity", "IFN Code",
                                                 "residue input value", "residue value (mg/kg)"}));
  EXPECT_EQ(rows[1],
            (std::array<std::string, 6>{"Cat1", "Crop1", "Commodity1", "IFN1", "STMR", ""}));
  EXPECT_EQ(rows[2][4], "STMR-P");
}

}  // namespace
}  // namespace pescavo
