#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <limits>
#include <string>

#include "TableTestSupport.h"
#include "tables/ComponentTable.h"
#include "tables/NumericText.h"
#include "tables/TableError.h"

namespace pescavo {
namespace {

const std::string kFixedHeader =
    "Category\tCrop\tCommodity\tIFN Code\tCP (%)\tCL (%)\tDM(%)\tmax carp(%)\tmax trout (%)";
const std::string kData = PESCAVO_TEST_DATA "/tables/";

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

std::size_t entries(const test::TempFolder& folder) {
  return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.path()),
                                                std::filesystem::directory_iterator()));
}

std::string writeError(const ComponentTable& table, const std::string& path) {
  try {
    writeComponentTable(table, path, '.');
  } catch (const TableError& error) {
    return error.what();
  }
  return "no error";
}

TEST(WriteComponentTable, ExactLayoutWithEitherSeparator) {
  test::TempFolder folder;
  const std::string path = folder.file("feedstuff.tab");
  for (const char separator : {'.', ','}) {
    const std::string p = separator == '.' ? "." : ",";
    writeComponentTable(smallTable(), path, separator);
    EXPECT_EQ(test::readBytes(path), kFixedHeader + "\tResidueInputValue\tExample A\r\n" +
                                         "By-Products\tWheat\tbran\t4-05-190\t17" + p + "5\t4" + p +
                                         "5\t89\t20\t10\t1\t12" + p +
                                         "5\r\nFat\tRape\toil\t\t0\t99" + p + "5\t99" + p +
                                         "8\t10\t15\t0\t1E-05\r\n");
    const ComponentTable back = readComponentTable(path);
    EXPECT_EQ(back.residue(1, 1), 12.5);
    EXPECT_EQ(back.residue(1, 2), 0.00001);
    EXPECT_EQ(back.component(2).dm, 99.8);
    EXPECT_EQ(formatComponentTable(back, separator, path), test::readBytes(path));
  }
}

TEST(WriteComponentTable, RoundTripOfManySubstancesAndValues) {
  ComponentTable table;
  for (int s = 1; s <= 5; ++s) table.addSubstance("Substance " + std::to_string(s));
  for (int i = 1; i <= 40; ++i) {
    table.addComponent({"Forages/Fodders", "Crop " + std::to_string(i), "meal", "", i / 3.0,
                        i * 0.7, 90 - i / 7.0, 5, 100});
    for (int s = 1; s <= 5; ++s) {
      // Decimals of a few digits from 1E-08 to 1000, as a user would type them.
      const std::string decimal = std::to_string(s * 125) + "E" + std::to_string(i % 9 - 8);
      table.setResidue(s, i, (s * 37 + i) % 11 == 0 ? 0 : zahl(decimal));
      table.setBasis(s, i, static_cast<std::int16_t>((s + i) % 2));
    }
  }
  test::TempFolder folder;
  const std::string path = folder.file("feedstuff.tab");
  for (const char separator : {'.', ','}) {
    writeComponentTable(table, path, separator);
    const ComponentTable back = readComponentTable(path);
    EXPECT_EQ(formatComponentTable(back, separator, path), test::readBytes(path));
    for (int i = 1; i <= 40; ++i) {
      EXPECT_NEAR(back.component(i).cp, i / 3.0, i * 5e-15);  // 15 digits
      for (int s = 1; s <= 5; ++s) {
        ASSERT_EQ(back.residue(s, i), table.residue(s, i));
        ASSERT_EQ(back.basis(s, i), table.basis(s, i));
      }
    }
  }
}

TEST(WriteComponentTable, KeepsTheWindowsCodePage) {
  test::TempFolder folder;
  const std::string source = kData + "feedstuff-cp1252.tab";
  const std::string path = folder.file("feedstuff.tab");
  writeComponentTable(readComponentTable(source), path, '.');
  EXPECT_EQ(test::readBytes(path), test::readBytes(source));

  // Text the code page can't hold is kept by writing UTF-8, which reads back as such.
  ComponentTable table = readComponentTable(source);
  table.setSubstanceName(1, "Stoff \xE2\x89\xA5 1");
  writeComponentTable(table, path, '.');
  const ComponentTable back = readComponentTable(path);
  EXPECT_EQ(back.substanceName(1), "Stoff \xE2\x89\xA5 1");
  EXPECT_EQ(back.component(2).crop,
            "R\xC3\xBC"
            "be");
}

