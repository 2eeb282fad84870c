#include "model/WindowOptions.h"

namespace pescavo {

void WindowOptions::followOptionButtons() {
  setCriterion(m_criterionOption);
  setSpecies(static_cast<int>(m_speciesOption));
  setFishmealGrade(2);
}

}  // namespace pescavo
