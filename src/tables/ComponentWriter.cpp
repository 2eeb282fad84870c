// Writing the component table as feedstuff.tab.

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "tables/ComponentFileLayout.h"
#include "tables/ComponentTable.h"
#include "tables/NumericText.h"
#include "tables/TableError.h"
#include "tables/TextFile.h"

namespace pescavo {

namespace {

void requireWritable(bool ok, const std::string& path, const std::string& problem) {
  if (!ok) throw TableError(path, 0, 0, "cannot be written: " + problem);
}

bool isCellText(std::string_view text) {
  return text.find_first_of("\t\n") == std::string_view::npos;
}

void appendNumber(std::string& out, double value, char separator, const std::string& path,
                  const std::string& what) {
  requireWritable(std::isfinite(value), path, what + " is not a finite number");
  out += generalForm(value, separator);
}

void checkNames(const ComponentTable& table, const std::string& path) {
  const int n = table.substanceCount();
  requireWritable(n >= 1, path, "the table holds no substance");
  for (int s = 1; s <= n; ++s) {
    const std::string& name = table.substanceName(s);
    const std::string which = "the name of substance " + std::to_string(s);
    requireWritable(isCellText(name), path, which + " holds a TAB or a line break");
    // Only the last name may be empty: the header can't show an empty name before others.
    requireWritable(!name.empty() || s == n, path, which + " is empty");
  }
}

void appendComponentLine(std::string& out, const ComponentTable& table, int i, char separator,
                         const std::string& path) {
  const FeedComponent& c = table.component(i);
  const std::string which = "component " + std::to_string(i);
  for (const std::string* text : {&c.category, &c.crop, &c.commodity, &c.ifnCode}) {
    requireWritable(isCellText(*text), path, "a text of " + which + " holds a TAB or a line break");
    out += *text;
    out += '\t';
  }
  const std::string values = "a value of " + which;
  appendNumber(out, c.cp, separator, path, values);
  out += '\t';
  appendNumber(out, c.cl, separator, path, values);
  out += '\t';
  appendNumber(out, c.dm, separator, path, values);
  out += '\t';
  appendNumber(out, c.maxCarp, separator, path, values);
  out += '\t';
  appendNumber(out, c.maxTrout, separator, path, values);
  for (int s = 1; s <= table.substanceCount(); ++s) {
    const std::int16_t code = table.basis(s, i);
    requireWritable(code == 0 || code == 1, path,
                    "the residue input value of substance " + std::to_string(s) + " for " + which +
                        " is neither 0 nor 1");
    out += '\t';
    out += code == 0 ? '0' : '1';
    out += '\t';
    appendNumber(out, table.residue(s, i), separator, path,
                 "the residue value of substance " + std::to_string(s) + " for " + which);
  }
  out += "\r\n";
}

}  // namespace

std::string formatComponentTable(const ComponentTable& table, char decimalSeparator,
                                 const std::string& path) {
  checkNames(table, path);
  std::string out(kHeaderStart);
  for (int s = 1; s <= table.substanceCount(); ++s) {
    out += '\t';
    out += kResidueMarker;
    out += '\t';
    out += table.substanceName(s);
  }
  out += "\r\n";
  for (int i = 1; i <= table.componentCount(); ++i) {
    appendComponentLine(out, table, i, decimalSeparator, path);
  }
  return encodeText(out, table.encoding());
}

void writeComponentTable(const ComponentTable& table, const std::string& path,
                         char decimalSeparator) {
  writeFileAtomic(path, formatComponentTable(table, decimalSeparator, path));
}

}  // namespace pescavo
