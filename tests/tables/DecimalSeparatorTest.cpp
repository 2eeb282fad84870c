#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>

#include "tables/DecimalSeparator.h"

namespace pescavo {
namespace {

// A comma decimal point is the only other separator the numeric texts know.
TEST(DecimalSeparator, CommaOrPointFromTheLocaleAndTheCLocaleLeftBehind) {
  EXPECT_EQ(decimalSeparatorOf(","), ',');
  for (const char* point : {".", "", static_cast<const char*>(nullptr), "\xD9\xAB"})
    EXPECT_EQ(decimalSeparatorOf(point), '.');

  // A user locale other than "C", so that one left in force shows.
  const char* before = std::getenv("LC_ALL");
  const std::string saved = before ? before : "";
  ::setenv("LC_ALL", "C.UTF-8", 1);
  EXPECT_EQ(userDecimalSeparator(), '.');
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
  before ? ::setenv("LC_ALL", saved.c_str(), 1) : ::unsetenv("LC_ALL");
}

}  // namespace
}  // namespace pescavo
