#pragma once

// The layout of feedstuff.tab that its reader, writer and exit sort share.

#include <string>
#include <string_view>
#include <vector>

#include "tables/ComponentTable.h"
#include "tables/TableLines.h"

namespace pescavo {

constexpr int kFixedCells = 9;
constexpr std::string_view kHeaderStart =
    "Category\tCrop\tCommodity\tIFN Code\tCP (%)\tCL (%)\tDM(%)\tmax carp(%)\tmax trout (%)";
constexpr std::string_view kResidueMarker = "ResidueInputValue";
inline const std::string kAtMostComponents =
    "expected at most " + std::to_string(ComponentTable::kMaxComponents) + " components";

// What a data-line cell holds, for messages. Cells are 1-based as in the layout.
std::string describeCell(int cell, const std::vector<std::string>& names);

// The substance names of the header line; the names are the file's bytes, not yet decoded.
std::vector<std::string> readHeader(std::string_view line, TableLines& lines);

// The header line as the first line of the file, or the refusal of an empty file.
std::vector<std::string> readFirstLine(TableLines& lines);

}  // namespace pescavo
