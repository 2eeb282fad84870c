#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tables/TextFile.h"

namespace pescavo {
namespace {

TEST(TextFile, Utf8IsKeptAndItsByteOrderMarkDropped) {
  const DecodedText decoded = decodeText(
      "\xEF\xBB\xBF"
      "R\xC3\xBC"
      "be");
  EXPECT_EQ(decoded.encoding, Encoding::Utf8);
  EXPECT_EQ(decoded.text,
            "R\xC3\xBC"
            "be");
  EXPECT_EQ(decodeText("plain").encoding, Encoding::Utf8);
}

TEST(TextFile, AnythingElseIsWindows1252) {
  const DecodedText decoded = decodeText("\x80 \x9F \xFC \x81");
  EXPECT_EQ(decoded.encoding, Encoding::Windows1252);
  EXPECT_EQ(decoded.text, "\xE2\x82\xAC \xC5\xB8 \xC3\xBC \xC2\x81");
  // Every byte survives the way in and out, the five undefined ones included.
  std::string all;
  for (int b = 1; b < 256; ++b) all += static_cast<char>(b);
  const DecodedText every = decodeText(all);
  ASSERT_EQ(every.encoding, Encoding::Windows1252);
  EXPECT_EQ(encodeText(every.text, Encoding::Windows1252), all);
  // "\xC3\xA4" in the code page is valid UTF-8 for another text; UTF-8 keeps the text.
  const std::string lookalike = "\xC3\x83\xC2\xA4";
  EXPECT_EQ(encodeText(lookalike, Encoding::Windows1252), lookalike);
  EXPECT_EQ(encodeText("\xC3\xBC", Encoding::Windows1252), "\xFC");
}

TEST(TextFile, StrictUtf8Validation) {
  EXPECT_TRUE(isValidUtf8("\xF0\x9F\x90\x9F \xE2\x82\xAC \xC3\xA4"));
  for (const std::string bad : {"\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                                "\xE2\x82", "\xC3", "\x80", "\xF8\x88\x80\x80\x80"}) {
    EXPECT_FALSE(isValidUtf8(bad)) << bad;
  }
}

TEST(TextFile, LinesEndAtLineFeedWithOrWithoutCarriageReturn) {
  using Lines = std::vector<std::string_view>;
  EXPECT_EQ(splitLines("a\r\nb\nc"), (Lines{"a", "b", "c"}));
  EXPECT_EQ(splitLines("a\r\n"), (Lines{"a"}));
  EXPECT_EQ(splitLines("a\r\n\r\n"), (Lines{"a", ""}));
  EXPECT_EQ(splitLines("a\rb\n"), (Lines{"a\rb"}));
  EXPECT_EQ(splitLines("\n"), (Lines{""}));
  EXPECT_TRUE(splitLines("").empty());
  EXPECT_EQ(trimBlanks("  a b \t "), "a b \t");
}

}  // namespace
}  // namespace pescavo
