#include "model/SubstanceDatabase.h"

#include "tables/ComponentViews.h"
#include "tables/TableError.h"

namespace pescavo {

namespace {

const char* const kSaveQuestion = "You modified the substance database. Do you want to save?";
const char* const kSortQuestion = "Do you want to sort the data base entries?";
const char* const kResetQuestion = "You want to reset the data base settings?";

}  // namespace

void SubstanceDatabase::read(const std::string& folder) {
  m_folder = folder;
  ComponentTable table = readComponentTable(path());
  m_duplicateWarnings = pescavo::duplicateWarnings(table, "feedstuff.tab");
  assign(std::move(table));
}

void SubstanceDatabase::assign(ComponentTable table) {
  m_table = std::move(table);
  m_modified = false;
}

bool SubstanceDatabase::write(char decimalSeparator) {
  try {
    writeComponentTable(m_table, path(), decimalSeparator);
    return true;
  } catch (const TableError& error) {
    m_dialogs.information(error.what());
    return false;
  }
}

bool SubstanceDatabase::saveBeforeExit(char decimalSeparator) {
  if (!m_modified) return true;
  if (!m_dialogs.askYesNo(kSaveQuestion)) return true;
  // Nothing is lost by a failed write: the old file stands and the window stays open.
  if (!write(decimalSeparator)) return false;
  if (!m_dialogs.askYesNo(kSortQuestion)) return true;
  try {
    sortComponentFile(path());
  } catch (const TableError& error) {
    // The database is saved; only its order is as before.
    m_dialogs.information(error.what());
  }
  return true;
}

bool SubstanceDatabase::restore() {
  if (!m_dialogs.askYesNo(kResetQuestion)) return false;
  try {
    m_table = resetComponentTable(m_folder);
  } catch (const TableError& error) {
    m_dialogs.information(error.what());
    return false;
  }
  return true;
}

}  // namespace pescavo
