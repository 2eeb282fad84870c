#include <gtest/gtest.h>

#include <string>

#include "TableTestSupport.h"
#include "tables/FishTables.h"
#include "tables/TableError.h"

namespace pescavo {
namespace {

TEST(SpeciesTable, NamesTargetsAndShortLines) {
  test::TempFolder folder;
  const auto species = readSpeciesTable(folder.write(
      "Species.tab",
      "Species\t Common carp \tRainbow trout\r\nlipid\t8\t15\r\nprotein\t35\t42\r\nx"));
  ASSERT_EQ(species.size(), 2u);
  EXPECT_EQ(species[0].name + "|" + species[1].name, "Common carp|Rainbow trout");
  EXPECT_EQ(species[0].lipid, 8);
  EXPECT_EQ(species[0].protein, 35);
  EXPECT_EQ(species[1].lipid, 15);
  EXPECT_EQ(species[1].protein, 42);

  // A decimal comma; a missing number repeats the last one; a label alone gives 0.
  const auto shortLines = parseSpeciesTable("S\tCarp\tTrout\nlipid\t7,5\nprotein", "Species.tab");
  EXPECT_EQ(shortLines[0].lipid, 7.5);
  EXPECT_EQ(shortLines[1].lipid, 7.5);
  EXPECT_EQ(shortLines[1].protein, 0);
}

TEST(FishmealTable, GradesInFileOrderAndTheirItems) {
  test::TempFolder folder;
  const auto grades = readFishmealTable(folder.write(
      "Fishmeal.tab",
      "protein\tlipid\r\n60\t12\r\n62 11\r\n65,10\r\n 68 , 9 \r\n70,5\t8\t\r\n72.5, 7.5"));
  ASSERT_EQ(grades.size(), 6u);
  const double expected[6][2] = {{60, 12}, {62, 11}, {65, 10}, {68, 9}, {70.5, 8}, {72.5, 7.5}};
  for (int g = 0; g < 6; ++g) {
    EXPECT_EQ(grades[g].protein, expected[g][0]) << g;
    EXPECT_EQ(grades[g].lipid, expected[g][1]) << g;
  }
  EXPECT_EQ(fishmealItemText(grades[2], '.'), "65 % protein, 10% lipid");
  EXPECT_EQ(fishmealItemText({62.5, 11.25}, ','), "62,5 % protein, 11,25% lipid");
}

TEST(FishTables, MalformedFilesNameLineAndCell) {
  const std::string three = "h\r\n60\t12\r\n62\t11\r\n65\t10\r\n";
  std::string twelve = "h\r\n";
  for (int g = 0; g < 12; ++g) twelve += "60\t10\r\n";
  const std::string twoSpecies = "expected two species names (common carp and rainbow trout)";
  const struct {
    bool species;
    std::string text;
    std::string message;
  } cases[] = {
      {true, "S\tCarp\tTrout\t\r\n1\t2\t3\r\n1\t2\t3\r\n",
       "line 1, cell 4: " + twoSpecies + ", found a third (a TAB at the end of the line?)"},
      {true, "S\tCarp\tTrout\tPike\r\n1\t2\t3\r\n1\t2\t3\r\n",
       "line 1, cell 4: " + twoSpecies + ", found a third name \"Pike\""},
      {true, "S\tCarp\r\n1\t2\r\n1\t2\r\n", "line 1, cell 3: " + twoSpecies},
      {true, "S\tCarp\tTrout\r\n1\t2\t3\r\n",
       "line 3: expected the crude protein targets, found the end of the file"},
      {true, "S\tCarp\tTrout\r\n1\t2\t3e999\r\n1\t2\t3\r\n",
       "line 2, cell 3: expected a target content in percent within range"},
      {true, "", "line 1: expected the species names, found an empty file"},
      {false, three + "\r\n",
       "line 5: expected a fish-meal grade (protein and lipid in percent), found an empty line"},
      {false, "h\r\n60\t12\r\n62\t11\r\n",
       "expected at least three fish-meal grades (the third is the default), found 2"},
      {false, twelve, "line 13: expected at most 11 fish-meal grades"},
      {false, three + "66\r\n",
       "line 5, cell 2: expected the crude lipid content (%) as a number, found \"\""},
      {false, three + "66,,9\r\n",
       "line 5, cell 2: expected the crude lipid content (%) as a number, found \"\""},
      {false, three + "6,5 1,2\r\n",
       "line 5, cell 3: expected the end of the line after the protein and lipid contents"},
      {false, three + "protein\t9\r\n",
       "line 5, cell 1: expected the crude protein content (%) as a number, found \"protein\""},
  };
  for (const auto& c : cases) {
    try {
      if (c.species)
        parseSpeciesTable(c.text, "Species.tab");
      else
        parseFishmealTable(c.text, "Fishmeal.tab");
      ADD_FAILURE() << "no error, expected " << c.message;
    } catch (const TableError& error) {
      EXPECT_EQ(std::string(error.what()),
                (c.species ? "Species.tab: " : "Fishmeal.tab: ") + c.message);
    }
  }
}

}  // namespace
}  // namespace pescavo
