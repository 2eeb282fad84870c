#include <gtest/gtest.h>

#include <set>
#include <string>

#include "TableTestSupport.h"
#include "tables/ComponentTable.h"
#include "tables/FishTables.h"

namespace pescavo {
namespace {

const std::string kInput = PESCAVO_SAMPLE_INPUT;

TEST(SampleData, ComponentTableIsComplete) {
  const ComponentTable table = readComponentTable(kInput + "/feedstuff.tab");
  EXPECT_GE(table.componentCount(), 40);
  EXPECT_LE(table.componentCount(), 80);
  const std::set<std::string> kCategories = {"By-Products", "Cereal Grains/ Crop Seeds", "Fat",
                                             "Forages/Fodders", "Roots and Tubers"};
  std::set<std::string> seen;
  std::set<int> codes;
  for (int i = 1; i <= table.componentCount(); ++i) {
    const FeedComponent& c = table.component(i);
    EXPECT_TRUE(kCategories.count(c.category)) << c.category;
    seen.insert(c.category);
    EXPECT_GT(c.dm, 0) << c.crop;
    EXPECT_LE(c.cp + c.cl, 100) << c.crop;
  }
  EXPECT_EQ(seen, kCategories);

  ASSERT_GE(table.substanceCount(), 4);
  for (int s = 1; s <= table.substanceCount(); ++s) {
    EXPECT_NE(table.substanceName(s).find("Example"), std::string::npos);
    int positive = 0;
    for (int i = 1; i <= table.componentCount(); ++i) {
      positive += table.residue(s, i) > 0;
      codes.insert(table.basis(s, i));
    }
    EXPECT_GE(positive, 3) << table.substanceName(s);
    EXPECT_LT(positive, table.componentCount()) << table.substanceName(s);
  }
  EXPECT_EQ(codes, (std::set<int>{0, 1}));
}

TEST(SampleData, PristineCopyIsIdenticalAndInTheWritersLayout) {
  const std::string bytes = test::readBytes(kInput + "/feedstuff.tab");
  EXPECT_EQ(bytes, test::readBytes(kInput + "/feedstuff1.tab"));
  test::TempFolder folder;
  writeComponentTable(readComponentTable(kInput + "/feedstuff.tab"), folder.file("out.tab"), '.');
  EXPECT_EQ(test::readBytes(folder.file("out.tab")), bytes);
}

TEST(SampleData, SpeciesFishmealAndCursor) {
  const auto species = readSpeciesTable(kInput + "/Species.tab");
  ASSERT_EQ(species.size(), 2u);
  EXPECT_EQ(species[0].lipid, 8);
  EXPECT_EQ(species[0].protein, 35);
  EXPECT_EQ(species[1].lipid, 15);
  EXPECT_EQ(species[1].protein, 42);

  const auto grades = readFishmealTable(kInput + "/Fishmeal.tab");
  ASSERT_GE(grades.size(), 5u);
  EXPECT_EQ(fishmealItemText(grades[2], '.'), "65 % protein, 10% lipid");

  const std::string cursor = test::readBytes(kInput + "/harrow.cur");
  ASSERT_GE(cursor.size(), 22u);
  EXPECT_EQ(cursor.substr(0, 6), std::string("\0\0\2\0\1\0", 6));  // one cursor image
  EXPECT_EQ(cursor[6], 32);
  EXPECT_EQ(cursor[7], 32);
}

}  // namespace
}  // namespace pescavo
