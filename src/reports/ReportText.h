#pragma once

#include <string>

namespace pescavo {

struct ReportValues;

constexpr const char* kCrLf = "\r\n";

// The title block that opens a report section (ends with two empty lines).
std::string titleBlock(const std::string& substance);
// The block "Open Full Report File" collects for the report file (one empty line fewer).
std::string headerBlock(const std::string& substance);

// The INPUT and RESULTS parts of one run, appended to out; returns BurdenSum S.
double appendReportSection(const ReportValues& values, char decimalSeparator, std::string& out);

}  // namespace pescavo
