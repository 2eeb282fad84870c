#include "engine/OptimisationProblem.h"

#include <algorithm>

namespace pescavo {

const char* pseudoComponentName(VariableKind kind) {
  switch (kind) {
    case VariableKind::PC:
      return "PC";
    case VariableKind::CC:
      return "CC";
    case VariableKind::F:
      return "F";
    case VariableKind::Component:
      break;
  }
  return "";
}

bool OptimisationProblem::has(VariableKind k) const {
  return std::find(kind.begin(), kind.end(), k) != kind.end();
}

std::string OptimisationProblem::variableName(int j) const {
  const std::size_t index = static_cast<std::size_t>(j - 1);
  if (j >= 1 && index < name.size() && !name[index].empty()) return name[index];
  if (j >= 1 && index < kind.size()) return pseudoComponentName(kind[index]);
  return std::string();
}

}  // namespace pescavo
