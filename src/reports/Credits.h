#pragma once

#include <string>

namespace pescavo {

// Shown by the start screen and the About window and repeated in every report title block;
// change the wording here only.
constexpr const char* kCreditLine = "Developed by the Pescavo maintainers";
constexpr const char* kLicenceLine = "Free software under the GNU GPL, version 3 or later";
constexpr const char* kBuildDate = "08-Mar-2018";

// The program's version record.
constexpr int kVersionMajor = 1;
constexpr int kVersionMinor = 0;
constexpr int kVersionRevision = 20;

inline std::string versionText() {
  return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
         std::to_string(kVersionRevision);
}

}  // namespace pescavo
