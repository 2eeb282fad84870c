#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TableTestSupport.h"
#include "tables/ComponentTable.h"
#include "tables/TableError.h"

namespace pescavo {
namespace {

const std::string kFixedHeader =
    "Category\tCrop\tCommodity\tIFN Code\tCP (%)\tCL (%)\tDM(%)\tmax carp(%)\tmax trout (%)";

std::string header(const std::vector<std::string>& names) {
  std::string line = kFixedHeader;
  for (const std::string& name : names) line += "\tResidueInputValue\t" + name;
  return line;
}

std::string joinLines(const std::vector<std::string>& lines, const std::string& end = "\r\n") {
  std::string text;
  for (const std::string& line : lines) text += line + end;
  return text;
}

ComponentTable readText(const std::string& text) {
  test::TempFolder folder;
  return readComponentTable(folder.write("feedstuff.tab", text));
}

const std::string kHead = header({"Alpha", "Beta"}) + "\r\n";
const std::string kGood = "Fat\tRape\toil\t\t0\t99\t99\t5\t5\t0\t1\t0\t1\r\n";

TEST(ReadComponentTable, CellsInTheirPlaces) {
  const ComponentTable table = readText(
      kHead + " Fat \t Soybean\toil \t4-07-983\t0\t99.5\t99.8\t10\t15\t1\t0.35\t0\t 0 . 02 \r\n");
  ASSERT_EQ(table.componentCount(), 1);
  ASSERT_EQ(table.substanceCount(), 2);
  EXPECT_EQ(table.substanceName(2), "Beta");
  const FeedComponent& c = table.component(1);
  EXPECT_EQ(c.category + "|" + c.crop + "|" + c.commodity + "|" + c.ifnCode,
            "Fat|Soybean|oil|4-07-983");
  EXPECT_EQ(std::vector<double>({c.cp, c.cl, c.dm, c.maxCarp, c.maxTrout}),
            std::vector<double>({0, 99.5, 99.8, 10, 15}));
  EXPECT_EQ(table.basis(1, 1), 1);
  EXPECT_EQ(table.residue(1, 1), 0.35);
  EXPECT_EQ(table.basis(2, 1), 0);
  EXPECT_EQ(table.residue(2, 1), 0.02);
  EXPECT_EQ(table.encoding(), Encoding::Utf8);
}

TEST(ReadComponentTable, LineEndsTrailingTabsAndDecimalCommasReadAlike) {
  const std::vector<std::string> lines = {header({"Alpha"}),
                                          "Fat\tRape\toil\t\t0\t99.5\t99.8\t10\t15\t1\t12.5",
                                          "Fat\tPalm\toil\t\t0\t99\t99\t5\t5\t0\t0.05"};
  const std::string plain = joinLines(lines);
  const std::string variants[] = {
      plain, joinLines(lines, "\n"), plain.substr(0, plain.size() - 2), "\xEF\xBB\xBF" + plain,
      joinLines({lines[0], "Fat\tRape\toil\t\t0\t99,5\t99,8\t10\t15\t1\t12,5\t",
                 "Fat\tPalm\toil\t\t0\t99\t99\t5\t5\t0\t0,05\t"})};
  for (const std::string& text : variants) {
    const ComponentTable table = readText(text);
    ASSERT_EQ(table.componentCount(), 2) << text;
    EXPECT_EQ(table.substanceName(1), "Alpha");
    EXPECT_EQ(table.component(1).cl, 99.5) << text;
    EXPECT_EQ(table.residue(1, 1), 12.5) << text;
    EXPECT_EQ(table.residue(1, 2), 0.05) << text;
  }
}

TEST(ReadComponentTable, BasisCodeRoundsHalfToEven) {
  const ComponentTable table =
      readText(header({"A", "B", "C", "D", "E"}) + "\r\n" +
               "Fat\tRape\toil\t\t0\t99\t99\t5\t5\t0.5\t1\t0,6\t1\t-0.4\t1\t1,4\t1\tSTMR\t1\r\n");
  for (int s = 1; s <= 5; ++s) EXPECT_EQ(table.basis(s, 1), s == 2 || s == 4 ? 1 : 0) << s;
}

TEST(ReadComponentTable, WholeLinesEmptyLastNameAndHeaderAlone) {
  std::vector<std::string> names;
  std::string line = "Cereal Grains/ Crop Seeds\tWheat\tgrain\t4-05-211\t14.2\t2\t88\t100\t20";
  for (int s = 1; s <= 300; ++s) {
    names.push_back(s < 300 ? "Substance " + std::to_string(s) : "");
    line += "\t" + std::to_string(s % 2) + "\t" + std::to_string(s) + ".25";
  }
  ASSERT_GT(line.size(), 2000u);
  const ComponentTable table = readText(joinLines({header(names), line}));
  ASSERT_EQ(table.substanceCount(), 300);
  EXPECT_EQ(table.substanceName(300), "");
  EXPECT_EQ(table.residue(300, 1), 300.25);
  EXPECT_EQ(table.basis(299, 1), 1);
  EXPECT_EQ(readText(kHead).componentCount(), 0);
}

// Every malformed file is refused with the line and cell where it goes wrong.
TEST(ReadComponentTable, MalformedFilesNameLineAndCell) {
  const std::string row = "Fat\tRape\toil\t\t0\t99\t99\t5\t5\t";
  const struct {
    std::string text;
    std::string message;
  } cases[] = {
      {kHead + row + "0\t1\t0\r\n",
       "line 2, cell 13: expected the residue value of substance 2 \"Beta\"; the line ends after "
       "cell 12"},
      {kHead + "Fat\tRape\toil\t\t0\r\n",
       "line 2, cell 6: expected the crude lipid CL (%); the line ends after cell 5"},
      {kHead + row + "0\t1\t0\t1\t7\r\n",
       "line 2, cell 14: expected the end of the line after the residue value of substance 2 "
       "\"Beta\" (the header names 2 substances)"},
      {kHead + kGood + row + "1.5\t1\t0\t1\r\n",
       "line 3, cell 10: expected the residue input value (0 STMR or 1 STMR-P) of substance 1 "
       "\"Alpha\", found \"1.5\""},
      {kHead + "Fat\tRape\toil\t\t0\t1E999\t99\t5\t5\t0\t1\t0\t1\r\n",
       "line 2, cell 6: expected the crude lipid CL (%) as a number within range, found "
       "\"1E999\""},
      {kHead + kGood + "\r\n" + kGood, "line 3: expected a component, found an empty line"},
      {kHead + kGood + kGood + "\r\n", "line 4: expected a component, found an empty line"},
      {"", "line 1: expected the header line, found an empty file"},
      // Without a pair the last "name" would be "max trout (%)" and no data line could fit.
      {kFixedHeader + "\r\n",
       "line 1, cell 10: expected a substance pair (\"ResidueInputValue\" and the substance's "
       "name) after the nine component columns"},
      {kFixedHeader + "\tResidueInputValue\r\n",
       "line 1, cell 11: expected the name of substance 1"},
      {header({"Alpha", "Beta"}) + "\t\r\n",
       "line 1, cell 14: expected \"ResidueInputValue\" before substance 3, found an empty cell "
       "(a TAB at the end of the line?)"},
      {header({"", "Beta"}) + "\r\n",
       "line 1, cell 11: expected the name of substance 1, found an empty cell"},
      {kFixedHeader + "\t\tAlpha\tResidueInputValue\tBeta\r\n",
       "line 1, cell 10: expected \"ResidueInputValue\" before substance 1, found an empty cell"},
      {header(std::vector<std::string>(999, "S")) + "\r\n",
       "line 1, cell 2006: expected at most 998 substances"},
      {joinLines({header({"A"})}) + joinLines(std::vector<std::string>(1001, row + "0\t1")),
       "line 1002: expected at most 1000 components"},
  };
  test::TempFolder folder;
  const std::string path = folder.file("feedstuff.tab");
  for (const auto& c : cases) {
    folder.write("feedstuff.tab", c.text);
    try {
      readComponentTable(path);
      ADD_FAILURE() << "no error, expected " << c.message;
    } catch (const TableError& error) {
      EXPECT_EQ(std::string(error.what()), path + ": " + c.message);
    }
  }
  EXPECT_EQ(readText(header(std::vector<std::string>(998, "S"))).substanceCount(), 998);
}

TEST(ReadComponentTable, MissingFileNamesPathAndReason) {
  test::TempFolder folder;
  const std::string path = folder.file("feedstuff.tab");
  try {
    readComponentTable(path);
    FAIL() << "no error";
  } catch (const TableError& error) {
    EXPECT_EQ(std::string(error.what()), path + ": cannot be opened (No such file or directory)");
    EXPECT_EQ(error.file(), path);
  }
}

TEST(ReadComponentTable, WindowsCodePageAndSortedFixtures) {
  const std::string data = PESCAVO_TEST_DATA "/tables/";
  const ComponentTable cp1252 = readComponentTable(data + "feedstuff-cp1252.tab");
  EXPECT_EQ(cp1252.encoding(), Encoding::Windows1252);
  EXPECT_EQ(cp1252.substanceName(1), "Beispielstoff \xC3\x84 (Fungizid)");
  EXPECT_EQ(cp1252.component(2).crop,
            "R\xC3\xBC"
            "be");

  // The sorted form (cells trimmed, each followed by a TAB) reads like any other.
  const ComponentTable sorted = readComponentTable(data + "feedstuff-sorted.tab");
  ASSERT_EQ(sorted.componentCount(), 6);
  EXPECT_EQ(sorted.component(1).crop, "Wheat");
  EXPECT_EQ(sorted.component(1).cp, 17.5);
  EXPECT_EQ(sorted.residue(2, 1), 0.03);
}

}  // namespace
}  // namespace pescavo
