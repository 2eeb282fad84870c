#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/TempFolder.h"
#include "tables/TableError.h"

namespace pescavo {

inline const std::string kFixedHeader =
    "Category\tCrop\tCommodity\tIFN Code\tCP (%)\tCL (%)\tDM(%)\tmax carp(%)\tmax trout (%)";
inline const std::string kRow = "Fat\tRape\toil\t\t0\t99\t99\t5\t5\t";  // up to the residues

inline std::string header(const std::vector<std::string>& names) {
  std::string line = kFixedHeader;
  for (const std::string& name : names) line += "\tResidueInputValue\t" + name;
  return line + "\r\n";
}

inline std::string times(int n, const std::string& text) {
  return n ? text + times(n - 1, text) : "";
}

// The refusal's message, or "no error".
template <typename Error = TableError, typename Action>
std::string errorOf(Action action) {
  try {
    action();
  } catch (const Error& error) {
    return error.what();
  }
  return "no error";
}

}  // namespace pescavo
