#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "ReportTestSupport.h"
#include "reports/RtfWriter.h"
#include "reports/TextFiles.h"

namespace pescavo::test {
namespace {

std::string rawBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

TEST(TextFiles, WriteAppendAndReadAreByteExact) {
  TempFolder folder;
  const std::string path = folder.file("Report.txt");
  EXPECT_EQ(txt_ReadAll(path), "");  // missing file

  txt_WriteAll(path, " ");
  EXPECT_EQ(rawBytes(path), " \r\n");
  // UTF-8 text, lone LF and TAB pass through untouched.
  txt_AppendLine(path, "a\tb\nc \xC3\xA4\r\n");
  EXPECT_EQ(rawBytes(path), " \r\na\tb\nc \xC3\xA4\r\n\r\n");
  EXPECT_EQ(txt_ReadAll(path), rawBytes(path));

  txt_WriteAll(path, "");
  EXPECT_EQ(rawBytes(path), "\r\n");
  const std::string created = folder.file("new.txt");
  txt_AppendLine(created, "x");
  EXPECT_EQ(rawBytes(created), "x\r\n");
}

TEST(TextFiles, FailuresNameTheFile) {
  TempFolder folder;
  const std::string path = folder.file("no/such/folder/Report.txt");
  try {
    txt_WriteAll(path, "x");
    FAIL() << "no error";
  } catch (const ReportFileError& error) {
    EXPECT_EQ(error.file(), path);
    EXPECT_NE(std::string(error.what()).find(path), std::string::npos);
  }
  EXPECT_THROW(txt_AppendLine(path, "x"), ReportFileError);
  EXPECT_THROW(RtfWriter::save(path, "{}"), ReportFileError);
  // A folder is there but is no file.
  EXPECT_THROW(txt_ReadAll(folder.path()), ReportFileError);
}

std::string escaped(const std::string& text) {
  std::string out;
  RtfWriter::escape(text, out);
  return out;
}

TEST(RtfWriter, EscapesSpecialAndNonAsciiCharacters) {
  EXPECT_EQ(escaped("a\\b{c}"), "a\\\\b\\{c\\}");
  EXPECT_EQ(escaped(" x\ty\r\nz\n"), " x\\tab y\\par\r\nz\\par\r\n");
  EXPECT_EQ(escaped("\r\r\n"), "\\par\r\n\\par\r\n");
  EXPECT_EQ(escaped("M\xC3\xA4is"), "M\\u228?is");  // ä
  EXPECT_EQ(escaped("\xE2\x82\xAC"
                    "5"),
            "\\u8364?5");                                         // euro sign before a digit
  EXPECT_EQ(escaped("\xEA\xB0\x80"), "\\u-21504?");               // beyond 0x7FFF: signed 16 bits
  EXPECT_EQ(escaped("\xF0\x9F\x98\x80"), "\\u-10179?\\u-8704?");  // surrogate pair
  // Bytes that are not UTF-8 are taken as the declared Windows code page.
  EXPECT_EQ(escaped("\xE4x"), "\\'e4x");
  EXPECT_EQ(escaped("\xC3"), "\\'c3");
  EXPECT_EQ(escaped("\x01"), "\\'01");
}

TEST(RtfWriter, DocumentCarriesBoldAndColourPerRun) {
  RtfRun statement;
  statement.text = "Maximum content dietary burden based on A is 0.200 mg/kg.";
  statement.bold = true;
  statement.red = 255;
  RtfRun plain;
  plain.text = "\r\nnext";
  const std::string rtf = RtfWriter::document({statement, plain});
  EXPECT_EQ(rtf.rfind("{\\rtf1\\ansi\\ansicpg1252", 0), 0u);
  EXPECT_NE(rtf.find("{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green0\\blue0;}"),
            std::string::npos);
  EXPECT_NE(rtf.find("{\\b\\cf1 Maximum content"), std::string::npos);
  EXPECT_NE(rtf.find("{\\cf2 \\par\r\nnext}"), std::string::npos);
  EXPECT_EQ(rtf.substr(rtf.size() - 3), "}\r\n");

  // Braces balance, so readers see one document.
  int depth = 0;
  for (size_t i = 0; i < rtf.size(); ++i) {
    if (rtf[i] == '\\') {
      ++i;
      continue;
    }
    depth += rtf[i] == '{' ? 1 : rtf[i] == '}' ? -1 : 0;
    ASSERT_GE(depth, 0);
  }
  EXPECT_EQ(depth, 0);
}

TEST(RtfWriter, SaveReplacesTheFile) {
  TempFolder folder;
  const std::string path = folder.file("Report.rtf");
  RtfWriter::save(path, RtfWriter::document("first run"));
  RtfWriter::save(path, RtfWriter::document("second {run}"));
  const std::string content = rawBytes(path);
  EXPECT_EQ(content.find("first"), std::string::npos);
  EXPECT_NE(content.find("second \\{run\\}"), std::string::npos);
}

}  // namespace
}  // namespace pescavo::test
