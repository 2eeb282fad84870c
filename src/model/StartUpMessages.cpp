#include "model/StartUpMessages.h"

namespace pescavo {

std::string startUpWarningText(const std::vector<std::string>& warnings) {
  std::string text;
  for (const std::string& warning : warnings) {
    if (!text.empty()) text += '\n';
    text += warning;
  }
  return text;
}

}  // namespace pescavo
