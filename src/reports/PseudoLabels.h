#pragma once

#include "engine/OptimisationProblem.h"

namespace pescavo {

// Where a pseudo-component is named: the four lists of a report section, the composition
// table's category cell and a pie chart's label.
enum class LabelPlace { MaxContent, DryMatterResidue, Composition, Load, TableCategory, Chart };

// Every place spells CC and F its own way, on purpose: reports are compared with older ones.
// Fish meal is "Fish meal (" P "% protein, " L followed by fishmealLabelEnd, except in the
// table, where its category cell is the label below.
inline const char* pseudoLabel(VariableKind kind, LabelPlace place) {
  static const char* const kLabels[3][6] = {
      {"", "", "", "", "Fish meal ", ""},
      {"CC (0.1% protein,0.1 % lipid) ", "CC (0.1% protein, 0.1% lipid )\t",
       "CC (0.1% protein, 0.1% lipid)\t", "CC (0.1 % protein, 0.1% lipid)\t", "CC ",
       "CC ( 0.1% protein, 0.1% lipid) "},
      {"F (100 % lipid) ", "F (100% lipid )\t", "F(100% lipid)\t", "F (100% lipid)\t", "F",
       "F ( 100% lipid) "}};
  const int row = kind == VariableKind::CC ? 1 : kind == VariableKind::F ? 2 : 0;
  return kLabels[row][static_cast<int>(place)];
}

inline const char* fishmealLabelEnd(LabelPlace place) {
  return place == LabelPlace::MaxContent || place == LabelPlace::Chart ? "% lipid) " : "% lipid)\t";
}

}  // namespace pescavo
