#pragma once

namespace pescavo {

// Shown by the start screen and the About window and repeated in every report title block;
// change the wording here only.
constexpr const char* kCreditLine = "Developed by the Pescavo maintainers";
constexpr const char* kBuildDate = "08-Mar-2018";

}  // namespace pescavo
