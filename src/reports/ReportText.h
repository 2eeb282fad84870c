#pragma once

#include <string>

namespace pescavo {

class MainWindowModel;
struct ReportValues;

constexpr const char* kCrLf = "\r\n";

// The title block that opens a report section (ends with two empty lines).
std::string titleBlock(const std::string& substance);
// The block "Open Full Report File" collects for the report file (one empty line fewer).
std::string headerBlock(const std::string& substance);

// The INPUT and RESULTS parts of one run, appended to out; returns BurdenSum S.
double appendReportSection(const ReportValues& values, char decimalSeparator, std::string& out);

// Appends the last run's report section to model.report.bericht and finishes: in single mode
// (title block first) it fills the composition table and switches the main window off; in
// all-scenario mode it fills the shared single-result text, appends the text to Report.txt,
// replaces Report.rtf and empties the report text. A file that cannot be written is named in
// a message; the run's results stay.
void Berichtschreiben(MainWindowModel& model);

std::string reportTxtPath(const MainWindowModel& model);
std::string reportRtfPath(const MainWindowModel& model);

// Shows a report file failure once per sweep or Details run, not once per section.
void reportFileFailure(MainWindowModel& model, const std::string& message);

}  // namespace pescavo
