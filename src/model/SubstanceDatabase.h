#pragma once

#include <string>
#include <vector>

#include "model/Dialogs.h"
#include "tables/ComponentTable.h"

namespace pescavo {

// feedstuff.tab as the main window holds it: the table, the folder it lives in, whether it was
// changed since it was read, and the file operations with their questions. A failed write, sort
// or reset is shown with the file and the reason and loses nothing.
class SubstanceDatabase {
 public:
  explicit SubstanceDatabase(Dialogs& dialogs) : m_dialogs(dialogs) {}

  // Reads folder/feedstuff.tab; throws TableError. Equal components or substance names are
  // kept as warnings for a face to show once.
  void read(const std::string& folder);
  // A table already read, unchanged.
  void assign(ComponentTable table);

  const std::string& folder() const { return m_folder; }
  const ComponentTable& table() const { return m_table; }
  ComponentTable& table() { return m_table; }  // the editors change it, then markModified()
  const std::vector<std::string>& duplicateWarnings() const { return m_duplicateWarnings; }
  bool modified() const { return m_modified; }
  void markModified() { m_modified = true; }
  // "Del" has something to do while the database holds two substances or more.
  bool canDelete() const { return m_table.substanceCount() >= 2; }

  // "&save": writes the table; false when it could not be written.
  bool write(char decimalSeparator);
  // "Exit": the save and sort questions. True when the program may end; false when a failed
  // write keeps it open.
  bool saveBeforeExit(char decimalSeparator);
  // "&restore original data base": the question, then feedstuff1.tab over feedstuff.tab. True
  // when the table was replaced.
  bool restore();

 private:
  std::string path() const { return m_folder + "/feedstuff.tab"; }

  std::string m_folder;
  ComponentTable m_table;
  std::vector<std::string> m_duplicateWarnings;
  bool m_modified = false;
  Dialogs& m_dialogs;
};

}  // namespace pescavo
