#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "tables/ComponentTable.h"
#include "tables/FishTables.h"
#include "tables/NumericText.h"
#include "tables/TableError.h"
#include "tables/TableTestSupport.h"
#include "tables/TextFile.h"

namespace pescavo {
namespace {

const std::string kData = PESCAVO_TEST_DATA "/tables/";

ComponentTable readText(const std::string& text) { return parseComponentTable(text, "f.tab"); }

// As written with a decimal point; with a comma every point turns into one.
const std::string kSmall = header({"Example A"}) +
                           "By-Products\tWheat\tbran\t4-05-190\t17.5\t4.5\t89\t20\t10\t1\t12.5\r\n"
                           "Fat\tRape\toil\t\t0\t99.5\t99.8\t10\t15\t0\t1E-05\r\n";

ComponentTable numbered(int substances, int components) {  // residue 10 s + i, basis (s + i) % 2
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
  ComponentTable table = numbered(3, 4);
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
  for (int k = 0; k < 16; ++k)
    values += std::to_string(int(table.residue(k / 4 + 1, k % 4 + 1))) + "/" +
              std::to_string(table.basis(k / 4 + 1, k % 4 + 1)) + " ";
  EXPECT_EQ(values, "11/0 13/0 14/1 0/0 31/0 33/0 34/1 0/0 99/1 23/1 24/0 0/0 0/0 0/0 0/0 0/0 ");
  EXPECT_THROW(numbered(1, 0).deleteSubstance(1), std::logic_error);
  ComponentTable full = numbered(ComponentTable::kMaxSubstances, 0);
  const std::string substances = "the table holds at most 998 substances";
  EXPECT_EQ(errorOf<std::length_error>([&] { full.addSubstance("Too many"); }), substances);
  EXPECT_EQ(errorOf<std::length_error>([&] { full.copySubstance(1, "Too many"); }), substances);
  for (int i = 1; i <= 1000; ++i) full.addComponent({});
  EXPECT_EQ(errorOf<std::length_error>([&] { full.addComponent({}); }),
            "the table holds at most 1000 components");
  EXPECT_EQ(full.substanceCount() + full.componentCount(), 1998);
}

TEST(ReadComponentTable, CellsLineEndsCodePagesAndTheSortsLimit) {
  // Cells are trimmed; basis codes round half to even; an empty one is STMR, as a new record.
  const std::string five = header({"A", "B", "C", "D", "E"});
  const std::string cells =
      " Fat \t Soy\toil \t4-07\t0\t99.5\t99.8\t10\t15\t0.5\t0.35\t0,6\t 0 . 02 \t-0.4";
  EXPECT_EQ(
      formatComponentTable(readText(five + cells + "\t1\t1,4\t1\t \t1\r\n"), '.', "f"),
      five + "Fat\tSoy\toil\t4-07\t0\t99.5\t99.8\t10\t15\t0\t0.35\t1\t0.02\t0\t1\t1\t1\t0\t1\r\n");
  std::vector<std::string> names(998, "S");
  names.back() = "";
  std::string line = kRow.substr(0, kRow.size() - 1);
  for (int s = 1; s <= 998; ++s) line += "\t" + std::to_string(s % 2) + "\t" + std::to_string(s);
  const ComponentTable longest = readText(header(names) + line);
  EXPECT_EQ(longest.substanceName(998) + "|" + std::to_string(longest.basis(997, 1)), "|1");
  EXPECT_EQ(longest.residue(998, 1), 998);
  EXPECT_EQ(readText(header({"Alpha", "Beta"})).componentCount(), 0);
  const std::string alike = header({"A"}) + kRow + "1\t12.5\r\n" + kRow + "0\t0.05\r\n";
  for (const std::string end : {"\r\n", "\n", "\t\r\n", "\t\n"}) {
    for (const std::string p : {".", ","}) {
      const std::string text =
          header({"A"}) + kRow + "1\t12" + p + "5" + end + kRow + "0\t0" + p + "05";
      for (const std::string& t : {text, text + end, "\xEF\xBB\xBF" + text})
        EXPECT_EQ(formatComponentTable(readText(t), '.', "f"), alike) << t;
    }
  }
  // The exit sort keeps to the same limit.
  EXPECT_EQ(
      errorOf([&] { sortComponentText(header({"A"}) + times(1001, kRow + "0\t1\r\n"), "f"); }),
      "f: line 1002: expected at most 1000 components");
  ComponentTable cp1252 = readComponentTable(kData + "feedstuff-cp1252.tab");
  EXPECT_EQ(cp1252.substanceName(1) + "|" + cp1252.component(2).crop,
            "Beispielstoff \u00C4 (Fungizid)|R\u00FCbe");
  EXPECT_EQ(formatComponentTable(cp1252, '.', "f"), readFileBytes(kData + "feedstuff-cp1252.tab"));
  cp1252.setSubstanceName(1, "Stoff \u2265 1");
  const ComponentTable back = readText(formatComponentTable(cp1252, '.', "f"));
  EXPECT_EQ(back.substanceName(1) + "|" + back.component(2).crop, "Stoff \u2265 1|R\u00FCbe");
  std::string all;
  for (int b = 1; b < 256; ++b) all += static_cast<char>(b);
  EXPECT_EQ(encodeText(decodeText(all).text, Encoding::Windows1252), all);  // undefined ones too
  // Code-page bytes that would read as UTF-8 for another text are kept as UTF-8 instead.
  EXPECT_EQ(encodeText("\xC3\x83\xC2\xA4", Encoding::Windows1252), "\xC3\x83\xC2\xA4");
  EXPECT_EQ(encodeText("\xC3\xBC", Encoding::Windows1252), "\xFC");
}

TEST(ComponentFile, WriteRefuseSortAndReset) {
  TempFolder folder;
  const std::string path = folder.file("feedstuff.tab");
  for (const char p : {'.', ','}) {
    std::string expected = kSmall;
    std::replace(expected.begin(), expected.end(), '.', p);
    writeComponentTable(readText(kSmall), path, p);
    EXPECT_EQ(readFileBytes(path), expected);
    EXPECT_EQ(formatComponentTable(readComponentTable(path), p, path), expected);
  }
  folder.write("feedstuff.tab", "old contents");
  const std::string reasons[] = {
      "a text of component 2 holds a TAB or a line break", "the name of substance 1 is empty",
      "the residue value of substance 1 for component 2 is not a finite number"};
  for (int k = 0; k < 3; ++k) {
    ComponentTable table = readText(kSmall);
    if (k == 0) table.component(2).crop = "Ra\tpe";
    if (k == 1) table.setSubstanceName(1, ""), table.addSubstance("B");
    if (k == 2) table.setResidue(1, 2, zahl("1E999"));
    EXPECT_EQ(errorOf([&] { writeComponentTable(table, path, '.'); }),
              path + ": cannot be written: " + reasons[k]);
  }
  const std::string taken = folder.file("taken");
  std::filesystem::create_directories(taken + "/inside");
  EXPECT_EQ(errorOf([&] { writeComponentTable(readText(kSmall), taken, '.'); }),
            taken + ": cannot be replaced (Is a directory)");
  EXPECT_EQ(readFileBytes(path), "old contents");
  const std::filesystem::directory_iterator first(folder.file()), end;
  EXPECT_EQ(std::distance(first, end), 2);  // no temporary file left behind
  // A table made where there was none is readable by all, whatever the umask.
  const mode_t umask = ::umask(077);
  writeComponentTable(readText(kSmall), folder.file("new.tab"), '.');
  ::umask(umask);
  EXPECT_EQ(std::filesystem::status(folder.file("new.tab")).permissions(),
            std::filesystem::perms(0644));
  const std::string unsorted = readFileBytes(kData + "feedstuff-unsorted.tab");
  folder.write("feedstuff.tab", unsorted);
  sortComponentFile(path);  // equal categories need not keep their order
  EXPECT_EQ(readFileBytes(path), readFileBytes(kData + "feedstuff-sorted.tab"));
  EXPECT_EQ(generalForm(readComponentTable(path).residue(2, 1), '.'), "0.03");  // Wheat, B
  const std::string head = kFixedHeader + "\tResidueInputValue\tA\r\n";
  const std::string cells = "\tx\ty\t\t0\t0\t0\t0\t0\t0", row = cells + "\t0";
  EXPECT_EQ(sortComponentText(head + "fat" + row + "\r\nRoots" + row + "\r\nFat" + row, "f"),
            head + "Fat" + row + "\t\r\nRoots" + row + "\t\r\nfat" + row + "\t\r\n");
  folder.write("feedstuff.tab", head + "Fat" + cells + "\r\n");
  EXPECT_EQ(errorOf([&] { sortComponentFile(path); }),
            path + ": line 2, cell 11: expected the residue value of substance 1 \"A\"; the " +
                "line ends after cell 10");
  EXPECT_EQ(readFileBytes(path), head + "Fat" + cells + "\r\n");
  folder.write("feedstuff1.tab", unsorted);
  EXPECT_EQ(resetComponentTable(folder.file() + "/").component(6).crop, "Potato");
  EXPECT_EQ(readFileBytes(path), unsorted);
  std::filesystem::remove(folder.file("feedstuff1.tab"));
  EXPECT_EQ(errorOf([&] { resetComponentTable(folder.file()); }),
            folder.file("feedstuff1.tab") + ": cannot be opened (No such file or directory)");
  EXPECT_EQ(readFileBytes(path), unsorted);
}

TEST(FishTables, SpeciesAndFishmealCellsAsTheyAreRead) {
  const auto both = [](double a, double b) {
    return generalForm(a, '.') + "/" + generalForm(b, '.');
  };
  std::string read;  // blank lines may follow
  for (const char* text :
       {"Species\t Common carp \tRainbow trout\r\nlipid\t8\t15\r\nprotein\t35\t42\r\n \t\r\n",
        "S\tCarp\tTrout\nlipid\t7,5\t9\nprotein\t3e1\t4E1",
        "S\tC\tT\r\nlipid\t0\t100\r\nprotein\t35\t42\t\r\n\r\n \t"}) {
    for (const FishSpecies& s : parseSpeciesTable(text, "S"))
      read += s.name + " " + both(s.lipid, s.protein) + "; ";
  }
  for (const FishMealGrade& grade : parseFishmealTable(
           "protein\tlipid\r\n60\t12\r\n62 11\r\n65,10\r\n 68 , 9 \r\n70,5\t8\t\r\n72.5, 7.5", "F"))
    read += both(grade.protein, grade.lipid) + " ";
  EXPECT_EQ(read,
            "Common carp 8/35; Rainbow trout 15/42; Carp 7.5/30; Trout 9/40; C 0/35; T 100/42; "
            "60/12 62/11 65/10 "
            "68/9 70.5/8 72.5/7.5 ");
  EXPECT_EQ(fishmealItemText({62.5, 11.25}, ','), "62,5 % protein, 11,25% lipid");
}

}  // namespace
}  // namespace pescavo
