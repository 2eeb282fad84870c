#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <future>
#include <string>
#include <vector>

#include "tables/ComponentTable.h"
#include "tables/ComponentViews.h"
#include "tables/FishTables.h"
#include "tables/TableTestSupport.h"
#include "tables/TextFile.h"

namespace pescavo {
namespace {

enum class Kind { Components, Species, Fishmeal };

const char* fileName(Kind kind) {
  return kind == Kind::Components ? "feedstuff.tab"
         : kind == Kind::Species  ? "Species.tab"
                                  : "Fishmeal.tab";
}

void parse(Kind kind, const std::string& bytes, const std::string& name) {
  if (kind == Kind::Components) parseComponentTable(bytes, name);
  if (kind == Kind::Species) parseSpeciesTable(bytes, name);
  if (kind == Kind::Fishmeal) parseFishmealTable(bytes, name);
}

void read(Kind kind, const std::string& path) {
  if (kind == Kind::Components) readComponentTable(path);
  if (kind == Kind::Species) readSpeciesTable(path);
  if (kind == Kind::Fishmeal) readFishmealTable(path);
}

const std::string kHeader = header({"Alpha", "Beta"});
const std::string kNutrients = "9.4\t4.3\t88\t40\t15";

std::string component(const std::string& values, const std::string& crop = "Maize") {
  return "Cereal Grains/ Crop Seeds\t" + crop + "\tgrain\t4-02-935\t" + values + "\r\n";
}
// The table with one component whose residue of Alpha (cell 11) is the text given.
std::string withResidue(const std::string& residue) {
  return kHeader + component(kNutrients + "\t0\t" + residue + "\t0\t0.01");
}
std::string withNutrients(const std::string& nutrients) {
  return kHeader + component(nutrients + "\t0\t0.02\t0\t0.01");
}
const std::string kGood = kRow + "0\t1\t0\t1\r\n";

const std::string kSpecies =
    "Species\tCommon carp\tRainbow trout\r\nCrude lipid (%)\t8\t15\r\nCrude protein "
    "(%)\t35\t42\r\n";
const std::string kGrades = "60\t12\r\n62\t11\r\n65\t10\r\n";
const std::string kFishmeal = "Crude protein (%)\tCrude lipid (%)\r\n" + kGrades;
const std::string kThree = "h\r\n" + kGrades;

std::string utf16(const std::string& ascii, bool bigEndian) {
  std::string out;
  for (const char c : ascii) out += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return out;
}

std::string residueExpected(int cell, const std::string& substance, const std::string& found) {
  return "line 2, cell " + std::to_string(cell) + ": expected the residue value of " + substance +
         " as a number up to 1000000 (mg/kg; empty reads as 0, a negative value means none), "
         "found \"" +
         found + "\"";
}

struct Refusal {
  Kind kind;
  std::string bytes;
  std::string message;  // after "<file>: "
};

// Each refusal names the file, the line and the cell and says what was expected, whether the
// table comes from its file or from bytes in memory.
TEST(TableRules, RefusalsNameFileLineCellAndWhatWasExpected) {
  std::vector<Refusal> cases;
  for (const char* text : {"high", "1e300", "1000000.5"}) {
    cases.push_back(
        {Kind::Components, withResidue(text), residueExpected(11, "substance 1 \"Alpha\"", text)});
  }
  const auto at = [](int line, int cell) {
    return "line " + std::to_string(line) + ", cell " + std::to_string(cell) + ": expected the ";
  };
  const auto percent = [&](int line, int cell, const std::string& what, const std::string& found) {
    return at(line, cell) + what + " as a number from 0 to 100, found \"" + found + "\"";
  };
  const auto target = [&](int line, int cell, const std::string& species) {  // and what follows
    return at(line, cell) + (line == 2 ? "crude lipid" : "crude protein") + " target (%) of \"" +
           species + "\"";
  };
  const std::string header =
      "line 1, cell 5: expected the header line, with \"CP (%)\" in cell 5, "
      "found \"9.4\" (line 1 reads as a component: is the header missing?)";
  const std::string crOnly =
      "line 1: expected lines ending in CR LF or LF, found CR-only line ends (a CR alone, as old "
      "Mac programs wrote them): save the file with Windows or Unix line ends";
  std::string crLines = withResidue("0.5");
  for (std::size_t p = crLines.find("\r\n"); p != std::string::npos; p = crLines.find("\r\n", p))
    crLines.erase(p + 1, 1);
  const auto utf16Found = [](const std::string& kind) {
    return "expected UTF-8 or Windows-1252 text, found UTF-16 (" + kind +
           "): save the file as UTF-8 or Windows-1252 text";
  };
  const std::string two = "expected two species names (common carp and rainbow trout)";
  cases.insert(
      cases.end(),
      {
          {Kind::Components, kHeader + component(kNutrients + "\t0\t0\t0\tNaN"),
           residueExpected(13, "substance 2 \"Beta\"", "NaN")},
          {Kind::Components, kHeader + component(kNutrients + "\t0\t0\t2\t0"),
           "line 2, cell 12: expected the residue input value (0 STMR or 1 STMR-P) of substance "
           "2 \"Beta\", found \"2\""},
          {Kind::Components, kHeader + component(kNutrients + "\tSTMR\t0\t0\t0"),
           "line 2, cell 10: expected the residue input value (0 STMR or 1 STMR-P) of substance "
           "1 \"Alpha\", found \"STMR\""},
          {Kind::Components, withNutrients("\t4.3\t88\t40\t15"),
           percent(2, 5, "crude protein CP (%)", "")},
          {Kind::Components, withNutrients("9.4\t4.3\t-88\t40\t15"),
           percent(2, 7, "dry matter DM(%)", "-88")},
          {Kind::Components, withNutrients("9.4\t4.3\t88\t40\t100.5"),
           percent(2, 9, "maximum inclusion for trout", "100.5")},
          {Kind::Components, withNutrients("60\t50\t88\t40\t15"),
           "line 2, cell 6: expected the crude protein CP (%) and the crude lipid CL (%) to add "
           "up to at most 100, found \"60\" + \"50\""},
          {Kind::Components,
           component(kNutrients + "\t0\t0.02\t0\t0.01") +
               component(kNutrients + "\t0\t0.03\t0\t0.01", "Oat"),
           header},
          {Kind::Components, utf16(withResidue("0.5"), false), utf16Found("little-endian")},
          {Kind::Components, utf16(withResidue("0.5"), true), utf16Found("big-endian")},
          {Kind::Components, crLines, crOnly},
          {Kind::Components,
           kHeader + "Cereal Grains/ Crop Seeds\tMa" + std::string(1, '\0') + "ize\tgrain\t\t" +
               kNutrients + "\t0\t0\t0\t0\r\n",
           "line 2, cell 2: expected text, found a NUL byte (is the file a table?)"},
          {Kind::Components, withResidue("0\r5"),
           "line 2, cell 11: expected the line to end in CR LF or LF, found a CR alone inside it"},
          {Kind::Components, kHeader + kRow + "0\t1\t0\r\n",
           "line 2, cell 13: expected the residue value of substance 2 \"Beta\"; the line ends "
           "after cell 12"},
          {Kind::Components, kHeader + kRow + "0\t1\t0\t1\t7\r\n",
           "line 2, cell 14: expected the end of the line after the residue value of substance 2 "
           "\"Beta\" (the header names 2 substances)"},
          {Kind::Components, kHeader + kGood + kGood + "\r\n",
           "line 4: expected a component, found an empty line"},
          {Kind::Components, "", "line 1: expected the header line, found an empty file"},
          {Kind::Components, kFixedHeader + "\r\n",
           "line 1, cell 10: expected a substance pair (\"ResidueInputValue\" and the substance's "
           "name) after the nine component columns"},
          {Kind::Components, kHeader.substr(0, kHeader.size() - 2) + "\t\r\n",
           "line 1, cell 14: expected \"ResidueInputValue\" before substance 3, found an empty "
           "cell (a TAB at the end of the line?)"},
          {Kind::Components, kFixedHeader + "\tResidueInputValue\t\tResidueInputValue\tBeta\r\n",
           "line 1, cell 11: expected the name of substance 1, found an empty cell"},
          {Kind::Components, kFixedHeader + times(999, "\tResidueInputValue\tS") + "\r\n",
           "line 1, cell 2006: expected at most 998 substances"},
          {Kind::Components, kHeader + times(1001, kGood),
           "line 1002: expected at most 1000 components"},
          {Kind::Species, "S\tC\tT\tPike",
           "line 1, cell 4: " + two + ", found a third name \"Pike\""},
          {Kind::Species, "S\tC", "line 1, cell 3: " + two},
          {Kind::Species, "S\tC\tT\n1\t2\t3",
           "line 3: expected the crude protein targets, found the end of the file"},
          // Every species has its own target cell: none is taken over from its neighbour.
          {Kind::Species, "S\tC\tT\nl\t8\t15\np\t35",
           target(3, 3, "T") + ", found the end of the line"},
          {Kind::Species, "S\tC\tT\nl\t8\t15\np\t35\t",
           target(3, 3, "T") + " as a number from 0 to 100, found \"\""},
          {Kind::Species, "", "line 1: expected the species names, found an empty file"},
          {Kind::Species, "Crude lipid (%)\t8\t15\r\nCrude protein (%)\t35\t42\r\n",
           "line 1, cell 2: expected the header line with the species names, found \"8\" (line 1 "
           "reads as targets: is the header missing?)"},
          {Kind::Fishmeal, "\xFF\xFE" + utf16(kFishmeal, false),
           utf16Found("little-endian, with a byte-order mark")},
          {Kind::Species, "\xFE\xFF" + utf16(kSpecies, true),
           utf16Found("big-endian, with a byte-order mark")},
          {Kind::Species, kSpecies + "\r\n \t\r\n\t\tx\r\n",
           "line 6, cell 3: expected the end of the file after the crude protein targets of line "
           "3, found \"x\""},
          {Kind::Species, "S\tCommon carp\tRainbow trout\r\nlipid\t8\t15\t\t20\r\nprotein\t3\t4",
           "line 2, cell 5: expected the end of the line after the targets of the two species, "
           "found \"20\""},
          {Kind::Species, "S\tCommon carp\tRainbow trout\r\nlipid\r\nprotein\t35\t42",
           target(2, 2, "Common carp") + " after the label, found the end of the line"},
          {Kind::Fishmeal, kThree + "\r\n",
           "line 5: expected a fish-meal grade (protein and lipid in percent), found an empty "
           "line"},
          {Kind::Fishmeal, "h\r\n60\t12\r\n62\t11\r\n",
           "expected at least three fish-meal grades (the third is the default), found 2"},
          {Kind::Fishmeal, "h\r\n" + times(12, "60\t10\r\n"),
           "line 13: expected at most 11 fish-meal grades"},
          {Kind::Fishmeal, kThree + "6", percent(5, 2, "crude lipid content (%)", "")},
          {Kind::Fishmeal, kThree + "6,5 1,2\r\n",
           "line 5, cell 3: expected the end of the line after the protein and lipid contents"},
          {Kind::Fishmeal, kGrades + "68\t9\r\n",
           "line 1, cell 1: expected the header line (the column names, such as \"Crude protein "
           "(%)\"), found the numbers \"60\" and \"12\" (line 1 reads as a fish-meal grade: is "
           "the header missing?)"},
          {Kind::Fishmeal, kFishmeal + "101\t8\r\n",
           percent(5, 1, "crude protein content (%)", "101")},
          {Kind::Fishmeal, kFishmeal + "70\t-1\r\n",
           percent(5, 2, "crude lipid content (%)", "-1")},
      });
  TempFolder folder;
  for (const Refusal& c : cases) {
    EXPECT_EQ(errorOf([&] { parse(c.kind, c.bytes, "X"); }), "X: " + c.message) << c.bytes;
    folder.write(fileName(c.kind), c.bytes);
    const std::string path = folder.file(fileName(c.kind));
    EXPECT_EQ(errorOf([&] { read(c.kind, path); }), path + ": " + c.message) << c.bytes;
  }
}

// Tables at the edges of the rules load, with the values the cells say.
TEST(TableRules, TablesWithinTheRulesLoad) {
  const std::string header =  // other capitalisation and spacing than the program writes
      "category\tcrop\tcommodity\tifn code\tCP(%)\tcl (%)\tDM (%)\tMax Carp (%)\tMAX TROUT(%)\t"
      "ResidueInputValue\tAlpha\tresidue input value\tBeta\r\n";
  const ComponentTable table =
      parseComponentTable(header + component("60.1\t39.9\t0\t100\t0\t1.0\t1000000\t\t") +
                              component("0\t0\t1 00\t0,5\t1E1\t0\t-1\t1\t 2 , 5 \t \t"),
                          "f");
  const std::string maize = "Cereal Grains/ Crop Seeds\tMaize\tgrain\t4-02-935\t";
  EXPECT_EQ(formatComponentTable(table, '.', "f"),
            kHeader + maize + "60.1\t39.9\t0\t100\t0\t1\t1000000\t0\t0\r\n" + maize +
                "0\t0\t100\t0.5\t10\t0\t-1\t1\t2.5\r\n");
  for (const std::string header : {"", "protein lipid", "Grade 1\t2", "60 % protein, 12 % lipid"}) {
    EXPECT_EQ(parseFishmealTable(header + "\r\n" + kGrades, "m").size(), 3u) << header;
  }
}

// What is not a regular file is refused unread (a pipe would block, /dev/zero never end); a
// reader blocked on the pipe is let go after a while and fails the test instead of hanging it.
TEST(TableFiles, OnlyRegularFilesOfAtMost64MiBAreRead) {
  TempFolder folder;
  const std::string pipe = folder.file("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::string zero = folder.file("zero");
  std::filesystem::create_symlink("/dev/zero", zero);
  const std::string large = folder.file("large");
  folder.write("large", "");
  std::filesystem::resize_file(large, TableFile::kMaxBytes + 1);  // sparse: costs nothing
  const std::string folderPath = folder.file("inside");
  std::filesystem::create_directory(folderPath);

  const std::string kinds[][2] = {
      {pipe, "expected a table file, found a pipe (only regular files are read)"},
      {zero, "expected a table file, found a character device (only regular files are read)"},
      {folderPath, "expected a table file, found a folder (only regular files are read)"},
      {large, "expected a table of at most 64 MiB (67108864 bytes), found 67108865 bytes"},
      {folder.file("missing"), "cannot be opened (No such file or directory)"}};
  const std::vector<std::function<void(const std::string&)>> readers = {
      [](const std::string& path) { readSpeciesTable(path); },
      [](const std::string& path) { sortComponentFile(path); }};
  for (const auto& kind : kinds) {
    const std::string& path = kind[0];
    for (const auto& reader : readers) {
      auto refusal = std::async(std::launch::async, [&] { return errorOf([&] { reader(path); }); });
      if (refusal.wait_for(std::chrono::seconds(5)) != std::future_status::ready) {
        const int writer = ::open(pipe.c_str(), O_WRONLY | O_NONBLOCK);  // lets it go on
        if (writer >= 0) ::close(writer);
        ADD_FAILURE() << path << " blocked the reader";
      }
      EXPECT_EQ(refusal.get(), path + ": " + kind[1]);
    }
  }
}

// Equal components and equal substance names are read, with one warning each naming both
// places.
TEST(DuplicateWarnings, NameBothLinesOrCells) {
  const auto row = [](const std::string& crop, const std::string& commodity, double residue) {
    return "Fat\t" + crop + "\t" + commodity + "\t\t0\t99\t99\t5\t5\t0\t" +
           std::to_string(residue) + "\t0\t0\t0\t0\r\n";
  };
  const ComponentTable table = parseComponentTable(
      header({"Alpha", "Beta", "Alpha"}) + row("Maize", "grain", 1) + row("Rye", "grain", 2) +
          row(" Maize ", "grain ", 3) + row("Maize", "grain meal", 4) + row("Rye", "grain", 5) +
          row("Rye", "grain", 6),
      "feedstuff.tab");
  EXPECT_EQ(duplicateWarnings(table, "feedstuff.tab"),
            std::vector<std::string>(
                {"feedstuff.tab: line 1, cells 11 and 15 both name the substance \"Alpha\" "
                 "(substances 1 and 3); only their place in the list tells them apart",
                 "feedstuff.tab: lines 2 and 4 both hold the component \"Maize (grain)\"; where "
                 "both are offered, a run takes the figures of line 4 only",
                 "feedstuff.tab: lines 3, 6 and 7 all hold the component \"Rye (grain)\"; where "
                 "several are offered, a run takes the figures of line 7 only"}));
}

// The file is read a block at a time: with a header longer than a block, lines across block
// ends and a Windows-1252 byte only in the last line, the table read writes its bytes again.
TEST(TableLines, AFileReadInBlocksGivesWhatItsBytesGive) {
  ComponentTable written;
  for (int s = 1; s <= ComponentTable::kMaxSubstances; ++s)
    written.addSubstance("Substance " + std::to_string(s) + " " + std::string(150, 'x'));
  for (int i = 1; i <= 120; ++i) {
    written.addComponent({"Fat", "Crop " + std::to_string(i), "oil", "", i % 50 * 0.37,
                          i % 40 * 1.3, i % 90 * 1.1, i % 100 * 1.0, 12.5});
    for (int s = 1; s <= ComponentTable::kMaxSubstances; ++s) {
      written.setResidue(s, i, (s * 7 + i) % 13 == 0 ? (s + i) * 0.0173 - 3 : 0);
      written.setBasis(s, i, static_cast<std::int16_t>((s + i) % 2));
    }
  }
  written.component(120).crop = "R\u00FCbe";
  written.setEncoding(Encoding::Windows1252);
  const std::string bytes = formatComponentTable(written, ',', "f");
  ASSERT_GT(bytes.size(), std::size_t{512} << 10);  // several blocks of 128 KiB
  TempFolder folder;
  const std::string path = folder.file("feedstuff.tab");
  folder.write("feedstuff.tab", bytes);
  const ComponentTable fromFile = readComponentTable(path);
  EXPECT_EQ(fromFile.component(120).crop, "R\u00FCbe");
  EXPECT_EQ(formatComponentTable(fromFile, ',', "f"), bytes);

  // A message quoting a text decodes it as the whole file decides: these bytes are UTF-8 for
  // "\u00C4", but a later byte makes the file Windows-1252.
  const std::string refused = header({"\xC3\x84"}) + kRow + "0\tx\r\n" + "Fat\tR\xFC" +
                              "be\toil\t\t0\t99\t99\t5\t5\t0\t1\r\n";
  folder.write("feedstuff.tab", refused);
  EXPECT_EQ(errorOf([&] { readComponentTable(path); }),
            path + ": " + residueExpected(11, "substance 1 \"\u00C3\u201E\"", "x"));
}

}  // namespace
}  // namespace pescavo
