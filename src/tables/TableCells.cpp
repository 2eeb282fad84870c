#include "tables/TableCells.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "tables/NumericText.h"
#include "tables/Utf8.h"

namespace pescavo {

namespace {

// Every power of ten a double holds exactly. A whole number below 2^53 times or divided by one
// of them is a single correctly rounded operation, which is the value the full decimal reading
// gives too.
constexpr double kExactPowersOf10[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                       1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                       1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kMaxExactPower = 22;
constexpr std::uint64_t kMaxExactWhole = std::uint64_t{1} << 53;
constexpr int kMaxDigits = 19;  // decimal digits that always fit 64 bits

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// digits * 10^exponent when both parts are exact, as above; false otherwise.
bool exactDecimal(std::uint64_t digits, long exponent, double& value) {
  if (digits > kMaxExactWhole || exponent > kMaxExactPower || exponent < -kMaxExactPower)
    return false;
  const auto whole = static_cast<double>(digits);
  value = exponent >= 0 ? whole * kExactPowersOf10[exponent] : whole / kExactPowersOf10[-exponent];
  return true;
}

}  // namespace

std::string quotedText(std::string_view text) {
  constexpr std::size_t kShown = 40;
  if (text.size() <= kShown) return "\"" + std::string(text) + "\"";
  return "\"" + std::string(text.substr(0, characterStart(text, kShown))) + "...\"";
}

bool takeCell(std::string_view& rest, std::string_view& cell) {
  const std::size_t tab = rest.find('\t');
  if (tab == std::string_view::npos) return false;
  cell = rest.substr(0, tab);
  rest.remove_prefix(tab + 1);
  return true;
}

void dropCell(std::string_view& rest) {
  const std::size_t tab = rest.find('\t');
  if (tab != std::string_view::npos) rest.remove_prefix(tab + 1);
}

std::vector<std::string_view> splitCells(std::string_view line) {
  std::vector<std::string_view> cells;
  std::string_view cell;
  while (takeCell(line, cell)) cells.push_back(cell);
  cells.push_back(line);
  return cells;
}

bool onlyBlanks(std::string_view text) {
  return text.find_first_not_of(" \t") == std::string_view::npos;
}

int cellAt(std::string_view line, std::size_t pos) {
  pos = std::min(pos, line.size());
  return static_cast<int>(std::count(line.begin(), line.begin() + pos, '\t')) + 1;
}

std::optional<double> numberCell(std::string_view cell) {
  const char* p = cell.data();
  const char* const end = p + cell.size();
  const auto skipBlanks = [&] {
    while (p < end && *p == ' ') ++p;
  };
  skipBlanks();
  bool negative = false;
  if (p < end && (*p == '+' || *p == '-')) {
    negative = *p == '-';
    ++p;
  }
  std::uint64_t digits = 0;  // the significant digits, while they fit
  int significant = 0;
  long scale = 0;  // digits * 10^scale is the mantissa
  bool anyDigit = false, point = false, fits = true;
  for (; p < end; ++p) {
    const char c = *p;
    if (isDigit(c)) {
      anyDigit = true;
      if (digits == 0 && c == '0') {
        scale -= point;
      } else if (significant < kMaxDigits) {
        digits = digits * 10 + static_cast<std::uint64_t>(c - '0');
        ++significant;
        scale -= point;
      } else {
        fits = false;
      }
    } else if ((c == '.' || c == ',') && !point) {
      point = true;
    } else if (c != ' ') {
      break;
    }
  }
  if (!anyDigit) return std::nullopt;

  long exponent = 0;
  if (p < end && (*p == 'E' || *p == 'e' || *p == 'D' || *p == 'd')) {
    ++p;
    skipBlanks();
    bool exponentNegative = false;
    if (p < end && (*p == '+' || *p == '-')) {
      exponentNegative = *p == '-';
      ++p;
    }
    bool exponentDigit = false;
    for (; p < end; ++p) {
      if (isDigit(*p)) {
        exponentDigit = true;
        if (exponent < 100000) exponent = exponent * 10 + (*p - '0');  // beyond any double
      } else if (*p != ' ') {
        break;
      }
    }
    if (!exponentDigit) return std::nullopt;
    if (exponentNegative) exponent = -exponent;
  }
  if (p != end) return std::nullopt;

  // zahl reads past its 1000th character after a comma differently; long cells go to it.
  double value = 0;
  if (digits == 0) return 0.0;  // "-0" too reads as 0, as zahl gives it
  if (fits && cell.size() <= 1000 && exactDecimal(digits, scale + exponent, value)) {
    value = negative ? -value : value;
  } else {
    value = zahl(cell);
  }
  if (!std::isfinite(value)) return std::nullopt;
  return value;
}

const char* plainNumberCell(const char* p, const char* end, double& value) {
  const bool negative = p < end && *p == '-';
  p += negative;
  std::uint64_t digits = 0;
  int count = 0, decimals = 0;
  bool point = false;
  for (; p < end; ++p) {
    const unsigned digit = static_cast<unsigned char>(*p) - unsigned{'0'};
    if (digit < 10) {
      digits = digits * 10 + digit;
      ++count;
      decimals += point;
    } else if (*p == '.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  if (count == 0 || count > kMaxDigits || (p < end && *p != '\t')) return nullptr;
  if (!exactDecimal(digits, -decimals, value)) return nullptr;
  if (negative && digits != 0) value = -value;
  return p;
}

}  // namespace pescavo
