// Numbers read from text: the cells of the tables and the values typed into the editors.

#include <charconv>
#include <limits>
#include <string>

#include "tables/NumericText.h"

namespace pescavo {

namespace {

// Reads the leading-number grammar; blanks, TABs and line feeds are invisible to it.
class NumberScanner {
 public:
  explicit NumberScanner(std::string_view text) : m_text(text) {}

  char peek() {
    while (m_pos < m_text.size() &&
           (m_text[m_pos] == ' ' || m_text[m_pos] == '\t' || m_text[m_pos] == '\n')) {
      ++m_pos;
    }
    return m_pos < m_text.size() ? m_text[m_pos] : '\0';
  }
  void advance() { ++m_pos; }
  std::size_t position() const { return m_pos; }
  void rewind(std::size_t pos) { m_pos = pos; }

 private:
  std::string_view m_text;
  std::size_t m_pos = 0;
};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

int digitValue(char c, int base) {
  int value = -1;
  if (isDigit(c))
    value = c - '0';
  else if (c >= 'a' && c <= 'f')
    value = c - 'a' + 10;
  else if (c >= 'A' && c <= 'F')
    value = c - 'A' + 10;
  return value >= 0 && value < base ? value : -1;
}

double radixInteger(NumberScanner& scanner, int base) {
  double value = 0;
  for (int digit = digitValue(scanner.peek(), base); digit >= 0;
       digit = digitValue(scanner.peek(), base)) {
    value = value * base + digit;
    scanner.advance();
  }
  return value;
}

}  // namespace

double zahl(std::string_view text) {
  if (text.find(',') == std::string_view::npos) return leadingNumber(text);
  std::string converted(text);
  for (std::size_t p = converted.find(','); p != std::string::npos; p = converted.find(',', p)) {
    converted = converted.substr(0, p) + "." + converted.substr(p + 1, 1000);
  }
  return leadingNumber(converted);
}

double leadingNumber(std::string_view text) {
  NumberScanner scanner(text);
  if (scanner.peek() == '&') {
    scanner.advance();
    const char radix = scanner.peek();
    if (radix == 'H' || radix == 'h') {
      scanner.advance();
      return radixInteger(scanner, 16);
    }
    if (radix == 'O' || radix == 'o') {
      scanner.advance();
      return radixInteger(scanner, 8);
    }
    return 0;
  }

  bool negative = false;
  if (scanner.peek() == '+' || scanner.peek() == '-') {
    negative = scanner.peek() == '-';
    scanner.advance();
  }
  std::string mantissa;
  int integerDigits = 0;  // significant digits before the point
  bool seenPoint = false;
  bool seenDigit = false;
  bool seenNonZero = false;
  for (char c = scanner.peek(); isDigit(c) || (c == '.' && !seenPoint); c = scanner.peek()) {
    if (c == '.') {
      seenPoint = true;
      mantissa += '.';
    } else {
      seenDigit = true;
      if (c != '0') seenNonZero = true;
      if (seenNonZero && !seenPoint) ++integerDigits;
      if (seenNonZero || seenPoint) mantissa += c;
    }
    scanner.advance();
  }
  if (!seenDigit || !seenNonZero) return 0;

  long exponent = 0;
  const char e = scanner.peek();
  if (e == 'E' || e == 'e' || e == 'D' || e == 'd') {
    const std::size_t before = scanner.position();
    scanner.advance();
    bool exponentNegative = false;
    if (scanner.peek() == '+' || scanner.peek() == '-') {
      exponentNegative = scanner.peek() == '-';
      scanner.advance();
    }
    bool exponentDigits = false;
    for (char c = scanner.peek(); isDigit(c); c = scanner.peek()) {
      exponentDigits = true;
      if (exponent < 100000) exponent = exponent * 10 + (c - '0');  // far beyond any double
      scanner.advance();
    }
    if (!exponentDigits) {
      exponent = 0;
      scanner.rewind(before);
    } else if (exponentNegative) {
      exponent = -exponent;
    }
  }

  const std::string number = mantissa + "e" + std::to_string(exponent);
  double value = 0;
  const auto parsed = std::from_chars(number.data(), number.data() + number.size(), value,
                                      std::chars_format::general);
  if (parsed.ec == std::errc::result_out_of_range) {
    // The first significant digit's place tells an overflow from an underflow.
    const long magnitude = (integerDigits > 0 ? integerDigits : 0) + exponent;
    value = magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
  } else if (parsed.ec != std::errc()) {
    value = 0;
  }
  if (value == 0) return 0;
  return negative ? -value : value;
}

std::optional<int> filterKey(int key, std::string& text, int& caret) {
  constexpr int kEnter = 13;
  constexpr int kBackspace = 8;
  if (key == kEnter || key == kBackspace || key == '.' || (key >= '0' && key <= '9')) return key;
  if (key == ',') {
    text += '.';
    caret = static_cast<int>(text.size());
  }
  return std::nullopt;
}

}  // namespace pescavo
