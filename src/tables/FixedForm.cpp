// Numbers written with a fixed number of decimals.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tables/NumericText.h"

namespace pescavo {

namespace {

template <typename Integer, std::size_t N>
constexpr std::array<Integer, N> powersOf10() {
  std::array<Integer, N> powers{};
  Integer power = 1;
  for (Integer& p : powers) {
    p = power;
    power *= 10;
  }
  return powers;
}

constexpr std::array<std::uint64_t, 19> kPowersOf10 = powersOf10<std::uint64_t, 19>();

#ifdef __SIZEOF_INT128__
using Wide = unsigned __int128;
constexpr std::array<Wide, 23> kWidePowersOf10 = powersOf10<Wide, 23>();

// The magnitude rounded to 15 significant digits as to_chars rounds it (to nearest, ties to
// even, on the exact binary value), in integer arithmetic: digits in [10^14, 10^15) and the
// decimal exponent of the first digit. Covers 1e-8 <= magnitude < 1e15, where magnitude
// * 10^(14 - exponent) has at most 127 bits; false elsewhere.
bool fifteenDigits(double magnitude, std::uint64_t& digits, int& exponent) {
  if (!(magnitude >= 1e-8 && magnitude < 1e15)) return false;
  std::uint64_t bits;
  std::memcpy(&bits, &magnitude, sizeof bits);
  // A normal double: magnitude = mantissa / 2^shift, 3 <= shift <= 80 in this range.
  const std::uint64_t mantissa = (bits & ((std::uint64_t{1} << 52) - 1)) | std::uint64_t{1} << 52;
  const int shift = 1075 - static_cast<int>(bits >> 52);
  // floor(log10) of 2^(52 - shift), at most one below the magnitude's own: 78913 / 2^18 is
  // log10(2) to six places, and the shift rounds towards minus infinity.
  exponent = ((52 - shift) * 78913) >> 18;
  for (;;) {
    const int scale = 14 - exponent;
    if (scale < 0 || scale >= static_cast<int>(kWidePowersOf10.size())) return false;
    const Wide scaled = mantissa * kWidePowersOf10[scale];  // magnitude * 10^scale * 2^shift
    const std::uint64_t whole = static_cast<std::uint64_t>(scaled >> shift);
    if (whole < kPowersOf10[14]) {
      --exponent;
      continue;
    }
    if (whole >= kPowersOf10[15]) {
      ++exponent;
      continue;
    }
    const Wide rest = scaled - (static_cast<Wide>(whole) << shift);
    const Wide half = Wide{1} << (shift - 1);
    digits = whole;
    if (rest > half || (rest == half && whole % 2 == 1)) ++digits;
    if (digits == kPowersOf10[15]) {
      digits = kPowersOf10[14];
      ++exponent;
    }
    return true;
  }
}
#else
bool fifteenDigits(double, std::uint64_t&, int&) { return false; }
#endif

// value / 10^places with a constant divisor for each case, which the compiler turns into a
// multiplication.
std::uint64_t roundedDown(std::uint64_t value, int places) {
  switch (places) {
    case 1:
      return value / 10;
    case 2:
      return value / 100;
    case 3:
      return value / 1000;
    case 4:
      return value / 10000;
    case 5:
      return value / 100000;
    case 6:
      return value / 1000000;
    case 7:
      return value / 10000000;
    case 8:
      return value / 100000000;
    case 9:
      return value / 1000000000;
    case 10:
      return value / 10000000000;
    case 11:
      return value / 100000000000;
    case 12:
      return value / 1000000000000;
    case 13:
      return value / 10000000000000;
    case 14:
      return value / 100000000000000;
    default:
      return value / kPowersOf10[places];
  }
}

// The common case without any text in between: up to three decimals and magnitudes below
// 1e15. The value as a multiple of 10^-decimals, rounded half away from zero; false when the
// value is outside that range.
bool scaledFixed(double value, int decimals, std::uint64_t& scaled) {
  const double magnitude = std::fabs(value);
  if (decimals > 3 || !(magnitude < 1e15)) return false;
  scaled = 0;  // below 1e-8 the value rounds to 0 at three decimals
  if (magnitude >= 1e-8) {
    std::uint64_t digits;
    int exponent;
    if (!fifteenDigits(magnitude, digits, exponent)) return false;
    const int drop = 14 - exponent - decimals;  // digits beyond the last decimal kept
    if (drop <= 0)
      scaled = digits * kPowersOf10[-drop];
    else if (drop <= 15)
      scaled = roundedDown(digits + kPowersOf10[drop] / 2, drop);
  }
  return true;
}

// Writes scaled * 10^-decimals at out; returns the length.
std::size_t writeScaled(char* out, bool negative, std::uint64_t scaled, int decimals,
                        char decimalSeparator) {
  int digits = decimals + 1;  // at least one before the point
  while (digits < static_cast<int>(kPowersOf10.size()) && scaled >= kPowersOf10[digits]) ++digits;
  const std::size_t length = (negative ? 1 : 0) + digits + (decimals > 0 ? 1 : 0);
  char* first = out + length;  // filled from the last digit back
  for (int d = 0; d < digits; ++d) {
    if (d == decimals && decimals > 0) *--first = decimalSeparator;
    *--first = static_cast<char>('0' + scaled % 10);
    scaled /= 10;
  }
  if (negative) *--first = '-';
  return length;
}

int decimalsOf(std::string_view format) {
  const std::size_t point = format.find('.');
  return point == std::string_view::npos ? 0 : static_cast<int>(format.size() - point - 1);
}

// Any finite value and any number of decimals, through the text of the 15 significant digits.
std::string fixedFormByText(double value, int decimals, char decimalSeparator) {
  // The value as written with 15 significant digits, laid out from the units place (or the
  // highest integer digit) down to the last decimal kept; cell 0 takes a carry.
  char digits[340 + 16];
  int length = 1 + decimals;  // digits after the carry cell
  bool roundUp = false;
  std::fill(digits, digits + 1 + length, '0');
  if (value != 0) {
    char scientific[32];
    char* end = std::to_chars(scientific, scientific + sizeof scientific - 1, std::fabs(value),
                              std::chars_format::scientific, 14)
                    .ptr;
    *end = '\0';
    char significant[15];
    significant[0] = scientific[0];
    std::copy(scientific + 2, scientific + 16, significant + 1);
    const int exponent = std::atoi(scientific + 17);  // "d.ddddddddddddddde+XX"
    const int pointPos = exponent + 1;                // digits before the point
    const int leadingZeros = pointPos <= 0 ? 1 - pointPos : 0;
    const int integerDigits = pointPos <= 0 ? 1 : pointPos;
    length = integerDigits + decimals;
    std::fill(digits, digits + 1 + length, '0');
    // Position q of the sequence "leading zeros, then the 15 digits" lands in cell q + 1.
    for (int k = 0; k < 15; ++k) {
      const int q = leadingZeros + k;
      if (q < length)
        digits[q + 1] = significant[k];
      else if (q == length)
        roundUp = significant[k] >= '5';
    }
  }
  if (roundUp) {
    int k = length;
    while (k > 0 && digits[k] == '9') digits[k--] = '0';
    ++digits[k];  // cell 0 when every digit was 9
  }
  const int integerEnd = length + 1 - decimals;  // cells [0, integerEnd) are the integer part
  int first = 0;
  while (first < integerEnd - 1 && digits[first] == '0') ++first;
  const bool zero = std::all_of(digits, digits + length + 1, [](char c) { return c == '0'; });

  std::string text;
  text.reserve(static_cast<std::size_t>(integerEnd - first + decimals + 2));
  if (value < 0 && !zero) text += '-';
  text.append(digits + first, digits + integerEnd);
  if (decimals > 0) {
    text += decimalSeparator;
    text.append(digits + integerEnd, digits + length + 1);
  }
  return text;
}

}  // namespace

std::size_t writeFixedForm(char* out, double value, std::string_view format,
                           char decimalSeparator) {
  const int decimals = decimalsOf(format);
  std::uint64_t scaled;
  if (!std::isfinite(value) || !scaledFixed(value, decimals, scaled)) return 0;
  return writeScaled(out, value < 0 && scaled != 0, scaled, decimals, decimalSeparator);
}

// Reports write thousands of these: the common case stays in integers.
std::string fixedForm(double value, std::string_view format, char decimalSeparator) {
  char buffer[kFixedFormRoom];
  if (const std::size_t length = writeFixedForm(buffer, value, format, decimalSeparator))
    return std::string(buffer, length);
  if (!std::isfinite(value)) return nonFiniteText(value);
  return fixedFormByText(value, decimalsOf(format), decimalSeparator);
}

}  // namespace pescavo
