#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tables/ComponentTable.h"
#include "tables/FishTables.h"
#include "tables/NumericText.h"
#include "tables/TableError.h"
#include "tables/TextFile.h"

namespace pescavo {
namespace {

const std::string kFixedHeader =
    "Category\tCrop\tCommodity\tIFN Code\tCP (%)\tCL (%)\tDM(%)\tmax carp(%)\tmax trout (%)";
const std::string kData = PESCAVO_TEST_DATA "/tables/";

// A fresh folder per test, removed with everything in it afterwards.
struct TempFolder {
  std::string path = (std::filesystem::temp_directory_path() / "pescavo-XXXXXX").string();
  TempFolder() {
    if (::mkdtemp(path.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  std::string file(const std::string& name) const { return path + "/" + name; }
  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(file(name), std::ios::binary) << bytes;
    return file(name);
  }
};

std::string readBytes(const std::string& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

// The message of the TableError that action throws, or "no error".
template <typename Action>
std::string errorOf(Action action) {
  try {
    action();
  } catch (const TableError& error) {
    return error.what();
  }
  return "no error";
}

// Residue (s, i) = 10 s + i, basis = (s + i) odd.
ComponentTable numberedTable(int substances, int components) {
  ComponentTable table;
  for (int s = 1; s <= substances; ++s) table.addSubstance("S" + std::to_string(s));
  for (int i = 1; i <= components; ++i) {
    table.addComponent({"Cat", "Crop" + std::to_string(i), "", "IFN"});
    for (int s = 1; s <= substances; ++s) table.setResidue(s, i, 10 * s + i);
    for (int s = 1; s <= substances; ++s) table.setBasis(s, i, (s + i) % 2);
  }
  return table;
}

TEST(ComponentTable, ValuesMoveWithTheirSubstancesAndComponents) {
  ComponentTable table = numberedTable(3, 4);
  EXPECT_EQ(table.copySubstance(2, "Copy of S2"), 4);
  table.setResidue(4, 1, 99);
  EXPECT_EQ(table.residue(2, 1), 21);  // a copy, not a view
  table.deleteSubstance(2);
  table.deleteComponent(2);
  EXPECT_EQ(table.addComponent({"Fat", "Palm", "oil", "", 0, 99, 99, 5, 5}), 4);
  EXPECT_EQ(table.addSubstance("New"), 4);
  EXPECT_EQ(table.substanceName(2) + table.substanceName(3) + table.component(2).crop,
            "S3Copy of S2Crop3");
  std::string values;  // substances S1, S3, Copy of S2, New over components 1, 3, 4, Palm
  for (int s = 1; s <= 4; ++s) {
    for (int i = 1; i <= 4; ++i)
      values +=
          std::to_string(int(table.residue(s, i))) + "/" + std::to_string(table.basis(s, i)) + " ";
  }
  EXPECT_EQ(values, "11/0 13/0 14/1 0/0 31/0 33/0 34/1 0/0 99/1 23/1 24/0 0/0 0/0 0/0 0/0 0/0 ");
  EXPECT_THROW(numberedTable(1, 0).deleteSubstance(1), std::logic_error);
  EXPECT_THROW(table.residue(5, 1), std::out_of_range);
  ComponentTable full = numberedTable(ComponentTable::kMaxSubstances, 0);
  EXPECT_THROW(full.addSubstance("Too many"), std::length_error);
  for (int i = 1; i <= ComponentTable::kMaxComponents; ++i) full.addComponent({});
  EXPECT_THROW(full.addComponent({}), std::length_error);
}

std::string header(const std::vector<std::string>& names) {
  std::string line = kFixedHeader;
  for (const std::string& name : names) line += "\tResidueInputValue\t" + name;
  return line + "\r\n";
}

ComponentTable readText(const std::string& text) { return parseComponentTable(text, "f.tab"); }

const std::string kHead = header({"Alpha", "Beta"});
const std::string kRow = "Fat\tRape\toil\t\t0\t99\t99\t5\t5\t";
const std::string kGood = kRow + "0\t1\t0\t1\r\n";

TEST(ReadComponentTable, CellsTrimmedAndBasisCodesRoundedHalfToEven) {
  const ComponentTable table = readText(
      kHead + " Fat \t Soybean\toil \t4-07-983\t0\t99.5\t99.8\t10\t15\t1\t0.35\t0\t 0 . 02 \r\n");
  const FeedComponent& c = table.component(1);
  EXPECT_EQ(c.category + "|" + c.crop + "|" + c.commodity + "|" + c.ifnCode + "|" +
                table.substanceName(2),
            "Fat|Soybean|oil|4-07-983|Beta");
  EXPECT_EQ(std::vector<double>({c.cp, c.cl, c.dm, c.maxCarp, c.maxTrout, table.residue(1, 1),
                                 table.residue(2, 1), 1.0 * table.basis(1, 1)}),
            std::vector<double>({0, 99.5, 99.8, 10, 15, 0.35, 0.02, 1}));
  EXPECT_EQ(table.encoding(), Encoding::Utf8);
  const ComponentTable codes = readText(header({"A", "B", "C", "D", "E"}) + kRow +
                                        "0.5\t1\t0,6\t1\t-0.4\t1\t1,4\t1\tSTMR\t1\r\n");
  for (int s = 1; s <= 5; ++s) EXPECT_EQ(codes.basis(s, 1), s == 2 || s == 4 ? 1 : 0) << s;
}

TEST(ReadComponentTable, LineEndsTrailingTabsAndDecimalCommasReadAlike) {
  const std::string head = header({"Alpha"});
  const std::string plain = head + kRow + "1\t12.5\r\n" + kRow + "0\t0.05\r\n";
  for (const std::string& text : {plain, plain.substr(0, plain.size() - 2), "\xEF\xBB\xBF" + plain,
                                  head + kRow + "1\t12.5\n" + kRow + "0\t0.05\n",
                                  head + kRow + "1\t12,5\t\r\n" + kRow + "0\t0,05\t\r\n"}) {
    const ComponentTable table = readText(text);
    EXPECT_EQ(std::vector<double>({table.residue(1, 1), table.residue(1, 2)}),
              std::vector<double>({12.5, 0.05}))
        << text;
  }
}

TEST(ReadComponentTable, LongestLinesEmptyLastNameAndHeaderAlone) {
  std::vector<std::string> names(998, "S");
  names.back() = "";
  std::string line = kRow.substr(0, kRow.size() - 1);
  for (int s = 1; s <= 998; ++s)
    line += "\t" + std::to_string(s % 2) + "\t" + std::to_string(s) + ".25";
  const ComponentTable table = readText(header(names) + line);
  EXPECT_EQ(table.substanceName(998) + "|" + std::to_string(table.basis(997, 1)), "|1");
  EXPECT_EQ(table.residue(998, 1), 998.25);
  EXPECT_EQ(readText(kHead).componentCount(), 0);
}

TEST(ReadComponentTable, MalformedFilesNameFileLineAndCell) {
  std::string tooMany = header({"A"});
  for (int i = 0; i < 1001; ++i) tooMany += kRow + "0\t1\r\n";
  const std::string cases[][2] = {
      {kHead + kRow + "0\t1\t0\r\n",
       "line 2, cell 13: expected the residue value of substance 2 \"Beta\"; the line ends after "
       "cell 12"},
      {kHead + "Fat\tRape\toil\t\t0\r\n",
       "line 2, cell 6: expected the crude lipid CL (%); the line ends after cell 5"},
      {kHead + kRow + "0\t1\t0\t1\t7\r\n",
       "line 2, cell 14: expected the end of the line after the residue value of substance 2 "
       "\"Beta\" (the header names 2 substances)"},
      {kHead + kGood + kRow + "1.5\t1\t0\t1\r\n",
       "line 3, cell 10: expected the residue input value (0 STMR or 1 STMR-P) of substance 1 "
       "\"Alpha\", found \"1.5\""},
      {kHead + "Fat\tRape\toil\t\t0\t1E999\t99\t5\t5\t0\t1\t0\t1\r\n",
       "line 2, cell 6: expected the crude lipid CL (%) as a number within range, found "
       "\"1E999\""},
      {kHead + kGood + "\r\n" + kGood, "line 3: expected a component, found an empty line"},
      {kHead + kGood + kGood + "\r\n", "line 4: expected a component, found an empty line"},
      {"", "line 1: expected the header line, found an empty file"},
      {kFixedHeader + "\r\n",
       "line 1, cell 10: expected a substance pair (\"ResidueInputValue\" and the substance's "
       "name) after the nine component columns"},
      {kHead.substr(0, kHead.size() - 2) + "\t\r\n",
       "line 1, cell 14: expected \"ResidueInputValue\" before substance 3, found an empty cell "
       "(a TAB at the end of the line?)"},
      {header({"", "Beta"}),
       "line 1, cell 11: expected the name of substance 1, found an empty cell"},
      {header(std::vector<std::string>(999, "S")),
       "line 1, cell 2006: expected at most 998 substances"},
      {tooMany, "line 1002: expected at most 1000 components"}};
  for (const auto& c : cases) EXPECT_EQ(errorOf([&] { readText(c[0]); }), "f.tab: " + c[1]);
  const std::string missing = kData + "missing.tab";
  EXPECT_EQ(errorOf([&] { readComponentTable(missing); }),
            missing + ": cannot be opened (No such file or directory)");
}

TEST(ReadComponentTable, WindowsCodePage) {
  const ComponentTable table = readComponentTable(kData + "feedstuff-cp1252.tab");
  EXPECT_EQ(table.encoding(), Encoding::Windows1252);
  EXPECT_EQ(table.substanceName(1) + "|" + table.component(2).crop,
            "Beispielstoff \u00C4 (Fungizid)|R\u00FCbe");
  // Every byte survives the way in and out, the five the code page leaves undefined included.
  std::string all;
  for (int b = 1; b < 256; ++b) all += static_cast<char>(b);
  EXPECT_EQ(encodeText(decodeText(all).text, Encoding::Windows1252), all);
  // Code-page bytes that would read as UTF-8 for another text are kept as UTF-8 instead.
  EXPECT_EQ(encodeText("\xC3\x83\xC2\xA4", Encoding::Windows1252), "\xC3\x83\xC2\xA4");
  EXPECT_EQ(encodeText("\xC3\xBC", Encoding::Windows1252), "\xFC");
}

ComponentTable smallTable() {
  ComponentTable table;
  table.addSubstance("Example A");
  table.addComponent({"By-Products", "Wheat", "bran", "4-05-190", 17.5, 4.5, 89, 20, 10});
  table.addComponent({"Fat", "Rape", "oil", "", 0, 99.5, 99.8, 10, 15});
  table.setResidue(1, 1, 12.5);
  table.setBasis(1, 1, 1);
  table.setResidue(1, 2, 0.00001);
  return table;
}

TEST(WriteComponentTable, ExactLayoutAndRoundTripWithEitherSeparator) {
  TempFolder folder;
  const std::string path = folder.file("feedstuff.tab");
  ComponentTable many = smallTable();
  for (int e = -8; e <= 3; ++e) {  // decimals as a user types them, 1.25E-06 to 1.5E+06
    const int i = many.addComponent({"Fat", "Crop", "", "", 1.0 / (e + 9), 0, 90, 5, 9});
    many.setResidue(1, i, zahl(std::to_string(125 * (e + 9)) + "E" + std::to_string(e)));
    many.setBasis(1, i, e & 1);
  }
  for (const std::string p : {".", ","}) {
    writeComponentTable(smallTable(), path, p[0]);
    EXPECT_EQ(readBytes(path), kFixedHeader + "\tResidueInputValue\tExample A\r\n" +
                                   "By-Products\tWheat\tbran\t4-05-190\t17" + p + "5\t4" + p +
                                   "5\t89\t20\t10\t1\t12" + p + "5\r\nFat\tRape\toil\t\t0\t99" + p +
                                   "5\t99" + p + "8\t10\t15\t0\t1E-05\r\n");
    writeComponentTable(many, path, p[0]);
    const ComponentTable back = readComponentTable(path);
    EXPECT_EQ(formatComponentTable(back, p[0], path), readBytes(path));
    for (int i = 1; i <= many.componentCount(); ++i)
      ASSERT_EQ(back.residue(1, i), many.residue(1, i)) << p << i;
  }
}

TEST(WriteComponentTable, KeepsTheWindowsCodePageUnlessTheTextDoesNotFit) {
  ComponentTable table = readComponentTable(kData + "feedstuff-cp1252.tab");
  EXPECT_EQ(formatComponentTable(table, '.', "f"), readBytes(kData + "feedstuff-cp1252.tab"));
  table.setSubstanceName(1, "Stoff \u2265 1");
  const ComponentTable back = parseComponentTable(formatComponentTable(table, '.', "f"), "f");
  EXPECT_EQ(back.substanceName(1) + "|" + back.component(2).crop, "Stoff \u2265 1|R\u00FCbe");
}

TEST(WriteComponentTable, RefusalsAndSystemFailuresKeepTheOldFile) {
  TempFolder folder;
  const std::string path = folder.write("feedstuff.tab", "old contents");
  const std::string reasons[] = {
      "a text of component 2 holds a TAB or a line break", "the name of substance 1 is empty",
      "the residue value of substance 1 for component 2 is not a finite number"};
  for (int k = 0; k < 3; ++k) {
    ComponentTable table = smallTable();
    if (k == 0) table.component(2).crop = "Ra\tpe";
    if (k == 1) table.setSubstanceName(1, ""), table.addSubstance("B");
    if (k == 2) table.setResidue(1, 2, std::numeric_limits<double>::infinity());
    EXPECT_EQ(errorOf([&] { writeComponentTable(table, path, '.'); }),
              path + ": cannot be written: " + reasons[k]);
  }
  const std::string taken = folder.file("taken");
  std::filesystem::create_directories(taken + "/inside");
  EXPECT_EQ(errorOf([&] { writeComponentTable(smallTable(), taken, '.'); }),
            taken + ": cannot be replaced (Is a directory)");
  EXPECT_EQ(readBytes(path), "old contents");
  const std::filesystem::directory_iterator first(folder.path), end;
  EXPECT_EQ(std::distance(first, end), 2);  // no temporary file left behind
  ::chmod(path.c_str(), 0640);
  writeComponentTable(smallTable(), path, '.');
  struct stat info {};
  ::stat(path.c_str(), &info);
  EXPECT_EQ(info.st_mode & 0777, 0640u);
}

TEST(SortComponentFile, BinaryOrderOfTrimmedCellsEachFollowedByATab) {
  TempFolder folder;
  const std::string path = folder.write("f.tab", readBytes(kData + "feedstuff-unsorted.tab"));
  sortComponentFile(path);  // equal categories need not keep their order
  EXPECT_EQ(readBytes(path), readBytes(kData + "feedstuff-sorted.tab"));
  const ComponentTable back = readComponentTable(path);
  EXPECT_EQ(back.component(1).crop + "|" + generalForm(back.component(1).cp, '.') + "|" +
                generalForm(back.residue(2, 1), '.'),
            "Wheat|17.5|0.03");
  const std::string head = kFixedHeader + "\tResidueInputValue\tA\r\n";
  const std::string cells = "\tx\ty\t\t0\t0\t0\t0\t0\t0", row = cells + "\t0";
  EXPECT_EQ(sortComponentText(head + "fat" + row + "\r\nRoots" + row + "\r\nFat" + row, "f"),
            head + "Fat" + row + "\t\r\nRoots" + row + "\t\r\nfat" + row + "\t\r\n");
  folder.write("f.tab", head + "Fat" + cells + "\r\n");
  EXPECT_EQ(errorOf([&] { sortComponentFile(path); }),
            path + ": line 2, cell 11: expected the residue value of substance 1 \"A\"; the " +
                "line ends after cell 10");
  EXPECT_EQ(readBytes(path), head + "Fat" + cells + "\r\n");
}

TEST(ResetComponentTable, CopiesThePristineTableAndReadsIt) {
  TempFolder folder;
  const std::string pristine = readBytes(kData + "feedstuff-unsorted.tab");
  folder.write("feedstuff1.tab", pristine);
  writeComponentTable(smallTable(), folder.file("feedstuff.tab"), '.');
  EXPECT_EQ(resetComponentTable(folder.path + "/").component(6).crop, "Potato");
  EXPECT_EQ(readBytes(folder.file("feedstuff.tab")), pristine);
  std::filesystem::remove(folder.file("feedstuff1.tab"));
  EXPECT_EQ(errorOf([&] { resetComponentTable(folder.path); }),
            folder.file("feedstuff1.tab") + ": cannot be opened (No such file or directory)");
  EXPECT_EQ(readBytes(folder.file("feedstuff.tab")), pristine);
}

TEST(FishTables, SpeciesAndFishmealReadingRules) {
  const auto species = parseSpeciesTable(
      "Species\t Common carp \tRainbow trout\r\nlipid\t8\t15\r\nprotein\t35\t42\r\nx", "S.tab");
  EXPECT_EQ(species[0].name + "|" + species[1].name, "Common carp|Rainbow trout");
  EXPECT_EQ(std::vector<double>(
                {species[0].lipid, species[0].protein, species[1].lipid, species[1].protein}),
            std::vector<double>({8, 35, 15, 42}));
  // A decimal comma; a missing number repeats the last one; a label alone gives 0.
  const auto shortLines = parseSpeciesTable("S\tCarp\tTrout\nlipid\t7,5\nprotein", "S.tab");
  EXPECT_EQ(std::vector<double>({shortLines[1].lipid, shortLines[1].protein}),
            std::vector<double>({7.5, 0}));
  std::string items;
  for (const FishMealGrade& grade : parseFishmealTable(
           "protein\tlipid\r\n60\t12\r\n62 11\r\n65,10\r\n 68 , 9 \r\n70,5\t8\t\r\n72.5, 7.5", "F"))
    items += fishmealItemText(grade, '.') + "; ";
  EXPECT_EQ(items,
            "60 % protein, 12% lipid; 62 % protein, 11% lipid; 65 % protein, 10% lipid; 68 % "
            "protein, 9% lipid; 70.5 % protein, 8% lipid; 72.5 % protein, 7.5% lipid; ");
  EXPECT_EQ(fishmealItemText({62.5, 11.25}, ','), "62,5 % protein, 11,25% lipid");
}

TEST(FishTables, MalformedFilesNameLineAndCell) {
  const std::string three = "h\r\n60\t12\r\n62\t11\r\n65\t10\r\n";
  std::string twelve = "h\r\n";
  for (int g = 0; g < 12; ++g) twelve += "60\t10\r\n";
  const std::string two = "expected two species names (common carp and rainbow trout)";
  const std::pair<std::string, std::string> species[] = {
      {"S\tCarp\tTrout\t\r\n1\t2\t3\r\n1\t2\t3\r\n",
       "line 1, cell 4: " + two + ", found a third (a TAB at the end of the line?)"},
      {"S\tCarp\tTrout\tPike\r\n1\t2\t3\r\n1\t2\t3\r\n",
       "line 1, cell 4: " + two + ", found a third name \"Pike\""},
      {"S\tCarp\r\n1\t2\r\n1\t2\r\n", "line 1, cell 3: " + two},
      {"S\tCarp\tTrout\r\n1\t2\t3\r\n",
       "line 3: expected the crude protein targets, found the end of the file"},
      {"S\tCarp\tTrout\r\n1\t2\t3e999\r\n1\t2\t3\r\n",
       "line 2, cell 3: expected a target content in percent within range"},
      {"", "line 1: expected the species names, found an empty file"}};
  for (const auto& [text, message] : species)
    EXPECT_EQ(errorOf([&t = text] { parseSpeciesTable(t, "S"); }), "S: " + message);
  const std::pair<std::string, std::string> fishmeal[] = {
      {three + "\r\n",
       "line 5: expected a fish-meal grade (protein and lipid in percent), found an empty line"},
      {"h\r\n60\t12\r\n62\t11\r\n",
       "expected at least three fish-meal grades (the third is the default), found 2"},
      {twelve, "line 13: expected at most 11 fish-meal grades"},
      {three + "66\r\n",
       "line 5, cell 2: expected the crude lipid content (%) as a number, found \"\""},
      {three + "6,5 1,2\r\n",
       "line 5, cell 3: expected the end of the line after the protein and lipid contents"},
      {three + "protein\t9\r\n",
       "line 5, cell 1: expected the crude protein content (%) as a number, found \"protein\""}};
  for (const auto& [text, message] : fishmeal)
    EXPECT_EQ(errorOf([&t = text] { parseFishmealTable(t, "F"); }), "F: " + message);
}

// The delivered input folder loads, and its pristine copy equals the database.
TEST(SampleData, InputFolderLoads) {
  const std::string input = PESCAVO_SAMPLE_INPUT "/";
  EXPECT_GE(readComponentTable(input + "feedstuff.tab").substanceCount(), 4);
  EXPECT_EQ(readBytes(input + "feedstuff1.tab"), readBytes(input + "feedstuff.tab"));
  EXPECT_EQ(readSpeciesTable(input + "Species.tab")[1].protein, 42);
  EXPECT_EQ(fishmealItemText(readFishmealTable(input + "Fishmeal.tab")[2], '.'),
            "65 % protein, 10% lipid");
}

}  // namespace
}  // namespace pescavo
