#pragma once

#include <string>
#include <vector>

namespace pescavo {

// The one message the desktop program shows after a start-up that found equal components or
// substances: each warning on a line of its own; empty when there is nothing to say.
std::string startUpWarningText(const std::vector<std::string>& warnings);

}  // namespace pescavo
