#include "tables/DecimalSeparator.h"

#include <clocale>

namespace pescavo {

char decimalSeparatorOf(const char* localeDecimalPoint) {
  return localeDecimalPoint && *localeDecimalPoint == ',' ? ',' : '.';
}

char userDecimalSeparator() {
  std::setlocale(LC_NUMERIC, "");
  const char separator = decimalSeparatorOf(std::localeconv()->decimal_point);
  std::setlocale(LC_NUMERIC, "C");
  return separator;
}

}  // namespace pescavo
