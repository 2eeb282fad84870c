#pragma once

namespace pescavo {

// Key codes as the grids' key handlers see them: the virtual key numbers the windows hand over
// (see virtualKey in the desktop layer).
namespace VirtualKey {
constexpr int kBackspace = 8;
constexpr int kEnter = 13;
constexpr int kEscape = 27;
constexpr int kDelete = 46;
constexpr int kKeyC = 67;
constexpr int kKeypadZero = 96;
constexpr int kKeypadNine = 105;
constexpr int kKeypadDecimal = 110;
constexpr int kCommaKey = 188;
constexpr int kPeriodKey = 190;
}  // namespace VirtualKey

}  // namespace pescavo