TEST(WriteComponentTable, RefusesWhatCouldNotBeReadBackAndKeepsTheOldFile) {
  test::TempFolder folder;
  const std::string path = folder.write("feedstuff.tab", "old contents");
  ComponentTable tab = smallTable();
  tab.component(2).crop = "Ra\tpe";
  EXPECT_EQ(writeError(tab, path),
            path + ": cannot be written: a text of component 2 holds a TAB or a line break");
  ComponentTable emptyName = smallTable();
  emptyName.setSubstanceName(1, "");
  emptyName.addSubstance("Example B");
  EXPECT_EQ(writeError(emptyName, path),
            path + ": cannot be written: the name of substance 1 is empty");
  ComponentTable infinite = smallTable();
  infinite.setResidue(1, 2, std::numeric_limits<double>::infinity());
  EXPECT_EQ(writeError(infinite, path),
            path +
                ": cannot be written: the residue value of substance 1 for component 2 is not "
                "a finite number");
  ComponentTable badCode = smallTable();
  badCode.setBasis(1, 1, 2);
  EXPECT_EQ(writeError(badCode, path),
            path +
                ": cannot be written: the residue input value of substance 1 for component "
                "1 is neither 0 nor 1");
  EXPECT_EQ(test::readBytes(path), "old contents");
  EXPECT_EQ(entries(folder), 1u);
}

TEST(WriteComponentTable, ReplacesAtomicallyAndReportsSystemFailures) {
  test::TempFolder folder;
  const std::string path = folder.write("feedstuff.tab", "old contents");
  ::chmod(path.c_str(), 0640);
  writeComponentTable(smallTable(), path, '.');
  struct stat info {};
  ASSERT_EQ(::stat(path.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0640u);

  const std::string missing = folder.file("no-such-folder/feedstuff.tab");
  EXPECT_EQ(writeError(smallTable(), missing),
            missing + ": cannot be written (No such file or directory)");
  const std::string underFile = path + "/feedstuff.tab";
  EXPECT_EQ(writeError(smallTable(), underFile),
            underFile + ": cannot be written (Not a directory)");
  // The temporary file is written but can't replace a folder; it is removed again.
  std::filesystem::create_directories(folder.file("taken/inside"));
  EXPECT_EQ(writeError(smallTable(), folder.file("taken")),
            folder.file("taken") + ": cannot be replaced (Is a directory)");
  EXPECT_EQ(entries(folder), 2u);
}

TEST(SortComponentFile, ExchangeSortOfTrimmedCellsEachFollowedByATab) {
  test::TempFolder folder;
  const std::string path =
      folder.write("feedstuff.tab", test::readBytes(kData + "feedstuff-unsorted.tab"));
  sortComponentFile(path);
  // Equal categories are not kept in order: the soybean oil overtakes the rape oil.
  EXPECT_EQ(test::readBytes(path), test::readBytes(kData + "feedstuff-sorted.tab"));
  sortComponentFile(path);
  EXPECT_EQ(test::readBytes(path), test::readBytes(kData + "feedstuff-sorted.tab"));

  const std::string head = kFixedHeader + "\tResidueInputValue\tA\r\n";
  const std::string row = "\tx\ty\t\t0\t0\t0\t0\t0\t0\t0";
  EXPECT_EQ(sortComponentText(head + "fat" + row + "\r\nRoots" + row + "\r\nFat" + row, "f.tab"),
            head + "Fat" + row + "\t\r\nRoots" + row + "\t\r\nfat" + row + "\t\r\n");
}

TEST(SortComponentFile, RefusesLinesThatDoNotFitTheHeader) {
  test::TempFolder folder;
  const std::string text =
      kFixedHeader + "\tResidueInputValue\tA\r\nFat\tx\ty\t\t0\t0\t0\t0\t0\t0\r\n";
  const std::string path = folder.write("feedstuff.tab", text);
  try {
    sortComponentFile(path);
    FAIL() << "no error";
  } catch (const TableError& error) {
    EXPECT_EQ(std::string(error.what()),
              path +
                  ": line 2, cell 11: expected the residue value of substance 1 \"A\"; the "
                  "line ends after cell 10");
  }
  EXPECT_EQ(test::readBytes(path), text);
}

TEST(ResetComponentTable, CopiesThePristineTableAndReadsIt) {
  test::TempFolder folder;
  const std::string pristine = test::readBytes(kData + "feedstuff-unsorted.tab");
  folder.write("feedstuff1.tab", pristine);
  ComponentTable edited = readComponentTable(folder.file("feedstuff1.tab"));
  edited.addSubstance("Added since");
  edited.deleteComponent(1);
  writeComponentTable(edited, folder.file("feedstuff.tab"), '.');

  const ComponentTable reset = resetComponentTable(folder.path() + "/");
  EXPECT_EQ(test::readBytes(folder.file("feedstuff.tab")), pristine);
  EXPECT_EQ(reset.substanceCount(), 2);
  EXPECT_EQ(reset.componentCount(), 6);
  EXPECT_EQ(reset.component(1).crop, "Barley");

  std::filesystem::remove(folder.file("feedstuff1.tab"));
  try {
    resetComponentTable(folder.path());
    FAIL() << "no error";
  } catch (const TableError& error) {
    EXPECT_EQ(std::string(error.what()),
              folder.file("feedstuff1.tab") + ": cannot be opened (No such file or directory)");
  }
  EXPECT_EQ(test::readBytes(folder.file("feedstuff.tab")), pristine);
}

}  // namespace
}  // namespace pescavo
