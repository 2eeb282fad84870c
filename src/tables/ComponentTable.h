#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pescavo {

enum class Encoding { Utf8, Windows1252 };

struct FeedComponent {
  std::string category;
  std::string crop;
  std::string commodity;
  std::string ifnCode;
  double cp = 0;  // crude protein, % of DM
  double cl = 0;  // crude lipid, % of DM
  double dm = 0;  // dry matter, %
  double maxCarp = 0;
  double maxTrout = 0;
};

// The component database. Components i and substances s are 1-based at this interface.
class ComponentTable {
 public:
  // What the file, the editors and their messages allow.
  static constexpr int kMaxComponents = 1000;
  static constexpr int kMaxSubstances = 998;
  static constexpr int kMaxResidue = 1000000;  // mg/kg

  int componentCount() const;
  int substanceCount() const;
  const FeedComponent& component(int i) const;
  FeedComponent& component(int i);
  const std::string& substanceName(int s) const;
  double residue(int s, int i) const;      // mg/kg as is
  std::int16_t basis(int s, int i) const;  // 0 STMR, 1 STMR-P

  void setSubstanceName(int s, std::string name);
  void setResidue(int s, int i, double value);
  void setBasis(int s, int i, std::int16_t code);
  // Adding beyond kMaxSubstances or kMaxComponents throws std::length_error; deleting the only
  // substance throws std::logic_error; a position out of range throws std::out_of_range.
  int addSubstance(std::string name);          // appended; values 0, basis 0; returns s
  int copySubstance(int s, std::string name);  // appended copy of s; returns the new s
  void deleteSubstance(int s);                 // later substances move down
  int addComponent(FeedComponent component);   // appended; residues 0, basis 0; returns i
  void deleteComponent(int i);                 // later components move up

  Encoding encoding() const { return m_encoding; }
  void setEncoding(Encoding encoding) { m_encoding = encoding; }

 private:
  friend class ComponentTableReader;  // fills the rows in place, in file order

  std::size_t at(int s, int i) const;  // checked
  // A new column of substance values from column `from` (-1: zeros); `erase` removes `from`.
  void rebuildColumns(int from, bool erase);

  std::vector<FeedComponent> m_components;
  std::vector<std::string> m_substances;
  // One row per component, one column per substance: a file's line is one row.
  std::vector<double> m_residues;     // [(i - 1) * substanceCount() + s - 1]
  std::vector<std::int16_t> m_basis;  // the same layout
  Encoding m_encoding = Encoding::Utf8;
};

// feedstuff.tab. Reading throws TableError naming file, line and cell: besides the layout it
// refuses numeric cells that are not one number (an empty residue cell reads as 0), values
// beyond what the editors allow (percentages outside 0..100, CP + CL above 100, residues above
// 1,000,000 mg/kg), a first line that is a component rather than the header, and files that
// are not tables (see TableLines, TableFile).
ComponentTable readComponentTable(const std::string& path);
// Atomic: a temporary file in the same folder replaces the old one. Throws TableError.
void writeComponentTable(const ComponentTable& table, const std::string& path,
                         char decimalSeparator);
// The exit sort of the just-written file: ascending binary order of the category.
void sortComponentFile(const std::string& path);
// Copies feedstuff1.tab over feedstuff.tab in inputFolder and reads it.
ComponentTable resetComponentTable(const std::string& inputFolder);

// The same steps on bytes held in memory; path only names the file in messages.
ComponentTable parseComponentTable(std::string_view bytes, const std::string& path);
// The file's bytes as writeComponentTable writes them, in the table's encoding.
std::string formatComponentTable(const ComponentTable& table, char decimalSeparator,
                                 const std::string& path);
// The exit sort from a file's bytes to the sorted file's bytes, in the same encoding.
std::string sortComponentText(std::string_view bytes, const std::string& path);

}  // namespace pescavo
