// Numbers written in their general form: as many digits as they need.

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>

#include "tables/NumericText.h"

namespace pescavo {

namespace {

// A finite, positive double as its decimal digits (no trailing zeros) and the decimal exponent
// of the first digit, with at most `significant` digits.
struct DecimalDigits {
  std::string digits;
  int exponent = 0;
};

// The digits and the exponent of to_chars' scientific form "d.ddde+XX".
DecimalDigits scientificDigits(const char* first, const char* last) {
  const std::string_view text(first, static_cast<std::size_t>(last - first));
  const std::size_t e = text.find('e');
  DecimalDigits result;
  for (const char c : text.substr(0, e)) {
    if (c >= '0' && c <= '9') result.digits += c;
  }
  result.exponent = std::atoi(std::string(text.substr(e + 1)).c_str());
  return result;
}

DecimalDigits decimalDigits(double magnitude, int significant, bool keepTrailingZeros) {
  char buffer[64];
  const auto formatted = std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                       std::chars_format::scientific, significant - 1);
  DecimalDigits result = scientificDigits(buffer, formatted.ptr);
  if (!keepTrailingZeros) {
    while (result.digits.size() > 1 && result.digits.back() == '0') result.digits.pop_back();
  }
  return result;
}

// Up to 15 significant digits: the shortest text that reads back exactly when there is one.
DecimalDigits generalDigits(double magnitude) {
  char buffer[64];
  const auto formatted =
      std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::scientific);
  DecimalDigits shortest = scientificDigits(buffer, formatted.ptr);
  if (shortest.digits.size() <= 15) return shortest;
  return decimalDigits(magnitude, 15, false);
}

// The digits laid out with the separator, in exponent form below 10^lowestPlainExponent and
// from 1E+15 on.
std::string layoutDigits(const DecimalDigits& d, bool negative, char decimalSeparator,
                         int lowestPlainExponent) {
  std::string text = negative ? "-" : "";
  const int length = static_cast<int>(d.digits.size());
  if (d.exponent < lowestPlainExponent || d.exponent >= 15) {
    text += d.digits[0];
    if (length > 1) text += decimalSeparator + d.digits.substr(1);
    const int magnitude = std::abs(d.exponent);
    text += d.exponent < 0 ? "E-" : "E+";
    if (magnitude < 10) text += '0';
    text += std::to_string(magnitude);
  } else if (d.exponent < 0) {
    text += "0";
    text += decimalSeparator;
    text += std::string(static_cast<std::size_t>(-d.exponent - 1), '0') + d.digits;
  } else if (length <= d.exponent + 1) {
    text += d.digits + std::string(static_cast<std::size_t>(d.exponent + 1 - length), '0');
  } else {
    text += d.digits.substr(0, static_cast<std::size_t>(d.exponent + 1));
    text += decimalSeparator;
    text += d.digits.substr(static_cast<std::size_t>(d.exponent + 1));
  }
  return text;
}

}  // namespace

std::string nonFiniteText(double value) {
  if (std::isnan(value)) return "nan";
  return value < 0 ? "-inf" : "inf";
}

std::string generalForm(double value, char decimalSeparator) {
  if (!std::isfinite(value)) return nonFiniteText(value);
  if (value == 0) return "0";
  return layoutDigits(generalDigits(std::fabs(value)), value < 0, decimalSeparator, -4);
}

std::string plainDecimalText(double value) {
  if (!std::isfinite(value)) return nonFiniteText(value);
  if (value == 0) return "0";
  char buffer[64];
  const auto formatted = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value),
                                       std::chars_format::scientific);
  return layoutDigits(scientificDigits(buffer, formatted.ptr), value < 0, '.', -7);
}

}  // namespace pescavo
