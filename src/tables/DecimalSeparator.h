#pragma once

namespace pescavo {

// The regional decimal separator the programs hand to the core: ',' when the locale's decimal
// point is a comma, '.' for anything else (the numeric texts know no other separator).
char decimalSeparatorOf(const char* localeDecimalPoint);

// The separator of the user's LC_NUMERIC. The C library is left in the "C" numeric locale, so
// that every number the programs read or write keeps its point whatever the user's locale.
char userDecimalSeparator();

}  // namespace pescavo
