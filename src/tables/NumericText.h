#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace pescavo {

// Text to number, comma-tolerant: every comma becomes a point first.
double zahl(std::string_view text);

// The leading-number rule under zahl: blanks ignored anywhere, "." only, E/D exponents,
// &H and &O integers; anything that is not a number reads as 0.
double leadingNumber(std::string_view text);

// "nan", "inf" or "-inf": how every numeric text writes a value that is not finite.
std::string nonFiniteText(double value);

// Up to 15 significant digits, exponent form for very small and large magnitudes;
// reads back through zahl to the same value.
std::string generalForm(double value, char decimalSeparator);

// The text a residue value is edited as: "." whatever the locale, the fewest digits that read
// back to the same double, exponent form only below 1E-07 and from 1E+15 on.
std::string plainDecimalText(double value);

// format is "0", "0.0", "0.00" or "0.000"; rounds half away from zero on the value as
// written with 15 significant digits.
std::string fixedForm(double value, std::string_view format, char decimalSeparator);

// For writers of long texts: fixedForm's text written at out, which has room for
// kFixedFormRoom characters; returns its length, or 0 for the values it leaves to fixedForm
// (not finite, magnitudes from 1e15 up, more than three decimals).
constexpr std::size_t kFixedFormRoom = 24;
std::size_t writeFixedForm(char* out, double value, std::string_view format, char decimalSeparator);

// Key filter of the numeric editors. Returns the key the editor should see, or nothing
// when the key is swallowed; a comma appends "." to text and moves caret to the end.
std::optional<int> filterKey(int key, std::string& text, int& caret);

}  // namespace pescavo
