#pragma once

// The report section as an assessor reads it, spelled out independently of the writer, for
// the report tests and the sweep tests.

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "reports/Credits.h"

namespace pescavo::test {

inline const std::string kHeader =
    std::string(70, '-') + "\r\n\r\nPescavo concerning Substance A\r\n" + kCreditLine +
    "\r\n(Version: 08-Mar-2018)\r\n\r\n" + std::string(70, '-') + "\r\n\r\n";

// Name, max, DM ("-" for DM 0), residue, basis, dry-matter residue, share, load; '.' spelling.
using Row = std::array<std::string, 8>;
using Three = std::array<std::string, 3>;

// A carp report section (fat 10, protein 40, fish meal 65 % protein); mask: PC 1, CC 2, F 4.
inline std::string expectedSection(const std::vector<Row>& rows, int mask, const Three& shares,
                                   const std::string& criterion, const std::string& burden,
                                   char sep) {
  const auto d = [sep](std::string n) { return std::replace(n.begin(), n.end(), '.', sep), n; };
  const std::string fm = "Fish meal (" + d("65.00") + "% protein, " + d("10.00") + "% lipid)";
  // Every list spells the pseudo-components its own way.
  const std::string names[4][3] = {
      {fm + " ", "CC (0.1% protein,0.1 % lipid) ", "F (100 % lipid) "},
      {fm + "\t", "CC (0.1% protein, 0.1% lipid )\t", "F (100% lipid )\t"},
      {fm + "\t", "CC (0.1% protein, 0.1% lipid)\t", "F(100% lipid)\t"},
      {fm + "\t", "CC (0.1 % protein, 0.1% lipid)\t", "F (100% lipid)\t"}};
  const std::string tails[4] = {d("100.00") + "%", d("0.000") + " mg/kg.", "", d("0.00") + "%"};
  const auto list = [&](const std::string& title, int col, int pseudoList = -1,
                        const std::string& mg = "") {
    std::string s = title + "\r\n";
    for (const Row& r : rows)
      s += " " + r[0] + "\t" +
           (r[col] == "-" ? "-" : d(r[col]) + (mg.empty() ? "%" : " mg/kg (" + r[4] + mg)) + "\r\n";
    for (int k = 0; pseudoList >= 0 && k < 3; ++k)
      if (mask >> k & 1)
        s += " " + names[pseudoList][k] +
             (pseudoList == 2 ? d(shares[k]) + "%" : tails[pseudoList]) + "\r\n";
    return s;
  };
  return "INPUT\r\n=====\r\n\r\nTarget content for Common carp:\r\n Crude fat\t" + d("10.00") +
         "%\r\n Crude protein\t" + d("40.00") + "%\r\n\r\n" +
         list("Maximum principal content of components in the diet:", 1, 0) +
         list("\r\nPercent dry matter of components:", 2) +
         list("\r\nSubstance A residues in the components:", 3, -1, ")") +
         list("\r\n\r\nSubstance A residues in the components (dry matter):", 5, 1,
              " \\dry matter)") +
         "\r\n\r\nRESULTS\r\n=======\r\n\r\n" + criterion +
         " content dietary burden based on Substance A is " + d(burden) +
         " mg/kg (dry matter).\r\n\r\n" + list("The respective composition of the feed is:", 6, 2) +
         "\r\n\r\n" +
         list("The dietary load of Substance A caused by the individual components is:", 7, 3);
}

}  // namespace pescavo::test
